// Parts and their owner destroyed in every order, also from inside the handlers of the very
// events that the part is raising: the part's click dropping that part, another part or the
// whole control, and parts dropped before the control goes. Under the sanitizers a step through
// a destroyed part or site shows as a use after free.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/signal.h"
#include "hosting/headless_form.h"
#include "services/subclass_procs.h"
#include "services/timer_procs.h"
#include "support/test_composite.h"
#include "support/test_kinds.h"

namespace zk {
namespace {

class PartLifetimeTest : public testing::Test {
 protected:
  PartLifetimeTest() { RegisterTestControlKinds(); }

  ZKTestComposite& PlaceComposite() {
    return static_cast<ZKTestComposite&>(form_.AddControl(u"ZKTestComposite", u"C"));
  }

  void Click(float x, float y) {
    form_.DeliverMouse(u"C", MouseAction::kDown, 1, 0, x, y);
    form_.DeliverMouse(u"C", MouseAction::kUp, 1, 0, x, y);
  }

  HeadlessPlatform platform_{HeadlessOptions{u"en-US"}};
  PlatformScope scope_{platform_};
  HeadlessForm form_{platform_};
};

// Points on the left button and on the right one (twips of the control).
constexpr float kLeftX = 10;
constexpr float kRightX = 2400;
constexpr float kPartY = 100;

TEST_F(PartLifetimeTest, AClickHandlerMayDropAnyPartOrTheWholeControl) {
  enum class Victim { kClickedPart, kOtherPart, kBothButtons, kControl };
  const struct {
    Victim victim;
    int32_t parts_left;                // -1: the control itself is gone
    std::u16string_view focused_part;  // where the focus is inside the control afterwards
  } cases[] = {{Victim::kClickedPart, 2, u""},
               {Victim::kOtherPart, 2, u"cmdLeft"},
               {Victim::kBothButtons, 1, u""},
               {Victim::kControl, -1, u""}};
  for (const auto& test : cases) {
    SCOPED_TRACE(static_cast<int>(test.victim));
    ZKTestComposite& composite = PlaceComposite();
    std::vector<std::u16string> clicks;
    ScopedConnection handler = composite.PartClick.Connect([&](std::u16string part) {
      clicks.push_back(part);
      switch (test.victim) {
        case Victim::kClickedPart:
          composite.DropPart(part);
          break;
        case Victim::kOtherPart:
          composite.DropPart(u"cmdRight");
          break;
        case Victim::kBothButtons:
          composite.DropPart(u"cmdRight");
          composite.DropPart(u"cmdLeft");
          break;
        case Victim::kControl:
          form_.RemoveControl(u"C");
          break;
      }
    });
    Click(kLeftX, kPartY);
    EXPECT_EQ(clicks, std::vector<std::u16string>{u"cmdLeft"});
    if (test.parts_left < 0) {
      handler.Disconnect();
      EXPECT_EQ(form_.FindControl(u"C"), nullptr);
      EXPECT_TRUE(form_.Controls().empty());
      continue;
    }
    EXPECT_EQ(composite.PartCount(), test.parts_left);
    // The control lives on and keeps the focus (on its own window when the clicked part went),
    // and clicks on the places of dropped parts reach the control itself.
    EXPECT_EQ(form_.FocusedControl(), &composite);
    EXPECT_EQ(composite.FocusedPart(), test.focused_part);
    handler.Disconnect();
    Click(kLeftX, kPartY);
    Click(kRightX, kPartY);
    EXPECT_TRUE(form_.RemoveControl(u"C"));
  }
  EXPECT_FALSE(MSubclass::RegistryExists());
  EXPECT_FALSE(MCTTimeProcs::RegistryExists());
}

TEST_F(PartLifetimeTest, PartsDroppedBeforeTheControlInEveryOrder) {
  const std::vector<std::vector<std::u16string>> orders = {
      {},
      {u"cmdLeft"},
      {u"tedValue", u"cmdLeft"},
      {u"cmdRight", u"tedValue", u"cmdLeft"},
      {u"cmdLeft", u"cmdLeft", u"tedValue"},
  };
  for (const auto& order : orders) {
    ZKTestComposite& composite = PlaceComposite();
    ASSERT_TRUE(composite.FocusPart(u"tedValue"));
    for (const std::u16string& part : order)
      composite.DropPart(part);
    // Dropping a part twice drops nothing more; what remains still works.
    composite.SetText(u"12");
    composite.SetLeftCaption(u"<");
    EXPECT_EQ(composite.Text(), composite.ValueEdit() ? u"12" : u"");
    EXPECT_EQ(composite.LeftCaption(), composite.LeftButton() ? u"<" : u"");
    const std::u16string archive = composite.GetArchiveStr();
    EXPECT_FALSE(archive.empty());
    EXPECT_TRUE(form_.RemoveControl(u"C"));
  }
  EXPECT_TRUE(form_.Controls().empty());
}

}  // namespace
}  // namespace zk
