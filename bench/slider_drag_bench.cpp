// Dragging a slider's thumb across its whole track in 1000 mouse moves on Qt's offscreen
// platform: the library's slider against a plain QSlider of the same size, driven by the same
// mouse events in the same run. Each move is a mouse event sent to the widget that holds the
// mouse, followed by what the event loop then does (the repaint of what moved), as when a user
// drags. The time per move is set against one frame at 60 Hz.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <vector>

#include "controls/slider/slider.h"
#include "hosting/qt_form.h"
#include "platform/qt/qt_surface.h"

namespace {

constexpr int kMoves = 1000;
constexpr double kFrameMs = 1000.0 / 60;
// Both sliders are 300 x 24 pixels.
constexpr int kWidth = 300;
constexpr int kHeight = 24;

zk::QtPlatform& Platform() {
  static zk::QtPlatform platform(zk::QtOptions{true, std::u16string(u"en-US")});
  static zk::PlatformScope scope(platform);
  return platform;
}

void Send(QWidget* target, QEvent::Type type, const QPointF& at, Qt::MouseButtons held) {
  const QPointF global = target->mapToGlobal(at);
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, at, global, button, held, Qt::NoModifier);
  QApplication::sendEvent(target, &event);
}

// Presses at `from` (coordinates of `area`) on `target`, the widget that then holds the mouse,
// moves in kMoves steps to `to` and releases there, letting the event loop paint after each
// move.
void Drag(QWidget* area, QWidget* target, QPointF from, QPointF to) {
  Send(target, QEvent::MouseButtonPress, target->mapFrom(area, from), Qt::LeftButton);
  for (int i = 1; i <= kMoves; ++i) {
    const QPointF at = from + (to - from) * (static_cast<double>(i) / kMoves);
    Send(target, QEvent::MouseMove, target->mapFrom(area, at), Qt::LeftButton);
    QApplication::processEvents();
  }
  Send(target, QEvent::MouseButtonRelease, target->mapFrom(area, to), Qt::NoButton);
  QApplication::processEvents();
}

// A form with one slider from 0 to 100 at its start, shown.
class ZKSliderForm {
 public:
  explicit ZKSliderForm(zk::QtPlatform& platform) : form_(platform) {
    slider_ = &static_cast<zk::ZKSlider&>(form_.AddControl(u"ZKSlider", u"S"));
    form_.MoveControl(u"S", 0, 0, kWidth * 15.0, kHeight * 15.0);
    slider_->SetShowValue(true);
    form_.Widget()->resize(kWidth, kHeight);
    form_.Widget()->show();
    QApplication::processEvents();
  }

  // One drag of the thumb from the start of the track to beyond its end.
  double DragAcross() {
    slider_->SetValue(0);
    QApplication::processEvents();
    QWidget* area = form_.FindSite(u"S")->Surface().Widget();
    QWidget* thumb = static_cast<zk::QtSurface*>(slider_->PartSurface(u"cmdSlider"))->Widget();
    const QRect at = thumb->geometry();
    const QPointF from(at.center().x(), kHeight / 2.0);
    Drag(area, thumb, from, QPointF(kWidth + 10, kHeight / 2.0));
    return slider_->Value();
  }

 private:
  zk::QtForm form_;
  zk::ZKSlider* slider_ = nullptr;
};

// QSlider's handle is where its style puts it.
class ProbeSlider final : public QSlider {
 public:
  using QSlider::QSlider;
  QRect Handle() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
  }
};

class QSliderForm {
 public:
  QSliderForm() : slider_(Qt::Horizontal, &form_) {
    slider_.setRange(0, 100);
    slider_.setGeometry(0, 0, kWidth, kHeight);
    form_.resize(kWidth, kHeight);
    form_.show();
    QApplication::processEvents();
  }

  double DragAcross() {
    slider_.setValue(0);
    QApplication::processEvents();
    const QPointF from(slider_.Handle().center().x(), kHeight / 2.0);
    Drag(&slider_, &slider_, from, QPointF(kWidth + 10, kHeight / 2.0));
    return slider_.value();
  }

 private:
  QWidget form_;
  ProbeSlider slider_;
};

void BM_ZKSliderDrag(benchmark::State& state) {
  ZKSliderForm form(Platform());
  for (auto _ : state) {
    if (form.DragAcross() != 100) state.SkipWithError("the thumb did not reach the end");
  }
  state.SetItemsProcessed(state.iterations() * kMoves);
}
BENCHMARK(BM_ZKSliderDrag)->Unit(benchmark::kMillisecond);

void BM_QSliderDrag(benchmark::State& state) {
  Platform();
  QSliderForm form;
  for (auto _ : state) {
    if (form.DragAcross() != 100) state.SkipWithError("the handle did not reach the end");
  }
  state.SetItemsProcessed(state.iterations() * kMoves);
}
BENCHMARK(BM_QSliderDrag)->Unit(benchmark::kMillisecond);

double Median(std::vector<double> samples) {
  std::sort(samples.begin(), samples.end());
  const size_t middle = samples.size() / 2;
  return samples.size() % 2 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

// Both drags timed alternately in one benchmark, so that the ratio compares like with like;
// medians keep a moment of machine noise from deciding it.
void BM_SliderDragRatio(benchmark::State& state) {
  ZKSliderForm ours_form(Platform());
  QSliderForm theirs_form;
  using Clock = std::chrono::steady_clock;
  std::vector<double> ours;
  std::vector<double> theirs;
  for (auto _ : state) {
    for (int round = 0; round < 5; ++round) {
      const auto start = Clock::now();
      const double our_end = ours_form.DragAcross();
      const auto middle = Clock::now();
      const double their_end = theirs_form.DragAcross();
      const auto end = Clock::now();
      if (our_end != 100 || their_end != 100) state.SkipWithError("a drag fell short");
      ours.push_back(std::chrono::duration<double, std::micro>(middle - start).count() / kMoves);
      theirs.push_back(std::chrono::duration<double, std::micro>(end - middle).count() / kMoves);
    }
  }
  const double our_move = Median(ours);
  const double their_move = Median(theirs);
  state.counters["zk_us_per_move"] = our_move;
  state.counters["qslider_us_per_move"] = their_move;
  state.counters["ratio"] = our_move / their_move;
  state.counters["zk_frames_per_move"] = our_move / (kFrameMs * 1000);
  state.counters["qslider_frames_per_move"] = their_move / (kFrameMs * 1000);
}
BENCHMARK(BM_SliderDragRatio)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
