#include "tests/support/reference_number_text.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <string>

#include "foundation/string_utils.h"
#include "foundation/zk_error.h"

namespace zk::reference {
namespace {

// Position of `what` in `text` counted from 1, 0 when it is absent.
size_t Position(const std::u16string& text, char16_t what) {
  const size_t at = text.find(what);
  return at == std::u16string::npos ? 0 : at + 1;
}

bool HasValueOtherThanZero(const std::u16string& mantissa) {
  for (char16_t c : mantissa) {
    if (c >= u'1' && c <= u'9') return true;
  }
  return false;
}

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

}  // namespace

std::u16string FormatNumberText(double value, std::u16string_view decimal_sep, int32_t decimals,
                                bool zero_fill) {
  // 1.
  std::u16string text = MStringUtils::GeneralNumberText(value);
  // 2.
  if (text.substr(0, 1) == u".") {
    text = u"0" + text;
  } else if (text.substr(0, 2) == u"-.") {
    text = u"-0." + text.substr(2);
  }
  // 3.
  const int64_t p = static_cast<int64_t>(Position(text, u'.'));
  const int64_t e = static_cast<int64_t>(Position(text, u'E'));
  const std::u16string exponent_part = e > 0 ? text.substr(static_cast<size_t>(e - 1)) : u"";
  const int64_t count = decimals;
  const auto length = static_cast<int64_t>(text.size());
  if (p > 0) {
    // 4.
    bool cut = false;
    int64_t missing = 0;
    if (count == 0) {
      text = text.substr(0, static_cast<size_t>(p - 1));
      cut = true;
    } else if (count >= 1) {
      if (e > 0 && e <= p + count) {
        text = text.substr(0, static_cast<size_t>(e - 1));
        missing = count + 1 - (e - p);
      } else {
        text = text.substr(0, static_cast<size_t>(std::min(p + count, length)));
        if (p + count > length) missing = p + count - length;
      }
      cut = true;
    }
    if (zero_fill) {
      for (int64_t i = 0; i < missing; ++i)
        text += u"0";
    }
    if (cut && e > 0 && HasValueOtherThanZero(text)) text += exponent_part;
  } else if (zero_fill && count > 0) {
    // 5.
    std::u16string mantissa = e > 0 ? text.substr(0, static_cast<size_t>(e - 1)) : text;
    mantissa += u".";
    for (int64_t i = 0; i < count; ++i)
      mantissa += u"0";
    if (e > 0 && HasValueOtherThanZero(mantissa)) mantissa += exponent_part;
    text = mantissa;
  }
  // 6.
  std::u16string result;
  for (char16_t c : text) {
    if (c == u'.') {
      result += decimal_sep;
    } else {
      result += c;
    }
  }
  return result;
}

double ParseNumberText(std::u16string_view text, std::u16string_view decimal_sep) {
  // The separator becomes "." wherever it stands, left to right.
  std::u16string replaced;
  if (decimal_sep != u"." && !decimal_sep.empty()) {
    size_t i = 0;
    while (i < text.size()) {
      if (text.substr(i, decimal_sep.size()) == decimal_sep) {
        replaced += u'.';
        i += decimal_sep.size();
      } else {
        replaced += text[i++];
      }
    }
  } else {
    replaced = text;
  }
  // Blanks, tabs and line feeds count nowhere.
  std::u16string s;
  for (char16_t c : replaced) {
    if (c != u' ' && c != u'\t' && c != u'\n') s += c;
  }

  // "&H" and "&O" (letters in either case, as the platform reads them).
  if (s.size() >= 2 && s[0] == u'&') {
    const char16_t kind = s[1];
    int base = 0;
    if (kind == u'H' || kind == u'h') base = 16;
    if (kind == u'O' || kind == u'o') base = 8;
    if (base == 0) return 0;
    std::string digits;
    for (size_t i = 2; i < s.size(); ++i) {
      const char16_t c = s[i];
      const bool hex_letter = (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
      const bool ok = base == 16 ? (IsDigit(c) || hex_letter) : (c >= u'0' && c <= u'7');
      if (!ok) break;
      digits += static_cast<char>(c);
    }
    if (digits.empty()) return 0;
    const size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) return 0;
    const std::string significant = digits.substr(first);
    const size_t bits_per_digit = base == 16 ? 4 : 3;
    if (significant.size() * bits_per_digit > 40) throw ZKError::Overflow();
    const unsigned long long magnitude = std::strtoull(significant.c_str(), nullptr, base);
    if (magnitude > 0xFFFFFFFFull) throw ZKError::Overflow();
    // The upper half of the 32-bit range is the negative numbers.
    return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(magnitude)));
  }

  // [sign] digits [. digits] [(E|D) [sign] digits], copied out for the C library to convert.
  std::string number;
  size_t i = 0;
  if (i < s.size() && (s[i] == u'+' || s[i] == u'-')) number += static_cast<char>(s[i++]);
  bool any_digit = false;
  while (i < s.size() && IsDigit(s[i])) {
    number += static_cast<char>(s[i++]);
    any_digit = true;
  }
  if (i < s.size() && s[i] == u'.') {
    number += '.';
    ++i;
    while (i < s.size() && IsDigit(s[i])) {
      number += static_cast<char>(s[i++]);
      any_digit = true;
    }
  }
  if (!any_digit) return 0;
  if (i < s.size() && (s[i] == u'E' || s[i] == u'e' || s[i] == u'D' || s[i] == u'd')) {
    std::string exponent = "e";
    size_t j = i + 1;
    if (j < s.size() && (s[j] == u'+' || s[j] == u'-')) exponent += static_cast<char>(s[j++]);
    bool exponent_digit = false;
    while (j < s.size() && IsDigit(s[j])) {
      exponent += static_cast<char>(s[j++]);
      exponent_digit = true;
    }
    if (exponent_digit) number += exponent;
  }
  errno = 0;
  const double value = std::strtod(number.c_str(), nullptr);
  if (std::isinf(value)) throw ZKError::Overflow();
  return value;
}

}  // namespace zk::reference
