#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/display/led.h"
#include "platform/window_messages.h"
#include "qt_fixture.h"
#include "services/subclass.h"
#include "services/timer.h"

namespace zk {
namespace {

class QtServicesTest : public QtFormTest {};

TEST_F(QtServicesTest, SubclassSeesTheWheelOfARealWidgetAndUnhooksWhenItGoes) {
  AddLabel(u"L");
  const WindowHandle window = form_.FindSite(u"L")->Surface().hWnd();
  std::vector<std::u16string> order;
  ZKCSubclass subclass;
  subclass.SetPropagate(true);
  auto before = subclass.BeforeEvent().Connect([&](uint32_t message, int32_t wparam, int32_t) {
    if (message == window_message::kMouseWheel) {
      order.push_back(u"before " + std::u16string(wparam < 0 ? u"-" : u"+"));
    }
  });
  auto after = subclass.AfterEvent().Connect([&](uint32_t message, int32_t, int32_t) {
    if (message == window_message::kMouseWheel) order.push_back(u"after");
  });
  ASSERT_TRUE(subclass.Hook(window));
  form_.Wheel(u"L", -120);
  subclass.SetPropagate(false);  // swallowed: the widget's own procedure does not see it
  form_.Wheel(u"L", 120);
  EXPECT_EQ(order, (std::vector<std::u16string>{u"before -", u"after", u"before +"}));
  form_.RemoveAll();  // the window goes: its last message unhooks the object
  EXPECT_EQ(subclass.hWnd(), 0);
  EXPECT_EQ(subclass.PrevWndProc(), 0);
}

TEST_F(QtServicesTest, TimerObjectsAndAFlashingLampTickThroughQtsEventLoop) {
  ZKCTimer timer;
  int ticks = 0;
  auto tick = timer.Timer().Connect([&] {
    if (++ticks == 3) timer.SetEnabled(false);  // a handler may stop its own timer
  });
  timer.SetInterval(20);
  timer.SetEnabled(true);
  auto& lamp = static_cast<ZKLed&>(form_.AddControl(u"ZKLed", u"Lamp"));
  int changes = 0;
  auto change = lamp.Change.Connect([&] { ++changes; });
  lamp.SetFlashInterval(100);
  lamp.SetFlashEnabled(true);
  // Real timers on a loaded machine: wait until both have ticked enough, up to a generous bound.
  for (int waited = 0; (ticks < 3 || changes < 3) && waited < 5000; waited += 20)
    form_.Wait(20);
  EXPECT_EQ(ticks, 3);
  EXPECT_FALSE(timer.Enabled());
  EXPECT_GE(changes, 3);
  EXPECT_LE(changes, 5);
}

}  // namespace
}  // namespace zk
