// What a frame does to the controls that a form placed inside it when it is enabled or
// disabled, and how its border shows it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "controls/display/frame.h"
#include "form_fixture.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "support/test_kinds.h"

namespace zk {
namespace {

using Changes = std::vector<std::pair<std::u16string, std::u16string>>;

constexpr OLE_COLOR kBorder = 0x0000C0;
constexpr OLE_COLOR kInactiveBorder = 0x8000000B;

class FrameEnablingTest : public FormTest {
 protected:
  FrameEnablingTest() {
    RegisterTestControlKinds();  // ZKTestPlain, which has no Enabled
    frame_.SetBorderColor(kBorder);
    form_.TakePropertyChanges();
  }

  ZKControl& Inside(std::u16string_view kind, std::u16string_view name,
                    std::u16string_view container = u"F") {
    ZKControl& control = form_.AddControlInside(kind, name, container);
    form_.TakePropertyChanges();
    return control;
  }
  // The Enabled changes the form heard of, by control, oldest first.
  std::vector<std::u16string> EnabledChanges() {
    std::vector<std::u16string> controls;
    for (const auto& [control, property] : form_.TakePropertyChanges()) {
      if (property == u"Enabled") controls.push_back(control);
    }
    return controls;
  }
  bool SurfaceEnabled(std::u16string_view name) {
    return form_.FindSite(name)->Surface().Enabled();
  }

  ZKFrame& frame_ = Add<ZKFrame>(u"ZKFrame", u"F");
};

TEST_F(FrameEnablingTest, DisablingReachesEveryContainedControlInTheHostsOrder) {
  ZKControl& first = Inside(u"ZKLabel", u"First");
  ZKControl& edit = Inside(u"ZKTextEdit", u"Edit");
  ZKControl& button = Inside(u"ZKColorButton", u"Button");
  auto& inner = static_cast<ZKFrame&>(Inside(u"ZKFrame", u"Inner"));
  ZKControl& deep = Inside(u"ZKLabel", u"Deep", u"Inner");
  ZKControl& outside = Add<ZKControl>(u"ZKLabel", u"Outside");
  frame_.SetBorderDisables(true);
  form_.TakePropertyChanges();

  frame_.SetEnabled(false);
  for (ZKControl* control : {&first, &edit, &button, static_cast<ZKControl*>(&inner), &deep}) {
    EXPECT_FALSE(control->Enabled()) << Utf16ToUtf8(control->Name());
  }
  EXPECT_TRUE(outside.Enabled());
  EXPECT_FALSE(frame_.Enabled());
  EXPECT_FALSE(frame_.CaptionElement().Enabled());
  EXPECT_FALSE(SurfaceEnabled(u"F"));
  EXPECT_EQ(frame_.BorderElement().BorderColor(), kInactiveBorder);
  EXPECT_EQ(frame_.BorderColor(), kBorder);  // the colour itself stays
  // The inner frame passes it on to what it holds before it notifies its own change.
  EXPECT_EQ(EnabledChanges(),
            (std::vector<std::u16string>{u"First", u"Edit", u"Button", u"Deep", u"Inner", u"F"}));

  frame_.SetEnabled(true);
  for (ZKControl* control : {&first, &edit, &button, static_cast<ZKControl*>(&inner), &deep}) {
    EXPECT_TRUE(control->Enabled());
  }
  EXPECT_TRUE(SurfaceEnabled(u"F"));
  EXPECT_EQ(frame_.BorderElement().BorderColor(), kBorder);
}

TEST_F(FrameEnablingTest, BorderDisablesDecidesOnlyTheLookOfTheBorder) {
  ZKControl& label = Inside(u"ZKLabel", u"L");
  struct Step {
    bool border_disables;
    bool enabled;
    OLE_COLOR border;
  };
  const Step steps[] = {
      {false, false, kBorder},  // disabled, but the border keeps its colour
      {true, false, kInactiveBorder}, {true, true, kBorder},   {false, true, kBorder},
      {true, false, kInactiveBorder}, {false, false, kBorder},  // switching it off shows the colour
                                                                // again at once
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(testing::Message()
                 << "BorderDisables " << step.border_disables << ", Enabled " << step.enabled);
    frame_.SetBorderDisables(step.border_disables);
    frame_.SetEnabled(step.enabled);
    EXPECT_EQ(label.Enabled(), step.enabled);
    EXPECT_EQ(frame_.BorderElement().BorderColor(), step.border);
  }
  // Writing BorderDisables runs the procedure with the current state: the contents hear of it.
  form_.TakePropertyChanges();
  frame_.SetBorderDisables(true);
  EXPECT_EQ(EnabledChanges(), (std::vector<std::u16string>{u"L"}));
  EXPECT_EQ(frame_.BorderElement().BorderColor(), kInactiveBorder);
}

TEST_F(FrameEnablingTest, AContainedObjectWithoutEnabledStopsTheProcedureThere) {
  frame_.SetBorderDisables(true);
  ZKControl& before = Inside(u"ZKLabel", u"Before");
  Inside(u"ZKTestPlain", u"Plain");
  ZKControl& after = Inside(u"ZKLabel", u"After");
  try {
    frame_.SetEnabled(false);
    ADD_FAILURE() << "no error";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), error_number::kMemberNotFound);
  }
  EXPECT_FALSE(before.Enabled());
  EXPECT_TRUE(after.Enabled());
  EXPECT_FALSE(frame_.Enabled());  // the frame and its caption changed first
  EXPECT_FALSE(SurfaceEnabled(u"F"));
  EXPECT_EQ(frame_.BorderElement().BorderColor(), kBorder);               // the border did not
  EXPECT_EQ(EnabledChanges(), (std::vector<std::u16string>{u"Before"}));  // F notified nothing

  // A late-bound write fails the same way.
  try {
    frame_.SetProperty(u"Enabled", Variant(true));
    ADD_FAILURE() << "no error";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), error_number::kMemberNotFound);
  }
  EXPECT_TRUE(before.Enabled());
  EXPECT_TRUE(frame_.Enabled());
  // Writing BorderDisables runs the same procedure and stops at the same object.
  EXPECT_THROW(frame_.SetBorderDisables(false), ZKError);
  EXPECT_FALSE(frame_.BorderDisables());  // the field was written before the procedure ran
  const std::vector<std::u16string> notified = Notified();
  EXPECT_EQ(std::count(notified.begin(), notified.end(), u"BorderDisables"), 0);
  // Once the object is gone the procedure runs through.
  ASSERT_TRUE(form_.RemoveControl(u"Plain"));
  frame_.SetBorderDisables(true);
  frame_.SetEnabled(false);
  EXPECT_FALSE(after.Enabled());
  EXPECT_EQ(frame_.BorderElement().BorderColor(), kInactiveBorder);
}

TEST_F(FrameEnablingTest, TheExtenderAndTheArchiveEnableThroughTheSameProcedure) {
  ZKControl& label = Inside(u"ZKLabel", u"L");
  form_.FindExtender(u"F")->SetProperty(u"Enabled", Variant(false));
  EXPECT_FALSE(label.Enabled());
  const std::u16string disabled = frame_.GetArchiveStr();
  frame_.SetEnabled(true);
  ASSERT_TRUE(label.Enabled());
  // Element 0 carries Enabled; applying it disables what the frame holds.
  EXPECT_TRUE(frame_.ParseArchiveStr(disabled));
  EXPECT_FALSE(label.Enabled());
  EXPECT_FALSE(frame_.Enabled());
}

}  // namespace
}  // namespace zk
