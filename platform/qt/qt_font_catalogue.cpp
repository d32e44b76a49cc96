#include "platform/qt/qt_font_catalogue.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QRect>
#include <QStringList>
#include <algorithm>
#include <cmath>

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
  // Every element paints with its font; most of them share one.
  if (last_font_ && last_font_->first == description) return last_font_->second;
  last_font_.emplace(description, MakeQFont(description));
  return last_font_->second;
}

QFont QtFontCatalogue::MakeQFont(const FontDescription& description) const {
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
  font.setKerning(false);
  font.setStyleStrategy(QFont::PreferNoShaping);
  return font;
}

const QFontMetrics& QtFontCatalogue::MetricsOf(const FontDescription& font) const {
  if (!cached_metrics_ || !(cached_description_ == font)) {
    const QFont qfont = MakeQFont(font);
    cached_metrics_.emplace(qfont);
    cached_metrics_f_.emplace(qfont);
    line_height_ = cached_metrics_->height();
    advances_.fill(-1);
    cached_description_ = font;
  }
  return *cached_metrics_;
}

TextExtent QtFontCatalogue::MeasureText(const FontDescription& font, std::u16string_view text,
                                        int32_t wrap_width) const {
  constexpr size_t kRecent = 8;
  for (const Measurement& measured : recent_) {
    if (measured.wrap_width == wrap_width && measured.text == text && measured.font == font) {
      return measured.extent;
    }
  }
  const TextExtent extent = Measure(font, text, wrap_width);
  Measurement entry{font, std::u16string(text), wrap_width, extent};
  if (recent_.size() < kRecent) {
    recent_.push_back(std::move(entry));
  } else {
    recent_[next_slot_] = std::move(entry);
    next_slot_ = (next_slot_ + 1) % kRecent;
  }
  return extent;
}

TextExtent QtFontCatalogue::Measure(const FontDescription& font, std::u16string_view text,
                                    int32_t wrap_width) const {
  const QFontMetrics& metrics = MetricsOf(font);
  if (text.empty()) return {0, line_height_};
  if (wrap_width <= 0) {
    // One line of Latin text: the sum of its characters' advances, as it is drawn unshaped.
    qreal width = 0;
    bool simple = true;
    for (const char16_t unit : text) {
      // Control characters (line breaks among them) and other scripts take Qt's own path.
      if (unit < 0x20 || unit >= advances_.size()) {
        simple = false;
        break;
      }
      if (advances_[unit] < 0) advances_[unit] = cached_metrics_f_->horizontalAdvance(QChar(unit));
      width += advances_[unit];
    }
    if (simple) return {static_cast<int32_t>(std::ceil(width - 1e-6)), line_height_};
  }
  const QString lines = LinesOf(text);
  if (wrap_width > 0) {
    const QRect bounds = metrics.boundingRect(
        QRect(0, 0, wrap_width, 1 << 24), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, lines);
    return {bounds.width(), bounds.height()};
  }
  if (!lines.contains(QChar(u'\n'))) return {metrics.horizontalAdvance(lines), line_height_};
  const QSize size = metrics.size(0, lines);
  return {size.width(), size.height()};
}

}  // namespace zk
