#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/headless/headless_window_system.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

class WindowSystemTest : public testing::Test {
 protected:
  HeadlessWindowSystem windows_;
  WindowHandle form_ = windows_.CreateWindow(0, u"Form", {100, 50, 500, 350});
  WindowHandle child_ = windows_.CreateWindow(form_, u"Control", {10, 20, 110, 70});
};

TEST_F(WindowSystemTest, RectanglesAndClientCoordinatesFollowTheParentChain) {
  PixelRect rect;
  ASSERT_TRUE(windows_.GetWindowRect(child_, rect));
  EXPECT_EQ(rect, (PixelRect{110, 70, 210, 120}));
  PixelPoint point{105, 60};
  ASSERT_TRUE(windows_.ScreenToClient(child_, point));
  EXPECT_EQ(point, (PixelPoint{-5, -10}));
  EXPECT_FALSE(windows_.GetWindowRect(12345, rect));
  EXPECT_EQ(windows_.CreateWindow(12345, u"Orphan", {}), 0);
}

TEST_F(WindowSystemTest, ReplacedProceduresSeeMessagesAndCanCallThePreviousOne) {
  std::vector<std::u16string> order;
  int32_t previous = 0;
  const int32_t hook = windows_.RegisterWindowProcedure(
      [&](WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam) {
        order.push_back(u"hook");
        const int32_t result = windows_.CallWindowProc(previous, window, message, wparam, lparam);
        order.push_back(u"after");
        return result;
      });
  previous = windows_.SetWindowLong(child_, window_long::kWindowProcedure, hook);
  ASSERT_NE(previous, 0);
  EXPECT_EQ(windows_.GetWindowLong(child_, window_long::kWindowProcedure), hook);
  windows_.SendMessage(child_, window_message::kMouseWheel, 120 << 16, 0);
  EXPECT_EQ(order, (std::vector<std::u16string>{u"hook", u"after"}));
  EXPECT_EQ(windows_.DeliveredMessages().back(),
            (MessageRecord{child_, window_message::kMouseWheel, 120 << 16, 0}));
  // An address that names no procedure cannot be installed.
  EXPECT_EQ(windows_.SetWindowLong(child_, window_long::kWindowProcedure, 77), 0);
  EXPECT_EQ(windows_.SetWindowLong(child_, window_long::kWindowProcedure, previous), hook);
}

TEST_F(WindowSystemTest, DestructionSendsDestroyThenChildrenThenNcDestroy) {
  std::vector<std::pair<WindowHandle, uint32_t>> seen;
  const int32_t spy = windows_.RegisterWindowProcedure(
      [&](WindowHandle window, uint32_t message, int32_t, int32_t) {
        seen.emplace_back(window, message);
        return 0;
      });
  windows_.SetWindowLong(form_, window_long::kWindowProcedure, spy);
  windows_.SetWindowLong(child_, window_long::kWindowProcedure, spy);
  ASSERT_TRUE(windows_.DestroyWindow(form_));
  const std::vector<std::pair<WindowHandle, uint32_t>> expected = {
      {form_, window_message::kDestroy},
      {child_, window_message::kDestroy},
      {child_, window_message::kNcDestroy},
      {form_, window_message::kNcDestroy}};
  EXPECT_EQ(seen, expected);
  EXPECT_FALSE(windows_.IsWindow(child_));
  EXPECT_EQ(windows_.WindowCount(), 0u);
  EXPECT_EQ(windows_.SendMessage(child_, window_message::kMouseWheel, 0, 0), 0);
}

TEST_F(WindowSystemTest, WindowsWithoutAnElementAnswerNoListBoxMessage) {
  // The list box element answers them; the window system has no list boxes of its own.
  const WindowHandle list = windows_.CreateWindow(form_, u"ListBox", {0, 0, 100, 100});
  for (const uint32_t message :
       {window_message::kListGetItemHeight, window_message::kListSetItemHeight,
        window_message::kListSetHorizontalExtent}) {
    EXPECT_EQ(windows_.SendMessage(list, message, 0, 20), 0) << message;
  }
}

}  // namespace
}  // namespace zk
