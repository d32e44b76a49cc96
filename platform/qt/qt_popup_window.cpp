#include "platform/qt/qt_popup_window.h"

#include <QEvent>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace zk {

std::unique_ptr<IPopupWindow> QtControlSite::MakePopup(QtPlatform& platform, FormAmbient& ambient,
                                                       QtSurface& owner) {
  return std::make_unique<QtPopupWindow>(platform, ambient, owner);
}

// While the window is dragged it has the mouse: moves make it follow the pointer and the
// release ends the drag.
class QtPopupWindow::DragFilter final : public QObject {
 public:
  explicit DragFilter(QtPopupWindow& window) : window_(window) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (!window_.Dragging()) return false;
    if (event->type() == QEvent::MouseMove) {
      window_.FollowPointer();
      return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
      // The window ends where the pointer lets go of it.
      window_.FollowPointer();
      window_.EndDrag();
      return true;
    }
    return false;
  }

 private:
  QtPopupWindow& window_;
};

QtPopupWindow::QtPopupWindow(QtPlatform& platform, FormAmbient& ambient, QtSurface& owner)
    : PopupWindowBase(platform, platform.Windows()),
      platform_(platform),
      owner_(owner.Widget()),
      widget_(std::make_unique<QWidget>(nullptr, Qt::Tool | Qt::FramelessWindowHint)),
      window_(platform.Windows().Register(widget_.get(), u"ZKPopup")),
      drag_filter_(std::make_unique<DragFilter>(*this)),
      site_(std::make_unique<QtControlSite>(platform, ambient, widget_.get(),
                                            QtControlSite::InPopup{})) {
  widget_->installEventFilter(drag_filter_.get());
  widget_->winId();  // the native window, for its transient parent
  Attach();
}

QtPopupWindow::~QtPopupWindow() {
  Detach();
  widget_->removeEventFilter(drag_filter_.get());
  site_.reset();
  widget_.reset();
}

WindowHandle QtPopupWindow::OwnerFormWindow() const {
  return owner_ ? platform_.Windows().HandleOf(owner_->window()) : 0;
}

void QtPopupWindow::ShowWindow(bool shown) {
  if (!shown) {
    widget_->hide();
    return;
  }
  // The window stays above its owner's form and goes with it, without being its child; the
  // form may have been shown only after the window was made.
  QWidget* form = owner_ ? owner_->window() : nullptr;
  if (form != nullptr && form->windowHandle() != nullptr && widget_->windowHandle() != nullptr) {
    widget_->windowHandle()->setTransientParent(form->windowHandle());
  }
  widget_->show();
  widget_->raise();
}

void QtPopupWindow::PlaceWindow(const PixelRect& rect, double width, double height) {
  widget_->setGeometry(rect.left, rect.top, rect.Width(), rect.Height());
  site_->Surface().SetSize(width, height);
}

void QtPopupWindow::RunModalLoop(const std::shared_ptr<bool>& alive) {
  QEventLoop loop;
  QEventLoop* const outer = std::exchange(loop_, &loop);
  // What acts as the user runs once the loop has started; a window it leaves shown is hidden,
  // which ends the loop. The callback is a copy: it may replace itself, or destroy this window.
  if (IPlatform::ModalCallback callback = platform_.GetModalCallback()) {
    QTimer::singleShot(0, &loop, [this, alive, callback = std::move(callback)] {
      callback(*this);
      if (*alive && Visible()) Hide();
    });
  }
  loop.exec();
  if (*alive) loop_ = outer;
}

void QtPopupWindow::EndModalLoop() {
  if (loop_ != nullptr) loop_->quit();
}

void QtPopupWindow::DragStarted() {
  // Moves reach the window whether or not Qt knows of the button held (the grab of a platform
  // that cannot grab is only Qt's own).
  widget_->setMouseTracking(true);
  widget_->grabMouse();
}

void QtPopupWindow::DragEnded() {
  widget_->releaseMouse();
  widget_->setMouseTracking(false);
}

}  // namespace zk
