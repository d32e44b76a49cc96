#include "hosting/qt_form.h"

#include <QApplication>
#include <QChildEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWindow>
#include <utility>

#include "foundation/zk_error.h"
#include "hosting/send_keys.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_input.h"

namespace zk {

class QtForm::FormWidget final : public QWidget {
 public:
  explicit FormWidget(QtForm& form) : form_(form) {
    setWindowTitle(QStringLiteral("ZKBaseGUIControls"));
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ChildAdded && isVisible()) {
      QObject* child = static_cast<QChildEvent*>(event)->child();
      // Qt shows a widget's children when the widget appears; one added later stays hidden
      // unless someone shows it. The child is still being made here, so it is shown once the
      // event loop comes round, unless it was hidden on purpose or made a window by then.
      if (child->isWidgetType()) {
        QMetaObject::invokeMethod(
            this,
            [this, added = QPointer<QWidget>(static_cast<QWidget*>(child))] {
              if (added && added->parentWidget() == this && !added->isWindow() &&
                  !added->testAttribute(Qt::WA_WState_ExplicitShowHide)) {
                added->show();
              }
            },
            Qt::QueuedConnection);
      }
    }
    return QWidget::event(event);
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(form_.AmbientProperties().BackColor(), palette()));
  }

 private:
  QtForm& form_;
};

// Watches the user's input to the form's widgets, so that the focus leaves a control only after
// the control validated: a press on another control and the Tab key ask it first.
//
// A press from the window system comes to the form's window first; Qt then hands it to the
// widget under the pointer and, on the way, gives that widget the focus before any filter of
// the widget sees the press. So such a press is judged at the window: a refused leave swallows
// it there, and its release with it, and the clicked control never hears of either. Presses
// that the form synthesises go straight to a widget and are judged there.
class QtForm::InputGuard final : public QObject {
 public:
  explicit InputGuard(QtForm& form) : form_(form) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (form_.widget_ == nullptr) return false;
    const QEvent::Type type = event->type();
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (watched->isWindowType()) {
      if (watched != form_.widget_->windowHandle()) return false;
      // The second press of a double click comes as a press and then a double click.
      if (type == QEvent::MouseButtonDblClick && form_.swallow_release_) return true;
      if (press) return !PressMayReach(*static_cast<QMouseEvent*>(event));
      return type == QEvent::MouseButtonRelease && std::exchange(form_.swallow_release_, false);
    }
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !form_.widget_->isAncestorOf(widget)) return false;
    if (type == QEvent::MouseButtonDblClick && form_.swallow_release_) return true;
    if (press) {
      Placed* target = form_.PlacedOf(widget);
      if (target == nullptr || target->control.get() == form_.FocusedControl()) return false;
      if (!form_.CanFocus(*target)) return false;
      form_.swallow_release_ = !form_.MoveFocusTo(*target, Qt::MouseFocusReason);
      return form_.swallow_release_;
    }
    if (type == QEvent::MouseButtonRelease && form_.swallow_release_) {
      form_.swallow_release_ = false;  // the release of a press that was refused
      return true;
    }
    if (event->type() == QEvent::KeyPress) {
      const auto* key = static_cast<QKeyEvent*>(event);
      const bool backwards = key->key() == Qt::Key_Backtab ||
                             (key->key() == Qt::Key_Tab && (key->modifiers() & Qt::ShiftModifier));
      if ((key->key() != Qt::Key_Tab && key->key() != Qt::Key_Backtab) ||
          (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        return false;
      }
      if (form_.OfferTab(form_.FocusedControl(), backwards ? 1 : 0)) return true;
      if (Placed* next = form_.NextInTabOrder(form_.FocusedControl(), backwards)) {
        form_.MoveFocusTo(*next, Qt::TabFocusReason);
      }
      return true;  // the form moves the focus on Tab
    }
    return false;
  }

 private:
  // Asks the control that has the focus whether a press at the form window's point may go to
  // the control under it; when it may, that control takes the focus at once, so the press
  // reaches it as a press on the focused control.
  bool PressMayReach(const QMouseEvent& event) {
    QWidget* under = form_.widget_->childAt(event.position().toPoint());
    Placed* target = under != nullptr ? form_.PlacedOf(under) : nullptr;
    if (target == nullptr || target->control.get() == form_.FocusedControl() ||
        !form_.CanFocus(*target)) {
      return true;
    }
    if (!form_.MayLeave(form_.FocusedControl())) {
      form_.swallow_release_ = true;
      return false;
    }
    // No event loop here: the release of this very press may be waiting in the queue.
    if (QWidget* control = static_cast<QtControlSite&>(*target->site).Surface().Widget())
      control->setFocus(Qt::MouseFocusReason);
    return true;
  }

  QtForm& form_;
};

