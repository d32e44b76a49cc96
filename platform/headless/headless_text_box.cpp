#include "platform/headless/headless_text_box.h"

#include <cmath>
#include <utility>

#include "platform/headless/headless_platform.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

constexpr int16_t kShiftKey = 1;
constexpr int16_t kCtrlKey = 2;

int32_t Pixels(double twips, double twips_per_pixel) {
  return static_cast<int32_t>(std::lround(twips / twips_per_pixel));
}

}  // namespace

HeadlessTextBox::HeadlessTextBox(HeadlessPlatform& platform, WindowHandle parent, bool multi_line)
    : platform_(platform), multi_line_(multi_line), editor_(multi_line) {
  font_ = platform_.Fonts().DefaultFont();
  window_ =
      platform_.Windows().CreateWindow(parent, u"Edit", {}, multi_line ? 0x50200004 : 0x50000000);
  platform_.Windows().SetClassHandler(
      window_, [this](WindowHandle, uint32_t message, int32_t, int32_t) -> int32_t {
        if (message != window_message::kEditUndo) return 0;
        const bool could = editor_.CanUndo();
        Undo();
        return could ? 1 : 0;
      });
}

HeadlessTextBox::~HeadlessTextBox() {
  platform_.Windows().DestroyWindow(window_);
}

void HeadlessTextBox::Move(double left, double top, double width, double height) {
  HeadlessElement::Move(left, top, width, height);
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  platform_.Windows().MoveWindow(
      window_, {Pixels(left, tpp_x), Pixels(top, tpp_y), Pixels(left + width, tpp_x),
                Pixels(top + height, tpp_y)});
}

std::u16string HeadlessTextBox::Shown() const {
  if (password_char_.empty()) return text_;
  return std::u16string(text_.size(), password_char_.front());
}

void HeadlessTextBox::SetText(std::u16string_view text) {
  // A new text starts a new history, with the caret at its start; it is a change even when
  // it is the text already shown.
  editor_.Forget();
  text_ = text;
  caret_ = anchor_ = 0;
  change_.Emit();
}

void HeadlessTextBox::SetSelStart(int32_t start) {
  caret_ = anchor_ = std::clamp(start, 0, Length());
}

void HeadlessTextBox::SetSelLength(int32_t length) {
  anchor_ = SelStart();
  caret_ = std::clamp(anchor_ + std::max(0, length), anchor_, Length());
}

std::u16string HeadlessTextBox::SelText() const {
  return text_.substr(static_cast<size_t>(SelStart()), static_cast<size_t>(SelLength()));
}

void HeadlessTextBox::SetSelText(std::u16string_view text) {
  if (text.empty() && SelLength() == 0) return;
  ApplyEdit({SelStart(), SelLength(), std::u16string(text), TextBoxEditor::EditKind::kOther});
}

void HeadlessTextBox::SetAlignment(int16_t alignment) {
  alignment_ = alignment;
  max_length_ = 0;  // the box's window is made anew, without its length limit
}

void HeadlessTextBox::Show(const TextBoxEditor::State& state) {
  text_ = state.text;
  caret_ = state.caret;
  anchor_ = state.anchor;
  change_.Emit();
}

void HeadlessTextBox::ApplyEdit(const TextBoxEditor::Edit& edit) {
  const TextBoxEditor::State before = Current();
  const TextBoxEditor::State after = TextBoxEditor::Applied(before, edit);
  editor_.Record(before, after, edit.kind);
  Show(after);
}

void HeadlessTextBox::Undo() {
  if (auto shown = editor_.Undo(Current())) Show(*shown);
}

int32_t HeadlessTextBox::LineStart(int32_t position) const {
  const size_t found = text_.rfind(u'\n', static_cast<size_t>(std::max(0, position - 1)));
  if (position == 0 || found == std::u16string::npos) return 0;
  return static_cast<int32_t>(found) + 1;
}

int32_t HeadlessTextBox::LineEnd(int32_t position) const {
  const size_t found = text_.find(u'\r', static_cast<size_t>(position));
  return found == std::u16string::npos ? Length() : static_cast<int32_t>(found);
}

void HeadlessTextBox::MoveCaret(int32_t position, bool extend) {
  caret_ = std::clamp(position, 0, Length());
  if (!extend) anchor_ = caret_;
}

void HeadlessTextBox::ActOnKey(int16_t key_code, int16_t shift) {
  const bool extend = (shift & kShiftKey) != 0;
  switch (key_code) {
    case 37:  // Left: collapses a selection, else one unit back (a line break is one step)
      if (!extend && caret_ != anchor_) return MoveCaret(SelStart(), false);
      return MoveCaret(
          caret_ - ((caret_ >= 2 && text_.compare(static_cast<size_t>(caret_ - 2), 2, u"\r\n") == 0)
                        ? 2
                        : 1),
          extend);
    case 39:  // Right
      if (!extend && caret_ != anchor_) return MoveCaret(SelStart() + SelLength(), false);
      return MoveCaret(
          caret_ + ((text_.compare(static_cast<size_t>(caret_), 2, u"\r\n") == 0) ? 2 : 1), extend);
    case 36:  // Home
      return MoveCaret((shift & kCtrlKey) || !multi_line_ ? 0 : LineStart(caret_), extend);
    case 35:  // End
      return MoveCaret((shift & kCtrlKey) || !multi_line_ ? Length() : LineEnd(caret_), extend);
    case 38:    // Up
    case 40: {  // Down
      if (!multi_line_) return;
      const int32_t column = caret_ - LineStart(caret_);
      int32_t target = 0;
      if (key_code == 38) {
        const int32_t start = LineStart(caret_);
        if (start == 0) return MoveCaret(0, extend);
        const int32_t previous = LineStart(start - 2);
        target = std::min(previous + column, start - 2);
      } else {
        const int32_t end = LineEnd(caret_);
        if (end >= Length()) return MoveCaret(Length(), extend);
        const int32_t next = end + 2;
        target = std::min(next + column, LineEnd(next));
      }
      return MoveCaret(target, extend);
    }
    case 9: {  // Tab alone moves the focus and never comes here
      TextBoxEditor::Edit edit;
      if ((shift & kCtrlKey) && editor_.ForCtrlTab(Current(), locked_, max_length_, edit))
        ApplyEdit(edit);
      return;
    }
    case 46: {  // Delete
      TextBoxEditor::Edit edit;
      if (editor_.ForDeleteKey(Current(), locked_, edit)) ApplyEdit(edit);
      return;
    }
    default:
      return;
  }
}

void HeadlessTextBox::Type(char16_t character) {
  TextBoxEditor::Edit edit;
  switch (editor_.ForCharacter(Current(), character, locked_, max_length_, edit)) {
    case TextBoxEditor::Action::kEdit:
      return ApplyEdit(edit);
    case TextBoxEditor::Action::kSelectAll:
      anchor_ = 0;
      caret_ = Length();
      return;
    case TextBoxEditor::Action::kUndo:
      return Undo();
    case TextBoxEditor::Action::kNothing:
      return;
  }
}

void HeadlessTextBox::DeliverKey(int16_t key_code, int16_t shift, int16_t character) {
  int16_t code = key_code;
  int16_t modifiers = shift;
  key_down_.Emit(code, modifiers);
  if (code != 0) ActOnKey(code, modifiers);
  if (character != 0) {
    int16_t typed = character;
    key_press_.Emit(typed);
    if (typed != 0) Type(static_cast<char16_t>(typed));
  }
  code = key_code;
  modifiers = shift;
  key_up_.Emit(code, modifiers);
}

}  // namespace zk
