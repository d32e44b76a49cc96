#include "models/typed_text_model.h"

#include <cmath>
#include <limits>
#include <utility>

#include "foundation/string_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

constexpr size_t kNone = std::u16string_view::npos;

// The date-hour rule takes a missing separator as standing at this position, so that a caret
// anywhere in a short text is "before" it.
constexpr int64_t kMissingSeparatorPosition = 99;

constexpr bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}
constexpr bool IsDigitOrSign(char16_t unit) noexcept {
  return IsDigit(unit) || unit == u'+' || unit == u'-';
}

// A keystroke is one unit, so only a one-unit separator can ever be typed.
bool KeyIs(char16_t unit, std::u16string_view separator) noexcept {
  return separator.size() == 1 && separator.front() == unit;
}

// Positions count from 1; 0 means that the separator does not stand in the text. An empty
// separator stands nowhere: it has no place a caret could be before or after.
int64_t FirstPosition(std::u16string_view text, std::u16string_view separator) noexcept {
  if (separator.empty()) return 0;
  const size_t at = text.find(separator);
  return at == kNone ? 0 : static_cast<int64_t>(at) + 1;
}

int64_t LastPosition(std::u16string_view text, std::u16string_view separator) noexcept {
  if (separator.empty()) return 0;
  const size_t at = text.rfind(separator);
  return at == kNone ? 0 : static_cast<int64_t>(at) + 1;
}

bool Holds(std::u16string_view text, std::u16string_view separator) noexcept {
  return FirstPosition(text, separator) > 0;
}

// Occurrences may overlap ("--" in "---" stands at 1 and 2), as a search from either end finds.
bool HoldsAtTwoPositions(std::u16string_view text, std::u16string_view separator) noexcept {
  const int64_t first = FirstPosition(text, separator);
  const int64_t last = LastPosition(text, separator);
  return first > 0 && last > 0 && first != last;
}

// A date or a time: digits and at most two separators.
bool AllowsDateOrTimeKey(char16_t unit, std::u16string_view text,
                         std::u16string_view separator) noexcept {
  if (KeyIs(unit, separator)) return !HoldsAtTwoPositions(text, separator);
  return IsDigit(unit);
}

// A date, the date-hour separator, then a time: each separator only where its part can go.
bool AllowsDateHourKey(char16_t unit, std::u16string_view text, int32_t sel_start,
                       const TypedTextSettings& settings) noexcept {
  const std::u16string_view date_sep = settings.DateSep;
  const std::u16string_view hour_sep = settings.HourSep;
  const std::u16string_view date_hour_sep = settings.DateHourSep;
  if (KeyIs(unit, hour_sep)) {
    // The time comes after the date and its separator, and is only begun once they are there.
    return !HoldsAtTwoPositions(text, hour_sep) && sel_start >= LastPosition(text, date_sep) &&
           sel_start >= LastPosition(text, date_hour_sep) && Holds(text, date_hour_sep);
  }
  if (KeyIs(unit, date_sep)) {
    const int64_t date_hour_at = LastPosition(text, date_hour_sep);
    const int64_t hour_at = LastPosition(text, hour_sep);
    return !HoldsAtTwoPositions(text, date_sep) &&
           sel_start <= (hour_at > 0 ? hour_at : kMissingSeparatorPosition) &&
           sel_start <= (date_hour_at > 0 ? date_hour_at : kMissingSeparatorPosition);
  }
  if (KeyIs(unit, date_hour_sep)) return !Holds(text, date_hour_sep);
  return IsDigit(unit);
}

bool KindAllowsKey(char16_t unit, std::u16string_view text, int32_t sel_start,
                   const TypedTextSettings& settings) noexcept {
  switch (settings.DataType) {
    case zktTDText:
      return true;
    case zktTDInteger:
      // Signs go through anywhere and in any number; the check on leaving judges them.
      return IsDigitOrSign(unit);
    case zktTDDecimal:
      if (KeyIs(unit, settings.DecimalSep)) return !Holds(text, settings.DecimalSep);
      return IsDigitOrSign(unit);
    case zktTDDate:
      return AllowsDateOrTimeKey(unit, text, settings.DateSep);
    case zktTDHour:
      return AllowsDateOrTimeKey(unit, text, settings.HourSep);
    case zktTDDateHour:
      return AllowsDateHourKey(unit, text, sel_start, settings);
  }
  // A kind that no rule knows (only a direct assignment can make one) restricts nothing.
  return true;
}

