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
    : QtPaintedBase(surface), font_(std::move(font)) {}

void QtLabel::Paint(QPainter& painter, const QRectF& area) const {
  const QPalette& colors = Surface().Widget()->palette();
  painter.setClipRect(area, Qt::IntersectClip);
  if (back_style_ != 0) painter.fillRect(area, ToQColor(back_color_, colors));
  painter.setFont(Surface().Platform().Fonts().ToQFont(font_));
  painter.setPen(Enabled() ? ToQColor(fore_color_, colors)
                           : colors.color(QPalette::Disabled, QPalette::WindowText));
  int flags = Qt::AlignTop;
  flags |= alignment_ == 1 ? Qt::AlignRight : alignment_ == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
  if (word_wrap_) flags |= Qt::TextWordWrap;
  if (use_mnemonic_) flags |= Qt::TextShowMnemonic;
  if (!painted_text_) {
    QString text = ToQString(caption_);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QChar(u'\r'), QChar(u'\n'));
    if (!use_mnemonic_) text.replace(QChar(u'&'), QStringLiteral("&&"));
    painted_text_ = std::move(text);
  }
  painter.drawText(area, flags, *painted_text_);
}

double QtLabel::Width() const {
  EnsureFitted();
  return QtPaintedBase::Width();
}

double QtLabel::Height() const {
  EnsureFitted();
  return QtPaintedBase::Height();
}

void QtLabel::EnsureFitted() const {
  // The label itself is never const; only the size read is.
  if (size_stale_) const_cast<QtLabel*>(this)->FitToText();
}

void QtLabel::Move(double left, double top, double width, double height) {
  // A wrapping label fits its width.
  if (word_wrap_ && width != QtPaintedBase::Width()) fitted_ = false;
  QtPaintedBase::Move(left, top, width, height);
  RefitLater();
}

void QtLabel::SetCaption(std::u16string_view caption) {
  // Layouts write the same caption again to refresh the label; its last fit still holds.
  if (caption != caption_) {
    caption_ = caption;
    TextChanged();
  }
  RefitLater();
  Changed();
}

void QtLabel::SetAlignment(int16_t alignment) {
  alignment_ = alignment;
  Changed();
}

void QtLabel::SetForeColor(OLE_COLOR color) {
  fore_color_ = color;
  Changed();
}

void QtLabel::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  Changed();
}

void QtLabel::SetBackStyle(int16_t style) {
  back_style_ = style;
  Changed();
}

void QtLabel::SetFont(const FontDescription& font) {
  if (!(font == font_)) {
    font_ = font;
    ++font_version_;
    fitted_ = false;
  }
  RefitLater();
  Changed();
}

void QtLabel::TextChanged() {
  ++text_version_;
  fitted_ = false;
  painted_text_.reset();
}

void QtLabel::SetWordWrap(bool word_wrap) {
  word_wrap_ = word_wrap;
  fitted_ = false;
  RefitLater();
  Changed();
}

void QtLabel::SetUseMnemonic(bool use_mnemonic) {
  if (use_mnemonic != use_mnemonic_) {
    use_mnemonic_ = use_mnemonic;
    TextChanged();
  }
  RefitLater();
  Changed();
}

void QtLabel::SetAutoSize(bool auto_size) {
  auto_size_ = auto_size;
  RefitLater();
  Changed();
}

void QtLabel::FitToText() {
  size_stale_ = false;
  if (fitted_) {
    // Nothing that decides the size changed: the size of the last fit stands.
    SetSize(word_wrap_ ? Width() : fitted_width_, fitted_height_);
    return;
  }
  const double tpp_x = Surface().XToTwips(1);
  const double tpp_y = Surface().YToTwips(1);
  // A wrapping label keeps its width; at least one pixel, so that words still stack.
  const int32_t wrap_width =
      word_wrap_ ? std::max<int32_t>(1, static_cast<int32_t>(std::lround(Width() / tpp_x))) : 0;
  if (measured_.wrap_width != wrap_width || measured_.text_version != text_version_ ||
      measured_.font_version != font_version_) {
    const std::u16string shown = use_mnemonic_ ? StripMnemonics(caption_) : caption_;
    measured_.extent = Surface().Platform().Fonts().MeasureText(font_, shown, wrap_width);
    measured_.text_version = text_version_;
    measured_.font_version = font_version_;
    measured_.wrap_width = wrap_width;
  }
  const TextExtent extent = measured_.extent;
  SetSize(word_wrap_ ? Width() : extent.width * tpp_x, extent.height * tpp_y);
  fitted_width_ = Width();
  fitted_height_ = Height();
  fitted_ = true;
}

}  // namespace zk
