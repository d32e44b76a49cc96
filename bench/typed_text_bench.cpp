#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>

#include "controls/text/platform_text_rules.h"
#include "models/typed_text_model.h"
#include "platform/icu/icu_locale.h"

// The cost of one keystroke in a typed editor: the character filter, then the validity test of
// the text (what an editor that re-checks on every change pays), on a 64-unit text in en-US.
// The filter must not allocate: every allocation of the process is counted, and the counter
// "filter_allocs" is the number of allocations made inside FilterTypedKey per iteration (a
// benchmark that sees any fails with an error); "valid_allocs", those of IsTextValid, shows
// that the counter sees the allocations of the library.

namespace {

std::size_t g_allocations = 0;

void* CountedAllocation(std::size_t size) {
  ++g_allocations;
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return CountedAllocation(size);
}
void* operator new[](std::size_t size) {
  return CountedAllocation(size);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}

namespace {

constexpr std::size_t kTextLength = 64;

// A text of the kind, 64 units long; the numeric and date tests skip blanks at either end, so
// dates and times are padded in front to keep them valid.
std::u16string TextOf(zk::zktTextDataType type) {
  std::u16string text;
  switch (type) {
    case zk::zktTDText:
      for (std::size_t i = 0; i < kTextLength; ++i)
        text += static_cast<char16_t>(u'a' + i % 26);
      return text;
    case zk::zktTDInteger:
      return u"-" + std::u16string(kTextLength - 1, u'7');
    case zk::zktTDDecimal:
      return std::u16string(32, u'3') + u"." + std::u16string(kTextLength - 33, u'5');
    case zk::zktTDDate:
      text = u"12/05/2005";
      break;
    case zk::zktTDHour:
      text = u"10:30:59";
      break;
    case zk::zktTDDateHour:
      text = u"12/05/2005 10:30:59";
      break;
  }
  return std::u16string(kTextLength - text.size(), u' ') + text;
}

// A keystroke that makes the kind's rule search the text.
int16_t KeyOf(zk::zktTextDataType type) {
  switch (type) {
    case zk::zktTDText:
      return u'x';
    case zk::zktTDInteger:
      return u'5';
    case zk::zktTDDecimal:
      return u'.';
    case zk::zktTDDate:
      return u'/';
    case zk::zktTDHour:
    case zk::zktTDDateHour:
      return u':';
  }
  return u'0';
}

void BM_KeystrokeAndValidity(benchmark::State& state) {
  const auto type = static_cast<zk::zktTextDataType>(state.range(0));
  zk::IcuLocale locale(u"en-US");
  zk::PlatformTextRules rules(locale);
  zk::TypedTextSettings settings;
  settings.DataType = type;
  settings.MaxLength = 100;
  const std::u16string text = TextOf(type);
  const int16_t key = KeyOf(type);
  const auto caret = static_cast<int32_t>(text.size());
  if (!zk::IsTextValid(text, settings, rules)) {
    state.SkipWithError("the benchmark text is not valid for its kind");
    return;
  }
  std::size_t filter_allocations = 0;
  std::size_t valid_allocations = 0;
  for (auto _ : state) {
    const std::size_t before = g_allocations;
    const int16_t code = zk::FilterTypedKey(key, text, caret, 0, settings, false, false);
    const std::size_t between = g_allocations;
    benchmark::DoNotOptimize(code);
    benchmark::DoNotOptimize(zk::IsTextValid(text, settings, rules));
    filter_allocations += between - before;
    valid_allocations += g_allocations - between;
  }
  const auto per_iteration = [](std::size_t count) {
    return benchmark::Counter(static_cast<double>(count), benchmark::Counter::kAvgIterations);
  };
  state.counters["filter_allocs"] = per_iteration(filter_allocations);
  state.counters["valid_allocs"] = per_iteration(valid_allocations);
  if (filter_allocations != 0) state.SkipWithError("FilterTypedKey allocated");
}

BENCHMARK(BM_KeystrokeAndValidity)
    ->ArgName("DataType")
    ->DenseRange(zk::zktTDText, zk::zktTDDateHour)
    ->Unit(benchmark::kNanosecond);

}  // namespace

BENCHMARK_MAIN();
