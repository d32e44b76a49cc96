#include "platform/qt/qt_font_catalogue.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QRect>
#include <QStringList>
#include <algorithm>

#include "foundation/dispatch_object.h"
#include "platform/qt/qt_text.h"

namespace zk {
namespace {

QString InstalledOr(const QString& preferred) {
  const QStringList families = QFontDatabase::families();
  if (families.contains(preferred, Qt::CaseInsensitive)) return preferred;
  return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

// Qt draws "\r" as a glyph of its own: lines break at LF only.
QString LinesOf(std::u16string_view text) {
  QString lines = ToQString(text);
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  lines.replace(QChar(u'\r'), QChar(u'\n'));
  return lines;
}

}  // namespace

QtFontCatalogue::QtFontCatalogue() {
  const QString sans = InstalledOr(QStringLiteral("DejaVu Sans"));
  aliases_ = {{u"MS Sans Serif", sans},
              {u"Arial", sans},
              {u"Tahoma", sans},
              {u"Courier New", InstalledOr(QStringLiteral("DejaVu Sans Mono"))},
              {u"Times New Roman", InstalledOr(QStringLiteral("DejaVu Serif"))}};
}

std::optional<std::u16string> QtFontCatalogue::InstalledFace(std::u16string_view name) const {
  for (const Alias& alias : aliases_) {
    if (MemberNameEquals(alias.name, name)) return alias.name;
  }
  const QString wanted = ToQString(name);
  for (const QString& family : QFontDatabase::families()) {
    if (family.compare(wanted, Qt::CaseInsensitive) == 0) return FromQString(family);
  }
  return std::nullopt;
}

FontDescription QtFontCatalogue::DefaultFont() const {
  FontDescription font;
  font.name = u"MS Sans Serif";
  font.size_e4 = 82500;
  return font;
}

QFont QtFontCatalogue::ToQFont(const FontDescription& description) const {
  QString family = ToQString(description.name);
  for (const Alias& alias : aliases_) {
    if (MemberNameEquals(alias.name, description.name)) family = alias.family;
  }
  QFont font(family);
  font.setPointSizeF(std::max(0.5, description.Size()));
  font.setWeight(static_cast<QFont::Weight>(std::clamp<int>(description.weight, 100, 900)));
  font.setItalic(description.italic);
  font.setUnderline(description.underline);
  font.setStrikeOut(description.strikethrough);
  return font;
}

TextExtent QtFontCatalogue::MeasureText(const FontDescription& font, std::u16string_view text,
                                        int32_t wrap_width) const {
  const QFontMetrics metrics(ToQFont(font));
  const QString lines = LinesOf(text);
  if (lines.isEmpty()) return {0, metrics.height()};
  if (wrap_width > 0) {
    const QRect bounds = metrics.boundingRect(
        QRect(0, 0, wrap_width, 1 << 24), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, lines);
    return {bounds.width(), bounds.height()};
  }
  const QSize size = metrics.size(0, lines);
  return {size.width(), size.height()};
}

}  // namespace zk
