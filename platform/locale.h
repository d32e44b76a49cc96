#pragma once

#include <string>
#include <string_view>

namespace zk {

// The user's regional settings: separators, the numeric and date tests of typed text, letter
// case and comparison. The locale comes from the environment (LC_ALL, LC_NUMERIC, LANG); a
// host or a test may choose another one by name.
class ILocale {
 public:
  virtual ~ILocale() = default;

  // The locale's name as a BCP 47 tag ("en-US", "de-DE").
  virtual std::u16string Name() const = 0;
  // Switches to the named locale ("de-DE" or "de_DE.UTF-8"); false (and no change) for a name
  // that names no known locale.
  virtual bool SetName(std::u16string_view name) = 0;

  virtual std::u16string DecimalSeparator() const = 0;
  virtual std::u16string GroupingSeparator() const = 0;

  // The text can be evaluated as a number by the locale's rules. The empty text is not.
  virtual bool IsNumeric(std::u16string_view text) const = 0;
  // The text can be converted to a date, a time of day or a date with a time, in the locale's
  // date order, with "/" always accepted between date parts and ":" between time parts.
  virtual bool IsDate(std::u16string_view text) const = 0;

  virtual std::u16string ToUpper(std::u16string_view text) const = 0;
  virtual std::u16string ToLower(std::u16string_view text) const = 0;
  // Collation order of two texts: negative, 0 or positive. With `ignore_case`, texts that
  // differ only in letter case compare equal.
  virtual int Compare(std::u16string_view a, std::u16string_view b, bool ignore_case) const = 0;
};

}  // namespace zk