// One unit against a list of units and ranges, the text between "[" (or "[!") and "]".
bool ListHolds(std::u16string_view list, char16_t unit) noexcept {
  size_t i = 0;
  while (i < list.size()) {
    if (i + 2 < list.size() && list[i + 1] == u'-') {
      if (unit >= list[i] && unit <= list[i + 2]) return true;
      i += 3;
    } else {
      if (unit == list[i]) return true;
      ++i;
    }
  }
  return false;
}

// The pattern element at `at` (never "*") against one text unit; `next` receives the position
// after the element. `last_close` is the last "]" of the pattern, so that a "[" after it is known
// to be literal without a search to the end.
bool ElementMatches(std::u16string_view pattern, size_t at, size_t last_close, char16_t unit,
                    size_t& next) noexcept {
  const char16_t head = pattern[at];
  next = at + 1;
  switch (head) {
    case u'#':
      return IsDigit(unit);
    case u'?':
      return true;
    case u'[': {
      if (last_close == kNone || last_close < at) return unit == u'[';
      const size_t close = pattern.find(u']', at + 1);
      std::u16string_view list = pattern.substr(at + 1, close - at - 1);
      next = close + 1;
      const bool negated = !list.empty() && list.front() == u'!';
      if (negated) list.remove_prefix(1);
      return ListHolds(list, unit) != negated;
    }
    default:
      return unit == head;
  }
}

// Every occurrence of `from` (none when it is empty), left to right without overlaps.
std::u16string ReplaceAll(std::u16string text, std::u16string_view from, std::u16string_view to) {
  if (from.empty()) return text;
  size_t at = text.find(from);
  if (at == kNone) return text;
  std::u16string out;
  out.reserve(text.size());
  size_t start = 0;
  for (; at != kNone; at = text.find(from, start)) {
    out.append(text, start, at - start);
    out.append(to);
    start = at + from.size();
  }
  out.append(text, start);
  return out;
}

}  // namespace

bool SetDataType(TypedTextSettings& settings, int32_t New_DataType) noexcept {
  if (New_DataType < zktTDText || New_DataType > zktTDDateHour) return false;
  settings.DataType = static_cast<zktTextDataType>(New_DataType);
  return true;
}

bool SetForceTextCase(TypedTextSettings& settings, int32_t New_ForceTextCase) noexcept {
  if (New_ForceTextCase < zktTForceNone || New_ForceTextCase > zktTForceLowerCase) return false;
  settings.ForceTextCase = static_cast<zktTextForceCase>(New_ForceTextCase);
  return true;
}

bool SetMaxLength(TypedTextSettings& settings, int32_t New_MaxLength) noexcept {
  if (New_MaxLength < 0 || New_MaxLength > 32767) return false;
  settings.MaxLength = New_MaxLength;
  return true;
}

int16_t FilterTypedKey(int16_t code, std::u16string_view text, int32_t sel_start,
                       int32_t sel_length, const TypedTextSettings& settings, bool ctrl_only_down,
                       bool design_mode) noexcept {
  // A designer edits properties, not the text.
  if (design_mode) return 0;
  // Editing keys and Ctrl shortcuts (paste, copy) are the text box's business; Ctrl with the
  // blank still types a blank and is filtered as one.
  if (code == kKeyBackspace || (ctrl_only_down && code != kKeyBlank)) return code;
  // Typing over a selection never lengthens the text, so only an insertion meets the limit.
  if (settings.MaxLength > 0 && sel_length == 0 &&
      text.size() >= static_cast<size_t>(settings.MaxLength)) {
    return 0;
  }
  const auto unit = static_cast<char16_t>(code);
  return KindAllowsKey(unit, text, sel_start, settings) ? code : static_cast<int16_t>(0);
}

bool MatchesTextFormat(std::u16string_view text, std::u16string_view pattern) noexcept {
  size_t steps = 0;
  return MatchesTextFormat(text, pattern, steps);
}

