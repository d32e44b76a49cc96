#pragma once

#include <string>
#include <vector>

#include "platform/font_catalogue.h"

namespace zk {

// The fonts of the headless platform. Installed by default: "MS Sans Serif" (the default font,
// 8.25 points), "Arial", "Courier New", "Tahoma" and "Times New Roman"; "Wingdings 3" is not
// installed until a test installs it.
//
// Text measures by a fixed rule, so that layouts come out the same on every machine:
// - a line is round(size x 1.6) pixels high (13 pixels at 8.25 points);
// - every UTF-16 unit of a line is round(size x 0.75) pixels wide (6 pixels at 8.25 points),
//   one pixel more in a bold font; rounding is halves to even, and at least 1 pixel;
// - with a wrap width, a line breaks at the last blank that lets it fit; blanks at a break take
//   no room; a word wider than the width stands alone on its line (and is measured whole).
class HeadlessFontCatalogue final : public IFontCatalogue {
 public:
  HeadlessFontCatalogue();

  void InstallFace(std::u16string name);
  void UninstallFace(std::u16string_view name);

  std::optional<std::u16string> InstalledFace(std::u16string_view name) const override;
  FontDescription DefaultFont() const override;
  TextExtent MeasureText(const FontDescription& font, std::u16string_view text,
                         int32_t wrap_width) const override;

  // The two measures of the rule above.
  static int32_t LineHeight(const FontDescription& font);
  static int32_t CharacterWidth(const FontDescription& font);

 private:
  std::vector<std::u16string> faces_;
};

}  // namespace zk
