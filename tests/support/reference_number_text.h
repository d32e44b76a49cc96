#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Plain, step-by-step versions of the number text conversions, written for checking the
// library's own: no shortcuts, positions counted from 1 as the rules count them. Tests and fuzz
// targets compare the two on every input they make.
namespace zk::reference {

// The value as text with `decimal_sep`, at most `decimals` decimals (negative: all of them),
// cut and not rounded, filled with "0" up to the count with `zero_fill`. Starts from the
// library's general number text. Only for finite values.
std::u16string FormatNumberText(double value, std::u16string_view decimal_sep, int32_t decimals,
                                bool zero_fill);

// What a text reads as a number after every `decimal_sep` became ".". Throws ZKError 6 when
// the number does not fit into a 64-bit float or "&H"/"&O" digits exceed 32 bits.
double ParseNumberText(std::u16string_view text, std::u16string_view decimal_sep);

}  // namespace zk::reference
