// The blocked row store of list boxes against a plain array given the same operations.
#include "platform/common/list_rows.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace zk {
namespace {

std::u16string Text(int value) {
  const std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

void ExpectSame(const ListRows& rows, const std::vector<std::u16string>& expected) {
  ASSERT_EQ(rows.Size(), static_cast<int32_t>(expected.size()));
  for (size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(rows.At(static_cast<int32_t>(i)), expected[i]) << "row " << i;
  }
}

TEST(ListRowsTest, InsertsSetsAndErasesAnywhereAsAnArrayDoes) {
  std::mt19937 random(7);
  ListRows rows;
  std::vector<std::u16string> expected;
  for (int step = 0; step < 6000; ++step) {
    const int size = static_cast<int>(expected.size());
    const int action = std::uniform_int_distribution<int>(0, 9)(random);
    if (action < 6 || size == 0) {
      // Inserts at the front, the end and anywhere between, so blocks split everywhere.
      const int at =
          action == 0 ? 0
                      : (action == 1 ? size : std::uniform_int_distribution<int>(0, size)(random));
      rows.Insert(at, Text(step));
      expected.insert(expected.begin() + at, Text(step));
    } else if (action < 8) {
      const int at = std::uniform_int_distribution<int>(0, size - 1)(random);
      rows.Erase(at);
      expected.erase(expected.begin() + at);
    } else {
      const int at = std::uniform_int_distribution<int>(0, size - 1)(random);
      rows.Set(at, u"set" + Text(step));
      expected[static_cast<size_t>(at)] = u"set" + Text(step);
    }
    if (step % 500 == 0) ExpectSame(rows, expected);
  }
  ExpectSame(rows, expected);
  // Reading backwards walks the blocks the other way.
  for (int i = rows.Size() - 1; i >= 0; --i)
    ASSERT_EQ(rows.At(i), expected[static_cast<size_t>(i)]);
  rows.Clear();
  EXPECT_EQ(rows.Size(), 0);
  rows.Insert(0, u"again");
  ExpectSame(rows, {u"again"});
}

TEST(ListRowsTest, ErasingEveryRowLeavesAnEmptyListThatTakesRowsAgain) {
  ListRows rows;
  for (int i = 0; i < 1000; ++i)
    rows.Insert(i, Text(i));
  for (int i = 999; i >= 0; i -= 2)
    rows.Erase(i);
  EXPECT_EQ(rows.Size(), 500);
  EXPECT_EQ(rows.At(0), u"0");
  EXPECT_EQ(rows.At(499), u"998");
  while (rows.Size() > 0)
    rows.Erase(0);
  rows.Insert(0, u"x");
  EXPECT_EQ(rows.At(0), u"x");
}

}  // namespace
}  // namespace zk
