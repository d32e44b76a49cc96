#include "platform/qt/qt_window_system.h"

#include <QApplication>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/window_messages.h"

namespace zk {

// Turns the Qt events of one widget into window messages.
class QtWindowSystem::MessageRouter final : public QObject {
 public:
  explicit MessageRouter(QtWindowSystem& system) : system_(system) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    auto found = system_.handles_.find(watched);
    if (found == system_.handles_.end()) return false;
    return system_.RouteWheel(found->second, *static_cast<QWheelEvent*>(event));
  }

 private:
  QtWindowSystem& system_;
};

QtWindowSystem::QtWindowSystem()
    : ProcedureWindowSystem(0x00501000), router_(std::make_unique<MessageRouter>(*this)) {
  // Qt tells which window has the focus; a moment without one (between two windows, or while
  // the application is in the background) leaves the last active window in place. Qt reports
  // the activations this system asked for later, in their order: those were told when they
  // were asked for, and their late reports (and older ones meanwhile) must not bring back a
  // window that is no longer the active one. A window that nobody here asked for is the user's.
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, router_.get(),
                   [this](QWindow* focus) { FocusWindowChanged(focus); });
}

void QtWindowSystem::FocusWindowChanged(QWindow* focus) {
  // The window Qt names, not QApplication's active window, which may not have caught up yet.
  WindowHandle active = 0;
  for (const auto& [handle, window] : windows_) {
    if (window.widget != nullptr && window.widget->isWindow() &&
        window.widget->windowHandle() == focus) {
      active = handle;
    }
  }
  if (active == 0) return;
  std::deque<WindowHandle>& asked = requested_activations_;
  if (!asked.empty() && asked.front() == active) {
    asked.pop_front();
    return;
  }
  // A window that was asked for and whose turn has not come: a report from before the
  // requests (the form's first showing, for instance).
  if (std::find(asked.begin(), asked.end(), active) != asked.end()) return;
  // The user (or the window manager) activated the window.
  asked.clear();
  NoteActivated(active);
}

QtWindowSystem::~QtWindowSystem() {
  for (auto& [handle, window] : windows_) {
    QObject::disconnect(window.destroyed);
    if (window.widget) window.widget->removeEventFilter(router_.get());
  }
}

WindowHandle QtWindowSystem::Register(QWidget* widget, std::u16string_view class_name,
                                      int32_t style, Reporting reporting) {
  const WindowHandle handle = next_handle_;
  next_handle_ += 4;
  Window window;
  window.widget = widget;
  window.key = widget;
  window.class_name = class_name;
  window.style = style;
  window.procedure = ClassProcedureAddress();
  if (reporting == Reporting::kWatched) {
    widget->installEventFilter(router_.get());
    // No context object: the window system ends the connection itself if it goes first.
    window.destroyed =
        QObject::connect(widget, &QObject::destroyed, [this, handle] { Destroyed(handle); });
  }
  handles_.emplace(widget, handle);
  windows_.emplace(handle, std::move(window));
  return handle;
}

bool QtWindowSystem::RouteWheel(WindowHandle window, const QWheelEvent& wheel) {
  const int delta = wheel.angleDelta().y() != 0 ? wheel.angleDelta().y() : wheel.angleDelta().x();
  const auto wparam =
      static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint16_t>(delta)) << 16);
  // Swallowed unless a procedure passed the message on to the widget's own one.
  return !Route(window, window_message::kMouseWheel, wparam, 0);
}

void QtWindowSystem::Destroyed(WindowHandle window) {
  auto found = windows_.find(window);
  if (found == windows_.end()) return;
  // A widget that is going is no longer one to use, also for the procedures told of it.
  found->second.widget = nullptr;
  if (GetActiveWindow() == window) NoteActivated(0);
  SendMessage(window, window_message::kDestroy, 0, 0);
  SendMessage(window, window_message::kNcDestroy, 0, 0);
  found = windows_.find(window);  // a procedure may have done anything meanwhile
  if (found == windows_.end()) return;
  QObject::disconnect(found->second.destroyed);
  handles_.erase(found->second.key);
  windows_.erase(found);
}

QWidget* QtWindowSystem::Widget(WindowHandle window) const {
  auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : found->second.widget;
}

WindowHandle QtWindowSystem::HandleOf(const QWidget* widget) const {
  auto found = handles_.find(widget);
  return found == handles_.end() ? 0 : found->second;
}

bool QtWindowSystem::IsWindow(WindowHandle window) const {
  return Widget(window) != nullptr;
}

bool QtWindowSystem::GetWindowRect(WindowHandle window, PixelRect& rect) const {
  const QWidget* widget = Widget(window);
  if (widget == nullptr) return false;
  const QPoint origin = widget->mapToGlobal(QPoint(0, 0));
  rect = {origin.x(), origin.y(), origin.x() + widget->width(), origin.y() + widget->height()};
  return true;
}

bool QtWindowSystem::ScreenToClient(WindowHandle window, PixelPoint& point) const {
  const QWidget* widget = Widget(window);
  if (widget == nullptr) return false;
  const QPoint local = widget->mapFromGlobal(QPoint(point.x, point.y));
  point = {local.x(), local.y()};
  return true;
}

ProcedureWindowSystem::WindowState* QtWindowSystem::FindState(WindowHandle window, bool for_longs) {
  auto found = windows_.find(window);
  if (found == windows_.end() || (for_longs && !found->second.widget)) return nullptr;
  return &found->second;
}

bool QtWindowSystem::ReleaseCapture() {
  if (QWidget* grabber = QWidget::mouseGrabber()) grabber->releaseMouse();
  return true;
}

void QtWindowSystem::RequestActivation(WindowHandle window) {
  QWidget* widget = Widget(window);
  if (widget == nullptr) return;
  QWidget* top = widget->window();
  // Qt reports nothing for the window that is active already, when nothing else is on its way.
  if (QApplication::activeWindow() == top && requested_activations_.empty()) return;
  // Qt reports a run of requests for one window once.
  const WindowHandle handle = HandleOf(top);
  if (requested_activations_.empty() || requested_activations_.back() != handle)
    requested_activations_.push_back(handle);
  top->activateWindow();
}

bool QtWindowSystem::Route(WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam) {
  const bool outer = class_procedure_ran_;
  class_procedure_ran_ = false;
  SendMessage(window, message, wparam, lparam);
  const bool ran = class_procedure_ran_;
  class_procedure_ran_ = outer;
  return ran;
}

void QtWindowSystem::OnClassProcedure(WindowHandle, uint32_t, int32_t, int32_t) {
  class_procedure_ran_ = true;
}

}  // namespace zk
