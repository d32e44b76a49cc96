#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/common/procedure_window_system.h"
#include "platform/elements.h"
#include "platform/font_catalogue.h"
#include "platform/screen.h"
#include "platform/window_messages.h"

namespace zk {

// What a platform shows of a list box, in ListBoxState::Show.
namespace list_box_view {
inline constexpr unsigned kCurrentRow = 1;  // which row is current
inline constexpr unsigned kTopRow = 2;      // which row is on top
inline constexpr unsigned kScrollBars = 4;  // which scroll bars show
inline constexpr unsigned kLook = 8;        // colours, font, border, row height, extent
}  // namespace list_box_view

// What a list box is on every platform, over the platform's element base `Base` (an
// ElementState of IListBoxElement): the rows, the current and the first visible row, the look,
// the row height, the scroll bars that the size calls for, the list messages of its window and
// what the user's keys, mouse, wheel and scroll bar do. A platform shows the state (Show and the
// row hooks) and reports the user's input (the User... calls); it decides nothing itself, so a
// list box behaves alike everywhere.
template <typename Base>
class ListBoxState : public Base {
 public:
  ListBoxState(ProcedureWindowSystem& windows, const IScreen& screen,
               std::shared_ptr<const IFontCatalogue> fonts)
      : windows_(windows), screen_(screen), fonts_(std::move(fonts)) {
    font_ = fonts_->DefaultFont();
    row_height_ = LineHeightOf(font_);
  }
  ~ListBoxState() override { *alive_ = false; }
  ListBoxState(const ListBoxState&) = delete;
  ListBoxState& operator=(const ListBoxState&) = delete;

  WindowHandle hWnd() const override { return window_; }

  void Move(double left, double top, double width, double height) override {
    Base::Move(left, top, width, height);
    Relayout(0);
  }

  int32_t ListCount() const override { return static_cast<int32_t>(rows_.size()); }
  std::u16string List(int32_t index) const override {
    return IsRow(index) ? rows_[static_cast<size_t>(index)] : std::u16string();
  }
  bool SetList(int32_t index, std::u16string_view text) override {
    if (!IsRow(index)) return false;
    rows_[static_cast<size_t>(index)] = text;
    RowChanged(index);
    return true;
  }
  bool AddItem(std::u16string_view text, int32_t index) override {
    if (index == -1) index = ListCount();
    if (index < 0 || index > ListCount()) return false;
    rows_.insert(rows_.begin() + index, std::u16string(text));
    unsigned shown = 0;
    if (list_index_ >= index) {
      ++list_index_;
      shown |= list_box_view::kCurrentRow;
    }
    RowInserted(index);
    Relayout(shown);
    return true;
  }
  bool RemoveItem(int32_t index) override {
    if (!IsRow(index)) return false;
    rows_.erase(rows_.begin() + index);
    unsigned shown = 0;
    if (list_index_ == index) {
      list_index_ = -1;
      shown |= list_box_view::kCurrentRow;
    } else if (list_index_ > index) {
      --list_index_;
      shown |= list_box_view::kCurrentRow;
    }
    RowRemoved(index);
    Relayout(shown);
    return true;
  }
  void Clear() override {
    rows_.clear();
    list_index_ = -1;
    top_index_ = 0;
    RowsCleared();
    Relayout(list_box_view::kCurrentRow | list_box_view::kTopRow);
  }

  int32_t ListIndex() const override { return list_index_; }
  bool SetListIndex(int32_t index) override {
    if (index < -1 || index >= ListCount()) return false;
    const bool changed = index != list_index_;
    list_index_ = index;
    if (index >= 0) top_index_ = TopShowing(index);
    Show(list_box_view::kCurrentRow | list_box_view::kTopRow);
    if (changed) this->Click().Emit();
    return true;
  }
  int32_t TopIndex() const override { return top_index_; }
  bool SetTopIndex(int32_t index) override {
    if (index < 0 || (index >= ListCount() && index != 0)) return false;
    const int32_t top = std::min(index, MaxTopIndex());
    if (top != top_index_) {
      top_index_ = top;
      Show(list_box_view::kTopRow);
    }
    return true;
  }
  int32_t VisibleRows() const override { return RowsAreaHeight() / row_height_; }

