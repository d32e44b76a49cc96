// Window observers on a window system that refuses to install a window procedure or to give a
// window its previous one back: a refused hook changes nothing, a refused give-back leaves the
// object unhooked and, once the object is destroyed, no registry entry pointing at it; the
// window's later messages and its death reach nothing that is gone.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/headless/headless_list_box.h"
#include "platform/headless/headless_platform.h"
#include "platform/window_messages.h"
#include "services/subclass.h"
#include "services/subclass_procs.h"

namespace zk {
namespace {

using window_message::kListGetItemHeight;

// The headless window system, except that replacing a window's procedure can be refused, as a
// window of another process or one being destroyed refuses it.
class RefusingWindows final : public IWindowSystem {
 public:
  explicit RefusingWindows(HeadlessWindowSystem& inner) : inner_(inner) {}

  bool IsWindow(WindowHandle window) const override { return inner_.IsWindow(window); }
  bool GetWindowRect(WindowHandle window, PixelRect& rect) const override {
    return inner_.GetWindowRect(window, rect);
  }
  bool ScreenToClient(WindowHandle window, PixelPoint& point) const override {
    return inner_.ScreenToClient(window, point);
  }
  int32_t GetWindowLong(WindowHandle window, int32_t index) const override {
    return inner_.GetWindowLong(window, index);
  }
  int32_t SetWindowLong(WindowHandle window, int32_t index, int32_t value) override {
    if (refuse_procedure && index == window_long::kWindowProcedure) return 0;
    return inner_.SetWindowLong(window, index, value);
  }
  int32_t SendMessage(WindowHandle window, uint32_t message, int32_t wparam,
                      int32_t lparam) override {
    return inner_.SendMessage(window, message, wparam, lparam);
  }
  int32_t CallWindowProc(int32_t address, WindowHandle window, uint32_t message, int32_t wparam,
                         int32_t lparam) override {
    return inner_.CallWindowProc(address, window, message, wparam, lparam);
  }
  int32_t RegisterWindowProcedure(WindowProcedure procedure) override {
    return inner_.RegisterWindowProcedure(std::move(procedure));
  }
  void ReleaseWindowProcedure(int32_t address) override { inner_.ReleaseWindowProcedure(address); }
  bool ReleaseCapture() override { return inner_.ReleaseCapture(); }
  WindowHandle GetActiveWindow() const override { return inner_.GetActiveWindow(); }
  bool ActivateWindow(WindowHandle window) override { return inner_.ActivateWindow(window); }
  Signal<WindowHandle>& Activated() override { return inner_.Activated(); }

  bool refuse_procedure = false;

 private:
  HeadlessWindowSystem& inner_;
};

class RefusingPlatform final : public IPlatform {
 public:
  IScreen& Screen() override { return inner.Screen(); }
  IWindowSystem& Windows() override { return windows; }
  std::shared_ptr<const IFontCatalogue> FontCatalogue() override { return inner.FontCatalogue(); }
  IPictureLoader& Pictures() override { return inner.Pictures(); }
  ILocale& Locale() override { return inner.Locale(); }
  ITimerService& Timers() override { return inner.Timers(); }

