#include "services/subclass.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/zk_error.h"
#include "platform/headless/headless_list_box.h"
#include "platform/headless_fixture.h"
#include "platform/window_messages.h"
#include "services/subclass_procs.h"

namespace zk {
namespace {

using Log = std::vector<std::string>;
using window_message::kListGetItemHeight;
using window_message::kNcDestroy;

// Logs the events with the count of messages that windows' own procedures had received then,
// which shows where the previous procedure ran.
struct Spy {
  Spy(HeadlessWindowSystem& windows, bool propagate) {
    subclass.SetPropagate(propagate);
    auto logger = [this, &windows](const char* event) {
      return [this, &windows, event](uint32_t m, int32_t w, int32_t l) {
        log.push_back(std::string(event) + " " + std::to_string(m) + " " + std::to_string(w) + " " +
                      std::to_string(l) + " @" +
                      std::to_string(windows.DeliveredMessages().size()));
      };
    };
    before = subclass.BeforeEvent().Connect(logger("before"));
    after = subclass.AfterEvent().Connect(logger("after"));
  }
  ZKCSubclass subclass;
  Log log;
  ScopedConnection before, after;
};

class SubclassTest : public HeadlessTest {
 protected:
  static std::u16string Key(WindowHandle window) {
    const std::string digits = std::to_string(window) + "_";
    return {digits.begin(), digits.end()};
  }