  OLE_COLOR ForeColor() const override { return fore_color_; }
  void SetForeColor(OLE_COLOR color) override {
    fore_color_ = color;
    Show(list_box_view::kLook);
  }
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override {
    back_color_ = color;
    Show(list_box_view::kLook);
  }
  FontDescription Font() const override { return font_; }
  void SetFont(const FontDescription& font) override {
    font_ = font;
    row_height_ = LineHeightOf(font_);
    Relayout(list_box_view::kLook);
  }
  int16_t Appearance() const override { return appearance_; }
  void SetAppearance(int16_t appearance) override {
    appearance_ = appearance;
    Relayout(list_box_view::kLook);
  }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override {
    border_style_ = style;
    Relayout(list_box_view::kLook);
  }
  int32_t RowHeight() const override { return row_height_; }
  bool SetRowHeight(int32_t pixels) override {
    if (pixels < 1 || pixels > kLargestRowHeight) return false;
    row_height_ = pixels;
    Relayout(list_box_view::kLook);
    return true;
  }
  int32_t HorizontalExtent() const override { return horizontal_extent_; }
  void SetHorizontalExtent(int32_t pixels) override {
    horizontal_extent_ = std::max(0, pixels);
    Relayout(list_box_view::kLook);
  }

  Signal<>& Scroll() override { return scroll_; }
  Signal<int16_t&, int16_t&>& KeyDown() override { return key_down_; }
  Signal<int16_t&>& KeyPress() override { return key_press_; }
  Signal<int16_t&, int16_t&>& KeyUp() override { return key_up_; }
  Signal<>& GotFocus() override { return got_focus_; }
  Signal<>& LostFocus() override { return lost_focus_; }

  // The border's width in pixels.
  int32_t BorderPixels() const { return border_style_ == 0 ? 0 : (appearance_ == 1 ? 2 : 1); }
  bool VerticalBarShown() const { return vertical_bar_; }
  bool HorizontalBarShown() const { return horizontal_bar_; }
  // The highest row that can be on top: the last row does not go above the bottom.
  int32_t MaxTopIndex() const { return std::max(0, ListCount() - std::max(1, VisibleRows())); }
  // The rows' area inside the border and beside (above) the scroll bars, pixels.
  int32_t RowsAreaWidth() const {
    return std::max(0, InnerWidth() - (vertical_bar_ ? ScrollBarWidth() : 0));
  }
  int32_t RowsAreaHeight() const {
    return std::max(0, InnerHeight() - (horizontal_bar_ ? ScrollBarHeight() : 0));
  }

 protected:
  static constexpr int32_t kLargestRowHeight = 255;
  static constexpr int32_t kWheelNotch = 120;
  static constexpr int32_t kRowsPerNotch = 3;

  // Gives the box its window: the list messages sent to it are answered here from now on.
  void AttachWindow(WindowHandle window) {
    window_ = window;
    windows_.SetClassHandler(
        window, [this](WindowHandle, uint32_t message, int32_t wparam, int32_t lparam) {
          return Answer(message, wparam, lparam);
        });
    ShowScrollBarStyle();
  }

  // The platform shows what changed (list_box_view bits).
  virtual void Show(unsigned /*what*/) {}
  // The platform's copy of the rows follows (a view over them).
  virtual void RowInserted(int32_t /*index*/) {}
  virtual void RowRemoved(int32_t /*index*/) {}
  virtual void RowChanged(int32_t /*index*/) {}
  virtual void RowsCleared() {}

