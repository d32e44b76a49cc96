#include "platform/qt/qt_label.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/mnemonic.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_mouse_reporter.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace zk {

class QtLabel::LabelWidget final : public QWidget {
 public:
  LabelWidget(QtLabel& label, QWidget* parent)
      : QWidget(parent),
        label_(label),
        mouse_({&label.click_, &label.dbl_click_, &label.mouse_down_, &label.mouse_move_,
                &label.mouse_up_},
               [this](QPointF point) {
                 return std::pair<float, float>(
                     static_cast<float>(label_.surface_.XToTwips(point.x())),
                     static_cast<float>(label_.surface_.YToTwips(point.y())));
               }) {
    setMouseTracking(true);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QPalette& colors = palette();
    if (label_.back_style_ != 0) painter.fillRect(rect(), ToQColor(label_.back_color_, colors));
    painter.setFont(label_.surface_.Platform().Fonts().ToQFont(label_.font_));
    painter.setPen(label_.enabled_ ? ToQColor(label_.fore_color_, colors)
                                   : colors.color(QPalette::Disabled, QPalette::WindowText));
    int flags = Qt::AlignTop;
    flags |= label_.alignment_ == 1   ? Qt::AlignRight
             : label_.alignment_ == 2 ? Qt::AlignHCenter
                                      : Qt::AlignLeft;
    if (label_.word_wrap_) flags |= Qt::TextWordWrap;
    flags |= label_.use_mnemonic_ ? Qt::TextShowMnemonic : 0;
    QString text = ToQString(label_.caption_);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QChar(u'\r'), QChar(u'\n'));
    if (!label_.use_mnemonic_) text.replace(QChar(u'&'), QStringLiteral("&&"));
    painter.drawText(rect(), flags, text);
  }
  void mousePressEvent(QMouseEvent* event) override { mouse_.Press(event, rect()); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.DoubleClick(event); }
  void mouseMoveEvent(QMouseEvent* event) override { mouse_.Move(event); }
  void mouseReleaseEvent(QMouseEvent* event) override { mouse_.Release(event, rect()); }

 private:
  QtLabel& label_;
  QtMouseReporter mouse_;
};

QtLabel::QtLabel(QtSurface& surface, FontDescription font)
    : surface_(surface), font_(std::move(font)) {
  auto* widget = new LabelWidget(*this, surface.Widget());
  widget_ = widget;
  widget->show();
  placement_connection_ = surface_.PlacementChanged().Connect([this] { Place(); });
  Place();
}

QtLabel::~QtLabel() {
  delete widget_.data();
}

void QtLabel::Place() {
  if (!widget_) return;
  const QPoint origin = surface_.ToPixels(left_, top_);
  const QPoint end = surface_.ToPixels(left_ + width_, top_ + height_);
  widget_->setGeometry(origin.x(), origin.y(), std::max(0, end.x() - origin.x()),
                       std::max(0, end.y() - origin.y()));
  widget_->update();
}

void QtLabel::Move(double left, double top, double width, double height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  if (auto_size_) FitToText();
  Place();
}

void QtLabel::SetVisible(bool visible) {
  visible_ = visible;
  if (widget_) widget_->setVisible(visible);
}

void QtLabel::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (widget_) {
    // A disabled label leaves the mouse to the control under it.
    widget_->setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
    widget_->update();
  }
}

void QtLabel::SetToolTipText(std::u16string_view text) {
  tool_tip_text_ = text;
  if (widget_) widget_->setToolTip(ToQString(text));
}

void QtLabel::Refresh() {
  if (widget_) widget_->repaint();
}

void QtLabel::SetCaption(std::u16string_view caption) {
  caption_ = caption;
  if (auto_size_) FitToText();
  Place();
}

void QtLabel::SetAlignment(int16_t alignment) {
  alignment_ = alignment;
  if (widget_) widget_->update();
}

void QtLabel::SetForeColor(OLE_COLOR color) {
  fore_color_ = color;
  if (widget_) widget_->update();
}

void QtLabel::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  if (widget_) widget_->update();
}

void QtLabel::SetBackStyle(int16_t style) {
  back_style_ = style;
  if (widget_) widget_->update();
}

void QtLabel::SetFont(const FontDescription& font) {
  font_ = font;
  if (auto_size_) FitToText();
  Place();
}

void QtLabel::SetWordWrap(bool word_wrap) {
  word_wrap_ = word_wrap;
  if (auto_size_) FitToText();
  Place();
}

void QtLabel::SetUseMnemonic(bool use_mnemonic) {
  use_mnemonic_ = use_mnemonic;
  if (auto_size_) FitToText();
  Place();
}

void QtLabel::SetAutoSize(bool auto_size) {
  auto_size_ = auto_size;
  if (auto_size_) FitToText();
  Place();
}

void QtLabel::FitToText() {
  const double tpp_x = surface_.XToTwips(1);
  const double tpp_y = surface_.YToTwips(1);
  const std::u16string shown = use_mnemonic_ ? StripMnemonics(caption_) : caption_;
  // A wrapping label keeps its width; at least one pixel, so that words still stack.
  const int32_t wrap_width =
      word_wrap_ ? std::max<int32_t>(1, static_cast<int32_t>(std::lround(width_ / tpp_x))) : 0;
  const TextExtent extent = surface_.Platform().Fonts().MeasureText(font_, shown, wrap_width);
  if (!word_wrap_) width_ = extent.width * tpp_x;
  height_ = extent.height * tpp_y;
}

}  // namespace zk
