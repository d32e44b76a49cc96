#include "foundation/text_encoding.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zk {
namespace {

TEST(TextEncodingTest, Base64FollowsTheStandardVectorsBothWays) {
  struct Row {
    std::string bytes;
    std::string text;
  };
  // RFC 4648, section 10: every padding case.
  const Row rows[] = {{"", ""},
                      {"f", "Zg=="},
                      {"fo", "Zm8="},
                      {"foo", "Zm9v"},
                      {"foob", "Zm9vYg=="},
                      {"fooba", "Zm9vYmE="},
                      {"foobar", "Zm9vYmFy"},
                      {std::string("\xff\xfe\x00\x80", 4), "//4AgA=="}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const std::vector<uint8_t> bytes(row.bytes.begin(), row.bytes.end());
    EXPECT_EQ(Base64Encode(bytes), row.text);
    EXPECT_EQ(Base64Decode(row.text), bytes);
  }
}

TEST(TextEncodingTest, Base64RefusesWhatItDidNotWrite) {
  for (const char* text : {"Zg=", "Zg", "Z===", "Zg=a", "Zm9v Yg==", "Zm9\n", "Zg==Zg==", "*Zg="}) {
    SCOPED_TRACE(text);
    EXPECT_FALSE(Base64Decode(text).has_value());
  }
}

TEST(TextEncodingTest, Utf16AndUtf8ConvertBothWaysAndReplaceBrokenSequences) {
  const std::u16string text = u"A\u00e9\u20ac\U0001F600";
  EXPECT_EQ(Utf8ToUtf16(Utf16ToUtf8(text)), text);
  EXPECT_EQ(Utf8ToUtf16("a\xff"
                        "b"),
            u"a\uFFFDb");
  EXPECT_EQ(Utf16ToUtf8(std::u16string(1, u'\xD800')), "\xEF\xBF\xBD");  // a lone surrogate
}

TEST(FindNonText, NamesTheFirstByteThatIsNotText) {
  struct Case {
    std::string_view bytes;
    std::optional<size_t> offset;
  };
  using namespace std::string_view_literals;
  const Case cases[] = {
      {"", std::nullopt},
      {"new ZKLabel A\r\n? A.Caption\n", std::nullopt},
      {"caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80", std::nullopt},  // two, three and four bytes
      {"ab\0cd"sv, 2},                                              // NUL
      {"ab\x80", 2},                                                // stray continuation byte
      {"ab\xc3", 2},                                                // truncated at the end
      {"ab\xe2\x82", 2},                                            // truncated three-byte sequence
      {"\xc0\xaf", 0},                                              // overlong
      {"x\xed\xa0\x80", 1},                                         // encoded surrogate
      {"x\xf4\x90\x80\x80", 1},                                     // beyond U+10FFFF
      {"ok\xff", 2},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FindNonText(c.bytes), c.offset) << ::testing::PrintToString(std::string(c.bytes));
  }
}

}  // namespace
}  // namespace zk
