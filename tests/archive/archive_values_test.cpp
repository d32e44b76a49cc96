#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/archive_utils.h"

namespace zk {
namespace {

using namespace MArchiveUtils;
using Texts = std::vector<std::u16string>;

TEST(ArchiveTextTest, QuotesAndDoublesQuotesBothWays) {
  const std::vector<std::pair<std::u16string, std::u16string>> cases = {
      {u"", u"\"\""},
      {u"ab\"c", u"\"ab\"\"c\""},
      {u"\"", u"\"\"\"\""},
      {u"\"\"", u"\"\"\"\"\"\""},
      {u" a,b|c#d ", u"\" a,b|c#d \""},
  };
  for (const auto& [text, element] : cases) {
    EXPECT_EQ(ArchiveEscapeString(text), element);
    EXPECT_EQ(ArchiveUnescapeString(element), text);
  }
}

TEST(ArchiveTextTest, UnescapeDropsOuterCharactersUnseenAndPairsLeftToRight) {
  const std::vector<std::pair<std::u16string, std::u16string>> cases = {
      {u"", u""},
      {u"x", u""},
      {u"\"\"", u""},
      {u"ab", u""},
      {u"abc", u"b"},
      {u"\"a\"\"b\"", u"a\"b"},
      {u"\"\"\"", u"\""},
      {u"\"\"\"\"\"", u"\"\""},
      {u"\"a\"\"\"", u"a\""},
      {u"\"a\"b\"", u"a\"b"},
  };
  for (const auto& [element, text] : cases)
    EXPECT_EQ(ArchiveUnescapeString(element), text);
}

TEST(ArchiveBoolTest, OnlyCapitalTReadsAsTrue) {
  EXPECT_EQ(ArchiveEscapeBool(true), u"T");
  EXPECT_EQ(ArchiveEscapeBool(false), u"F");
  EXPECT_TRUE(ArchiveUnescapeBool(u"T"));
  for (const std::u16string element : {u"t", u"F", u"", u"TT", u" T", u"True", u"-1"}) {
    EXPECT_FALSE(ArchiveUnescapeBool(element)) << std::string(element.begin(), element.end());
  }
}

TEST(ArchiveNumberTest, WritesPlainDecimalTextWithAPoint) {
  const std::vector<std::pair<double, std::u16string>> cases = {
      {3, u"3"},       {-2147483633, u"-2147483633"},
      {8.25, u"8.25"}, {0.5, u"0.5"},
      {-0.5, u"-0.5"}, {1e20, u"1E+20"},
      {0, u"0"},
  };
  for (const auto& [value, element] : cases) {
    EXPECT_EQ(ArchiveEscapeNumber(value), element);
    EXPECT_EQ(ArchiveUnescapeNumber(element), value);
  }
}

TEST(ArchiveNumberTest, ReadsWhatIsNotANumberAsZero) {
  const std::vector<std::pair<std::u16string, double>> cases = {
      {u"", 0},    {u"abc", 0},      {u"1.5x", 0},          {u"1e999", 0}, {u"T", 0},
      {u"1,5", 0}, {u"-.25", -0.25}, {u"1.5E-05", 1.5e-05}, {u" 7 ", 7},
  };
  for (const auto& [element, value] : cases) {
    EXPECT_EQ(ArchiveUnescapeNumber(element), value) << std::string(element.begin(), element.end());
  }
}

TEST(ArchiveStringListTest, ItemsComeBackUnchanged) {
  const std::vector<Texts> lists = {
      {},
      {u""},
      {u"", u""},
      {u" a ", u"b|c", u"q\"", u",", u"\"x\"|\"y\""},
  };
  for (const Texts& items : lists)
    EXPECT_EQ(ArchiveSplitStrings(ArchiveJoinStrings(items)), items);
  EXPECT_EQ(ArchiveJoinStrings(Texts{u"a", u"b\"c"}), u"\"a\"|\"b\"\"c\"");
  EXPECT_EQ(ArchiveSplitStrings(u" \"a\" | \"b\" |"), (Texts{u"a", u"b"}));
}

TEST(ArchiveElementsTest, RecordsSplitAtCommasWithTrimming) {
  const Texts elements = {u"\"x,y\"", u"2", u"T", u"\"\"", u"\"N\"|1|T|"};
  EXPECT_EQ(ArchiveJoinElements(elements), u"\"x,y\",2,T,\"\",\"N\"|1|T|");
  EXPECT_EQ(ArchiveSplitElements(ArchiveJoinElements(elements)), elements);
  EXPECT_EQ(ArchiveSplitElements(u" \"a\" , b ,"), (Texts{u"\"a\"", u"b"}));
}

}  // namespace
}  // namespace zk
