#include "foundation/string_utils.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>

#include "foundation/zk_error.h"

namespace zk::MStringUtils {

namespace {

// Significant digits of the general number text; the 16th and 17th digits of a double are
// mostly representation noise (0.1 + 0.2) that users should not see.
constexpr int kSignificantDigits = 15;
// Decimal exponents from kMinFixedExponent to kMaxFixedExponent are written without "E".
constexpr int kMinFixedExponent = -4;
constexpr int kMaxFixedExponent = kSignificantDigits - 1;

// Exponent digits beyond this magnitude cannot change the outcome (the value is already far
// outside the double range), so the counter stops here instead of overflowing.
constexpr int64_t kExponentCap = 1'000'000'000;
// Decimal magnitudes (position of the first significant digit) outside this window are
// certainly infinite or certainly zero; inside it the exact conversion decides.
constexpr int64_t kMaxMagnitude = 310;
constexpr int64_t kMinMagnitude = -330;

constexpr uint64_t kMaxRadixValue = 0xFFFFFFFFu;

// What number reading skips wherever it stands. A carriage return is not among them: it ends
// the number like any other character that cannot continue it.
bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\n';
}
bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

int HexDigitValue(char16_t c) {
  if (IsDigit(c)) return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

int OctalDigitValue(char16_t c) {
  return (c >= u'0' && c <= u'7') ? c - u'0' : -1;
}

std::u16string Widen(const std::string& ascii) {
  return std::u16string(ascii.begin(), ascii.end());
}

// What the reader found at the start of a text, before it is turned into a double.
struct NumberScan {
  size_t end = 0;         // characters consumed; 0 when there is no number at all
  bool is_radix = false;  // "&H" / "&O" form
  bool negative = false;  // decimal form only
  std::string digits;     // significant decimal digits, no leading or trailing zeros
  int64_t exponent = 0;   // value = 0.<digits> * 10^exponent
  uint64_t radix_value = 0;
  bool radix_overflow = false;
};

// Reads "&H"/"&O" digits, accumulating as unsigned 32 bits.
void ScanRadix(std::u16string_view text, NumberScan& scan) {
  const bool hex = text[1] == u'H' || text[1] == u'h';
  const uint64_t base = hex ? 16 : 8;
  size_t i = 2;
  while (i < text.size()) {
    const int digit = hex ? HexDigitValue(text[i]) : OctalDigitValue(text[i]);
    if (digit < 0) break;
    // Once past 32 bits the value is only an overflow marker; stop multiplying so that a long
    // run of digits cannot wrap the accumulator back into range.
    if (!scan.radix_overflow) {
      scan.radix_value = scan.radix_value * base + static_cast<uint64_t>(digit);
      if (scan.radix_value > kMaxRadixValue) scan.radix_overflow = true;
    }
    ++i;
  }
  if (i > 2) {
    scan.is_radix = true;
    scan.end = i;
  }
}

// Reads [sign] digits [. digits] [(E|D) [sign] digits], where at least one mantissa digit is
// required and the exponent is taken only when it has a digit. Blanks must already be gone.
void ScanDecimal(std::u16string_view text, NumberScan& scan) {
  size_t i = 0;
  if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
    scan.negative = text[i] == u'-';
    ++i;
  }
  // Digits of the mantissa with the point removed; `fraction_digits` of them followed it.
  std::string mantissa;
  int64_t fraction_digits = 0;
  bool any_digit = false;
  while (i < text.size() && IsDigit(text[i])) {
    mantissa.push_back(static_cast<char>(text[i]));
    any_digit = true;
    ++i;
  }
  if (i < text.size() && text[i] == u'.') {
    ++i;
    while (i < text.size() && IsDigit(text[i])) {
      mantissa.push_back(static_cast<char>(text[i]));
      ++fraction_digits;
      any_digit = true;
      ++i;
    }
  }
  if (!any_digit) return;
  scan.end = i;

  int64_t exponent = 0;
  if (i < text.size() &&
      (text[i] == u'E' || text[i] == u'e' || text[i] == u'D' || text[i] == u'd')) {
    size_t j = i + 1;
    bool exponent_negative = false;
    if (j < text.size() && (text[j] == u'+' || text[j] == u'-')) {
      exponent_negative = text[j] == u'-';
      ++j;
    }
    if (j < text.size() && IsDigit(text[j])) {
      while (j < text.size() && IsDigit(text[j])) {
        if (exponent < kExponentCap) exponent = exponent * 10 + (text[j] - u'0');
        ++j;
      }
      if (exponent_negative) exponent = -exponent;
      scan.end = j;
    }
  }

  // Normalise to 0.<digits> * 10^exponent so that the exponent handed to the converter stays
  // small however many zeros the text carries.
  const size_t first = mantissa.find_first_not_of('0');
  if (first == std::string::npos) return;  // zero: no digits
  const size_t last = mantissa.find_last_not_of('0');
  const auto integer_digits = static_cast<int64_t>(mantissa.size()) - fraction_digits;
  scan.digits = mantissa.substr(first, last - first + 1);
  scan.exponent = exponent + integer_digits - static_cast<int64_t>(first);
}

NumberScan Scan(std::u16string_view text) {
  NumberScan scan;
  if (text.size() >= 2 && text[0] == u'&') {
    const char16_t kind = text[1];
    if (kind == u'H' || kind == u'h' || kind == u'O' || kind == u'o') ScanRadix(text, scan);
    return scan;
  }
  ScanDecimal(text, scan);
  return scan;
}

// The value of a scanned number; false when it does not fit into a double.
bool ScanValue(const NumberScan& scan, double& value) {
  if (scan.is_radix) {
    if (scan.radix_overflow) return false;
    // &H80000000..&HFFFFFFFF are the negative 32-bit values, as the platform reads them.
    value = static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(scan.radix_value)));
    return true;
  }
  value = 0.0;
  if (scan.digits.empty() || scan.exponent < kMinMagnitude) return true;
  if (scan.exponent > kMaxMagnitude) return false;
  const std::string buffer =
      scan.digits + "e" + std::to_string(scan.exponent - static_cast<int64_t>(scan.digits.size()));
  double parsed = 0.0;
  const auto result = std::from_chars(buffer.data(), buffer.data() + buffer.size(), parsed);
  if (result.ec == std::errc::result_out_of_range) {
    // Out of range is reported both for overflow and for underflow to zero.
    if (scan.exponent > 0) return false;
    return true;
  }
  if (result.ec != std::errc()) return true;
  value = scan.negative ? -parsed : parsed;
  return true;
}

