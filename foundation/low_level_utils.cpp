#include "foundation/low_level_utils.h"

#include <cmath>
#include <limits>

#include "foundation/zk_error.h"

namespace zk::MLowLevelUtils {

namespace {

// Rounds and range-checks in double, where every bound of a narrower integer is exact, so
// that values just outside the range (2147483647.5 rounds to 2147483648) are caught.
template <typename Int>
Int RoundToInteger(double value) {
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= static_cast<double>(std::numeric_limits<Int>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Int>::max()))) {
    throw ZKError::Overflow();  // also NaN, which fails both comparisons
  }
  return static_cast<Int>(rounded);
}

}  // namespace

int16_t HiWord(int32_t value) noexcept {
  return static_cast<int16_t>(static_cast<uint16_t>(static_cast<uint32_t>(value) >> 16));
}

int16_t LoWord(int32_t value) noexcept {
  return static_cast<int16_t>(static_cast<uint16_t>(static_cast<uint32_t>(value) & 0xFFFFu));
}

double RoundHalfEven(double value) noexcept {
  // Explicit logic rather than nearbyint, which would follow whatever rounding mode some
  // other code left behind.
  if (!std::isfinite(value)) return value;
  const double lower = std::floor(value);
  // Exact: a finite double and its floor differ only in bits the double already holds.
  const double fraction = value - lower;
  double rounded = lower;
  if (fraction > 0.5 || (fraction == 0.5 && std::fmod(lower, 2.0) != 0.0)) rounded = lower + 1.0;
  // Keep the sign of values that round to zero (-0.4 -> -0), as the hardware rounding does.
  return std::copysign(rounded, value);
}

int32_t RoundToInt32(double value) {
  return RoundToInteger<int32_t>(value);
}

int16_t RoundToInt16(double value) {
  return RoundToInteger<int16_t>(value);
}

}  // namespace zk::MLowLevelUtils
