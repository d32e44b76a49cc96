// The number text conversions against the plain step-by-step versions that the fuzz target
// also uses. The table pins both to known answers, so that a fault shared by the two cannot
// hide; the random runs then compare them on values and texts no table lists.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

#include "foundation/string_utils.h"
#include "foundation/zk_error.h"
#include "tests/support/reference_number_text.h"

namespace zk {
namespace {

struct FormatCase {
  double value;
  std::u16string_view separator;
  int32_t decimals;
  bool zero_fill;
  std::u16string_view expected;
};

class NumberTextReferenceFormat : public testing::TestWithParam<FormatCase> {};

TEST_P(NumberTextReferenceFormat, LibraryAndReferenceGiveTheKnownText) {
  const FormatCase& c = GetParam();
  EXPECT_EQ(MStringUtils::FormatNumberText(c.value, c.separator, c.decimals, c.zero_fill),
            c.expected);
  EXPECT_EQ(reference::FormatNumberText(c.value, c.separator, c.decimals, c.zero_fill), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NumberTextReferenceFormat,
    testing::Values(
        FormatCase{0.5, u",", -1, false, u"0,5"}, FormatCase{-0.5, u",", -1, false, u"-0,5"},
        FormatCase{2.678, u".", 2, false, u"2.67"}, FormatCase{2.9, u".", 0, false, u"2"},
        FormatCase{-0.5, u".", 0, false, u"-0"}, FormatCase{2.5, u".", 3, true, u"2.500"},
        FormatCase{2.5, u".", 3, false, u"2.5"}, FormatCase{12, u".", 2, true, u"12.00"},
        FormatCase{12, u".", 2, false, u"12"}, FormatCase{1.5E-05, u".", 3, true, u"1.500E-05"},
        FormatCase{1.23456E-05, u".", 2, false, u"1.23E-05"},
        FormatCase{5.5E-05, u".", 0, false, u"5E-05"},
        FormatCase{1E+20, u".", 2, true, u"1.00E+20"}, FormatCase{-1.25, u"::", 1, false, u"-1::2"},
        FormatCase{3.75, u"", -1, false, u"375"}, FormatCase{0, u".", 2, true, u"0.00"}));

struct ParseCase {
  std::u16string_view text;
  std::u16string_view separator;
  double expected;
};

class NumberTextReferenceParse : public testing::TestWithParam<ParseCase> {};

TEST_P(NumberTextReferenceParse, LibraryAndReferenceReadTheKnownValue) {
  const ParseCase& c = GetParam();
  EXPECT_EQ(MStringUtils::ParseNumberText(c.text, c.separator), c.expected);
  EXPECT_EQ(reference::ParseNumberText(c.text, c.separator), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, NumberTextReferenceParse,
                         testing::Values(ParseCase{u"3,75", u",", 3.75},
                                         ParseCase{u"1.234,5", u",", 1.234},
                                         ParseCase{u"abc", u".", 0}, ParseCase{u"", u".", 0},
                                         ParseCase{u" 1 2\t3\n", u".", 123},
                                         ParseCase{u"-1.5D2x", u".", -150},
                                         ParseCase{u"2E", u".", 2}, ParseCase{u"&HFF", u".", 255},
                                         ParseCase{u"&HFFFFFFFF", u".", -1},
                                         ParseCase{u"&O17", u".", 15}, ParseCase{u"&X1", u".", 0},
                                         ParseCase{u"+.5", u".", 0.5}, ParseCase{u"\r5", u".", 0}));

TEST(NumberTextReference, BothRefuseWhatDoesNotFit) {
  for (std::u16string_view text : {u"1E400", u"-9D999", u"&H100000000", u"&O77777777777"}) {
    EXPECT_THROW(MStringUtils::ParseNumberText(text, u"."), ZKError) << text.size();
    EXPECT_THROW(reference::ParseNumberText(text, u"."), ZKError) << text.size();
  }
}

int64_t Repetitions(int64_t normal) {
  const char* value = std::getenv("ZK_LONG_PROPERTY_TESTS");
  return value != nullptr && std::string(value) == "1" ? normal * 100 : normal;
}

// Any finite double: random bits give every magnitude and both exponent forms; random short
// decimals give the values hosts type.
TEST(NumberTextReference, FormatAgreesOnRandomValues) {
  std::mt19937_64 random(20261123);
  const std::u16string_view separators[] = {u".", u",", u"", u"::", u".."};
  for (int64_t i = 0; i < Repetitions(10000); ++i) {
    double value = 0;
    if (i % 2 == 0) {
      value = std::bit_cast<double>(random());
      if (!std::isfinite(value)) continue;
    } else {
      value = static_cast<double>(static_cast<int64_t>(random() % 2000001) - 1000000) /
              std::pow(10.0, static_cast<double>(random() % 12));
    }
    const std::u16string_view separator = separators[random() % std::size(separators)];
    const auto decimals = static_cast<int32_t>(random() % 20) - 2;
    const bool zero_fill = random() % 2 == 0;
    ASSERT_EQ(MStringUtils::FormatNumberText(value, separator, decimals, zero_fill),
              reference::FormatNumberText(value, separator, decimals, zero_fill))
        << value << " " << decimals << " " << zero_fill;
  }
}

TEST(NumberTextReference, ParseAgreesOnRandomTexts) {
  std::mt19937_64 random(7);
  constexpr std::u16string_view kUnits = u"0123456789.,+-eEdD&HhOo \t\nxF";
  for (int64_t i = 0; i < Repetitions(10000); ++i) {
    std::u16string text;
    const size_t length = random() % 24;
    for (size_t k = 0; k < length; ++k)
      text.push_back(kUnits[random() % kUnits.size()]);
    const std::u16string_view separator = random() % 2 == 0 ? u"." : u",";
    double library = 0;
    double plain = 0;
    bool library_refused = false;
    bool plain_refused = false;
    try {
      library = MStringUtils::ParseNumberText(text, separator);
    } catch (const ZKError&) {
      library_refused = true;
    }
    try {
      plain = reference::ParseNumberText(text, separator);
    } catch (const ZKError&) {
      plain_refused = true;
    }
    ASSERT_EQ(library_refused, plain_refused) << std::string(text.begin(), text.end());
    ASSERT_EQ(library, plain) << std::string(text.begin(), text.end());
  }
}

}  // namespace
}  // namespace zk