// True when a mantissa text such as "-0", "0.00" or "1.5" has a digit other than 0.
bool HasNonZeroValue(std::u16string_view mantissa) {
  for (const char16_t c : mantissa) {
    if (c >= u'1' && c <= u'9') return true;
  }
  return false;
}

}  // namespace

std::u16string GeneralNumberText(double value) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value < 0 ? u"-Infinity" : u"Infinity";
  if (value == 0.0) return u"0";  // also negative zero

  // "%.14E" gives exactly 15 significant digits, correctly rounded, plus the exponent after
  // that rounding (999999999999999.9 becomes 1.00000000000000E+15).
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.14E", std::fabs(value));
  const std::string formatted(buffer);
  const size_t e_pos = formatted.find('E');
  std::string digits = formatted.substr(0, 1) + formatted.substr(2, e_pos - 2);
  const int exponent = std::atoi(formatted.c_str() + e_pos + 1);
  const size_t last = digits.find_last_not_of('0');
  digits.resize(last + 1);

  std::string text = value < 0 ? "-" : "";
  if (exponent >= kMinFixedExponent && exponent <= kMaxFixedExponent) {
    if (exponent < 0) {
      text += "." + std::string(static_cast<size_t>(-exponent - 1), '0') + digits;
    } else {
      const auto integer_digits = static_cast<size_t>(exponent) + 1;
      if (digits.size() <= integer_digits) {
        text += digits + std::string(integer_digits - digits.size(), '0');
      } else {
        text += digits.substr(0, integer_digits) + "." + digits.substr(integer_digits);
      }
    }
  } else {
    text += digits.substr(0, 1);
    if (digits.size() > 1) text += "." + digits.substr(1);
    char exponent_text[16];
    std::snprintf(exponent_text, sizeof exponent_text, "E%c%02d", exponent < 0 ? '-' : '+',
                  std::abs(exponent));
    text += exponent_text;
  }
  return Widen(text);
}

