#include "platform/qt/qt_picture_box.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <utility>

#include "platform/qt/qt_border.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_input.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace zk {

class QtPictureBox::Box final : public QWidget {
 public:
  Box(QtPictureBox& box, QWidget* parent) : QWidget(parent), box_(box) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
  }
  ~Box() override { box_.widget_ = nullptr; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(box_.BackColor(), palette()));
    PaintBorder(painter, rect(), palette(), box_.BorderStyle(), box_.Appearance());
  }
  void mousePressEvent(QMouseEvent* event) override { Mouse(MouseAction::kDown, *event); }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    Mouse(MouseAction::kDoubleDown, *event);
  }
  void mouseMoveEvent(QMouseEvent* event) override { Mouse(MouseAction::kMove, *event); }
  void mouseReleaseEvent(QMouseEvent* event) override { Mouse(MouseAction::kUp, *event); }

 private:
  void Mouse(MouseAction action, const QMouseEvent& event) {
    const Qt::MouseButtons buttons =
        action == MouseAction::kMove ? event.buttons() : Qt::MouseButtons(event.button());
    box_.own_clicks_.Deliver(action, ButtonCode(buttons), ShiftCode(event.modifiers()),
                             static_cast<float>(box_.surface_.XToTwips(event.position().x())),
                             static_cast<float>(box_.surface_.YToTwips(event.position().y())));
  }

  QtPictureBox& box_;
};

QtPictureBox::QtPictureBox(QtSurface& surface)
    : surface_(surface),
      own_clicks_({&Click(), &DblClick(), &MouseDown(), &MouseMove(), &MouseUp()},
                  [this] { return std::pair<double, double>(Width(), Height()); }) {
  QWidget* parent = surface_.Widget();
  widget_ = new Box(*this, parent);
  SetWindow(surface_.Platform().Windows().Register(widget_, u"PictureBox", 0x50000000));
  Changed();
  if (parent != nullptr && parent->isVisible()) widget_->show();
}

QtPictureBox::~QtPictureBox() {
  delete widget_;
}

QWidget* QtPictureBox::Widget() const {
  return widget_;
}

void QtPictureBox::Changed() {
  if (widget_ == nullptr) return;
  const QPointF origin = surface_.ToPixels(Left(), Top());
  const QPointF end = surface_.ToPixels(Left() + Width(), Top() + Height());
  const auto left = static_cast<int>(std::lround(origin.x()));
  const auto top = static_cast<int>(std::lround(origin.y()));
  widget_->setGeometry(left, top, static_cast<int>(std::lround(end.x())) - left,
                       static_cast<int>(std::lround(end.y())) - top);
  if (widget_->isHidden() == Visible()) widget_->setVisible(Visible());
  if (widget_->isEnabled() != Enabled()) widget_->setEnabled(Enabled());
  widget_->update();
}

void QtPictureBox::Refresh() {
  if (widget_ != nullptr) widget_->repaint();
}

void QtPictureBox::BringToFront() {
  if (widget_ != nullptr) widget_->raise();
}

void QtPictureBox::SetToolTipText(std::u16string_view text) {
  ElementState::SetToolTipText(text);
  if (widget_ != nullptr) widget_->setToolTip(ToQString(text));
}

}  // namespace zk
