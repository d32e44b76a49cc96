#include "services/gui_utils.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "headless_fixture.h"
#include "platform/headless/headless_list_box.h"
#include "platform/window_messages.h"
#include "services/gui_mouse.h"

namespace zk {
namespace {

class GuiUtilsTest : public HeadlessTest {
 protected:
  HeadlessWindowSystem& windows_ = platform_.Windows();
  WindowHandle form_ = windows_.CreateWindow(0, u"Form", {200, 100, 600, 400});
  // A list box of 100 x 200 pixels at (10, 10) in the form.
  std::unique_ptr<HeadlessListBox> list_box_ = [this] {
    auto list = std::make_unique<HeadlessListBox>(platform_, form_);
    list->Move(150, 150, 1500, 3000);
    return list;
  }();
  WindowHandle list_ = list_box_->hWnd();
};

TEST_F(GuiUtilsTest, MousePositionIsScreenOrClientRelative) {
  platform_.Screen().SetCursorPos(205, 90);
  EXPECT_EQ(MGuiUtils::GetMouseX(0), 205);
  EXPECT_EQ(MGuiUtils::GetMouseY(0), 90);
  EXPECT_EQ(MGuiUtils::GetMouseX(form_), 5);
  EXPECT_EQ(MGuiUtils::GetMouseY(form_), -10);
  EXPECT_EQ(MGuiUtils::GetMouseX(list_), -5);
  MGuiUtils::SetMousePos(7, 8);
  EXPECT_EQ(platform_.Screen().CursorPos(), (PixelPoint{7, 8}));
}

TEST_F(GuiUtilsTest, ListRowHeightInPixelsAndTwips) {
  EXPECT_EQ(MGuiUtils::GetListItemHeight(list_, false), 13);
  EXPECT_EQ(MGuiUtils::GetListItemHeight(list_, true), 195);
  EXPECT_TRUE(MGuiUtils::SetListItemHeight(list_, 17));
  EXPECT_FALSE(MGuiUtils::SetListItemHeight(list_, 300));  // the list box answers -1
  platform_.Screen().SetTwipsPerPixel(15, 12.5);
  EXPECT_EQ(MGuiUtils::GetListItemHeight(list_, true), 212);  // 212.5: halves to even
  MGuiUtils::SetListHorizontalExtent(list_, 450);
  EXPECT_EQ(list_box_->HorizontalExtent(), 450);
}

TEST_F(GuiUtilsTest, WindowRectangleScrollBarAndDragging) {
  EXPECT_EQ(MGuiUtils::GetWindowRectArray(list_), (std::array<int32_t, 4>{210, 110, 310, 310}));
  EXPECT_EQ(MGuiUtils::GetWindowRectArray(999), (std::array<int32_t, 4>{0, 0, 0, 0}));
  // 15 rows of 13 pixels fit between the 3-D border's edges (196 pixels); the 16th brings the
  // scroll bar.
  for (int row = 0; row < 15; ++row)
    list_box_->AddItem(u"row", -1);
  EXPECT_FALSE(MGuiUtils::HasVerticalScrollBar(list_));
  list_box_->AddItem(u"row", -1);
  EXPECT_TRUE(MGuiUtils::HasVerticalScrollBar(list_));
  EXPECT_FALSE(MGuiUtils::HasVerticalScrollBar(form_));

  windows_.SetCapture(list_);
  windows_.ClearDeliveredMessages();
  MGuiUtils::DragWindow(form_);
  EXPECT_EQ(windows_.Capture(), 0);
  ASSERT_EQ(windows_.DeliveredMessages().size(), 1u);
  EXPECT_EQ(
      windows_.DeliveredMessages()[0],
      (MessageRecord{form_, window_message::kNcLeftButtonDown, window_message::kHitCaption, 0}));
}

TEST_F(GuiUtilsTest, CloneFontCopiesAndKeepsNull) {
  FontRef font = platform_.NewFont();
  FontRef copy = MGuiUtils::CloneFont(font);
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, font);
  EXPECT_EQ(copy->Description(), font->Description());
  EXPECT_EQ(MGuiUtils::CloneFont(nullptr), nullptr);
}

// A text-holding object with the members SelectAllText uses.
class FakeTextBox : public DispatchObject {
 public:
  Variant GetProperty(std::u16string_view name, std::span<const Variant> index) override {
    if (MemberNameEquals(name, u"Text")) return Variant(text);
    return DispatchObject::GetProperty(name, index);
  }
  void SetProperty(std::u16string_view name, const Variant& value,
                   std::span<const Variant> index) override {
    if (MemberNameEquals(name, u"SelStart")) return void(sel_start = value.ToInt32());
    if (MemberNameEquals(name, u"SelLength")) return void(sel_length = value.ToInt32());
    DispatchObject::SetProperty(name, value, index);
  }
  std::u16string text = u"h\u00e9llo";
  int32_t sel_start = 3;
  int32_t sel_length = 0;
};

TEST_F(GuiUtilsTest, SelectAllTextSelectsEverythingAndIgnoresOtherObjects) {
  FakeTextBox box;
  MGuiUtils::SelectAllText(box);
  EXPECT_EQ(box.sel_start, 0);
  EXPECT_EQ(box.sel_length, 5);
  DispatchObject no_text;
  EXPECT_NO_THROW(MGuiUtils::SelectAllText(no_text));
}

TEST_F(GuiUtilsTest, MouseObjectMovesAlongOneAxisAndRestoresTheFirstPointer) {
  HeadlessScreen& screen = platform_.Screen();
  screen.SetMousePointer(mouse_pointer::kIbeam);
  screen.SetCursorPos(40, 50);
  {
    CGuiMouse mouse;
    mouse.SetX(70);
    EXPECT_EQ(screen.CursorPos(), (PixelPoint{70, 50}));
    mouse.SetY(20);
    EXPECT_EQ((PixelPoint{mouse.X(), mouse.Y()}), (PixelPoint{70, 20}));
    mouse.SetMousePointer(mouse_pointer::kHourglass);
    mouse.SetMousePointer(mouse_pointer::kCrosshair);
    EXPECT_EQ(screen.MousePointer(), mouse_pointer::kCrosshair);
    mouse.SetMousePointer(0x10000 + mouse_pointer::kArrow);  // only the low 16 bits count
    EXPECT_EQ(screen.MousePointer(), mouse_pointer::kArrow);
  }
  EXPECT_EQ(screen.MousePointer(), mouse_pointer::kIbeam);
  {
    CGuiMouse untouched;
    screen.SetMousePointer(mouse_pointer::kSizeAll);
  }
  EXPECT_EQ(screen.MousePointer(), mouse_pointer::kSizeAll);  // nothing saved, nothing restored
}

}  // namespace
}  // namespace zk
