#include "platform/headless/headless_font_catalogue.h"

#include <algorithm>

#include "foundation/dispatch_object.h"
#include "foundation/low_level_utils.h"

namespace zk {
namespace {

int32_t AtLeastOnePixel(double pixels) {
  return std::max(1, static_cast<int32_t>(MLowLevelUtils::RoundHalfEven(pixels)));
}

std::vector<std::u16string_view> SplitLines(std::u16string_view text) {
  std::vector<std::u16string_view> lines;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r' || text[i] == u'\n') {
      lines.push_back(text.substr(start, i - start));
      if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
      start = i + 1;
    }
  }
  lines.push_back(text.substr(start));
  return lines;
}

// Widths of the lines that one source line wraps into.
std::vector<int64_t> WrapLine(std::u16string_view line, int64_t char_width, int64_t wrap_width) {
  std::vector<int64_t> widths;
  int64_t current = 0;  // characters on the current output line (blanks at its end excluded)
  int64_t pending = 0;  // blanks seen after the last word of the current line
  bool has_word = false;
  size_t i = 0;
  while (i < line.size()) {
    if (line[i] == u' ') {
      ++pending;
      ++i;
      continue;
    }
    size_t end = line.find(u' ', i);
    if (end == std::u16string_view::npos) end = line.size();
    const auto word = static_cast<int64_t>(end - i);
    if (has_word && (current + pending + word) * char_width > wrap_width) {
      widths.push_back(current * char_width);
      current = word;
    } else {
      current += (has_word ? pending : 0) + word;
    }
    has_word = true;
    pending = 0;
    i = end;
  }
  widths.push_back(current * char_width);
  return widths;
}

}  // namespace

HeadlessFontCatalogue::HeadlessFontCatalogue()
    : faces_{u"MS Sans Serif", u"Arial", u"Courier New", u"Tahoma", u"Times New Roman"} {}

void HeadlessFontCatalogue::InstallFace(std::u16string name) {
  if (!InstalledFace(name)) faces_.push_back(std::move(name));
}

void HeadlessFontCatalogue::UninstallFace(std::u16string_view name) {
  std::erase_if(faces_,
                [name](const std::u16string& face) { return MemberNameEquals(face, name); });
}

std::optional<std::u16string> HeadlessFontCatalogue::InstalledFace(std::u16string_view name) const {
  for (const std::u16string& face : faces_) {
    if (MemberNameEquals(face, name)) return face;
  }
  return std::nullopt;
}

FontDescription HeadlessFontCatalogue::DefaultFont() const {
  FontDescription font;
  font.name = u"MS Sans Serif";
  font.size_e4 = 82500;
  return font;
}

int32_t HeadlessFontCatalogue::LineHeight(const FontDescription& font) {
  return AtLeastOnePixel(font.Size() * 1.6);
}

int32_t HeadlessFontCatalogue::CharacterWidth(const FontDescription& font) {
  return AtLeastOnePixel(font.Size() * 0.75) + (font.Bold() ? 1 : 0);
}

TextExtent HeadlessFontCatalogue::MeasureText(const FontDescription& font, std::u16string_view text,
                                              int32_t wrap_width) const {
  const int64_t char_width = CharacterWidth(font);
  int64_t widest = 0;
  int64_t line_count = 0;
  for (std::u16string_view line : SplitLines(text)) {
    if (wrap_width > 0) {
      for (int64_t width : WrapLine(line, char_width, wrap_width)) {
        widest = std::max(widest, width);
        ++line_count;
      }
    } else {
      widest = std::max(widest, static_cast<int64_t>(line.size()) * char_width);
      ++line_count;
    }
  }
  const int64_t height = line_count * LineHeight(font);
  return {static_cast<int32_t>(std::min<int64_t>(widest, INT32_MAX)),
          static_cast<int32_t>(std::min<int64_t>(height, INT32_MAX))};
}

}  // namespace zk
