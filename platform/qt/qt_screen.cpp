#include "platform/qt/qt_screen.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QStyle>

#include "platform/window_messages.h"

namespace zk {
namespace {

double TwipsPerPixelOf(double logical_dpi) {
  return logical_dpi > 0 ? 1440.0 / logical_dpi : 15.0;
}

Qt::CursorShape ShapeOf(int16_t pointer) {
  switch (pointer) {
    case mouse_pointer::kCrosshair:
      return Qt::CrossCursor;
    case mouse_pointer::kIbeam:
      return Qt::IBeamCursor;
    case mouse_pointer::kSizeNESW:
      return Qt::SizeBDiagCursor;
    case mouse_pointer::kSizeNS:
      return Qt::SizeVerCursor;
    case mouse_pointer::kSizeNWSE:
      return Qt::SizeFDiagCursor;
    case mouse_pointer::kSizeWE:
      return Qt::SizeHorCursor;
    case mouse_pointer::kUpArrow:
      return Qt::UpArrowCursor;
    case mouse_pointer::kHourglass:
      return Qt::WaitCursor;
    case mouse_pointer::kNoDrop:
      return Qt::ForbiddenCursor;
    case mouse_pointer::kSizeAll:
      return Qt::SizeAllCursor;
    default:
      return Qt::ArrowCursor;
  }
}

}  // namespace

QtScreen::QtScreen(PlatformRecorder& recorder) : recorder_(recorder) {
  primary_changed_ = QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged,
                                      [this](QScreen*) { ForgetScale(); });
}

QtScreen::~QtScreen() {
  QObject::disconnect(primary_changed_);
  QObject::disconnect(resolution_changed_);
}

void QtScreen::ReadScale() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  scale_x_ = TwipsPerPixelOf(screen ? screen->logicalDotsPerInchX() : 96.0);
  scale_y_ = TwipsPerPixelOf(screen ? screen->logicalDotsPerInchY() : 96.0);
  if (screen != nullptr) {
    resolution_changed_ = QObject::connect(screen, &QScreen::logicalDotsPerInchChanged,
                                           [this](qreal) { ForgetScale(); });
  }
}

void QtScreen::ForgetScale() const {
  scale_x_ = 0;
  scale_y_ = 0;
  QObject::disconnect(resolution_changed_);
}

double QtScreen::TwipsPerPixelX() const {
  if (override_ > 0) return override_;
  if (scale_x_ == 0) ReadScale();
  return scale_x_;
}

double QtScreen::TwipsPerPixelY() const {
  if (override_ > 0) return override_;
  if (scale_y_ == 0) ReadScale();
  return scale_y_;
}

void QtScreen::SetMousePointer(int16_t shape) {
  mouse_pointer_ = shape;
  if (cursor_overridden_) {
    QApplication::restoreOverrideCursor();
    cursor_overridden_ = false;
  }
  if (shape != mouse_pointer::kDefault) {
    QApplication::setOverrideCursor(QCursor(ShapeOf(shape)));
    cursor_overridden_ = true;
  }
}

PixelPoint QtScreen::CursorPos() const {
  const QPoint position = QCursor::pos();
  return {position.x(), position.y()};
}

bool QtScreen::SetCursorPos(int32_t x, int32_t y) {
  QCursor::setPos(x, y);
  return true;
}

int32_t QtScreen::SystemMetric(int32_t index) const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  switch (index) {
    case system_metric::kScreenWidth:
      return screen ? screen->geometry().width() : 0;
    case system_metric::kScreenHeight:
      return screen ? screen->geometry().height() : 0;
    case system_metric::kVerticalScrollWidth:
    case system_metric::kHorizontalScrollHeight:
      return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    default:
      return 0;
  }
}

void QtScreen::Beep() {
  ++recorder_.beeps;
  QApplication::beep();
}

}  // namespace zk
