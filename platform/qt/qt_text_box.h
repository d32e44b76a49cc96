#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <string>

#include "platform/common/text_box_editor.h"
#include "platform/elements.h"

namespace zk {

class QtSurface;

// A text box of the Qt platform: a QLineEdit, or a QPlainTextEdit for several lines, inside the
// control's widget. Keys pass through KeyDown and KeyPress first, so that the control may change
// or drop them. What typed characters, Delete and Ctrl+Tab do, and undo, follow the editing rules
// that every platform's text box shares (TextBoxEditor), not Qt's own; Qt moves the caret and
// selection, and keeps the clipboard keys (Ctrl+C, Ctrl+X, Ctrl+V). The length limit applies to
// typing only (a text set by the program may be longer). Line breaks are CR LF in the text and
// in every position, as the controls count them.
class QtTextBox final : public ITextBoxElement {
 public:
  QtTextBox(QtSurface& surface, bool multi_line);
  ~QtTextBox() override;

  double Left() const override { return left_; }
  double Top() const override { return top_; }
  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void Move(double left, double top, double width, double height) override;
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override;
  bool Enabled() const override;
  void SetEnabled(bool enabled) override;
  std::u16string ToolTipText() const override { return tool_tip_text_; }
  void SetToolTipText(std::u16string_view text) override;
  void Refresh() override;
  void BringToFront() override;
  Signal<>& Click() override { return click_; }
  Signal<>& DblClick() override { return dbl_click_; }
  MouseSignal& MouseDown() override { return mouse_down_; }
  MouseSignal& MouseMove() override { return mouse_move_; }
  MouseSignal& MouseUp() override { return mouse_up_; }

  WindowHandle hWnd() const override { return window_; }
  bool MultiLine() const override { return multi_line_; }
  std::u16string Text() const override;
  void SetText(std::u16string_view text) override;
  int32_t SelStart() const override;
  void SetSelStart(int32_t start) override;
  int32_t SelLength() const override;
  void SetSelLength(int32_t length) override;
  std::u16string SelText() const override;
  void SetSelText(std::u16string_view text) override;
  int32_t MaxLength() const override { return max_length_; }
  void SetMaxLength(int32_t length) override { max_length_ = std::max(0, length); }
  bool Locked() const override;
  void SetLocked(bool locked) override;
  std::u16string PasswordChar() const override { return password_char_; }
  void SetPasswordChar(std::u16string_view character) override;
  int16_t Alignment() const override { return alignment_; }
  void SetAlignment(int16_t alignment) override;
  OLE_COLOR ForeColor() const override { return fore_color_; }
  void SetForeColor(OLE_COLOR color) override;
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override;
  FontDescription Font() const override { return font_; }
  void SetFont(const FontDescription& font) override;
  int16_t Appearance() const override { return appearance_; }
  void SetAppearance(int16_t appearance) override;
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override;
  bool HideSelection() const override { return true; }
  Signal<>& Change() override { return change_; }
  Signal<int16_t&, int16_t&>& KeyDown() override { return key_down_; }
  Signal<int16_t&>& KeyPress() override { return key_press_; }
  Signal<int16_t&, int16_t&>& KeyUp() override { return key_up_; }

 private:
  class Editor;
  template <typename QtEditor>
  class EditorWidget;
  friend class Editor;

  void ApplyColours();
  // The text and selection as the controls count them.
  TextBoxEditor::State Current() const;
  // Shows a whole state (an undo) and reports the change.
  void Show(const TextBoxEditor::State& state);
  void ApplyEdit(const TextBoxEditor::Edit& edit);
  // The box's own action on a key that types no character; false leaves the key to Qt.
  bool ActOnKey(int16_t key_code, int16_t shift);
  // The box's action on a typed character; false leaves the key to Qt (the clipboard keys).
  bool Type(char16_t character);
  // Takes back the last edit; false when there is none.
  bool Undo();
  // Qt changed the text by itself (a paste, a drop): it is an edit like any other.
  void QtChangedText();
  // Qt moved the caret or the selection.
  void QtMovedSelection();
  // Conversions between CR LF positions and Qt's one-unit line breaks.
  int32_t FromQtPosition(int qt_position) const;
  int ToQtPosition(int32_t position) const;
  // Qt's selection: anchor and cursor in Qt's positions.
  void QtSelection(int& anchor, int& cursor) const;
  void SetQtSelection(int anchor, int cursor);

  QtSurface& surface_;
  bool multi_line_;
  QPointer<QWidget> widget_;
  Editor* editor_widget_ = nullptr;
  WindowHandle window_ = 0;
  double left_ = 0;
  double top_ = 0;
  double width_ = 0;
  double height_ = 0;
  bool visible_ = true;
  std::u16string tool_tip_text_;
  int32_t max_length_ = 0;
  std::u16string password_char_;
  int16_t alignment_ = 0;
  OLE_COLOR fore_color_ = 0x80000008;
  OLE_COLOR back_color_ = 0x80000005;
  FontDescription font_;
  int16_t appearance_ = 1;
  int16_t border_style_ = 1;
  TextBoxEditor editor_;
  // The box as last seen, what an edit that Qt makes by itself starts from.
  TextBoxEditor::State last_seen_;
  // Set while the box writes into the Qt editor itself.
  bool writing_ = false;
  Signal<> click_;
  Signal<> dbl_click_;
  MouseSignal mouse_down_;
  MouseSignal mouse_move_;
  MouseSignal mouse_up_;
  Signal<> change_;
  Signal<int16_t&, int16_t&> key_down_;
  Signal<int16_t&> key_press_;
  Signal<int16_t&, int16_t&> key_up_;
};

}  // namespace zk
