#pragma once

#include <QFont>
#include <QFontMetrics>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/font_catalogue.h"

namespace zk {

// The fonts of the Qt platform. Installed faces come from Qt's font database. The classic faces
// that forms name ("MS Sans Serif", the default font at 8.25 points, "Arial", "Tahoma",
// "Courier New", "Times New Roman") are offered under their own names and drawn with an
// installed substitute (DejaVu Sans, DejaVu Sans Mono, DejaVu Serif, or the system font), so a
// form reads back the same names on every platform. Text is measured with QFontMetrics.
class QtFontCatalogue final : public IFontCatalogue {
 public:
  QtFontCatalogue();

  std::optional<std::u16string> InstalledFace(std::u16string_view name) const override;
  FontDescription DefaultFont() const override;
  TextExtent MeasureText(const FontDescription& font, std::u16string_view text,
                         int32_t wrap_width) const override;

  // The QFont that draws the description. Simple scripts are drawn without shaping (no
  // kerning, no ligatures), so that a line is exactly as wide as its characters' advances.
  QFont ToQFont(const FontDescription& font) const;

 private:
  // Layouts measure the same font over and over: the last one's metrics are kept.
  const QFontMetrics& MetricsOf(const FontDescription& font) const;
  TextExtent Measure(const FontDescription& font, std::u16string_view text,
                     int32_t wrap_width) const;
  QFont MakeQFont(const FontDescription& font) const;

  struct Alias {
    std::u16string name;
    QString family;
  };
  std::vector<Alias> aliases_;
  mutable FontDescription cached_description_;
  mutable std::optional<QFontMetrics> cached_metrics_;
  mutable std::optional<QFontMetricsF> cached_metrics_f_;
  mutable int32_t line_height_ = 0;
  // Advances of the Latin characters in the cached font, filled as they are asked for.
  mutable std::array<qreal, 0x250> advances_{};
  // Recent measurements: forms repeat the same captions in the same fonts.
  struct Measurement {
    FontDescription font;
    std::u16string text;
    int32_t wrap_width;
    TextExtent extent;
  };
  mutable std::vector<Measurement> recent_;
  mutable size_t next_slot_ = 0;
  // The last font made for painting, with its description.
  mutable std::optional<std::pair<FontDescription, QFont>> last_font_;
};

}  // namespace zk