  HeadlessPlatform inner{HeadlessOptions{u"en-US"}};
  RefusingWindows windows{inner.Windows()};
};

// An observer that counts what it sees.
struct Observer {
  Observer() {
    subclass.SetPropagate(true);
    counter = subclass.BeforeEvent().Connect([this](uint32_t, int32_t, int32_t) { ++seen; });
  }
  ZKCSubclass subclass;
  int seen = 0;
  ScopedConnection counter;
};

class SubclassFaultTest : public testing::Test {
 protected:
  RefusingPlatform platform_;
  PlatformScope scope_{platform_};
  HeadlessWindowSystem& windows_ = platform_.inner.Windows();
  WindowHandle form_ = windows_.CreateWindow(0, u"Form", {0, 0, 400, 300});
  HeadlessListBox list_box_{platform_.inner, form_};
  WindowHandle list_ = list_box_.hWnd();
  int32_t class_procedure_ = windows_.GetWindowLong(list_, window_long::kWindowProcedure);
};

TEST_F(SubclassFaultTest, RefusedInstallChangesNothingAndALaterHookWorks) {
  Observer observer;
  platform_.windows.refuse_procedure = true;
  EXPECT_FALSE(observer.subclass.Hook(list_));
  EXPECT_EQ(observer.subclass.hWnd(), 0);
  EXPECT_EQ(observer.subclass.PrevWndProc(), 0);
  EXPECT_FALSE(MSubclass::RegistryExists());
  EXPECT_EQ(windows_.GetWindowLong(list_, window_long::kWindowProcedure), class_procedure_);
  // The list box answers on its own (13), unobserved.
  EXPECT_EQ(windows_.SendMessage(list_, kListGetItemHeight, 0, 0), 13);
  EXPECT_EQ(observer.seen, 0);

  platform_.windows.refuse_procedure = false;
  ASSERT_TRUE(observer.subclass.Hook(list_));
  EXPECT_EQ(observer.subclass.PrevWndProc(), class_procedure_);
  EXPECT_EQ(windows_.SendMessage(list_, kListGetItemHeight, 0, 0), 13);
  EXPECT_EQ(observer.seen, 1);
}

// The window keeps the shared procedure after a refused give-back; the object is destroyed
// next, with or without another hooked window keeping the registry alive, and the window then
// gets messages and dies.
TEST_F(SubclassFaultTest, RefusedGiveBackLeavesNoEntryBehindTheDestroyedObject) {
  for (bool other_hooked : {false, true}) {
    SCOPED_TRACE(other_hooked);
    const WindowHandle window = windows_.CreateWindow(form_, u"Control", {});
    Observer other;
    if (other_hooked) {
      ASSERT_TRUE(other.subclass.Hook(form_));
    }
    auto observer = std::make_unique<Observer>();
    ASSERT_TRUE(observer->subclass.Hook(window));

    platform_.windows.refuse_procedure = true;
    EXPECT_FALSE(observer->subclass.Unhook());
    // The object counts as unhooked; the window still reaches it while it lives.
    EXPECT_EQ(observer->subclass.hWnd(), 0);
    windows_.SendMessage(window, kListGetItemHeight, 0, 0);
    EXPECT_EQ(observer->seen, 1);
    observer.reset();
    platform_.windows.refuse_procedure = false;
    EXPECT_EQ(MSubclass::RegistryExists(), other_hooked);

    // Nothing of the object is reached any more.
    EXPECT_EQ(windows_.SendMessage(window, kListGetItemHeight, 0, 0), 0);
    EXPECT_TRUE(windows_.DestroyWindow(window));
    EXPECT_EQ(other.seen, 0);
    if (other_hooked) {
      EXPECT_TRUE(other.subclass.Unhook());
    }
    EXPECT_FALSE(MSubclass::RegistryExists());
  }
}

// The window dies while the give-back is refused: its last message unhooks the object as far
// as it can, and the object's destruction then removes what is left.
TEST_F(SubclassFaultTest, RefusedGiveBackAtTheWindowsDeath) {
  const WindowHandle window = windows_.CreateWindow(form_, u"Control", {});
  auto observer = std::make_unique<Observer>();
  ASSERT_TRUE(observer->subclass.Hook(window));
  platform_.windows.refuse_procedure = true;
  EXPECT_TRUE(windows_.DestroyWindow(window));
  EXPECT_EQ(observer->subclass.hWnd(), 0);
  EXPECT_EQ(observer->seen, 2);  // kDestroy and kNcDestroy
  // The object can observe another window meanwhile, and gives both up when it goes.
  platform_.windows.refuse_procedure = false;
  ASSERT_TRUE(observer->subclass.Hook(list_));
  observer.reset();
  EXPECT_FALSE(MSubclass::RegistryExists());
  EXPECT_EQ(windows_.GetWindowLong(list_, window_long::kWindowProcedure), class_procedure_);
  EXPECT_EQ(windows_.SendMessage(list_, kListGetItemHeight, 0, 0), 13);
}

}  // namespace
}  // namespace zk