QtForm::QtForm(QtPlatform& platform) : Form(platform, platform.Recorder()), platform_(platform) {
  auto* widget = new FormWidget(*this);
  widget->resize(640, 480);
  widget_ = widget;
  platform_.Windows().Register(widget, u"Form");
  ambient_connection_ = AmbientProperties().AmbientChanged().Connect([this](std::u16string_view) {
    if (widget_) widget_->update();
  });
  input_guard_ = std::make_unique<InputGuard>(*this);
  QApplication::instance()->installEventFilter(input_guard_.get());
}

QtForm::Placed* QtForm::PlacedOf(const QWidget* widget) {
  // From the widget outwards: the first control widget met is the innermost control (a
  // container's widget holds the widgets of the controls inside it).
  for (const QWidget* step = widget; step != nullptr; step = step->parentWidget()) {
    for (Placed& placed : PlacedControls()) {
      if (static_cast<QtControlSite&>(*placed.site).Surface().Widget() == step) return &placed;
    }
  }
  return nullptr;
}

bool QtForm::MoveFocusTo(Placed& placed, Qt::FocusReason reason, QtSurface* inner, bool here) {
  if (placed.control.get() != FocusedControl() && !MayLeave(FocusedControl())) return false;
  // Without the focus yet, the control only remembers where inside it the focus goes.
  if (inner != nullptr) inner->MoveFocusHere(here);
  QWidget* widget = static_cast<QtControlSite&>(*placed.site).Surface().Widget();
  if (widget_ && !widget_->isVisible()) widget_->show();
  if (widget_) widget_->activateWindow();
  widget->setFocus(reason);
  QApplication::processEvents();
  return true;
}

QtForm::~QtForm() {
  if (input_guard_) QApplication::instance()->removeEventFilter(input_guard_.get());
  // The form's widget goes first and takes the controls' widgets with it, as a closing window
  // does; the controls then let go of what is left.
  delete widget_.data();
  RemoveAll();
}

std::unique_ptr<IControlSite> QtForm::CreateSite(const ControlKind& kind, std::u16string_view name,
                                                 IControlSite* container) {
  QtSurface* holder =
      container != nullptr ? &static_cast<QtControlSite&>(*container).Surface() : nullptr;
  auto site = std::make_unique<QtControlSite>(platform_, AmbientProperties(), widget_.data(),
                                              std::u16string(name), kind.can_focus, holder);
  if (kind.container) {
    site->SetContainedControls(
        [this, holder_name = std::u16string(name)] { return ContainedControls(holder_name); });
  }
  return site;
}

void QtForm::SetTwipsPerPixel(double twips_per_pixel) {
  platform_.Screen().SetTwipsPerPixel(twips_per_pixel);
}

QtControlSite* QtForm::FindSite(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed ? static_cast<QtControlSite*>(placed->site.get()) : nullptr;
}

ZKControl* QtForm::FocusedControl() {
  const QWidget* focus = QApplication::focusWidget();
  Placed* placed = focus != nullptr ? PlacedOf(focus) : nullptr;
  return placed != nullptr ? placed->control.get() : nullptr;
}

