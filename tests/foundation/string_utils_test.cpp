#include "foundation/string_utils.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "foundation/zk_error.h"

namespace zk::MStringUtils {
namespace {

using testing::PrintToString;

constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kDenormMin = std::numeric_limits<double>::denorm_min();
constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(StringUtilsTest, GeneralNumberText) {
  const std::vector<std::pair<double, std::u16string>> rows = {
      {0.0, u"0"},
      {-0.0, u"0"},
      {1.0, u"1"},
      {-1.0, u"-1"},
      {0.5, u".5"},
      {-0.25, u"-.25"},
      {123.456, u"123.456"},
      {0.1 + 0.2, u".3"},  // the 17-digit noise is rounded away
      {1.0 / 3.0, u".333333333333333"},
      {2.0 / 3.0, u".666666666666667"},
      {0.0001, u".0001"},
      {0.000123456789012345678, u".000123456789012346"},
      {0.00001, u"1E-05"},
      {1.5e-5, u"1.5E-05"},
      {-1.23456e-5, u"-1.23456E-05"},
      {1e14, u"100000000000000"},
      {123456789012345.0, u"123456789012345"},
      {999999999999999.9, u"1E+15"},  // rounding to 15 digits carries into the exponent
      {1e15, u"1E+15"},
      {1e20, u"1E+20"},
      {-2.5e20, u"-2.5E+20"},
      {1e100, u"1E+100"},
      {1234567890123456789.0, u"1.23456789012346E+18"},
      {kMax, u"1.79769313486232E+308"},
      {kDenormMin, u"4.94065645841247E-324"},
      {std::numeric_limits<double>::quiet_NaN(), u"NaN"},
      {kInf, u"Infinity"},
      {-kInf, u"-Infinity"},
  };
  for (const auto& [value, expected] : rows)
    EXPECT_EQ(GeneralNumberText(value), expected) << value;
}

TEST(StringUtilsTest, FormatNumberText) {
  struct Row {
    double value;
    std::u16string sep;
    int32_t decimals;
    bool zero_fill;
    std::u16string expected;
  };
  const std::vector<Row> rows = {
      {0.5, u",", -1, false, u"0,5"},
      {-0.5, u",", -1, false, u"-0,5"},
      {2.678, u".", 2, false, u"2.67"},
      {-2.678, u".", 2, false, u"-2.67"},  // cut toward zero, not rounded down
      {2.9, u".", 0, false, u"2"},
      {-0.5, u".", 0, false, u"-0"},
      {2.5, u".", 3, true, u"2.500"},
      {2.5, u".", 3, false, u"2.5"},
      {2.5, u".", -1, true, u"2.5"},
      {12.0, u".", 2, true, u"12.00"},
      {12.0, u".", 2, false, u"12"},
      {12.0, u".", 0, true, u"12"},
      {0.0, u",", 2, true, u"0,00"},
      {0.0001, u".", 2, false, u"0.00"},
      {-0.25, u".", 1, true, u"-0.2"},
      {123.456, u".", 2, true, u"123.45"},
      {1.5e-5, u".", 3, true, u"1.500E-05"},
      {1.5e-5, u".", 3, false, u"1.5E-05"},
      {1.5e-5, u".", 2, true, u"1.50E-05"},
      {1.5e-5, u".", 1, true, u"1.5E-05"},
      {1.23456e-5, u".", 2, false, u"1.23E-05"},
      {1.23456e-5, u",", 2, true, u"1,23E-05"},
      {5.5e-5, u".", 0, false, u"5E-05"},
      {-5.5e-5, u".", 0, true, u"-5E-05"},
      {1e20, u".", 2, true, u"1.00E+20"},
      {-1e20, u",", 2, true, u"-1,00E+20"},
      {1e20, u".", 2, false, u"1E+20"},
      {1e20, u".", 0, true, u"1E+20"},
      {3.25, u"<>", 2, true, u"3<>25"},    // separators longer than one character
      {3.25, u"..", -1, false, u"3..25"},  // a separator made of points is not replaced again
      {-0.5, u"", -1, false, u"-05"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(FormatNumberText(row.value, row.sep, row.decimals, row.zero_fill), row.expected)
        << row.value << " sep " << PrintToString(row.sep) << " decimals " << row.decimals
        << " fill " << row.zero_fill;
  }
}

TEST(StringUtilsTest, ParseNumberText) {
  struct Row {
    std::u16string text;
    std::u16string sep;
    double expected;
  };
  const std::u16string many_zeros(400, u'0');
  const std::vector<Row> rows = {
      {u"3,75", u",", 3.75},
      {u"1.234,5", u",", 1.234},  // two points after the replacement: stops at the second
      {u"1.5", u",", 1.5},
      {u"1::5", u"::", 1.5},
      {u"1.5", u"", 1.5},
      {u"abc", u".", 0.0},
      {u"", u".", 0.0},
      {u"  12  ", u".", 12.0},
      {u"1 2", u".", 12.0},
      {u"\t-\n4.5\n", u".", -4.5},
      // A carriage return is not skipped: it ends the number, or leaves none at the start.
      {u"4.5\r", u".", 4.5},
      {u"1\r2", u".", 1.0},
      {u"\r12", u".", 0.0},
      {u"-\r1", u".", 0.0},
      {u"1e\r3", u".", 1.0},
      {u"&H\r1F", u".", 0.0},
      {u"1 0 0 0 e - 3", u".", 1.0},
      {u"+7", u".", 7.0},
      {u"--5", u".", 0.0},
      {u".5", u".", 0.5},
      {u"5.", u".", 5.0},
      {u".", u".", 0.0},
      {u"-", u".", 0.0},
      {u"e5", u".", 0.0},
      {u"1e3", u".", 1000.0},
      {u"1E+3", u".", 1000.0},
      {u"2.5D-2", u".", 0.025},
      {u"1d2", u".", 100.0},
      {u"1e", u".", 1.0},
      {u"1e+", u".", 1.0},
      {u"12abc", u".", 12.0},
      {u"1.2.3", u".", 1.2},
      {u"\uFF11", u".", 0.0},  // only ASCII digits count
      {u"&H10", u".", 16.0},
      {u"&hff", u".", 255.0},
      {u"&O17", u".", 15.0},
      {u"&o8", u".", 0.0},
      {u"&H", u".", 0.0},
      {u"&X1", u".", 0.0},
      {u"& H 1F", u".", 31.0},
      {u"&H7FFFFFFF", u".", 2147483647.0},
      {u"&H8000000F", u".", -2147483633.0},
      {u"&HFFFFFFFF", u".", -1.0},
      {u"&O37777777777", u".", -1.0},
      {u"&H00000000FF", u".", 255.0},  // leading zeros do not count toward 32 bits
      {u"0.1", u".", 0.1},
      {u"0.30000000000000004", u".", 0.1 + 0.2},
      {u"9007199254740993", u".", 9007199254740992.0},  // halfway: rounds to even
      {u"1.7976931348623157e308", u".", kMax},
      {u"4.9406564584124654e-324", u".", kDenormMin},
      {u"1e-400", u".", 0.0},
      {u"0e99999999999999999999", u".", 0.0},
      {u"0." + many_zeros + u"1e401", u".", 1.0},
      {u"1" + many_zeros + u"e-400", u".", 1.0},
      {u"1e-" + std::u16string(10000, u'9'), u".", 0.0},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ParseNumberText(row.text, row.sep), row.expected)
        << PrintToString(row.text) << " sep " << PrintToString(row.sep);
  }
}

TEST(StringUtilsTest, ParseNumberTextOverflows) {
  const std::vector<std::u16string> rows = {
      u"1e309",
      u"-1e309",
      u"1.8e308",
      u"1e99999",
      u"1e" + std::u16string(10000, u'9'),
      u"&H100000000",
      u"&O40000000000",
      u"&H" + std::u16string(40, u'F'),
  };
  for (const std::u16string& text : rows) {
    try {
      ParseNumberText(text, u".");
      ADD_FAILURE() << "no overflow for " << PrintToString(text);
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), error_number::kOverflow) << PrintToString(text);
    }
  }
}

