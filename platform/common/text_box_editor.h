#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zk {

// The editing rules that every platform's text box follows, so that the same keys give the
// same text everywhere. They are those of the classic edit box:
//
// - A typed character replaces the selection, or is inserted at the caret. Typing is refused
//   whole when the text would then hold more than MaxLength units (0: no limit), also when a
//   selection would make room for it but the text is already longer than the limit (a program
//   may set a longer text): the box keeps its text and selection, as at the limit.
// - Backspace (8, also Ctrl+H) removes the selection, or the unit before the caret (a CR LF
//   line break is one unit). Delete removes the selection or the unit after the caret.
// - Enter (13) and Tab (9) type a line break (CR LF) and a tab in a box of several lines and
//   nothing in a one-line box; Ctrl+Tab types a tab in a box of several lines.
// - Ctrl+A (1) selects everything and Ctrl+Z (26) undoes. Ctrl+Backspace types character 127,
//   which the classic box takes as nothing to show: it changes nothing. Other control
//   characters type nothing either. A read-only box changes nothing on keys, Ctrl+Z included,
//   but still selects; the undo message still works on it.
// - Undo takes back the last edit as a whole: a run of typed characters (each at the caret
//   that the one before left), a run of Backspaces or a run of Deletes counts as one edit, and
//   anything else (another kind of edit, a caret moved in between) starts a new one. A second
//   undo takes back the undo. A text set by the program leaves nothing to undo.
class TextBoxEditor {
 public:
  // The text with its selection, which runs from the anchor to the caret (positions count
  // UTF-16 units, CR LF as two).
  struct State {
    std::u16string text;
    int32_t caret = 0;
    int32_t anchor = 0;

    int32_t SelStart() const { return caret < anchor ? caret : anchor; }
    int32_t SelLength() const { return caret < anchor ? anchor - caret : caret - anchor; }
    bool operator==(const State&) const = default;
  };

  // Which runs an edit may belong to.
  enum class EditKind { kTyping, kBackspace, kDelete, kOther };

  // Replaces `length` units from `start` with `text`; the caret ends after the new text.
  struct Edit {
    int32_t start = 0;
    int32_t length = 0;
    std::u16string text;
    EditKind kind = EditKind::kOther;
  };

  // What a typed character asks of the box.
  enum class Action { kNothing, kEdit, kSelectAll, kUndo };

  explicit TextBoxEditor(bool multi_line) : multi_line_(multi_line) {}

  // What typing `character` does to a box showing `state`; with kEdit, `edit` tells how.
  Action ForCharacter(const State& state, char16_t character, bool locked, int32_t max_length,
                      Edit& edit) const;
  // What the Delete key does; false when it changes nothing.
  bool ForDeleteKey(const State& state, bool locked, Edit& edit) const;
  // What Ctrl+Tab does; false when it changes nothing.
  bool ForCtrlTab(const State& state, bool locked, int32_t max_length, Edit& edit) const;
  // The state after the edit.
  static State Applied(const State& state, const Edit& edit);

  // Notes an edit made to the box (by the rules above or any other way), for undo.
  void Record(const State& before, const State& after, EditKind kind);
  // Drops what there was to undo (a new text).
  void Forget();
  bool CanUndo() const { return undo_.has_value(); }
  // The state that an undo of `current` shows, or nothing to undo; the undo is itself the
  // last edit, so the next undo brings `current` back.
  std::optional<State> Undo(const State& current);

 private:
  // Typing `inserted` over the selection, within the limit.
  bool Typed(const State& state, std::u16string_view inserted, bool locked, int32_t max_length,
             Edit& edit) const;

  bool multi_line_;
  // What an undo brings back, and the box as the last edit left it (to tell whether the next
  // edit continues the same run).
  std::optional<State> undo_;
  std::optional<State> last_;
  EditKind last_kind_ = EditKind::kOther;
};

}  // namespace zk