bool MatchesTextFormat(std::u16string_view text, std::u16string_view pattern,
                       size_t& steps) noexcept {
  // Every element but "*" takes exactly one unit, so on a mismatch only the latest "*" needs to
  // take one unit more: the earlier ones could not place the rest any better. This keeps the
  // work at text length times pattern length, however many "*" there are.
  const size_t last_close = pattern.rfind(u']');
  size_t t = 0;
  size_t p = 0;
  size_t star_p = kNone;
  size_t star_t = 0;
  while (t < text.size()) {
    ++steps;
    if (p < pattern.size() && pattern[p] == u'*') {
      star_p = ++p;
      star_t = t;
      continue;
    }
    size_t next = 0;
    if (p < pattern.size() && ElementMatches(pattern, p, last_close, text[t], next)) {
      p = next;
      ++t;
      continue;
    }
    if (star_p == kNone) return false;
    p = star_p;
    t = ++star_t;
  }
  while (p < pattern.size() && pattern[p] == u'*') {
    ++steps;
    ++p;
  }
  return p == pattern.size();
}

bool IsTextValid(std::u16string_view text, const TypedTextSettings& settings,
                 const TypedTextRules& rules) {
  if (!settings.TextFormat.empty() && !MatchesTextFormat(text, settings.TextFormat)) return false;
  switch (settings.DataType) {
    case zktTDText:
      return true;
    case zktTDInteger:
      return rules.IsNumeric(text) && !Holds(text, settings.DecimalSep);
    case zktTDDecimal:
      // Only the locale's own separator can be read as a decimal point, so the chosen one is
      // taken out and the digits judged.
      return rules.IsNumeric(ReplaceAll(std::u16string(text), settings.DecimalSep, u""));
    case zktTDDate:
      return rules.IsDate(ReplaceAll(std::u16string(text), settings.DateSep, u"/"));
    case zktTDHour:
      return rules.IsDate(ReplaceAll(std::u16string(text), settings.HourSep, u":"));
    case zktTDDateHour: {
      std::u16string normal = ReplaceAll(std::u16string(text), settings.DateSep, u"/");
      normal = ReplaceAll(std::move(normal), settings.HourSep, u":");
      return rules.IsDate(ReplaceAll(std::move(normal), settings.DateHourSep, u" "));
    }
  }
  return true;
}

std::optional<std::u16string> StepNumericText(std::u16string_view text, int16_t key_code,
                                              const TypedTextSettings& settings,
                                              double arrow_key_increment,
                                              const TypedTextRules& rules) {
  if (arrow_key_increment == 0 || (key_code != kKeyUp && key_code != kKeyDown) ||
      !rules.IsNumeric(text)) {
    return std::nullopt;
  }
  double value = 0;
  try {
    value = MStringUtils::ParseNumberText(text, settings.DecimalSep);
  } catch (const ZKError&) {
    // A magnitude beyond the float range: an arrow key must not fail, so the text stays.
    return std::nullopt;
  }
  const double result =
      key_code == kKeyUp ? value + arrow_key_increment : value - arrow_key_increment;
  if (!std::isfinite(result)) return std::nullopt;
  return MStringUtils::FormatNumberText(result, settings.DecimalSep, -1, false);
}

std::u16string ApplyForceTextCase(std::u16string_view text, zktTextForceCase force_text_case,
                                  const TypedTextRules& rules) {
  switch (force_text_case) {
    case zktTForceUpperCase:
      return rules.ToUpper(text);
    case zktTForceLowerCase:
      return rules.ToLower(text);
    case zktTForceNone:
      break;
  }
  return std::u16string(text);
}

LeaveCheck ValidateOnLeave(std::u16string_view text, const TypedTextSettings& settings,
                           bool design_mode, TypedTextRules& rules) {
  if (design_mode) return {false, std::u16string(text)};
  LeaveCheck check{false, ApplyForceTextCase(text, settings.ForceTextCase, rules)};
  // An empty field is how a user says "no value", whatever the kind or pattern.
  if (!check.text.empty() && !IsTextValid(check.text, settings, rules)) {
    check.cancel = true;
    rules.Beep();
  }
  return check;
}

std::optional<TextSelection> AutoSelectOnFocus(std::u16string_view text,
                                               bool auto_select) noexcept {
  if (!auto_select) return std::nullopt;
  constexpr size_t kMax = static_cast<size_t>(std::numeric_limits<int32_t>::max());
  return TextSelection{0, static_cast<int32_t>(text.size() < kMax ? text.size() : kMax)};
}

}  // namespace zk
