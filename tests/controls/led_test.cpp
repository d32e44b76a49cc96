#include "controls/display/led.h"

#include <gtest/gtest.h>

#include "form_fixture.h"
#include "platform/common/memory_property_bag.h"

namespace zk {
namespace {

class LedTest : public FormTest {
 protected:
  ZKLed& led_ = Add<ZKLed>(u"ZKLed", u"Lamp");

  int Changes() {
    int changes = 0;
    for (const auto& record : events_)
      changes += record == u"Change";
    events_.clear();
    return changes;
  }
  std::vector<std::u16string> events_;
  ScopedConnection observer_ = led_.EventRaised().Connect(
      [this](std::u16string_view name, std::span<const Variant>) { events_.emplace_back(name); });
};

TEST_F(LedTest, LitRecoloursAlwaysButChangesOnlyOnARealChange) {
  EXPECT_EQ(led_.GetArchiveStr().substr(led_.GetArchiveStr().find(u",")),
            u",3,65280,16777215,F,1,F,500,F,\"\"");
  led_.SetLit(true);
  EXPECT_EQ(led_.LampShape().FillColor(), 65280u);
  led_.SetLit(true);
  led_.SetColorOff(0xFF);  // off colour while lit: nothing visible changes
  EXPECT_EQ(led_.LampShape().FillColor(), 65280u);
  led_.SetColorOn(0xFF0000);
  EXPECT_EQ(led_.LampShape().FillColor(), 0xFF0000u);
  led_.SetLit(false);
  EXPECT_EQ(led_.LampShape().FillColor(), 0xFFu);
  EXPECT_EQ(Changes(), 2);
  EXPECT_EQ(Notified(),
            (std::vector<std::u16string>{u"Lit", u"Lit", u"ColorOff", u"ColorOn", u"Lit"}));
}

TEST_F(LedTest, FlashesOnTheVirtualClockOnlyInRunMode) {
  led_.SetFlashEnabled(true);
  platform_.Advance(499);
  EXPECT_EQ(Changes(), 0);
  platform_.Advance(1);
  EXPECT_EQ(Changes(), 1);
  EXPECT_TRUE(led_.Lit());
  platform_.Advance(1000);  // about twice a second
  EXPECT_EQ(Changes(), 2);
  EXPECT_TRUE(led_.Lit());
  led_.SetFlashInterval(250);
  platform_.Advance(1000);
  EXPECT_EQ(Changes(), 4);
  led_.SetFlashInterval(0);  // stops, keeping the current state
  platform_.Advance(5000);
  EXPECT_EQ(Changes(), 0);
  EXPECT_EQ(platform_.Timers().RunningCount(), 0u);

  form_.SetAmbient(u"UserMode", Variant(false));
  auto& designed = Add<ZKLed>(u"ZKLed", u"Designed");
  designed.SetFlashEnabled(true);
  platform_.Advance(2000);
  EXPECT_FALSE(designed.Lit());
  EXPECT_EQ(platform_.Timers().RunningCount(), 0u);
}

TEST_F(LedTest, ALampLoadedInRunModeFlashes) {
  MemoryPropertyBag bag;
  led_.SetFlashEnabled(true);
  led_.SetFlashInterval(100);
  led_.WriteProperties(bag);
  auto& loaded = Add<ZKLed>(u"ZKLed", u"Loaded");
  Notified();
  loaded.ReadProperties(bag);
  EXPECT_TRUE(Notified().empty());
  bool seen_lit = false;
  auto watch = loaded.Change.Connect([&] { seen_lit = seen_lit || loaded.Lit(); });
  platform_.Advance(100);
  EXPECT_TRUE(seen_lit);
}

TEST_F(LedTest, RefusedValuesAndBorderWidths) {
  Notified();
  led_.SetBorderWidth(8193);
  led_.SetBorderWidth(-1);
  led_.SetLedShape(6);
  led_.SetLedShape(-1);
  led_.SetFlashInterval(-5);
  EXPECT_TRUE(Notified().empty());
  struct Row {
    int16_t width;
    int16_t style;
  };
  for (const Row row : {Row{0, line_style::kTransparent}, Row{1, line_style::kInsideSolid},
                        Row{8192, line_style::kInsideSolid}}) {
    led_.SetBorderWidth(row.width);
    EXPECT_EQ(led_.LampShape().BorderStyle(), row.style) << row.width;
    if (row.width > 0) {
      EXPECT_EQ(led_.LampShape().BorderWidth(), row.width);
    }
  }
  for (int16_t shape = 0; shape <= 5; ++shape) {
    led_.SetLedShape(shape);
    EXPECT_EQ(led_.LampShape().Shape(), shape);
  }
}

TEST_F(LedTest, DestroyingAFlashingLampStopsItsTimer) {
  led_.SetFlashEnabled(true);
  EXPECT_EQ(platform_.Timers().RunningCount(), 1u);
  form_.RemoveControl(u"Lamp");
  EXPECT_EQ(platform_.Timers().RunningCount(), 0u);
  EXPECT_NO_THROW(platform_.Advance(2000));  // nothing left to tick
}

}  // namespace
}  // namespace zk
