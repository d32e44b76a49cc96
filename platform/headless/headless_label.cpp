#include "platform/headless/headless_label.h"

#include "platform/font_catalogue.h"
#include "platform/screen.h"

namespace zk {

HeadlessLabel::HeadlessLabel(const IFontCatalogue& fonts, const IScreen& screen,
                             FontDescription font)
    : LabelState(std::move(font)), fonts_(fonts), screen_(screen) {}

TextExtent HeadlessLabel::Measure(const FontDescription& font, std::u16string_view text,
                                  int32_t wrap_width) const {
  return fonts_.MeasureText(font, text, wrap_width);
}

double HeadlessLabel::TwipsPerPixelX() const {
  return screen_.TwipsPerPixelX();
}

double HeadlessLabel::TwipsPerPixelY() const {
  return screen_.TwipsPerPixelY();
}

}  // namespace zk
