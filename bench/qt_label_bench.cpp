// Forms of 100 and 625 labels created, laid out and painted for the first time offscreen: the
// library's labels against plain QLabel widgets, measured in the same run. A first paint is what
// a running program does when it shows a form: the event loop answers what was posted (the
// widgets' polish requests) and the form is painted.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QWidget>
#include <chrono>
#include <string>

#include "controls/display/label.h"
#include "hosting/qt_form.h"

namespace {

constexpr int kColumns = 25;

void ZKLabelForm(zk::QtPlatform& platform, int count) {
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
}

void QLabelForm(int count) {
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

// Both forms timed alternately in one benchmark, so that the ratio compares like with like.
void BM_LabelFormRatio(benchmark::State& state) {
  zk::QtPlatform& platform = Platform();
  const int count = static_cast<int>(state.range(0));
  using Clock = std::chrono::steady_clock;
  double ours = 0;
  double theirs = 0;
  for (auto _ : state) {
    for (int round = 0; round < 5; ++round) {
      const auto start = Clock::now();
      ZKLabelForm(platform, count);
      const auto middle = Clock::now();
      QLabelForm(count);
      const auto end = Clock::now();
      ours += std::chrono::duration<double, std::milli>(middle - start).count();
      theirs += std::chrono::duration<double, std::milli>(end - middle).count();
    }
  }
  const double rounds = 5.0 * static_cast<double>(state.iterations());
  state.counters["zk_ms"] = ours / rounds;
  state.counters["qlabel_ms"] = theirs / rounds;
  state.counters["ratio"] = ours / theirs;
}
BENCHMARK(BM_LabelFormRatio)->Arg(100)->Arg(625)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
