#pragma once

#include <QFont>
#include <string>
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

  // The QFont that draws the description.
  QFont ToQFont(const FontDescription& font) const;

 private:
  struct Alias {
    std::u16string name;
    QString family;
  };
  std::vector<Alias> aliases_;
};

}  // namespace zk
