#include "models/edit_list_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "models/ordinal_caseless_collation.h"
#include "tests/models/edit_list_host.h"

namespace zk {
namespace {

using edit_list_test::Narrow;
using Texts = std::vector<std::u16string>;
constexpr int kItems = EditListRows::kItemColumn;
constexpr int kTags = EditListRows::kTagColumn;

// The caseless ordinal order, counting the comparisons made through it.
class CountingCollation final : public TextCollation {
 public:
  int Compare(std::u16string_view a, std::u16string_view b) const override {
    ++comparisons;
    return order_.Compare(a, b);
  }
  mutable int64_t comparisons = 0;

 private:
  OrdinalCaselessCollation order_;
};

int Sign(int value) {
  return (value > 0) - (value < 0);
}

// The first row whose comparison with the key is the wanted one, row by row from the top.
int32_t ScanPlacement(const Texts& column, std::u16string_view key, int wanted) {
  const OrdinalCaselessCollation order;
  for (size_t row = 0; row < column.size(); ++row) {
    if (Sign(order.Compare(key, column[row])) == wanted) return static_cast<int32_t>(row);
  }
  return static_cast<int32_t>(column.size());
}

// Random insertions (placed by a search, or anywhere), removals, cell writes and forgotten
// orders on the block store and on two plain vectors. Tiny blocks split and merge all the
// time; the usual size shows the common case.
TEST(EditListRows, BlocksAndRunsMatchPlainVectors) {
  for (const int32_t block_rows : {2, 5, EditListRows::kDefaultBlockRows}) {
    SCOPED_TRACE(testing::Message() << "blocks of " << block_rows);
    EditListRows rows(nullptr, block_rows);
    std::vector<Texts> columns(2);
    std::mt19937 random(static_cast<uint32_t>(block_rows) * 7919u);
    const auto below = [&](int32_t bound) {
      return std::uniform_int_distribution<int32_t>(0, bound - 1)(random);
    };
    const auto text = [&] {
      static const char16_t* const letters[] = {u"a", u"A", u"b", u"c", u"C"};
      std::u16string made;
      for (int32_t i = below(4); i > 0; --i)
        made += letters[below(5)];
      return made;
    };
    bool growing = true;
    for (int step = 0; step < 3000; ++step) {
      const auto count = static_cast<int32_t>(columns[0].size());
      if (growing && count > 300) growing = false;
      if (!growing && count < 3) growing = true;
      const int32_t roll = below(100);
      std::string done;
      if (roll < (growing ? 60 : 25)) {
        std::u16string item = text();
        std::u16string tag = text();
        int32_t index = below(count + 1);
        EditListRows::Placement placement;
        const bool searched = below(3) != 0;
        if (searched) {
          const int column = below(2);
          const int wanted = below(2) == 0 ? -1 : 1;
          const std::u16string& key = column == kItems ? item : tag;
          placement = rows.FindPlacement(column, key, wanted);
          index = ScanPlacement(columns[static_cast<size_t>(column)], key, wanted);
          ASSERT_EQ(placement.index, index) << "step " << step << " key " << Narrow(key);
        }
        columns[0].insert(columns[0].begin() + index, item);
        columns[1].insert(columns[1].begin() + index, tag);
        rows.Insert(index, item, tag, searched ? &placement : nullptr);
        done = "insert at " + std::to_string(index);
      } else if (roll < 90) {
        if (count == 0) continue;
        const int32_t index = below(count);
        columns[0].erase(columns[0].begin() + index);
        columns[1].erase(columns[1].begin() + index);
        rows.Erase(index);
        done = "erase " + std::to_string(index);
      } else if (roll < 98) {
        if (count == 0) continue;
        const int column = below(2);
        const int32_t index = below(count);
        const std::u16string written = text();
        columns[static_cast<size_t>(column)][static_cast<size_t>(index)] = written;
        rows.SetText(column, index, written);
        done = "write " + std::to_string(index);
      } else {
        rows.ForgetOrder(below(2));
        done = "forget";
      }
      ASSERT_EQ(rows.Count(), static_cast<int32_t>(columns[0].size())) << done;
      size_t row = 0;
      size_t differing = 0;
      rows.ForEachRow([&](std::u16string_view item, std::u16string_view tag) {
        if (item != columns[0][row] || tag != columns[1][row]) ++differing;
        ++row;
      });
      ASSERT_EQ(differing, 0u) << "step " << step << " after " << done;
      for (int32_t index = below(16); index < rows.Count(); index += 1 + below(31)) {
        ASSERT_EQ(rows.Text(kItems, index), columns[0][static_cast<size_t>(index)]);
        ASSERT_EQ(rows.Text(kTags, index), columns[1][static_cast<size_t>(index)]);
      }
      if (!columns[1].empty()) {
        const std::u16string& wanted = columns[1][static_cast<size_t>(below(rows.Count()))];
        const auto first =
            std::find(columns[1].begin(), columns[1].end(), wanted) - columns[1].begin();
        ASSERT_EQ(rows.FindExact(kTags, wanted), static_cast<int32_t>(first));
      }
    }
  }
}

// Rows copied from rows of the same list, short texts (stored inside the blocks) and long
// ones, into blocks that fill, split and move.
TEST(EditListRows, TextsOfTheListItselfCanBeInsertedAndWritten) {
  EditListRows rows(nullptr, 4);
  std::vector<Texts> columns(2);
  rows.Insert(0, u"a", u"a long tag text that lives outside any small buffer");
  columns[0].push_back(u"a");
  columns[1].push_back(u"a long tag text that lives outside any small buffer");
  std::mt19937 random(5);
  for (int step = 0; step < 400; ++step) {
    const auto count = static_cast<int32_t>(columns[0].size());
    const auto row = [&] { return static_cast<int32_t>(random() % static_cast<uint32_t>(count)); };
    const int32_t from_item = row();
    const int32_t from_tag = row();
    const int column = static_cast<int>(random() % 2);
    // The item comes from the tag column and the other way round, from any row.
    const std::u16string_view item = rows.Text(kTags, from_item);
    const std::u16string_view tag = rows.Text(kItems, from_tag);
    if (step % 5 == 4) {
      const int32_t at = row();
      const std::u16string_view text = rows.Text(1 - column, row());
      columns[static_cast<size_t>(column)][static_cast<size_t>(at)] = std::u16string(text);
      rows.SetText(column, at, text);
    } else {
      const auto at = static_cast<int32_t>(random() % static_cast<uint32_t>(count + 1));
      const std::u16string item_copy = columns[1][static_cast<size_t>(from_item)];
      const std::u16string tag_copy = columns[0][static_cast<size_t>(from_tag)];
      columns[0].insert(columns[0].begin() + at, item_copy);
      columns[1].insert(columns[1].begin() + at, tag_copy);
      rows.Insert(at, item, tag);
    }
    Texts items;
    Texts tags;
    rows.ForEachRow([&](std::u16string_view i, std::u16string_view t) {
      items.emplace_back(i);
      tags.emplace_back(t);
    });
    ASSERT_EQ(items, columns[0]) << "step " << step;
    ASSERT_EQ(tags, columns[1]) << "step " << step;
  }
}

// What the search is for: on a sorted column a placement costs a logarithmic number of
// comparisons, and on a column out of order one per run before the stopping row.
TEST(EditListRows, ComparisonsGrowWithTheRunsNotWithTheRows) {
  struct Case {
    const char* name;
    // The key of insertion i.
    std::function<std::u16string(int)> key;
    int wanted;
    // Most comparisons allowed per insertion, as a function of the rows there.
    std::function<double(int)> allowed;
  };
  const auto number = [](int i, int width) {
    std::u16string text;
    for (int digit = 0; digit < width; ++digit, i /= 10)
      text.insert(text.begin(), static_cast<char16_t>(u'0' + i % 10));
    return text;
  };
  const auto scrambled = [number](int i) { return number((i * 7919) % 10007, 5); };
  const auto logarithmic = [](int rows) { return 2.0 * std::log2(rows + 2.0) + 4.0; };
  const Case cases[] = {
      {"a to z in random order", scrambled, -1, logarithmic},
      {"z to a in random order", scrambled, 1, logarithmic},
      {"a to z, ascending keys", [number](int i) { return number(i, 5); }, -1, logarithmic},
      {"a to z, many equal keys", [number](int i) { return number(i % 3, 1); }, -1, logarithmic},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    auto counting = std::make_shared<CountingCollation>();
    EditListRows rows(counting);
    int over = 0;
    std::string first_over;
    for (int i = 0; i < 5000; ++i) {
      const int64_t before = counting->comparisons;
      const std::u16string key = c.key(i);
      const EditListRows::Placement placement = rows.FindPlacement(kItems, key, c.wanted);
      rows.Insert(placement.index, key, u"", &placement);
      const int64_t spent = counting->comparisons - before;
      if (static_cast<double>(spent) > c.allowed(i) && over++ == 0)
        first_over = std::to_string(spent) + " comparisons for insertion " + std::to_string(i);
    }
    EXPECT_EQ(over, 0) << first_over;
  }

  // An unsorted column: every search stops within the scan's comparisons.
  auto counting = std::make_shared<CountingCollation>();
  EditListRows rows(counting);
  for (int i = 0; i < 2000; ++i)
    rows.Insert(rows.Count(), number((i * 7919) % 10007, 5), u"");
  for (int i = 0; i < 200; ++i) {
    const std::u16string key = number((i * 104729) % 10007, 5);
    const int64_t before = counting->comparisons;
    const EditListRows::Placement placement = rows.FindPlacement(kItems, key, -1);
    const int64_t spent = counting->comparisons - before;
    // One comparison per run up to the stopping row (a run holds at least one row), then a
    // binary search inside its run; the first search also learns the order of the column,
    // one comparison per row.
    const double allowed =
        (i == 0 ? rows.Count() : 0) + placement.index + 2 + std::log2(rows.Count() + 1.0);
    EXPECT_LE(static_cast<double>(spent), allowed) << "search " << i;
    rows.Insert(placement.index, key, u"", &placement);
  }
}

TEST(EditListRows, ForgettingTheOrderStopsComparing) {
  auto counting = std::make_shared<CountingCollation>();
  EditListRows rows(counting);
  for (int i = 0; i < 100; ++i)
    rows.Insert(0, u"x", u"y");
  EXPECT_EQ(counting->comparisons, 0);
  rows.FindPlacement(kTags, u"k", -1);
  EXPECT_TRUE(rows.KeepsOrder(kTags));
  EXPECT_FALSE(rows.KeepsOrder(kItems));
  const int64_t learnt = counting->comparisons;
  rows.Insert(50, u"x", u"y");
  EXPECT_EQ(counting->comparisons, learnt + 2);
  rows.ForgetOrder(kTags);
  rows.Insert(50, u"x", u"y");
  rows.Erase(3);
  rows.SetText(kTags, 7, u"z");
  EXPECT_EQ(counting->comparisons, learnt + 2);
  rows.Clear();
  EXPECT_EQ(rows.Count(), 0);
  EXPECT_EQ(rows.FindExact(kItems, u"x"), -1);
}

}  // namespace
}  // namespace zk
