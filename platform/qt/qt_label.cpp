#include "platform/qt/qt_label.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/mnemonic.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace zk {

QtLabel::QtLabel(QtSurface& surface, FontDescription font)
    : surface_(surface), font_(std::move(font)) {
  surface_.AddPaintedElement(this, this);
}

QtLabel::~QtLabel() {
  surface_.RemovePaintedElement(this);
}

void QtLabel::Paint(QPainter& painter, const QRectF& area) const {
  const QPalette& colors = surface_.Widget()->palette();
  painter.setClipRect(area, Qt::IntersectClip);
  if (back_style_ != 0) painter.fillRect(area, ToQColor(back_color_, colors));
  painter.setFont(surface_.Platform().Fonts().ToQFont(font_));
  painter.setPen(enabled_ ? ToQColor(fore_color_, colors)
                          : colors.color(QPalette::Disabled, QPalette::WindowText));
  int flags = Qt::AlignTop;
  flags |= alignment_ == 1 ? Qt::AlignRight : alignment_ == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
  if (word_wrap_) flags |= Qt::TextWordWrap;
  if (use_mnemonic_) flags |= Qt::TextShowMnemonic;
  QString text = ToQString(caption_);
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QChar(u'\r'), QChar(u'\n'));
  if (!use_mnemonic_) text.replace(QChar(u'&'), QStringLiteral("&&"));
  painter.drawText(area, flags, text);
}

void QtLabel::Move(double left, double top, double width, double height) {
  left_ = left;
  top_ = top;
  if (word_wrap_ && width != width_) fitted_ = false;  // a wrapping label fits its width
  width_ = width;
  height_ = height;
  if (auto_size_) FitToText();
  surface_.Update();
}

void QtLabel::SetVisible(bool visible) {
  visible_ = visible;
  surface_.Update();
}

void QtLabel::SetEnabled(bool enabled) {
  enabled_ = enabled;
  surface_.Update();
}

void QtLabel::SetToolTipText(std::u16string_view text) {
  tool_tip_text_ = text;
}

void QtLabel::Refresh() {
  if (QWidget* widget = surface_.Widget()) widget->repaint();
}

void QtLabel::SetCaption(std::u16string_view caption) {
  caption_ = caption;
  fitted_ = false;
  if (auto_size_) FitToText();
  surface_.Update();
}

void QtLabel::SetAlignment(int16_t alignment) {
  alignment_ = alignment;
  surface_.Update();
}

void QtLabel::SetForeColor(OLE_COLOR color) {
  fore_color_ = color;
  surface_.Update();
}

void QtLabel::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  surface_.Update();
}

void QtLabel::SetBackStyle(int16_t style) {
  back_style_ = style;
  surface_.Update();
}

void QtLabel::SetFont(const FontDescription& font) {
  font_ = font;
  fitted_ = false;
  if (auto_size_) FitToText();
  surface_.Update();
}

void QtLabel::SetWordWrap(bool word_wrap) {
  word_wrap_ = word_wrap;
  fitted_ = false;
  if (auto_size_) FitToText();
  surface_.Update();
}

void QtLabel::SetUseMnemonic(bool use_mnemonic) {
  use_mnemonic_ = use_mnemonic;
  fitted_ = false;
  if (auto_size_) FitToText();
  surface_.Update();
}

void QtLabel::SetAutoSize(bool auto_size) {
  auto_size_ = auto_size;
  if (auto_size_) FitToText();
  surface_.Update();
}

void QtLabel::FitToText() {
  if (fitted_) {
    // Nothing that decides the size changed: the size of the last fit stands.
    if (!word_wrap_) width_ = fitted_width_;
    height_ = fitted_height_;
    return;
  }
  const double tpp_x = surface_.XToTwips(1);
  const double tpp_y = surface_.YToTwips(1);
  const std::u16string shown = use_mnemonic_ ? StripMnemonics(caption_) : caption_;
  // A wrapping label keeps its width; at least one pixel, so that words still stack.
  const int32_t wrap_width =
      word_wrap_ ? std::max<int32_t>(1, static_cast<int32_t>(std::lround(width_ / tpp_x))) : 0;
  if (measured_.wrap_width != wrap_width || measured_.text != shown || !(measured_.font == font_)) {
    measured_.extent = surface_.Platform().Fonts().MeasureText(font_, shown, wrap_width);
    measured_.text = shown;
    measured_.font = font_;
    measured_.wrap_width = wrap_width;
  }
  const TextExtent extent = measured_.extent;
  if (!word_wrap_) width_ = extent.width * tpp_x;
  height_ = extent.height * tpp_y;
  fitted_width_ = width_;
  fitted_height_ = height_;
  fitted_ = true;
}

}  // namespace zk
