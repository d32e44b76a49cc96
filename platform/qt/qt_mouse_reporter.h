#pragma once

#include <QMouseEvent>
#include <functional>
#include <utility>

#include "platform/elements.h"

namespace zk {

// Turns the mouse events of one widget into the element events of the controls: positions in
// twips, MouseUp then Click for a release inside after a press, and DblClick for the second
// press of a double click (whose release then clicks nothing).
class QtMouseReporter {
 public:
  struct Targets {
    Signal<>* click;
    Signal<>* dbl_click;
    MouseSignal* down;
    MouseSignal* move;
    MouseSignal* up;
  };

  QtMouseReporter(Targets targets, std::function<std::pair<float, float>(QPointF)> to_twips)
      : targets_(targets), to_twips_(std::move(to_twips)) {}

  void Press(QMouseEvent* event, const QRect& area);
  void DoubleClick(QMouseEvent* event);
  void Move(QMouseEvent* event);
  void Release(QMouseEvent* event, const QRect& area);

 private:
  Targets targets_;
  std::function<std::pair<float, float>(QPointF)> to_twips_;
  bool click_pending_ = false;
};

}  // namespace zk
