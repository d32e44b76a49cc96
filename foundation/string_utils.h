#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Conversions between numbers and their text with a chosen decimal separator.
namespace zk::MStringUtils {

// The general number text of a value: "." as point, no grouping, no trailing zeros, no point
// for whole numbers, "-" for negatives, at most 15 significant digits, no "0" before the point
// below 1 (".5", "-.25"); magnitudes from 1E+15 up and below 1E-04 in exponent form ("1E+20",
// "1.5E-05"). Not a number and infinities, which no conversion produces, come out as the
// platform shows them ("NaN", "Infinity", "-Infinity").
std::u16string GeneralNumberText(double value);

// The value as text with `decimal_sep` as separator and at most `decimals` decimals (a negative
// count keeps all of them); decimals beyond the count are cut, never rounded. With `zero_fill`
// the decimals are filled up to the count with "0".
std::u16string FormatNumberText(double value, std::u16string_view decimal_sep, int32_t decimals,
                                bool zero_fill);

// Reads the number at the start of `text` after replacing every `decimal_sep` with "."; blanks,
// tabs and line feeds are skipped anywhere, reading stops at the first character that cannot
// continue the number, "&H" and "&O" read hexadecimal and octal digits (values from &H80000000
// to &HFFFFFFFF are the negative 32-bit numbers). No number at the start reads as 0.
// Throws ZKError 6 (overflow) for a magnitude beyond the 64-bit float range or hexadecimal or
// octal digits beyond 32 bits.
double ParseNumberText(std::u16string_view text, std::u16string_view decimal_sep);

// True when the whole text, blanks aside at either end, is one number in the grammar that
// ParseNumberText reads ("." as point) and its value is finite: what the archive reader
// accepts as a number element.
bool IsNumberText(std::u16string_view text) noexcept;

}  // namespace zk::MStringUtils
