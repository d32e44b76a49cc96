// Forms of 100 and 625 labels created, laid out and painted for the first time offscreen: the
// library's labels against plain QLabel widgets, measured in the same run. A first paint is what
// a running program does when it shows a form: the event loop answers what was posted (the
// widgets' polish requests) and the form is painted.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QApplication>
#include <QLabel>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "controls/display/label.h"
#include "hosting/qt_form.h"

// Live heap bytes, counted by every allocation of the program, so that the memory one label
// costs can be read off a form that is shown.
std::atomic<long long> g_live_bytes{0};

void* operator new(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  g_live_bytes += static_cast<long long>(malloc_usable_size(block));
  return block;
}

void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  g_live_bytes -= static_cast<long long>(malloc_usable_size(block));
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}

namespace {

constexpr int kColumns = 25;
// The heap that the last form held while it was shown, less what there was before it.
long long g_form_heap = 0;

void ZKLabelForm(zk::QtPlatform& platform, int count) {
  const long long before = g_live_bytes;
  zk::QtForm form(platform);
  form.Widget()->resize(kColumns * 64, (count / kColumns + 1) * 24);
  for (int i = 0; i < count; ++i) {
    const std::string digits = std::to_string(i);
    const std::u16string name = u"L" + std::u16string(digits.begin(), digits.end());
    auto& label = static_cast<zk::ZKLabel&>(form.AddControl(u"ZKLabel", name));
    form.MoveControl(name, (i % kColumns) * 960.0, (i / kColumns) * 360.0, 900, 300);
    label.SetCaption(u"Label " + name);
  }
  form.Widget()->show();
  QCoreApplication::sendPostedEvents();
  benchmark::DoNotOptimize(form.Widget()->grab());
  g_form_heap = g_live_bytes - before;
}

void QLabelForm(int count) {
  const long long before = g_live_bytes;
  QWidget form;
  form.resize(kColumns * 64, (count / kColumns + 1) * 24);
  for (int i = 0; i < count; ++i) {
    auto* label = new QLabel(QStringLiteral("Label L%1").arg(i), &form);
    label->setGeometry((i % kColumns) * 64, (i / kColumns) * 24, 60, 20);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  }
  form.show();
  QCoreApplication::sendPostedEvents();
  benchmark::DoNotOptimize(form.grab());
  g_form_heap = g_live_bytes - before;
}

zk::QtPlatform& Platform() {
  static zk::QtPlatform platform(zk::QtOptions{true, std::u16string(u"en-US")});
  static zk::PlatformScope scope(platform);
  return platform;
}

void BM_ZKLabelForm(benchmark::State& state) {
  zk::QtPlatform& platform = Platform();
  for (auto _ : state)
    ZKLabelForm(platform, static_cast<int>(state.range(0)));
}
BENCHMARK(BM_ZKLabelForm)->Arg(100)->Arg(625)->Unit(benchmark::kMillisecond);

void BM_QLabelForm(benchmark::State& state) {
  Platform();
  for (auto _ : state)
    QLabelForm(static_cast<int>(state.range(0)));
}
BENCHMARK(BM_QLabelForm)->Arg(100)->Arg(625)->Unit(benchmark::kMillisecond);

double Median(std::vector<double> samples) {
  std::sort(samples.begin(), samples.end());
  const size_t middle = samples.size() / 2;
  return samples.size() % 2 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

// Both forms timed alternately in one benchmark, so that the ratio compares like with like; the
// medians keep a moment of machine noise from deciding it.
void BM_LabelFormRatio(benchmark::State& state) {
  zk::QtPlatform& platform = Platform();
  const int count = static_cast<int>(state.range(0));
  using Clock = std::chrono::steady_clock;
  std::vector<double> ours;
  std::vector<double> theirs;
  long long our_heap = 0;
  long long their_heap = 0;
  for (auto _ : state) {
    for (int round = 0; round < 10; ++round) {
      const auto start = Clock::now();
      ZKLabelForm(platform, count);
      our_heap = g_form_heap;
      const auto middle = Clock::now();
      QLabelForm(count);
      their_heap = g_form_heap;
      const auto end = Clock::now();
      ours.push_back(std::chrono::duration<double, std::milli>(middle - start).count());
      theirs.push_back(std::chrono::duration<double, std::milli>(end - middle).count());
    }
  }
  state.counters["zk_ms"] = Median(ours);
  state.counters["qlabel_ms"] = Median(theirs);
  state.counters["ratio"] = Median(ours) / Median(theirs);
  state.counters["zk_heap_per_label"] = static_cast<double>(our_heap) / count;
  state.counters["qlabel_heap_per_label"] = static_cast<double>(their_heap) / count;
}
BENCHMARK(BM_LabelFormRatio)->Arg(100)->Arg(625)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
