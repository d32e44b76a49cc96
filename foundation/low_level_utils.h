#pragma once

#include <cstdint>

// Bits and integer conversions.
namespace zk::MLowLevelUtils {

// The upper 16 bits of a 32-bit value as a signed 16-bit integer.
int16_t HiWord(int32_t value) noexcept;
// The lower 16 bits of a 32-bit value as a signed 16-bit integer.
int16_t LoWord(int32_t value) noexcept;

// Rounds to the nearest whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double RoundHalfEven(double value) noexcept;
// RoundHalfEven into a 32-bit integer; throws ZKError 6 (overflow) outside its range or for NaN.
int32_t RoundToInt32(double value);
// RoundHalfEven into a 16-bit integer; throws ZKError 6 (overflow) outside its range or for NaN.
int16_t RoundToInt16(double value);

}  // namespace zk::MLowLevelUtils