void QtForm::DeliverMouse(std::u16string_view name, MouseAction action, int16_t button,
                          int16_t shift, float x, float y) {
  QtControlSite* site = FindSite(name);
  if (site == nullptr || site->Surface().Widget() == nullptr) {
    throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  }
  QtSurface& surface = site->Surface();
  QWidget* control = surface.Widget();
  // Sub-pixel positions keep the twips that the input names.
  const QPointF point(x / surface.XToTwips(1) + surface.BorderPixels(),
                      y / surface.YToTwips(1) + surface.BorderPixels());
  QWidget* target = pressed_;
  if (target == nullptr) {
    target = control->childAt(point.toPoint());
    if (target == nullptr) target = control;
  }
  if (action == MouseAction::kDown || action == MouseAction::kDoubleDown) {
    // A press on a window makes it the active one, as the window system does for a user's.
    Activate();
    // Over a control inside a container, the press is that control's.
    Placed* placed = PlacedOf(target);
    if (placed == nullptr) placed = FindPlaced(name);
    // The press gives the focus to the part under it (or the control's own text box there);
    // on the control's own area the focus inside the control stays where it was.
    bool here = false;
    QtSurface* inner =
        static_cast<QtControlSite&>(*placed->site).Surface().PressFocusTarget(target, here);
    // A control (or part) that refuses to let the focus go keeps the press from reaching the
    // other one.
    if (placed != nullptr && CanFocus(*placed)) {
      const bool moved = placed->control.get() != FocusedControl()
                             ? MoveFocusTo(*placed, Qt::MouseFocusReason, inner, here)
                             : inner == nullptr || inner->MoveFocusHere(here);
      if (!moved) {
        swallow_release_ = true;
        return;
      }
    }
  }
  if (action == MouseAction::kUp && std::exchange(swallow_release_, false)) return;
  SendMouse(target, target->mapFrom(control, point), action, button, shift);
}

void QtForm::SendMouse(QWidget* target, const QPointF& local, MouseAction action, int16_t button,
                       int16_t shift) {
  const QPointF global = target->mapToGlobal(local);
  const Qt::MouseButton qt_button = QtButtonOf(button);
  QEvent::Type type = QEvent::MouseMove;
  Qt::MouseButtons held = pressed_ ? Qt::MouseButtons(qt_button) : Qt::MouseButtons();
  switch (action) {
    case MouseAction::kDown:
      type = QEvent::MouseButtonPress;
      held = qt_button;
      pressed_ = target;
      break;
    case MouseAction::kDoubleDown:
      type = QEvent::MouseButtonDblClick;
      held = qt_button;
      pressed_ = target;
      break;
    case MouseAction::kUp:
      type = QEvent::MouseButtonRelease;
      held = Qt::NoButton;
      pressed_ = nullptr;
      break;
    case MouseAction::kMove:
      held = QtButtonOf(button);
      break;
  }
  QMouseEvent event(type, local, global, action == MouseAction::kMove ? Qt::NoButton : qt_button,
                    held, ModifiersOf(shift));
  QApplication::sendEvent(target, &event);
}

bool QtForm::Focus(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  if (placed == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  if (!CanFocus(*placed)) return false;
  MoveFocusTo(*placed, Qt::OtherFocusReason);  // a control that keeps the focus is no error
  return true;
}

void QtForm::TypeKeys(std::u16string_view keys) {
  for (const KeyStroke& stroke : ParseSendKeys(keys)) {
    if (stroke.key_code == 9 && (stroke.shift & 6) == 0) {
      if (OfferTab(FocusedControl(), stroke.shift)) continue;
      if (Placed* next = NextInTabOrder(FocusedControl(), (stroke.shift & 1) != 0)) {
        MoveFocusTo(*next, Qt::TabFocusReason);
      }
      continue;
    }
    if (DeliverAccessKey(stroke)) continue;
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) continue;  // nothing has the focus: the keys go nowhere
    const QString text =
        stroke.character != 0 ? QString(QChar(char16_t(stroke.character))) : QString();
    QKeyEvent press(QEvent::KeyPress, QtKeyOf(stroke.key_code), ModifiersOf(stroke.shift), text);
    QApplication::sendEvent(focus, &press);
    QKeyEvent release(QEvent::KeyRelease, QtKeyOf(stroke.key_code), ModifiersOf(stroke.shift),
                      text);
    QApplication::sendEvent(focus, &release);
  }
}