std::u16string FormatNumberText(double value, std::u16string_view decimal_sep, int32_t decimals,
                                bool zero_fill) {
  std::u16string text = GeneralNumberText(value);
  // "NaN" and the infinities are not numbers to cut or fill.
  if (!std::isfinite(value)) return text;

  if (text.starts_with(u".")) {
    text.insert(0, u"0");
  } else if (text.starts_with(u"-.")) {
    text.replace(0, 2, u"-0.");
  }

  // Positions from 1, 0 for "absent"; 64-bit so that p + decimals cannot overflow.
  const size_t point_index = text.find(u'.');
  const size_t e_index = text.find(u'E');
  const int64_t p = point_index == std::u16string::npos ? 0 : static_cast<int64_t>(point_index) + 1;
  const int64_t e = e_index == std::u16string::npos ? 0 : static_cast<int64_t>(e_index) + 1;
  const std::u16string exponent_part = e > 0 ? text.substr(e_index) : std::u16string();
  const int64_t count = decimals;

  if (p > 0) {
    bool cut = false;
    int64_t missing = 0;
    if (count == 0) {
      text.resize(static_cast<size_t>(p - 1));
      cut = true;
    } else if (count > 0) {
      if (e > 0 && e <= p + count) {
        // The mantissa has no more decimals than wanted: keep all of them.
        text.resize(static_cast<size_t>(e - 1));
        missing = count + 1 - (e - p);
      } else {
        const auto length = static_cast<int64_t>(text.size());
        if (p + count > length) {
          missing = p + count - length;
        } else {
          text.resize(static_cast<size_t>(p + count));
        }
      }
      cut = true;
    }
    if (zero_fill && missing > 0) text.append(static_cast<size_t>(missing), u'0');
    // A mantissa cut down to nothing would turn "0E-05" into a misleading exponent form.
    if (cut && e > 0 && HasNonZeroValue(text)) text += exponent_part;
  } else if (zero_fill && count > 0) {
    std::u16string mantissa = e > 0 ? text.substr(0, e_index) : text;
    mantissa += u'.';
    mantissa.append(static_cast<size_t>(count), u'0');
    if (e > 0 && HasNonZeroValue(mantissa)) mantissa += exponent_part;
    text = std::move(mantissa);
  }

  if (decimal_sep == u".") return text;
  // One pass, so that a separator that itself contains "." is not replaced again.
  std::u16string result;
  result.reserve(text.size());
  for (const char16_t c : text) {
    if (c == u'.') {
      result += decimal_sep;
    } else {
      result += c;
    }
  }
  return result;
}

double ParseNumberText(std::u16string_view text, std::u16string_view decimal_sep) {
  std::u16string normalized;
  normalized.reserve(text.size());
  if (decimal_sep.empty() || decimal_sep == u".") {
    normalized = text;
  } else {
    size_t pos = 0;
    while (pos < text.size()) {
      if (text.substr(pos).starts_with(decimal_sep)) {
        normalized += u'.';
        pos += decimal_sep.size();
      } else {
        normalized += text[pos++];
      }
    }
  }
  // Blanks count nowhere, not even between digits ("1 2" reads as 12).
  std::erase_if(normalized, IsBlank);

  const NumberScan scan = Scan(normalized);
  double value = 0.0;
  if (!ScanValue(scan, value)) throw ZKError::Overflow();
  return value;
}

bool IsNumberText(std::u16string_view text) noexcept {
  try {
    size_t begin = 0;
    size_t end = text.size();
    while (begin < end && IsBlank(text[begin]))
      ++begin;
    while (end > begin && IsBlank(text[end - 1]))
      --end;
    const std::u16string_view body = text.substr(begin, end - begin);
    if (body.empty()) return false;
    for (const char16_t c : body) {
      if (IsBlank(c)) return false;
    }
    const NumberScan scan = Scan(body);
    if (scan.end == 0 || scan.end != body.size()) return false;
    double value = 0.0;
    return ScanValue(scan, value);
  } catch (...) {
    // Only allocation can fail here; a text that cannot be examined is not a number.
    return false;
  }
}

}  // namespace zk::MStringUtils
