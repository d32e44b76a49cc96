#include "tests/support/reference_typed_text.h"

#include <cmath>

#include "foundation/zk_error.h"
#include "tests/support/reference_number_text.h"

namespace zk::reference {
namespace {

int64_t FirstPosition(std::u16string_view text, std::u16string_view sep) {
  if (sep.empty()) return 0;
  for (size_t i = 0; i + sep.size() <= text.size(); ++i) {
    if (text.substr(i, sep.size()) == sep) return static_cast<int64_t>(i) + 1;
  }
  return 0;
}

int64_t LastPosition(std::u16string_view text, std::u16string_view sep) {
  if (sep.empty() || sep.size() > text.size()) return 0;
  for (size_t i = text.size() - sep.size() + 1; i-- > 0;) {
    if (text.substr(i, sep.size()) == sep) return static_cast<int64_t>(i) + 1;
  }
  return 0;
}

bool AtTwoPositions(std::u16string_view text, std::u16string_view sep) {
  const int64_t first = FirstPosition(text, sep);
  const int64_t last = LastPosition(text, sep);
  return first > 0 && last > 0 && first != last;
}

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

// One pattern character or bracketed list at `p` against `c`; `next` is where the pattern
// goes on. A "[" with no "]" after it stands for itself.
bool ElementMatches(std::u16string_view pattern, size_t p, char16_t c, size_t& next) {
  next = p + 1;
  if (pattern[p] == u'#') return IsDigit(c);
  if (pattern[p] == u'?') return true;
  if (pattern[p] == u'[') {
    const size_t close = pattern.find(u']', p + 1);
    if (close == std::u16string_view::npos) return c == u'[';
    std::u16string_view list = pattern.substr(p + 1, close - p - 1);
    next = close + 1;
    bool negated = false;
    if (!list.empty() && list[0] == u'!') {
      negated = true;
      list = list.substr(1);
    }
    bool in_list = false;
    for (size_t i = 0; i < list.size();) {
      if (i + 2 < list.size() && list[i + 1] == u'-') {
        if (c >= list[i] && c <= list[i + 2]) in_list = true;
        i += 3;
      } else {
        if (c == list[i]) in_list = true;
        i += 1;
      }
    }
    return in_list != negated;
  }
  return c == pattern[p];
}

}  // namespace

int16_t FilterTypedKey(int16_t code, std::u16string_view text, int32_t sel_start,
                       int32_t sel_length, const TypedTextSettings& settings, bool ctrl_only_down,
                       bool design_mode) {
  // 1.
  if (design_mode) code = 0;
  // 2.
  if (code == 8 || (ctrl_only_down && code != 32)) return code;
  // 3.
  if (settings.MaxLength > 0 && sel_length == 0 &&
      static_cast<int64_t>(text.size()) >= settings.MaxLength) {
    code = 0;
  }
  // 4.
  const std::u16string c(1, static_cast<char16_t>(code));
  const bool digit = IsDigit(c[0]);
  const bool digit_or_sign = digit || c[0] == u'+' || c[0] == u'-';
  switch (settings.DataType) {
    case zktTDText:
      break;
    case zktTDInteger:
      if (!digit_or_sign) code = 0;
      break;
    case zktTDDecimal:
      if (c == settings.DecimalSep) {
        if (FirstPosition(text, settings.DecimalSep) > 0) code = 0;
      } else if (!digit_or_sign) {
        code = 0;
      }
      break;
    case zktTDDate:
    case zktTDHour: {
      const std::u16string& sep =
          settings.DataType == zktTDDate ? settings.DateSep : settings.HourSep;
      if (c == sep) {
        if (AtTwoPositions(text, sep)) code = 0;
      } else if (!digit) {
        code = 0;
      }
      break;
    }
    case zktTDDateHour:
      if (c == settings.HourSep) {
        if (AtTwoPositions(text, settings.HourSep) ||
            sel_start < LastPosition(text, settings.DateSep) ||
            sel_start < LastPosition(text, settings.DateHourSep) ||
            FirstPosition(text, settings.DateHourSep) == 0) {
          code = 0;
        }
      } else if (c == settings.DateSep) {
        int64_t dh = LastPosition(text, settings.DateHourSep);
        int64_t hs = LastPosition(text, settings.HourSep);
        if (dh == 0) dh = 99;
        if (hs == 0) hs = 99;
        if (AtTwoPositions(text, settings.DateSep) || sel_start > hs || sel_start > dh) code = 0;
      } else if (c == settings.DateHourSep) {
        if (FirstPosition(text, settings.DateHourSep) > 0) code = 0;
      } else if (!digit) {
        code = 0;
      }
      break;
  }
  // 5.
  return code;
}

bool MatchesTextFormat(std::u16string_view text, std::u16string_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == u'*') {
    for (size_t take = 0; take <= text.size(); ++take) {
      if (MatchesTextFormat(text.substr(take), pattern.substr(1))) return true;
    }
    return false;
  }
  if (text.empty()) return false;
  size_t next = 0;
  return ElementMatches(pattern, 0, text[0], next) &&
         MatchesTextFormat(text.substr(1), pattern.substr(next));
}

std::optional<std::u16string> StepNumericText(std::u16string_view text, int16_t key_code,
                                              const TypedTextSettings& settings,
                                              double arrow_key_increment,
                                              const TypedTextRules& rules) {
  // 1.
  if (arrow_key_increment == 0 || (key_code != 38 && key_code != 40) || !rules.IsNumeric(text)) {
    return std::nullopt;
  }
  // 2.
  double value = 0;
  try {
    value = ParseNumberText(text, settings.DecimalSep);
  } catch (const ZKError&) {
    return std::nullopt;
  }
  // 3.
  const double result = key_code == 38 ? value + arrow_key_increment : value - arrow_key_increment;
  if (!std::isfinite(result)) return std::nullopt;
  // 4.
  return FormatNumberText(result, settings.DecimalSep, -1, false);
}

}  // namespace zk::reference
