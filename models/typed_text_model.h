#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "enumerations/enumerations.h"

// The rules of a typed text editor: which typed characters go through for each kind of value,
// when a finished text is valid, how the arrow keys step a number, how the letter case is forced
// and what is selected on entry. Plain values in, plain values out: the editor owns the text box,
// and everything that depends on the user's locale or makes a sound comes through
// TypedTextRules, so the rules run (and are tested) without any user-interface service.
//
// Texts are UTF-16; lengths, caret positions and selections count UTF-16 units.
namespace zk {

// One editor's (or one list column's) kind of value and its separators. The fields may be
// assigned directly, as a property bag read does; the setters below apply the checks of a
// property write.
struct TypedTextSettings {
  zktTextDataType DataType = zktTDText;
  std::u16string DateSep = u"/";
  std::u16string HourSep = u":";
  std::u16string DecimalSep = u".";
  std::u16string DateHourSep = u" ";
  // Pattern the whole text must match ("##/##/####"); empty for none.
  std::u16string TextFormat;
  zktTextForceCase ForceTextCase = zktTForceNone;
  // Most UTF-16 units the text may hold; 0 for no limit.
  int32_t MaxLength = 0;
};

// Property writes: a value outside the accepted range (DataType 0 to 5, ForceTextCase 0 to 2,
// MaxLength 0 to 32767) leaves the setting as it was. True when the value was taken.
bool SetDataType(TypedTextSettings& settings, int32_t New_DataType) noexcept;
bool SetForceTextCase(TypedTextSettings& settings, int32_t New_ForceTextCase) noexcept;
bool SetMaxLength(TypedTextSettings& settings, int32_t New_MaxLength) noexcept;

// What the rules need from the user's regional settings and from the screen.
class TypedTextRules {
 public:
  virtual ~TypedTextRules() = default;

  // The text can be evaluated as a number; the empty text cannot.
  virtual bool IsNumeric(std::u16string_view text) const = 0;
  // The text is a date, a time or both, with "/" between date parts and ":" between time parts
  // always accepted; the empty text is not.
  virtual bool IsDate(std::u16string_view text) const = 0;
  virtual std::u16string ToUpper(std::u16string_view text) const = 0;
  virtual std::u16string ToLower(std::u16string_view text) const = 0;
  // The platform's default beep.
  virtual void Beep() = 0;
};

// Key codes and the modifier mask that the rules look at.
inline constexpr int16_t kKeyBackspace = 8;
inline constexpr int16_t kKeyBlank = 32;
inline constexpr int16_t kKeyUp = 38;
inline constexpr int16_t kKeyDown = 40;
inline constexpr int16_t kShiftMaskCtrl = 2;

// CtrlOnlyDown as recorded at a key-down: the modifiers were Ctrl alone (no Shift, no Alt).
constexpr bool IsCtrlOnlyDown(int16_t shift_mask) noexcept {
  return shift_mask == kShiftMaskCtrl;
}

// The typed character `code` as it may reach the text box: unchanged, or 0 when it is
// discarded. `text` is the text before the keystroke, `sel_start` the caret (units before it)
// and `sel_length` the selected units. Allocates nothing.
//
// A separator matches a keystroke only when it is exactly that one unit. An empty separator never
// counts as held by a text, so with an empty DateHourSep no HourSep can be typed in a date-hour
// value, and an empty DecimalSep never makes an integer invalid.
int16_t FilterTypedKey(int16_t code, std::u16string_view text, int32_t sel_start,
                       int32_t sel_length, const TypedTextSettings& settings, bool ctrl_only_down,
                       bool design_mode) noexcept;

// Whole-text pattern match, case-sensitive: "#" one digit 0-9, "?" any one unit, "*" any run of
// units (none included), "[...]" one unit in the list, "[!...]" one unit not in it. In a list,
// "a-z" is an inclusive range (empty when the bounds are reversed), a "-" first or last is
// itself, and "[]" matches nothing while "[!]" matches any unit. A "[" without a later "]" is a
// literal "[", as is every other character. Time is linear in the text for each pattern element.
bool MatchesTextFormat(std::u16string_view text, std::u16string_view pattern) noexcept;
// The same match, adding the steps it takes to `steps`: never more than (text length + 2) x
// (pattern length + 1), however the "*" fall (tests check that bound).
bool MatchesTextFormat(std::u16string_view text, std::u16string_view pattern,
                       size_t& steps) noexcept;

// The finished text fits TextFormat (when one is set) and is a value of the DataType. Every
// separator is replaced (or removed) wherever it stands before the locale's numeric or date test.
bool IsTextValid(std::u16string_view text, const TypedTextSettings& settings,
                 const TypedTextRules& rules);

// The text after Up (key 38) adds or Down (key 40) subtracts `arrow_key_increment`, written with
// the DecimalSep and all the decimals of the result; nothing when the increment is 0, the key is
// another one, the text is not numeric, or the value overflows.
std::optional<std::u16string> StepNumericText(std::u16string_view text, int16_t key_code,
                                              const TypedTextSettings& settings,
                                              double arrow_key_increment,
                                              const TypedTextRules& rules);

// The text in the forced letter case; unchanged for zktTForceNone or any unknown value.
std::u16string ApplyForceTextCase(std::u16string_view text, zktTextForceCase force_text_case,
                                  const TypedTextRules& rules);

struct LeaveCheck {
  // True when the focus must stay in the editor.
  bool cancel = false;
  // The text the editor holds from now on: case-forced, or as it was in design mode.
  std::u16string text;
};

// The check before the focus leaves the editor: the case is forced once more, then a non-empty
// invalid text cancels the leave and beeps once. In design mode nothing is checked or forced.
LeaveCheck ValidateOnLeave(std::u16string_view text, const TypedTextSettings& settings,
                           bool design_mode, TypedTextRules& rules);

struct TextSelection {
  int32_t SelStart = 0;
  int32_t SelLength = 0;
  bool operator==(const TextSelection&) const = default;
};

// The selection on focus entry: the whole text with AutoSelect, otherwise no change.
std::optional<TextSelection> AutoSelectOnFocus(std::u16string_view text, bool auto_select) noexcept;

}  // namespace zk
