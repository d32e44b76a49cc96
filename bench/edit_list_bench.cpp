// 100,000 rows added one by one in random order to lists that sort A to Z: the edit list model
// alone (the baseline), a headless ZKEditList (the model and its two list boxes), and on Qt's
// offscreen platform a plain QListWidget with sorting enabled beside our Qt edit list, each
// shown and painted once the rows are in. Each pair is timed alternately in one benchmark so
// that the ratio compares like with like. "*_bytes_per_row" is the heap that the rows hold once
// added (the usable size of every live allocation), divided by the rows.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QApplication>
#include <QListWidget>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "controls/lists/edit_list.h"
#include "hosting/headless_form.h"
#include "hosting/qt_form.h"
#include "models/edit_list_model.h"
#include "platform/icu/icu_locale.h"

std::atomic<long long> g_live_bytes{0};

void* operator new(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  g_live_bytes += static_cast<long long>(malloc_usable_size(block));
  return block;
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  g_live_bytes -= static_cast<long long>(malloc_usable_size(block));
  std::free(block);
}
void operator delete[](void* block) noexcept {
  operator delete(block);
}
void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  operator delete(block);
}

namespace {

constexpr int kRows = 100000;
using Clock = std::chrono::steady_clock;

// Names of 4 to 12 letters in mixed case, in random order; some repeat.
const std::vector<std::u16string>& Items() {
  static const std::vector<std::u16string> items = [] {
    std::mt19937 random(42);
    std::uniform_int_distribution<int> length(4, 12);
    std::uniform_int_distribution<int> letter(0, 25);
    std::vector<std::u16string> texts(kRows);
    for (std::u16string& text : texts) {
      const int size = length(random);
      for (int i = 0; i < size; ++i) {
        text +=
            static_cast<char16_t>((i == 0 || letter(random) < 3 ? u'A' : u'a') + letter(random));
      }
    }
    return texts;
  }();
  return items;
}

// The locale's comparison ignoring case, as the control hands it to its model.
class LocaleCollation final : public zk::TextCollation {
 public:
  int Compare(std::u16string_view a, std::u16string_view b) const override {
    return locale_.Compare(a, b, true);
  }

 private:
  zk::IcuLocale locale_{u"en-US"};
};

double Median(std::vector<double> samples) {
  std::sort(samples.begin(), samples.end());
  const size_t middle = samples.size() / 2;
  return samples.size() % 2 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

double Milliseconds(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

// The processor time of this thread, ms: on a machine busy with other work the wall clock
// counts the others' turns too, this does not.
double ThreadCpuMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Adds the rows to a new model; the heap the rows hold goes to `bytes`.
void FillModel(long long& bytes) {
  const long long before = g_live_bytes;
  auto model = std::make_unique<zk::CEditListModel>(std::make_shared<LocaleCollation>());
  model->SetSortOrder(zk::zktSortAtoZ);
  for (const std::u16string& item : Items())
    model->AddItem(item);
  bytes = g_live_bytes - before;
  if (model->ListCount() != kRows) std::abort();
}

// Adds the rows to an edit list on `form`; the heap the rows hold goes to `bytes`.
void FillEditList(zk::Form& form, long long& bytes, bool show) {
  auto& list = static_cast<zk::ZKEditList&>(form.AddControl(u"ZKEditList", u"E"));
  list.SetSortOrder(zk::zktSortAtoZ);
  const long long before = g_live_bytes;
  for (const std::u16string& item : Items())
    list.AddItem(item);
  bytes = g_live_bytes - before;
  if (show) {
    auto& qt_form = static_cast<zk::QtForm&>(form);
    qt_form.Widget()->show();
    QCoreApplication::sendPostedEvents();
    benchmark::DoNotOptimize(qt_form.Widget()->grab());
  }
  if (list.ListCount() != kRows) std::abort();
  form.RemoveControl(u"E");
}

void BM_HeadlessEditListAgainstModel(benchmark::State& state) {
  zk::HeadlessPlatform platform(zk::HeadlessOptions{u"en-US"});
  zk::PlatformScope scope(platform);
  zk::HeadlessForm form(platform);
  std::vector<double> model_ms;
  std::vector<double> list_ms;
  std::vector<double> model_cpu_ms;
  std::vector<double> list_cpu_ms;
  long long model_bytes = 0;
  long long list_bytes = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    const double start_cpu = ThreadCpuMilliseconds();
    FillModel(model_bytes);
    const auto middle = Clock::now();
    const double middle_cpu = ThreadCpuMilliseconds();
    FillEditList(form, list_bytes, false);
    const auto end = Clock::now();
    const double end_cpu = ThreadCpuMilliseconds();
    model_ms.push_back(Milliseconds(start, middle));
    list_ms.push_back(Milliseconds(middle, end));
    model_cpu_ms.push_back(middle_cpu - start_cpu);
    list_cpu_ms.push_back(end_cpu - middle_cpu);
  }
  state.counters["model_ms"] = Median(model_ms);
  state.counters["editlist_ms"] = Median(list_ms);
  state.counters["model_cpu_ms"] = Median(model_cpu_ms);
  state.counters["editlist_cpu_ms"] = Median(list_cpu_ms);
  state.counters["ratio"] = Median(list_ms) / Median(model_ms);
  state.counters["model_bytes_per_row"] = static_cast<double>(model_bytes) / kRows;
  state.counters["editlist_bytes_per_row"] = static_cast<double>(list_bytes) / kRows;
}
BENCHMARK(BM_HeadlessEditListAgainstModel)->Iterations(5)->Unit(benchmark::kMillisecond);

zk::QtPlatform& QtPlatformOnce() {
  static zk::QtPlatform platform(zk::QtOptions{true, std::u16string(u"en-US")});
  return platform;
}

// The same rows through a QListWidget that sorts (case-insensitively, by the locale), shown.
void FillListWidget(long long& bytes) {
  QListWidget widget;
  widget.resize(200, 100);
  widget.setSortingEnabled(true);
  const long long before = g_live_bytes;
  for (const std::u16string& item : Items()) {
    widget.addItem(QString::fromUtf16(item.data(), static_cast<qsizetype>(item.size())));
  }
  bytes = g_live_bytes - before;
  widget.show();
  QCoreApplication::sendPostedEvents();
  benchmark::DoNotOptimize(widget.grab());
  if (widget.count() != kRows) std::abort();
}

void BM_QtEditListAgainstQListWidget(benchmark::State& state) {
  zk::QtPlatform& platform = QtPlatformOnce();
  zk::PlatformScope scope(platform);
  zk::QtForm form(platform);
  form.Widget()->resize(400, 200);
  std::vector<double> widget_ms;
  std::vector<double> list_ms;
  long long widget_bytes = 0;
  long long list_bytes = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    FillListWidget(widget_bytes);
    const auto middle = Clock::now();
    FillEditList(form, list_bytes, true);
    const auto end = Clock::now();
    widget_ms.push_back(Milliseconds(start, middle));
    list_ms.push_back(Milliseconds(middle, end));
  }
  state.counters["qlistwidget_ms"] = Median(widget_ms);
  state.counters["editlist_ms"] = Median(list_ms);
  state.counters["ratio"] = Median(list_ms) / Median(widget_ms);
  state.counters["qlistwidget_bytes_per_row"] = static_cast<double>(widget_bytes) / kRows;
  state.counters["editlist_bytes_per_row"] = static_cast<double>(list_bytes) / kRows;
}
BENCHMARK(BM_QtEditListAgainstQListWidget)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
