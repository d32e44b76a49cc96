#include "platform/common/text_box_editor.h"

#include <algorithm>
#include <utility>

namespace zk {
namespace {

constexpr char16_t kSelectAll = 1;  // Ctrl+A
constexpr char16_t kBackspace = 8;  // Backspace, Ctrl+H
constexpr char16_t kTab = 9;        // Tab
constexpr char16_t kEnter = 13;     // Enter
constexpr char16_t kUndo = 26;      // Ctrl+Z
constexpr char16_t kCtrlBackspace = 127;

int32_t Length(const std::u16string& text) {
  return static_cast<int32_t>(text.size());
}

bool BreakAt(const std::u16string& text, int32_t position) {
  return position >= 0 && position + 2 <= Length(text) &&
         text.compare(static_cast<size_t>(position), 2, u"\r\n") == 0;
}

}  // namespace

bool TextBoxEditor::Typed(const State& state, std::u16string_view inserted, bool locked,
                          int32_t max_length, Edit& edit) const {
  if (locked) return false;
  const int32_t kept = Length(state.text) - state.SelLength();
  if (max_length > 0 && kept + static_cast<int32_t>(inserted.size()) > max_length) return false;
  edit = {state.SelStart(), state.SelLength(), std::u16string(inserted), EditKind::kTyping};
  return true;
}

TextBoxEditor::Action TextBoxEditor::ForCharacter(const State& state, char16_t character,
                                                  bool locked, int32_t max_length,
                                                  Edit& edit) const {
  switch (character) {
    case kSelectAll:
      return Action::kSelectAll;
    case kUndo:
      return locked ? Action::kNothing : Action::kUndo;
    case kBackspace: {
      if (locked) return Action::kNothing;
      int32_t start = state.SelStart();
      int32_t length = state.SelLength();
      if (length == 0) {
        if (start == 0) return Action::kNothing;
        length = BreakAt(state.text, start - 2) ? 2 : 1;
        start -= length;
      }
      edit = {start, length, {}, EditKind::kBackspace};
      return Action::kEdit;
    }
    case kEnter:
      return multi_line_ && Typed(state, u"\r\n", locked, max_length, edit) ? Action::kEdit
                                                                            : Action::kNothing;
    case kTab:
      return multi_line_ && Typed(state, u"\t", locked, max_length, edit) ? Action::kEdit
                                                                          : Action::kNothing;
    case kCtrlBackspace:
      return Action::kNothing;
    default:
      if (character < 32) return Action::kNothing;
      return Typed(state, std::u16string_view(&character, 1), locked, max_length, edit)
                 ? Action::kEdit
                 : Action::kNothing;
  }
}

bool TextBoxEditor::ForDeleteKey(const State& state, bool locked, Edit& edit) const {
  if (locked) return false;
  const int32_t start = state.SelStart();
  int32_t length = state.SelLength();
  if (length == 0) {
    if (start >= Length(state.text)) return false;
    length = BreakAt(state.text, start) ? 2 : 1;
  }
  edit = {start, length, {}, EditKind::kDelete};
  return true;
}

bool TextBoxEditor::ForCtrlTab(const State& state, bool locked, int32_t max_length,
                               Edit& edit) const {
  return multi_line_ && Typed(state, u"\t", locked, max_length, edit);
}

TextBoxEditor::State TextBoxEditor::Applied(const State& state, const Edit& edit) {
  State after = state;
  const int32_t start = std::clamp(edit.start, 0, Length(state.text));
  const int32_t length = std::clamp(edit.length, 0, Length(state.text) - start);
  after.text.replace(static_cast<size_t>(start), static_cast<size_t>(length), edit.text);
  after.caret = after.anchor = start + Length(edit.text);
  return after;
}

void TextBoxEditor::Record(const State& before, const State& after, EditKind kind) {
  // A run goes on while each edit of its kind starts where the one before left the box.
  const bool continues =
      kind != EditKind::kOther && kind == last_kind_ && undo_ && last_ && *last_ == before;
  if (!continues) undo_ = before;
  last_ = after;
  last_kind_ = kind;
}

void TextBoxEditor::Forget() {
  undo_.reset();
  last_.reset();
  last_kind_ = EditKind::kOther;
}

std::optional<TextBoxEditor::State> TextBoxEditor::Undo(const State& current) {
  if (!undo_) return std::nullopt;
  State shown = std::exchange(*undo_, current);
  shown.caret = std::clamp(shown.caret, 0, Length(shown.text));
  shown.anchor = std::clamp(shown.anchor, 0, Length(shown.text));
  last_ = shown;
  last_kind_ = EditKind::kOther;
  return shown;
}

}  // namespace zk
