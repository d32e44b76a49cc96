#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/locale.h"

namespace zk {

// The user's regional settings taken from ICU's data for one locale.
//
// Locale names. SetName and the explicit constructor take a BCP 47 tag ("de-DE") or a POSIX
// locale name ("de_DE.UTF-8", "de_DE@euro": the codeset and the modifier are dropped). "C" and
// "POSIX" stand for "en-US". A name is refused unless ICU ships data for it (directly, or through
// its likely script, so "zh-CN" is known as "zh-Hans-CN"); "xx-YY" is refused. The constructor
// without argument takes the first non-empty of LC_ALL, LC_NUMERIC and LANG; a constructor that
// is given an unknown or no name falls back to "en-US".
//
// Blanks: the numeric and date tests skip leading and trailing blanks (space, tab, no-break space
// U+00A0 and narrow no-break space U+202F, which ICU puts into formatted times). Only the digits
// 0 to 9 count as digits.
//
// Numeric text: [sign] mantissa [exponent]
//   sign      "+" or "-", once, before the first digit.
//   mantissa  digits with at most one decimal separator of the locale, which may also lead (".5")
//             or end ("5.") the mantissa; at least one digit. In the integer part, grouping
//             separators of the locale may stand anywhere between two digits, without any check
//             of the group size ("1,2,3" in en-US is 123). The separator that is not the
//             locale's decimal one is therefore never read as a decimal point: in de-DE "1.5" is
//             fifteen and numeric, in en-US "3,5" is thirty-five and numeric. A locale grouping
//             by a space also accepts the plain blank and the no-break spaces ("1 234,5" in
//             fr-FR), one grouping by "’" also accepts "'" (de-CH).
//   exponent  "E" or "e", an optional sign, one or more digits.
// Currency symbols, percent signs, hexadecimal, trailing or bracketed signs are not numeric.
//
// Date text: a date, a time, or a date, one or more blanks and a time.
//   date  2 or 3 numbers separated by "/" or by the separator of the locale's short date pattern
//         ("." in de-DE, "-" in sv-SE), the same separator throughout. The order of day, month
//         and year is that of the short date pattern: month/day/year in en-US, day.month.year in
//         de-DE, year/month/day in ja-JP. Two numbers are the day and the month in that order
//         (month/day in en-US, day.month in de-DE and ja-JP) and the date falls in the current
//         year. Day and month have 1 or 2 digits. The year has 4 digits (1 to 9999) or 1 or 2
//         digits, which mean 2000 to 2029 for 0 to 29 and 1930 to 1999 for 30 to 99. The date
//         must exist in the Gregorian calendar, leap years included (29/02/2004 is a date,
//         29/02/2005 is not).
//   time  2 or 3 numbers (hours, minutes, seconds) of 1 or 2 digits separated by ":" or by the
//         separator of the locale's short time pattern ("." in fi-FI), the same throughout.
//         Hours 0 to 23, minutes and seconds 0 to 59. A trailing "AM" or "PM" (any letter case,
//         also the locale's own day-period names, blanks before it allowed) makes it a 12-hour
//         time with hours 1 to 12.
// Month names, weekdays, era names and a date after a time are not accepted.
class IcuLocale final : public ILocale {
 public:
  IcuLocale();
  explicit IcuLocale(std::u16string_view name);
  ~IcuLocale() override;

  IcuLocale(const IcuLocale&) = delete;
  IcuLocale& operator=(const IcuLocale&) = delete;

  std::u16string Name() const override;
  bool SetName(std::u16string_view name) override;

  std::u16string DecimalSeparator() const override;
  std::u16string GroupingSeparator() const override;

  bool IsNumeric(std::u16string_view text) const override;
  bool IsDate(std::u16string_view text) const override;

  std::u16string ToUpper(std::u16string_view text) const override;
  std::u16string ToLower(std::u16string_view text) const override;
  // Ignoring case compares at secondary strength: letter case is ignored, accents are not.
  int Compare(std::u16string_view a, std::u16string_view b, bool ignore_case) const override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace zk
