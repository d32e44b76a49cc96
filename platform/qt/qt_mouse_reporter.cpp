#include "platform/qt/qt_mouse_reporter.h"

#include "platform/qt/qt_input.h"

namespace zk {

void QtMouseReporter::Press(QMouseEvent* event, const QRect& /*area*/) {
  click_pending_ = true;
  const auto [x, y] = to_twips_(event->position());
  targets_.down->Emit(ButtonCode(event->button()), ShiftCode(event->modifiers()), x, y);
}

void QtMouseReporter::DoubleClick(QMouseEvent* /*event*/) {
  click_pending_ = false;
  targets_.dbl_click->Emit();
}

void QtMouseReporter::Move(QMouseEvent* event) {
  const auto [x, y] = to_twips_(event->position());
  targets_.move->Emit(ButtonCode(event->buttons()), ShiftCode(event->modifiers()), x, y);
}

void QtMouseReporter::Release(QMouseEvent* event, const QRect& area) {
  const bool click = click_pending_ && area.contains(event->position().toPoint());
  click_pending_ = false;
  const auto [x, y] = to_twips_(event->position());
  targets_.up->Emit(ButtonCode(event->button()), ShiftCode(event->modifiers()), x, y);
  if (click) targets_.click->Emit();
}

}  // namespace zk