  HeadlessWindowSystem& windows_ = platform_.Windows();
  WindowHandle form_ = windows_.CreateWindow(0, u"Form", {0, 0, 400, 300});
  HeadlessListBox list_box_{platform_, form_};
  WindowHandle list_ = list_box_.hWnd();
  int32_t class_procedure_ = windows_.GetWindowLong(list_, window_long::kWindowProcedure);
};

TEST_F(SubclassTest, PropagateDecidesWhetherThePreviousProcedureRuns) {
  const struct {
    bool propagate;
    int32_t result;  // the list box's own procedure answers 13
    Log log;
    size_t delivered;
  } cases[] = {{true, 13, {"before 417 7 9 @0", "after 417 7 9 @1"}, 1},
               {false, 0, {"before 417 7 9 @0"}, 0}};
  for (const auto& test : cases) {
    windows_.ClearDeliveredMessages();
    Spy spy(windows_, test.propagate);
    ASSERT_TRUE(spy.subclass.Hook(list_));
    EXPECT_EQ(spy.subclass.hWnd(), list_);
    EXPECT_EQ(spy.subclass.PrevWndProc(), class_procedure_);
    EXPECT_EQ(windows_.SendMessage(list_, kListGetItemHeight, 7, 9), test.result);
    EXPECT_EQ(spy.log, test.log);
    EXPECT_EQ(windows_.DeliveredMessages().size(), test.delivered);
  }
}

TEST_F(SubclassTest, RefusedHooksChangeNothing) {
  Spy first(windows_, true), second(windows_, true);
  EXPECT_FALSE(first.subclass.Hook(0));
  EXPECT_FALSE(first.subclass.Hook(12345));  // no such window
  EXPECT_FALSE(MSubclass::RegistryExists());
  ASSERT_TRUE(first.subclass.Hook(list_));
  EXPECT_FALSE(first.subclass.Hook(form_));   // already hooked
  EXPECT_FALSE(second.subclass.Hook(list_));  // the window is taken
  EXPECT_EQ(first.subclass.hWnd(), list_);
  EXPECT_EQ(first.subclass.PrevWndProc(), class_procedure_);
  EXPECT_EQ(second.subclass.PrevWndProc(), 0);
  windows_.SendMessage(list_, kListGetItemHeight, 0, 0);
  EXPECT_EQ(first.log.size(), 2u);
  EXPECT_TRUE(second.log.empty());
}

TEST_F(SubclassTest, FailuresAreTracedWithTheirProcedure) {
  ZKCSubclass hooked;
  ASSERT_TRUE(hooked.Hook(list_));
  const struct {
    std::function<bool()> call;
    std::u16string procedure;
  } cases[] = {
      {[] { return MSubclass::Hook(nullptr, 1) != 0; }, u"Hook"},
      {[&] { return MSubclass::Hook(&hooked, form_) != 0; }, u"Hook"},
      {[] { return MSubclass::Unhook(nullptr); }, u"Unook"},
      {[] { return MSubclass::WindowProc(12345, kListGetItemHeight, 0, 0) != 0; }, u"WindowProc"},
  };
  for (const auto& test : cases) {
    platform_.Recorder().Clear();
    EXPECT_FALSE(test.call());
    ASSERT_EQ(platform_.Recorder().traces.size(), 1u);
    EXPECT_EQ(platform_.Recorder().traces[0].source, u"MSubClass");
    EXPECT_EQ(platform_.Recorder().traces[0].procedure, test.procedure);
  }
  EXPECT_EQ(hooked.hWnd(), list_);
}

TEST_F(SubclassTest, TwoWindowsWorkIndependentlyAndTheLastUnhookDropsTheRegistry) {
  Spy on_list(windows_, true), on_form(windows_, true);
  ASSERT_TRUE(on_list.subclass.Hook(list_));
  ASSERT_TRUE(on_form.subclass.Hook(form_));
  EXPECT_EQ(MSubclass::RegistryKeys(), (std::vector{Key(form_), Key(list_)}));
  const int32_t shared = MSubclass::ProcedureAddress();
  windows_.SendMessage(form_, window_message::kMouseWheel, 1, 2);
  EXPECT_TRUE(on_list.log.empty());
  EXPECT_EQ(on_form.log.size(), 2u);

  EXPECT_TRUE(on_form.subclass.Unhook());
  EXPECT_EQ(MSubclass::RegistryKeys(), std::vector{Key(list_)});
  EXPECT_EQ(windows_.GetWindowLong(form_, window_long::kWindowProcedure), class_procedure_);
  EXPECT_TRUE(on_list.subclass.Unhook());
  EXPECT_FALSE(MSubclass::RegistryExists());
  // The shared procedure's address went with the registry.
  EXPECT_EQ(windows_.SetWindowLong(form_, window_long::kWindowProcedure, shared), 0);
  EXPECT_TRUE(platform_.Recorder().traces.empty());
}

TEST_F(SubclassTest, ObjectAndWindowMayGoInAnyOrder) {
  enum class Ending { kObjectFirst, kWindowFirst, kObjectInsideItsOwnHandler };
  const struct {
    Ending ending;
    bool propagate;
  } cases[] = {{Ending::kObjectFirst, true},
               {Ending::kWindowFirst, true},
               {Ending::kWindowFirst, false},
               {Ending::kObjectInsideItsOwnHandler, true}};
  for (const auto& [ending, propagate] : cases) {
    const WindowHandle window = windows_.CreateWindow(form_, u"Control", {});
    auto spy = std::make_unique<Spy>(windows_, propagate);
    ASSERT_TRUE(spy->subclass.Hook(window));
    ScopedConnection destroyer =
        spy->subclass.BeforeEvent().Connect([&](uint32_t, int32_t, int32_t) {
          if (ending == Ending::kObjectInsideItsOwnHandler) spy.reset();
        });
    if (ending == Ending::kWindowFirst) {
      windows_.DestroyWindow(window);
      EXPECT_EQ(spy->subclass.hWnd(), 0);
      EXPECT_EQ(spy->subclass.PrevWndProc(), 0);
      EXPECT_EQ(spy->log.back().rfind(propagate ? "after 130" : "before 130", 0), 0u);
      EXPECT_FALSE(spy->subclass.Unhook());
    } else if (ending == Ending::kObjectInsideItsOwnHandler) {
      // Gone before the previous procedure would run: nothing is passed on.
      EXPECT_EQ(windows_.SendMessage(window, kListGetItemHeight, 0, 0), 0);
      EXPECT_EQ(spy, nullptr);
    }
    spy.reset();
    EXPECT_FALSE(MSubclass::RegistryExists());
    windows_.DestroyWindow(window);
    if (propagate) {
      EXPECT_EQ(windows_.DeliveredMessages().back(), (MessageRecord{window, kNcDestroy, 0, 0}));
    }
  }
  EXPECT_TRUE(platform_.Recorder().traces.empty());
}

TEST_F(SubclassTest, HandlerErrorEndsTheHookAndIsTraced) {
  Spy spy(windows_, true);
  ScopedConnection failing = spy.subclass.BeforeEvent().Connect(
      [](uint32_t, int32_t, int32_t) { throw ZKError::Overflow(); });
  ASSERT_TRUE(spy.subclass.Hook(list_));
  EXPECT_EQ(windows_.SendMessage(list_, kListGetItemHeight, 0, 0), 0);
  EXPECT_EQ(platform_.Recorder().traces,
            (std::vector<MDebugUtils::TraceRecord>{{u"MSubClass", u"WindowProc", 6, u"Overflow"}}));
  EXPECT_FALSE(MSubclass::RegistryExists());
  EXPECT_EQ(windows_.SendMessage(list_, kListGetItemHeight, 0, 0), 13);
}

TEST(SubclassPlatformTest, HooksFollowTheWindowSystemTheyWereMadeIn) {
  HeadlessPlatform outer(HeadlessOptions{u"en-US"});
  std::optional<PlatformScope> outer_scope(std::in_place, outer);
  auto outer_hook = std::make_unique<ZKCSubclass>();
  const WindowHandle outer_window = outer.Windows().CreateWindow(0, u"Form", {});
  ASSERT_TRUE(outer_hook->Hook(outer_window));
  {
    // The shared procedure needs an address of this window system too. (Both systems number
    // their handles alike; the second window keeps the registry's keys apart.)
    HeadlessPlatform inner(HeadlessOptions{u"en-US"});
    PlatformScope inner_scope(inner);
    inner.Windows().CreateWindow(0, u"Form", {});
    ZKCSubclass inner_hook;
    ASSERT_TRUE(inner_hook.Hook(inner.Windows().CreateWindow(0, u"Form", {})));
    EXPECT_TRUE(inner_hook.Unhook());
  }
  EXPECT_TRUE(outer_hook->Unhook());
  EXPECT_FALSE(MSubclass::RegistryExists());

  // An object that outlives its platform still leaves the registry.
  ASSERT_TRUE(outer_hook->Hook(outer_window));
  outer_scope.reset();
  outer_hook.reset();
  EXPECT_FALSE(MSubclass::RegistryExists());
}

}  // namespace
}  // namespace zk
