// Compares the number text conversions with the plain step-by-step versions in
// tests/support/reference_number_text: FormatNumberText for any finite value, decimal count and
// zero fill, and ParseNumberText for any text, with separators of every shape (the usual ".",
// ",", an empty one, a two-character one and one that contains "."). Both must give the same
// text, the same value, or both refuse with an overflow.
//
// Input: 8 bytes of the value's bits, one byte picking the decimal count, one the separator and
// the zero fill; the rest is a text to read, one UTF-16 unit per byte.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "foundation/string_utils.h"
#include "foundation/zk_error.h"
#include "tests/support/reference_number_text.h"

namespace {

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

constexpr std::u16string_view kSeparators[] = {u".", u",", u"", u"::", u"..", u",.", u"a", u"E"};

// Reads a number both ways; true when both refused with an overflow or both gave `value`s that
// are equal.
void CompareParse(std::u16string_view text, std::u16string_view separator) {
  bool library_overflow = false;
  bool reference_overflow = false;
  double library = 0;
  double reference = 0;
  try {
    library = zk::MStringUtils::ParseNumberText(text, separator);
  } catch (const zk::ZKError& error) {
    Check(error.Number() == zk::error_number::kOverflow);
    library_overflow = true;
  }
  try {
    reference = zk::reference::ParseNumberText(text, separator);
  } catch (const zk::ZKError&) {
    reference_overflow = true;
  }
  Check(library_overflow == reference_overflow);
  if (!library_overflow) Check(library == reference);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 10) return 0;
  double value = 0;
  std::memcpy(&value, data, sizeof value);
  // Mostly small counts, as hosts use them, and now and then one at the ends of the 32-bit
  // range, where the position arithmetic could overflow. A far count is asked without zero fill:
  // with it the text would really hold a billion zeros.
  const auto count_byte = static_cast<int8_t>(data[8]);
  int32_t decimals = count_byte % 24;
  bool zero_fill = (data[9] & 0x80) != 0;
  if (count_byte > 120) {
    decimals = INT32_MAX - (count_byte - 121);
    zero_fill = false;
  } else if (count_byte < -120) {
    decimals = INT32_MIN + (-121 - count_byte);
  }
  const std::u16string_view separator = kSeparators[data[9] % std::size(kSeparators)];

  if (std::isfinite(value)) {
    const std::u16string text =
        zk::MStringUtils::FormatNumberText(value, separator, decimals, zero_fill);
    Check(text == zk::reference::FormatNumberText(value, separator, decimals, zero_fill));
    // What was written reads back on either side alike.
    CompareParse(text, separator);
  }

  std::u16string text;
  for (size_t i = 10; i < size; ++i)
    text.push_back(static_cast<char16_t>(data[i]));
  CompareParse(text, separator);
  return 0;
}
