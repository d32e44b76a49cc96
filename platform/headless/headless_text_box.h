#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>

#include "platform/common/text_box_editor.h"
#include "platform/elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

class HeadlessPlatform;

// A text box of the headless platform: a complete editor without pixels. Left, Right, Home and
// End move the caret (with Shift they extend the selection), Up and Down move between lines of
// a multi-line box; what typed characters, Delete and Ctrl+Tab do, and undo, are the editing
// rules that every platform's text box shares (TextBoxEditor). It has a window of its own
// (class "Edit") that answers the undo message.
class HeadlessTextBox : public HeadlessElement<ITextBoxElement> {
 public:
  HeadlessTextBox(HeadlessPlatform& platform, WindowHandle parent, bool multi_line);
  ~HeadlessTextBox() override;

  // One key stroke while the box has the keyboard: KeyDown, the box's action, KeyPress with
  // the character (when there is one), the typing, KeyUp.
  void DeliverKey(int16_t key_code, int16_t shift, int16_t character);

  void Move(double left, double top, double width, double height) override;
  void Refresh() override {}
  WindowHandle hWnd() const override { return window_; }
  bool MultiLine() const override { return multi_line_; }

  std::u16string Text() const override { return text_; }
  void SetText(std::u16string_view text) override;
  int32_t SelStart() const override { return std::min(caret_, anchor_); }
  void SetSelStart(int32_t start) override;
  int32_t SelLength() const override { return std::abs(caret_ - anchor_); }
  void SetSelLength(int32_t length) override;
  std::u16string SelText() const override;
  void SetSelText(std::u16string_view text) override;
  int32_t MaxLength() const override { return max_length_; }
  void SetMaxLength(int32_t length) override { max_length_ = std::max(0, length); }
  bool Locked() const override { return locked_; }
  void SetLocked(bool locked) override { locked_ = locked; }
  std::u16string PasswordChar() const override { return password_char_; }
  void SetPasswordChar(std::u16string_view character) override { password_char_ = character; }
  int16_t Alignment() const override { return alignment_; }
  void SetAlignment(int16_t alignment) override;
  OLE_COLOR ForeColor() const override { return fore_color_; }
  void SetForeColor(OLE_COLOR color) override { fore_color_ = color; }
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override { back_color_ = color; }
  FontDescription Font() const override { return font_; }
  void SetFont(const FontDescription& font) override { font_ = font; }
  int16_t Appearance() const override { return appearance_; }
  void SetAppearance(int16_t appearance) override { appearance_ = appearance; }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override { border_style_ = style; }
  bool HideSelection() const override { return true; }

  Signal<>& Change() override { return change_; }
  Signal<int16_t&, int16_t&>& KeyDown() override { return key_down_; }
  Signal<int16_t&>& KeyPress() override { return key_press_; }
  Signal<int16_t&, int16_t&>& KeyUp() override { return key_up_; }

  // The text as the box shows it (the password character for each character).
  std::u16string Shown() const;

 private:
  TextBoxEditor::State Current() const { return {text_, caret_, anchor_}; }
  void Show(const TextBoxEditor::State& state);
  void ActOnKey(int16_t key_code, int16_t shift);
  void Type(char16_t character);
  void ApplyEdit(const TextBoxEditor::Edit& edit);
  void MoveCaret(int32_t position, bool extend);
  void Undo();
  int32_t Length() const { return static_cast<int32_t>(text_.size()); }
  int32_t LineStart(int32_t position) const;
  int32_t LineEnd(int32_t position) const;

  HeadlessPlatform& platform_;
  WindowHandle window_ = 0;
  bool multi_line_;
  std::u16string text_;
  // The selection runs from the anchor to the caret; Shift with the arrows moves the caret.
  int32_t caret_ = 0;
  int32_t anchor_ = 0;
  int32_t max_length_ = 0;
  bool locked_ = false;
  std::u16string password_char_;
  int16_t alignment_ = 0;
  OLE_COLOR fore_color_ = 0x80000008;
  OLE_COLOR back_color_ = 0x80000005;
  FontDescription font_;
  int16_t appearance_ = 1;
  int16_t border_style_ = 1;
  TextBoxEditor editor_;
  Signal<> change_;
  Signal<int16_t&, int16_t&> key_down_;
  Signal<int16_t&> key_press_;
  Signal<int16_t&, int16_t&> key_up_;
};

}  // namespace zk
