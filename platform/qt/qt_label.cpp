#include "platform/qt/qt_label.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/common/mnemonic.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace zk {

namespace {

// The system colours of the 3-D highlight and of grey (disabled) text.
constexpr OLE_COLOR kSystemHighlight3D = 0x80000014;
constexpr OLE_COLOR kSystemGrayText = 0x80000011;

}  // namespace

QtLabel::QtLabel(QtSurface& surface, FontDescription font) : LabelState(std::move(font), surface) {}

void QtLabel::Paint(QPainter& painter, const QRectF& area) const {
  const QPalette& colors = Surface().Widget()->palette();
  painter.setClipRect(area, Qt::IntersectClip);
  if (BackStyle() != 0) painter.fillRect(area, ToQColor(BackColor(), colors));
  painter.setFont(Surface().Platform().Fonts().ToQFont(ShownFont()));
  int flags = Qt::AlignTop;
  flags |= Alignment() == 1 ? Qt::AlignRight : Alignment() == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
  if (WordWrap()) flags |= Qt::TextWordWrap;
  if (UseMnemonic()) flags |= Qt::TextShowMnemonic;
  if (!painted_text_) {
    QString text = ToQString(Caption());
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QChar(u'\r'), QChar(u'\n'));
    if (!UseMnemonic()) text.replace(QChar(u'&'), QStringLiteral("&&"));
    painted_text_ = std::move(text);
  }
  if (Enabled()) {
    painter.setPen(ToQColor(ForeColor(), colors));
  } else {
    // Disabled text is engraved: a highlight one pixel down and right under the grey text,
    // so that it stays readable on any grey a disabled control puts behind it.
    painter.setPen(ToQColor(kSystemHighlight3D, colors));
    painter.drawText(area.translated(1, 1), flags, *painted_text_);
    painter.setPen(ToQColor(kSystemGrayText, colors));
  }
  painter.drawText(area, flags, *painted_text_);
}

TextExtent QtLabel::Measure(const FontDescription& font, std::u16string_view text,
                            int32_t wrap_width) const {
  return Surface().Platform().Fonts().MeasureText(font, text, wrap_width);
}

double QtLabel::TwipsPerPixelX() const {
  return Surface().XToTwips(1);
}

double QtLabel::TwipsPerPixelY() const {
  return Surface().YToTwips(1);
}

}  // namespace zk
