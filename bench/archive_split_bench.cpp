#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "foundation/archive_utils.h"

// Splitting speed of the archive codec on its worst realistic input: a control record holding
// one long string list (a list control's items), written as one quoted text element. Sizes and
// rates count UTF-16 characters: "bytes" reported by SetBytesProcessed are characters, so the
// reported rate is characters per second, and 1 MB means 1,000,000 characters.

namespace {

using zk::MArchiveUtils::ArchiveEscapeString;
using zk::MArchiveUtils::ArchiveJoinStrings;
using zk::MArchiveUtils::ArchiveSplitElements;
using zk::MArchiveUtils::ArchiveSplitStrings;

constexpr double kCharsPerMB = 1'000'000.0;
constexpr std::size_t kOneMB = 1'000'000;
constexpr std::size_t kSixteenMB = 16'000'000;

std::u16string Digits(std::size_t value) {
  const std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

std::vector<std::u16string> Items(std::size_t count) {
  std::vector<std::u16string> items;
  items.reserve(count);
  for (std::size_t i = 1; i <= count; ++i)
    items.push_back(u"item" + Digits(i));
  return items;
}

// `<extender block>,"""item1""|""item2""|...",\"x\",3`, with as many items as bring the record
// to about `target` characters.
std::u16string Record(std::size_t target) {
  const std::u16string head = u"\"List1\"|120|240|2415|1815|T|||T|\"Items\"|4|T|,";
  const std::u16string tail = u",\"x\",3";
  std::size_t count = 0;
  std::size_t length = head.size() + tail.size() + 2;
  // Each item adds its digits, the doubled quotes around it and its separator.
  while (length < target)
    length += 4 + Digits(++count).size() + 5;
  return head + ArchiveEscapeString(ArchiveJoinStrings(Items(count))) + tail;
}

const std::u16string& CachedRecord(std::size_t target) {
  static const std::u16string one = Record(kOneMB);
  static const std::u16string sixteen = Record(kSixteenMB);
  return target == kOneMB ? one : sixteen;
}

void BM_SplitRecord(benchmark::State& state) {
  const std::u16string& record = CachedRecord(static_cast<std::size_t>(state.range(0)));
  const auto begin = std::chrono::steady_clock::now();
  for (auto _ : state) {
    auto elements = ArchiveSplitElements(record);
    benchmark::DoNotOptimize(elements);
  }
  const double elapsed_ns =
      std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
  const double megabytes = static_cast<double>(record.size()) / kCharsPerMB;
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(record.size()));
  state.counters["chars"] = static_cast<double>(record.size());
  state.counters["ns_per_MB"] = elapsed_ns / static_cast<double>(state.iterations()) / megabytes;
}
BENCHMARK(BM_SplitRecord)
    ->Arg(static_cast<int64_t>(kOneMB))
    ->Arg(static_cast<int64_t>(kSixteenMB))
    ->Unit(benchmark::kMillisecond);

// Best time per MB over several repetitions, so that one slow run does not skew the ratio.
double BestNsPerMB(const std::u16string& record, int repetitions) {
  double best = 0;
  for (int i = 0; i < repetitions; ++i) {
    const auto begin = std::chrono::steady_clock::now();
    auto elements = ArchiveSplitElements(record);
    benchmark::DoNotOptimize(elements);
    const double ns =
        std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
    const double per_mb = ns / (static_cast<double>(record.size()) / kCharsPerMB);
    best = i == 0 ? per_mb : std::min(best, per_mb);
  }
  return best;
}

// Linear time shows as a ratio near 1: a 16 times longer record takes 16 times as long.
void BM_SplitScaling(benchmark::State& state) {
  const std::u16string& small = CachedRecord(kOneMB);
  const std::u16string& large = CachedRecord(kSixteenMB);
  double small_ns = 0;
  double large_ns = 0;
  for (auto _ : state) {
    small_ns = BestNsPerMB(small, 40);
    large_ns = BestNsPerMB(large, 5);
  }
  state.counters["time_per_MB_1MB"] = small_ns;
  state.counters["time_per_MB_16MB"] = large_ns;
  state.counters["ratio"] = large_ns / small_ns;
  state.counters["MB_per_s"] = 1e9 / large_ns;
}
BENCHMARK(BM_SplitScaling)->Iterations(1)->Unit(benchmark::kMillisecond);

// The list itself, 500,000 quoted items split and unescaped.
void BM_SplitStrings(benchmark::State& state) {
  const std::u16string list = ArchiveJoinStrings(Items(500'000));
  for (auto _ : state) {
    auto items = ArchiveSplitStrings(list);
    benchmark::DoNotOptimize(items);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(list.size()));
  state.counters["chars"] = static_cast<double>(list.size());
  state.counters["items"] = 500'000;
}
BENCHMARK(BM_SplitStrings)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
