#include "hosting/send_keys.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/zk_error.h"

namespace zk {
namespace {

TEST(SendKeysTest, ReadsCharactersNamedKeysAndModifiers) {
  struct Row {
    std::u16string keys;
    std::vector<KeyStroke> strokes;
  };
  const Row rows[] = {
      {u"a", {{65, 0, u'a'}}},
      {u"A", {{65, 1, u'A'}}},
      {u"5:", {{53, 0, u'5'}, {186, 1, u':'}}},
      {u"{ENTER}~", {{13, 0, 13}, {13, 0, 13}}},
      {u"{tab}{ESC}{BACKSPACE}{DEL}", {{9, 0, 9}, {27, 0, 27}, {8, 0, 8}, {46, 0, 0}}},
      {u"{UP}{DOWN}{LEFT}{RIGHT}{HOME}{END}",
       {{38, 0, 0}, {40, 0, 0}, {37, 0, 0}, {39, 0, 0}, {36, 0, 0}, {35, 0, 0}}},
      {u"{F2}{F4}{F12}", {{113, 0, 0}, {115, 0, 0}, {123, 0, 0}}},
      {u"^a", {{65, 2, 1}}},   // Ctrl+A types the control character 1
      {u"^ ", {{32, 2, 32}}},  // Ctrl+Space still types a blank
      {u"^{BS}^h^~", {{8, 2, 127}, {72, 2, 8}, {13, 2, 13}}},  // Ctrl+Backspace types DEL
      {u"+a", {{65, 1, u'A'}}},
      {u"%f", {{70, 4, 0}}},  // Alt types nothing
      {u"+{TAB}", {{9, 1, 9}}},
      {u"^(ab)c", {{65, 2, 1}, {66, 2, 2}, {67, 0, u'c'}}},
      {u"{+}{^}{%}{~}{{}{}}",
       {{187, 1, u'+'},
        {54, 1, u'^'},
        {53, 1, u'%'},
        {192, 1, u'~'},
        {219, 1, u'{'},
        {221, 1, u'}'}}},
      {u"{x 3}", {{88, 0, u'x'}, {88, 0, u'x'}, {88, 0, u'x'}}},
      {u"", {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.keys));
    EXPECT_EQ(ParseSendKeys(row.keys), row.strokes);
  }
}

TEST(SendKeysTest, RefusesNotationItCannotRead) {
  for (const char16_t* keys :
       {u"{NOPE}", u"{ENTER", u"}", u"^", u"(ab", u"ab)", u"{x y}", u"{x 99999}"}) {
    SCOPED_TRACE(testing::PrintToString(std::u16string(keys)));
    try {
      ParseSendKeys(keys);
      ADD_FAILURE() << "accepted";
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), error_number::kInvalidProcedureCall);
    }
  }
}

}  // namespace
}  // namespace zk
