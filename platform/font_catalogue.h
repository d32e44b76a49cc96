#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zk {

// The values of a font, as plain data.
struct FontDescription {
  std::u16string name;
  // The point size in ten-thousandths of a point: sizes keep four decimals.
  int64_t size_e4 = 0;
  int16_t weight = 400;  // 400 normal, 700 bold
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  int16_t charset = 0;

  double Size() const { return static_cast<double>(size_e4) / 10000.0; }
  bool Bold() const { return weight >= 550; }
  bool operator==(const FontDescription&) const = default;
};

// The size of a text in pixels.
struct TextExtent {
  int32_t width = 0;
  int32_t height = 0;
  bool operator==(const TextExtent&) const = default;
};

// The fonts the platform has: which faces are installed, the default font of new font objects,
// and how a text measures in a font.
class IFontCatalogue {
 public:
  virtual ~IFontCatalogue() = default;

  // The installed face that answers to `name` (compared without regard to case), in the
  // catalogue's own spelling; nothing when no such face is installed.
  virtual std::optional<std::u16string> InstalledFace(std::u16string_view name) const = 0;

  // The values of a newly created font object.
  virtual FontDescription DefaultFont() const = 0;

  // The size of `text` drawn in `font`. Lines break at CR LF, CR or LF. With `wrap_width` above
  // 0, lines are also broken between words so that they fit that width where a word allows;
  // the result's width is then that of the widest line. The height of the empty text is one
  // line.
  virtual TextExtent MeasureText(const FontDescription& font, std::u16string_view text,
                                 int32_t wrap_width) const = 0;
};

}  // namespace zk