TEST(StringUtilsTest, IsNumberText) {
  const std::vector<std::pair<std::u16string, bool>> rows = {
      {u"0", true},
      {u" 12 ", true},
      {u"\t-1.5e+3\n", true},
      {u"+.5", true},
      {u"5.", true},
      {u"1.e5", true},
      {u"1D-2", true},
      {u"&H1F", true},
      {u"&o17", true},
      {u"&HFFFFFFFF", true},
      {u"1e-400", true},
      {u"-0", true},
      {u"", false},
      {u" ", false},
      {u"-", false},
      {u".", false},
      {u"1e", false},
      {u"1e+", false},
      {u"12abc", false},
      {u"1 2", false},
      {u"- 1", false},
      {u"1,5", false},
      {u"&H", false},
      {u"&H1G", false},
      {u"+&H1", false},
      {u"&H100000000", false},
      {u"1e309", false},
      {u"e5", false},
      {u"1.2.3", false},
      {u"--1", false},
      {u"NaN", false},
      {u"Infinity", false},
      {u"\uFF11", false},
      // Only what ParseNumberText skips counts as a blank: not a carriage return.
      {u"12\r", false},
      {u"\r12", false},
      {u"\r\n1", false},
  };
  for (const auto& [text, expected] : rows) {
    EXPECT_EQ(IsNumberText(text), expected) << PrintToString(text);
  }
}

TEST(StringUtilsTest, GeneralTextReadsBackAsTheSameValue) {
  // Values with at most 15 significant digits survive the general text unchanged.
  for (const double value : {0.1, -123.456, 1e-5, -1.5e-5, 0.0001, 123456789012345.0, 1e15, -2.5e20,
                             1.5e300, 1e-300, 7.0}) {
    const std::u16string text = GeneralNumberText(value);
    EXPECT_TRUE(IsNumberText(text)) << PrintToString(text);
    EXPECT_EQ(ParseNumberText(text, u"."), value) << PrintToString(text);
    EXPECT_EQ(ParseNumberText(FormatNumberText(value, u",", -1, false), u","), value)
        << PrintToString(text);
  }
}

}  // namespace
}  // namespace zk::MStringUtils