  // A key pressed while the box has the keys: KeyDown, the box's move, KeyPress with the
  // character (when there is one).
  void UserKeyDown(int16_t key_code, int16_t shift, int16_t character) {
    const std::shared_ptr<bool> alive = alive_;
    int16_t code = key_code;
    int16_t modifiers = shift;
    key_down_.Emit(code, modifiers);
    if (!*alive) return;
    if (code != 0) MoveByKey(code);
    if (!*alive || character == 0) return;
    int16_t typed = character;
    key_press_.Emit(typed);
  }
  void UserKeyUp(int16_t key_code, int16_t shift) {
    int16_t code = key_code;
    int16_t modifiers = shift;
    key_up_.Emit(code, modifiers);
  }
  // A mouse action at (x, y), twips from the box's top left corner. The left button makes the
  // row under it current, pressed or dragged over; actions over a scroll bar are the bar's.
  void UserMouse(MouseAction action, int16_t button, int16_t shift, float x, float y) {
    if (OnScrollBar(x, y)) return;
    const std::shared_ptr<bool> alive = alive_;
    const int32_t row = RowAt(x, y);
    switch (action) {
      case MouseAction::kDown:
        this->MouseDown().Emit(button, shift, x, y);
        if (*alive && button == kLeftButton && row >= 0) MakeCurrentByUser(row, true);
        return;
      case MouseAction::kDoubleDown:
        if (button == kLeftButton && row >= 0) MakeCurrentByUser(row, false);
        if (*alive) this->DblClick().Emit();
        return;
      case MouseAction::kMove:
        this->MouseMove().Emit(button, shift, x, y);
        if (*alive && (button & kLeftButton) != 0 && row >= 0 && row != list_index_) {
          MakeCurrentByUser(row, false);
        }
        return;
      case MouseAction::kUp:
        this->MouseUp().Emit(button, shift, x, y);
        return;
    }
  }
  // The user moved the scroll bar to put `row` on top.
  void UserScrollTo(int32_t row) {
    const int32_t top = std::clamp(row, 0, MaxTopIndex());
    if (top == top_index_) return;
    top_index_ = top;
    Show(list_box_view::kTopRow);
    scroll_.Emit();
  }
  // The box gained or lost the keys.
  void UserFocus(bool focused) { (focused ? got_focus_ : lost_focus_).Emit(); }

  // The row under (x, y), twips from the box's top left corner; -1 for none.
  int32_t RowAt(float x, float y) const {
    const int32_t px = PixelX(x) - BorderPixels();
    const int32_t py = PixelY(y) - BorderPixels();
    if (px < 0 || py < 0 || px >= RowsAreaWidth() || py >= RowsAreaHeight()) return -1;
    const int64_t row = static_cast<int64_t>(top_index_) + py / row_height_;
    return row < ListCount() ? static_cast<int32_t>(row) : -1;
  }
  const std::vector<std::u16string>& Rows() const { return rows_; }
  // Reads false once the box is being destroyed (a handler may destroy it while it raises
  // events): a caller that raises several keeps a copy and checks it between them.
  std::shared_ptr<bool> Alive() const { return alive_; }
  ProcedureWindowSystem& Windows() const { return windows_; }
  const IScreen& Screen() const { return screen_; }

 private:
  static constexpr int16_t kLeftButton = 1;

  bool IsRow(int32_t index) const { return index >= 0 && index < ListCount(); }
  int32_t LineHeightOf(const FontDescription& font) const {
    return std::clamp(fonts_->MeasureText(font, u"", 0).height, 1, kLargestRowHeight);
  }
  // The box's size in pixels as its window has it: from its rounded edges.
  int32_t InnerWidth() const {
    const double tpp = screen_.TwipsPerPixelX();
    return std::max<int32_t>(0, Rounded((this->Left() + this->Width()) / tpp) -
                                    Rounded(this->Left() / tpp) - 2 * BorderPixels());
  }
  int32_t InnerHeight() const {
    const double tpp = screen_.TwipsPerPixelY();
    return std::max<int32_t>(0, Rounded((this->Top() + this->Height()) / tpp) -
                                    Rounded(this->Top() / tpp) - 2 * BorderPixels());
  }
  static int32_t Rounded(double pixels) {
    return static_cast<int32_t>(std::clamp(std::lround(pixels), -(1L << 30), 1L << 30));
  }
  int32_t PixelX(float x) const {
    return static_cast<int32_t>(
        std::clamp(std::floor(x / screen_.TwipsPerPixelX() + 1e-6), -1e9, 1e9));
  }
  int32_t PixelY(float y) const {
    return static_cast<int32_t>(
        std::clamp(std::floor(y / screen_.TwipsPerPixelY() + 1e-6), -1e9, 1e9));
  }
  int32_t ScrollBarWidth() const {
    return screen_.SystemMetric(system_metric::kVerticalScrollWidth);
  }
  int32_t ScrollBarHeight() const {
    return screen_.SystemMetric(system_metric::kHorizontalScrollHeight);
  }
  bool OnScrollBar(float x, float y) const {
    const int32_t px = PixelX(x) - BorderPixels();
    const int32_t py = PixelY(y) - BorderPixels();
    if (px < 0 || py < 0 || px >= InnerWidth() || py >= InnerHeight()) return false;
    return px >= RowsAreaWidth() || py >= RowsAreaHeight();
  }

