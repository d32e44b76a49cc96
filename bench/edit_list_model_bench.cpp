#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "models/edit_list_model.h"
#include "models/ordinal_caseless_collation.h"
#include "platform/icu/icu_locale.h"

// The edit list model with 100,000 rows: adding them one by one in random order to a list that
// sorts A to Z, and reading a list archive of that size back (what ParseArchiveStr does with
// the two row elements). Both run with the plain ordinal comparison and with the user's
// locale collation over ICU, as the control hands it over. "bytes_per_row" is the heap the
// rows hold once added (the usable size of every live allocation), divided by the rows.

namespace {

std::size_t g_live_bytes = 0;

void* CountedAllocation(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  g_live_bytes += malloc_usable_size(block);
  return block;
}

void CountedRelease(void* block) noexcept {
  if (block == nullptr) return;
  g_live_bytes -= malloc_usable_size(block);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
  return CountedAllocation(size);
}
void* operator new[](std::size_t size) {
  return CountedAllocation(size);
}
void operator delete(void* block) noexcept {
  CountedRelease(block);
}
void operator delete[](void* block) noexcept {
  CountedRelease(block);
}
void operator delete(void* block, std::size_t) noexcept {
  CountedRelease(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  CountedRelease(block);
}

namespace {

constexpr int kRows = 100000;

// The locale's comparison ignoring case, as the edit list control hands it to its model.
class LocaleCollation final : public zk::TextCollation {
 public:
  int Compare(std::u16string_view a, std::u16string_view b) const override {
    return locale_.Compare(a, b, true);
  }

 private:
  zk::IcuLocale locale_{u"en-US"};
};

std::shared_ptr<const zk::TextCollation> CollationOf(int64_t kind) {
  if (kind == 1) return std::make_shared<LocaleCollation>();
  return std::make_shared<zk::OrdinalCaselessCollation>();
}

// Names of 4 to 12 letters in mixed case, in random order; some repeat.
std::vector<std::u16string> RandomItems() {
  std::mt19937 random(42);
  std::uniform_int_distribution<int> length(4, 12);
  std::uniform_int_distribution<int> letter(0, 25);
  std::vector<std::u16string> items(kRows);
  for (std::u16string& item : items) {
    const int size = length(random);
    for (int i = 0; i < size; ++i)
      item += static_cast<char16_t>((i == 0 || letter(random) < 3 ? u'A' : u'a') + letter(random));
  }
  return items;
}

const std::vector<std::u16string>& Items() {
  static const std::vector<std::u16string> items = RandomItems();
  return items;
}

// True when every row sorts with or after the one before it.
bool InOrder(const zk::CEditListModel& model, const zk::TextCollation& collation) {
  std::u16string_view previous;
  bool sorted = true;
  model.Rows().ForEachRow([&](std::u16string_view item, std::u16string_view) {
    if (collation.Compare(previous, item) > 0) sorted = false;
    previous = item;
  });
  return sorted;
}

// Arguments: the comparison (0 ordinal, 1 locale) and the sort order.
void BM_AddItem(benchmark::State& state) {
  const std::shared_ptr<const zk::TextCollation> collation = CollationOf(state.range(0));
  const auto order = static_cast<zk::zktSortOrder>(state.range(1));
  const std::vector<std::u16string>& items = Items();
  double bytes_per_row = 0;
  for (auto _ : state) {
    auto model = std::make_unique<zk::CEditListModel>(collation);
    model->SetSortOrder(order);
    const std::size_t before = g_live_bytes;
    for (const std::u16string& item : items)
      model->AddItem(item);
    bytes_per_row = static_cast<double>(g_live_bytes - before) / kRows;
    state.PauseTiming();
    if (model->ListCount() != kRows) state.SkipWithError("rows were lost");
    if (order == zk::zktSortAtoZ && !InOrder(*model, *collation))
      state.SkipWithError("the rows are not in order");
    model.reset();
    state.ResumeTiming();
  }
  state.counters["bytes_per_row"] = bytes_per_row;
  state.counters["rows"] = kRows;
}

BENCHMARK(BM_AddItem)
    ->ArgNames({"locale", "SortOrder"})
    ->Args({0, zk::zktSortAtoZ})
    ->Args({1, zk::zktSortAtoZ})
    ->Args({0, zk::zktSortNone})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

// Arguments: the comparison, the sort order of the reading list, and whether the archive was
// written by a sorted list (1) or holds the rows in random order (0).
void BM_ParseListArchive(benchmark::State& state) {
  const std::shared_ptr<const zk::TextCollation> collation = CollationOf(state.range(0));
  const auto order = static_cast<zk::zktSortOrder>(state.range(1));
  zk::CEditListModel written(collation);
  written.SetSortOrder(state.range(2) == 1 ? zk::zktSortAtoZ : zk::zktSortNone);
  for (const std::u16string& item : Items())
    written.AddItem(item);
  const std::u16string items = written.ItemsArchive();
  const std::u16string tags = written.TagsArchive();
  for (auto _ : state) {
    auto model = std::make_unique<zk::CEditListModel>(collation);
    model->SetSortOrder(order);
    model->ParseListArchive(items, tags);
    state.PauseTiming();
    if (model->ListCount() != kRows) state.SkipWithError("rows were lost");
    model.reset();
    state.ResumeTiming();
  }
  state.counters["rows"] = kRows;
  state.counters["archive_chars"] = static_cast<double>(items.size() + tags.size());
}

BENCHMARK(BM_ParseListArchive)
    ->ArgNames({"locale", "SortOrder", "sorted_archive"})
    ->Args({0, zk::zktSortNone, 0})
    ->Args({1, zk::zktSortNone, 0})
    ->Args({0, zk::zktSortAtoZ, 1})
    ->Args({1, zk::zktSortAtoZ, 1})
    ->Args({1, zk::zktSortAtoZ, 0})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
