#include "foundation/low_level_utils.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "foundation/zk_error.h"

namespace zk::MLowLevelUtils {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(LowLevelUtilsTest, SplitsIntoSignedHalves) {
  struct Row {
    uint32_t bits;
    int16_t hi;
    int16_t lo;
  };
  const std::vector<Row> rows = {
      {0x00000000u, 0, 0},      {0x12345678u, 0x1234, 0x5678}, {0xFFFF0000u, -1, 0},
      {0xFFFFFFFFu, -1, -1},    {0x7FFF8000u, 32767, -32768},  {0x0001FFFFu, 1, -1},
      {0x80000000u, -32768, 0}, {0x8000000Fu, -32768, 15},
  };
  for (const Row& row : rows) {
    const auto value = static_cast<int32_t>(row.bits);
    EXPECT_EQ(HiWord(value), row.hi) << std::hex << row.bits;
    EXPECT_EQ(LoWord(value), row.lo) << std::hex << row.bits;
  }
}

struct RoundRow {
  double value;
  double expected;
};

const std::vector<RoundRow> kHalfEvenRows = {
    {0.5, 0.0},
    {1.5, 2.0},
    {2.5, 2.0},
    {3.5, 4.0},
    {-0.5, -0.0},
    {-1.5, -2.0},
    {-2.5, -2.0},
    {2.4, 2.0},
    {2.6, 3.0},
    {-2.6, -3.0},
    {0.49999999999999994, 0.0},
    {4503599627370495.5, 4503599627370496.0},  // last half below 2^52
    {4503599627370497.0, 4503599627370497.0},  // odd whole number above 2^52
    {1e300, 1e300},
    {kInf, kInf},
    {-kInf, -kInf},
};

TEST(LowLevelUtilsTest, RoundsHalvesToEven) {
  for (const RoundRow& row : kHalfEvenRows) {
    const double rounded = RoundHalfEven(row.value);
    EXPECT_EQ(rounded, row.expected) << row.value;
    EXPECT_EQ(std::signbit(rounded), std::signbit(row.expected)) << row.value;
  }
  EXPECT_TRUE(std::isnan(RoundHalfEven(kNaN)));
}

TEST(LowLevelUtilsTest, RoundingIgnoresTheCurrentRoundingMode) {
  const int saved = std::fegetround();
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    ASSERT_EQ(std::fesetround(mode), 0);
    for (const RoundRow& row : kHalfEvenRows) {
      EXPECT_EQ(RoundHalfEven(row.value), row.expected) << row.value << " mode " << mode;
    }
  }
  std::fesetround(saved);
}

TEST(LowLevelUtilsTest, RoundsIntoInt32) {
  const std::vector<std::pair<double, int32_t>> rows = {
      {2.5, 2},
      {-3.5, -4},
      {2147483647.0, 2147483647},
      {2147483647.4, 2147483647},
      {-2147483648.0, -2147483647 - 1},
      {-2147483648.5, -2147483647 - 1},  // the even neighbour is still in range
  };
  for (const auto& [value, expected] : rows)
    EXPECT_EQ(RoundToInt32(value), expected) << value;

  for (const double value : {2147483647.5, 2147483648.0, -2147483648.6, 1e300, kInf, -kInf, kNaN}) {
    try {
      RoundToInt32(value);
      ADD_FAILURE() << "no overflow for " << value;
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), error_number::kOverflow) << value;
    }
  }
}

TEST(LowLevelUtilsTest, RoundsIntoInt16) {
  const std::vector<std::pair<double, int16_t>> rows = {
      {32767.4, 32767},
      {32766.5, 32766},
      {-32768.5, -32768},
      {-0.5, 0},
  };
  for (const auto& [value, expected] : rows)
    EXPECT_EQ(RoundToInt16(value), expected) << value;

  for (const double value : {32767.5, 32768.0, -32768.6, -32769.0, 70000.0, kNaN}) {
    try {
      RoundToInt16(value);
      ADD_FAILURE() << "no overflow for " << value;
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), error_number::kOverflow) << value;
    }
  }
}

}  // namespace
}  // namespace zk::MLowLevelUtils