  // The top row that shows `row` with the least scrolling.
  int32_t TopShowing(int32_t row) const {
    const int32_t visible = std::max(1, VisibleRows());
    int32_t top = top_index_;
    if (row < top) top = row;
    if (row >= top + visible) top = row - visible + 1;
    return std::clamp(top, 0, MaxTopIndex());
  }

  // Decides the scroll bars for the size, the rows and the extent, keeps the top row within
  // reach, and shows what changed along with `shown`.
  void Relayout(unsigned shown) {
    const bool had_vertical = vertical_bar_;
    const bool had_horizontal = horizontal_bar_;
    // Each bar takes room from the other's decision: two rounds settle it.
    bool vertical = false;
    bool horizontal = false;
    for (int round = 0; round < 2; ++round) {
      horizontal = horizontal_extent_ > InnerWidth() - (vertical ? ScrollBarWidth() : 0);
      const int32_t height = InnerHeight() - (horizontal ? ScrollBarHeight() : 0);
      vertical = static_cast<int64_t>(ListCount()) * row_height_ > std::max(0, height);
    }
    vertical_bar_ = vertical;
    horizontal_bar_ = horizontal;
    if (vertical_bar_ != had_vertical || horizontal_bar_ != had_horizontal) {
      shown |= list_box_view::kScrollBars;
      ShowScrollBarStyle();
    }
    const int32_t top = std::clamp(top_index_, 0, MaxTopIndex());
    if (top != top_index_) {
      top_index_ = top;
      shown |= list_box_view::kTopRow;
    }
    if (shown != 0) Show(shown);
  }
  void ShowScrollBarStyle() {
    if (window_ == 0) return;
    const int32_t bars = window_style::kVerticalScrollBar | window_style::kHorizontalScrollBar;
    const int32_t style = windows_.GetWindowLong(window_, window_long::kStyle);
    const int32_t wanted = (style & ~bars) |
                           (vertical_bar_ ? window_style::kVerticalScrollBar : 0) |
                           (horizontal_bar_ ? window_style::kHorizontalScrollBar : 0);
    if (wanted != style) windows_.SetWindowLong(window_, window_long::kStyle, wanted);
  }

  // The user made `row` current: it comes into view (Scroll when the top row moved), then
  // Click, when the row changed or `always_click`.
  void MakeCurrentByUser(int32_t row, bool always_click) {
    const bool changed = row != list_index_;
    const int32_t old_top = top_index_;
    list_index_ = row;
    top_index_ = TopShowing(row);
    Show(list_box_view::kCurrentRow | list_box_view::kTopRow);
    const std::shared_ptr<bool> alive = alive_;
    if (top_index_ != old_top) scroll_.Emit();
    if (*alive && (changed || always_click)) this->Click().Emit();
  }
  void MoveByKey(int16_t key_code) {
    const int32_t count = ListCount();
    if (count == 0) return;
    const int32_t page = std::max(1, VisibleRows() - 1);
    // Without a current row, the moving keys start at the first visible row.
    const int32_t from = list_index_;
    int32_t to = 0;
    switch (key_code) {
      case 37:  // Left
      case 38:  // Up
        to = from < 0 ? top_index_ : from - 1;
        break;
      case 39:  // Right
      case 40:  // Down
        to = from < 0 ? top_index_ : from + 1;
        break;
      case 33:  // PgUp
        to = from < 0 ? top_index_ : from - page;
        break;
      case 34:  // PgDn
        to = from < 0 ? top_index_ : from + page;
        break;
      case 36:  // Home
        to = 0;
        break;
      case 35:  // End
        to = count - 1;
        break;
      default:
        return;
    }
    to = std::clamp(to, 0, count - 1);
    if (to != from) MakeCurrentByUser(to, false);
  }