void QtForm::Wheel(std::u16string_view name, int32_t delta,
                   std::optional<std::pair<float, float>> at) {
  QtControlSite* site = FindSite(name);
  if (site == nullptr || site->Surface().Widget() == nullptr) {
    throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  }
  QtSurface& surface = site->Surface();
  QWidget* control = surface.Widget();
  // With a place, the deepest widget under it gets the turn (a list's viewport), as under a
  // mouse; without one, the control's own window over its centre.
  QPoint pixel(control->width() / 2, control->height() / 2);
  QWidget* target = control;
  if (at) {
    pixel = QPoint(static_cast<int>(at->first / surface.XToTwips(1) + surface.BorderPixels()),
                   static_cast<int>(at->second / surface.YToTwips(1) + surface.BorderPixels()));
    if (QWidget* child = control->childAt(pixel)) target = child;
  }
  const QPointF local = target->mapFrom(control, pixel);
  QWheelEvent event(local, target->mapToGlobal(local), QPoint(), QPoint(0, delta), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(target, &event);
}

void QtForm::Wait(int32_t milliseconds) {
  platform_.RunEventLoop(milliseconds);
}

void QtForm::DeliverPopupMouse(IPopupWindow& popup, MouseAction action, int16_t button,
                               int16_t shift, float x, float y) {
  MovePointerOver(popup, x, y);
  QtSurface& surface = static_cast<QtSurface&>(popup.Site().Surface());
  QWidget* window = surface.Widget();
  if (window == nullptr) return;
  const QPointF point(x / surface.XToTwips(1) + surface.BorderPixels(),
                      y / surface.YToTwips(1) + surface.BorderPixels());
  // A window being dragged has the mouse (it grabbed it) until the button goes up.
  if (QWidget* grabber = QWidget::mouseGrabber()) {
    SendMouse(grabber, grabber->mapFromGlobal(window->mapToGlobal(point)), action, button, shift);
    return;
  }
  QWidget* target = pressed_;
  if (target == nullptr) {
    target = window->childAt(point.toPoint());
    if (target == nullptr) target = window;
  }
  if (action == MouseAction::kDown || action == MouseAction::kDoubleDown) {
    if (popup.Visible()) platform_.Windows().ActivateWindow(popup.hWnd());
    bool here = false;
    if (QtSurface* inner = surface.PressFocusTarget(target, here)) inner->MoveFocusHere(here);
  }
  SendMouse(target, target->mapFrom(window, point), action, button, shift);
}

void QtForm::TypePopupKeys(IPopupWindow& popup, std::u16string_view keys) {
  QWidget* window = static_cast<QtSurface&>(popup.Site().Surface()).Widget();
  if (window == nullptr) return;
  for (const KeyStroke& stroke : ParseSendKeys(keys)) {
    // A key may close the window: the rest go nowhere.
    if (!popup.Visible()) return;
    // The widget that has the focus inside the window, even while Qt has not made the window
    // active yet: the surfaces pass the focus on to their parts and boxes through focus proxies.
    QWidget* focus = window;
    while (focus->focusProxy() != nullptr)
      focus = focus->focusProxy();
    const QString text =
        stroke.character != 0 ? QString(QChar(char16_t(stroke.character))) : QString();
    QKeyEvent press(QEvent::KeyPress, QtKeyOf(stroke.key_code), ModifiersOf(stroke.shift), text);
    QApplication::sendEvent(focus, &press);
    QKeyEvent release(QEvent::KeyRelease, QtKeyOf(stroke.key_code), ModifiersOf(stroke.shift),
                      text);
    QApplication::sendEvent(focus, &release);
  }
}

void QtForm::Activate() {
  if (widget_) platform_.Windows().ActivateWindow(platform_.Windows().HandleOf(widget_.data()));
}

}  // namespace zk
