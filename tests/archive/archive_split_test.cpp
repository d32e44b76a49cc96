#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "tests/archive/reference_split.h"

namespace zk {
namespace {

using MArchiveUtils::ArchiveJoin;
using MArchiveUtils::ArchiveSplit;
using Texts = std::vector<std::u16string>;

struct SplitCase {
  std::u16string text;
  std::u16string separator;
  bool trim;
  Texts expected;
};

// Every case is checked against both scanners, so a wrong expectation cannot hide behind a
// reference that shares the mistake.
TEST(ArchiveSplitTest, SplitsAtSeparatorsOutsideQuotedText) {
  const std::vector<SplitCase> cases = {
      {u"", u",", true, {}},
      {u"a,b,", u",", true, {u"a", u"b"}},
      {u"a,,b", u",", true, {u"a", u"", u"b"}},
      {u",", u",", false, {u""}},
      {u",,", u",", false, {u"", u""}},
      {u"a, ", u",", true, {u"a", u""}},
      {u"\"x,y\",2", u",", true, {u"\"x,y\"", u"2"}},
      {u" \"a\" , b ", u",", true, {u"\"a\"", u"b"}},
      {u" \"a\" , b ", u",", false, {u" \"a\" ", u" b "}},
      {u"\t a \t", u",", true, {u"\t a \t"}},
      {u"\"\"\"a\",b", u",", true, {u"\"\"\"a\"", u"b"}},
      {u"\"ab\"\",c\",d", u",", true, {u"\"ab\"\",c\"", u"d"}},
      // A quote opens quoted text anywhere in an element, and an unclosed one runs to the end.
      {u"a\"b,c\"d,e", u",", true, {u"a\"b,c\"d", u"e"}},
      {u"\"abc,d", u",", true, {u"\"abc,d"}},
      {u"a,\"b,c", u",", true, {u"a", u"\"b,c"}},
      // Doubled quotes outside quoted text are empty texts; an odd run opens quoted text.
      {u"a\"\",b", u",", true, {u"a\"\"", u"b"}},
      {u"\"\"\"\"\",a", u",", true, {u"\"\"\"\"\",a"}},
      // Quotes after the last separator do not matter.
      {u"a,b\"c", u",", true, {u"a", u"b\"c"}},
      {u"\"N\"|1|2|3|4|T|||T|\"t|,\"|0|T|",
       u"|",
       true,
       {u"\"N\"", u"1", u"2", u"3", u"4", u"T", u"", u"", u"T", u"\"t|,\"", u"0", u"T"}},
      // Longer separators: the first match from the scan position wins, and a trailing one
      // gives no empty last element.
      {u"a,,b,,", u",,", true, {u"a", u"b"}},
      {u"a,,,b", u",,", true, {u"a", u",b"}},
      {u"xaby\"ab\"ab", u"ab", true, {u"x", u"y\"ab\""}},
      // A separator that starts with a quote splits where it stands outside quoted text, but
      // inside quoted text its quote closes the text first.
      {u"a\",b", u"\",", true, {u"a", u"b"}},
      {u"\"a\",b", u"\",", true, {u"\"a\",b"}},
      {u"a\"b\"c", u"\"", true, {u"a", u"b", u"c"}},
      // No separator to search for: the whole text is one element.
      {u"a,b", u"", true, {u"a,b"}},
  };
  for (const SplitCase& c : cases) {
    SCOPED_TRACE(std::string(c.text.begin(), c.text.end()));
    EXPECT_EQ(ArchiveSplit(c.text, c.separator, c.trim), c.expected);
    EXPECT_EQ(archive_test::ReferenceSplit(c.text, c.separator, c.trim), c.expected);
  }
}

// Short texts over the five characters that matter, and long ones (several 64-character search
// blocks) rich in quote runs, so that runs and separators also straddle block boundaries.
TEST(ArchiveSplitTest, MatchesTheNaiveScannerOnRandomTexts) {
  const std::vector<std::u16string> separators = {u",", u"|", u",,", u"\",", u"ab", u"\""};
  const std::u16string short_alphabet = u"a,\"| ";
  const std::u16string long_alphabet = u"a,\"\"\"\"| b";
  std::mt19937 random(20240611);
  for (int round = 0; round < 6000; ++round) {
    const bool long_text = round % 4 == 0;
    const std::u16string& alphabet = long_text ? long_alphabet : short_alphabet;
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::u16string text(std::uniform_int_distribution<std::size_t>(0, long_text ? 300 : 24)(random),
                        u' ');
    for (char16_t& ch : text)
      ch = alphabet[pick(random)];
    const std::u16string& separator =
        separators[static_cast<std::size_t>(round / 4) % separators.size()];
    const bool trim = (round / 7) % 2 == 0;
    ASSERT_EQ(ArchiveSplit(text, separator, trim),
              archive_test::ReferenceSplit(text, separator, trim))
        << std::string(text.begin(), text.end()) << " at "
        << std::string(separator.begin(), separator.end());
  }
}

// Quote runs of every small length placed around the 64-character search blocks, where a run
// that reaches the end of a block has to be followed into the next one.
TEST(ArchiveSplitTest, FollowsQuoteRunsAcrossSearchBlocks) {
  for (const std::u16string separator : {u",", u"\"", u"\","}) {
    for (std::size_t pad = 56; pad <= 72; ++pad) {
      for (std::size_t run = 1; run <= 6; ++run) {
        const std::u16string text =
            u"\"" + std::u16string(pad, u'a') + std::u16string(run, u'"') + u",b\",c";
        ASSERT_EQ(ArchiveSplit(text, separator, false),
                  archive_test::ReferenceSplit(text, separator, false))
            << "pad " << pad << ", run " << run;
      }
    }
  }
}

// A record holding one long quoted string list, the case a naive scanner takes quadratic time
// on. The split must still find the list as one element.
TEST(ArchiveSplitTest, KeepsALongQuotedListAsOneElement) {
  Texts items;
  for (int i = 0; i < 200000; ++i) {
    const std::string digits = std::to_string(i);
    items.push_back(u"item" + std::u16string(digits.begin(), digits.end()));
  }
  const std::u16string list =
      MArchiveUtils::ArchiveEscapeString(MArchiveUtils::ArchiveJoinStrings(items));
  const std::u16string record = u"\"N\"|1|2|3|4|T|||T|\"\"|0|T|," + list + u",\"x\",3";

  const Texts elements = MArchiveUtils::ArchiveSplitElements(record);
  ASSERT_EQ(elements.size(), 4u);
  EXPECT_EQ(elements[1], list);
  EXPECT_EQ(MArchiveUtils::ArchiveSplitStrings(MArchiveUtils::ArchiveUnescapeString(elements[1])),
            items);
}

TEST(ArchiveJoinTest, PutsTheSeparatorBetweenItems) {
  const std::vector<std::pair<Texts, std::u16string>> cases = {
      {{}, u""},
      {{u""}, u""},
      {{u"", u""}, u","},
      {{u"a", u""}, u"a,"},
      {{u"a", u"b", u"c"}, u"a,b,c"},
  };
  for (const auto& [items, expected] : cases)
    EXPECT_EQ(ArchiveJoin(items, u","), expected);
  EXPECT_EQ(ArchiveJoin(Texts{u"a", u"b"}, u"||"), u"a||b");
}

}  // namespace
}  // namespace zk