  int32_t Answer(uint32_t message, int32_t wparam, int32_t lparam) {
    switch (message) {
      case window_message::kListGetItemHeight:
        return row_height_;
      case window_message::kListSetItemHeight:
        return SetRowHeight(lparam) ? 0 : window_message::kListError;
      case window_message::kListSetHorizontalExtent:
        SetHorizontalExtent(wparam);
        return 0;
      case window_message::kMouseWheel:
        Wheel(static_cast<int16_t>(static_cast<uint32_t>(wparam) >> 16));
        return 0;
      case window_message::kVScroll:
        ScrollBarRequest(wparam & 0xFFFF,
                         static_cast<int32_t>(static_cast<uint32_t>(wparam) >> 16));
        return 0;
      default:
        return 0;
    }
  }
  void Wheel(int16_t delta) {
    // Fine-grained wheels send parts of a notch; the rows move once a whole notch gathered.
    wheel_rest_ += delta;
    const int32_t notches = wheel_rest_ / kWheelNotch;
    wheel_rest_ -= notches * kWheelNotch;
    if (notches == 0) return;
    const int64_t wanted = static_cast<int64_t>(top_index_) - int64_t{notches} * kRowsPerNotch;
    const int32_t top = static_cast<int32_t>(std::clamp<int64_t>(wanted, 0, MaxTopIndex()));
    if (top == top_index_) return;
    top_index_ = top;
    Show(list_box_view::kTopRow);
  }
  void ScrollBarRequest(int32_t request, int32_t position) {
    const int32_t page = std::max(1, VisibleRows());
    switch (request) {
      case scroll_request::kLineUp:
        return UserScrollTo(top_index_ - 1);
      case scroll_request::kLineDown:
        return UserScrollTo(top_index_ + 1);
      case scroll_request::kPageUp:
        return UserScrollTo(top_index_ - page);
      case scroll_request::kPageDown:
        return UserScrollTo(top_index_ + page);
      case scroll_request::kThumbPosition:
      case scroll_request::kThumbTrack:
        return UserScrollTo(position);
      case scroll_request::kTop:
        return UserScrollTo(0);
      case scroll_request::kBottom:
        return UserScrollTo(MaxTopIndex());
      default:
        return;
    }
  }

  ProcedureWindowSystem& windows_;
  const IScreen& screen_;
  std::shared_ptr<const IFontCatalogue> fonts_;
  WindowHandle window_ = 0;
  std::vector<std::u16string> rows_;
  int32_t list_index_ = -1;
  int32_t top_index_ = 0;
  OLE_COLOR fore_color_ = 0x80000008;
  OLE_COLOR back_color_ = 0x80000005;
  FontDescription font_;
  int16_t appearance_ = 1;
  int16_t border_style_ = 1;
  int32_t row_height_ = 1;
  int32_t horizontal_extent_ = 0;
  int32_t wheel_rest_ = 0;
  bool vertical_bar_ = false;
  bool horizontal_bar_ = false;
  // False once the box is being destroyed: a handler may destroy it while it raises events.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  Signal<> scroll_;
  Signal<int16_t&, int16_t&> key_down_;
  Signal<int16_t&> key_press_;
  Signal<int16_t&, int16_t&> key_up_;
  Signal<> got_focus_;
  Signal<> lost_focus_;
};

}  // namespace zk
