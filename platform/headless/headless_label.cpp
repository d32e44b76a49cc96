#include "platform/headless/headless_label.h"

#include <algorithm>
#include <cmath>

#include "platform/font_catalogue.h"
#include "platform/mnemonic.h"
#include "platform/screen.h"

namespace zk {

HeadlessLabel::HeadlessLabel(const IFontCatalogue& fonts, const IScreen& screen,
                             FontDescription font)
    : fonts_(fonts), screen_(screen), font_(std::move(font)) {}

void HeadlessLabel::Move(double left, double top, double width, double height) {
  HeadlessElement::Move(left, top, width, height);
  if (auto_size_) FitToText();
}

void HeadlessLabel::SetCaption(std::u16string_view caption) {
  caption_ = caption;
  if (auto_size_) FitToText();
}

void HeadlessLabel::SetFont(const FontDescription& font) {
  font_ = font;
  if (auto_size_) FitToText();
}

void HeadlessLabel::SetWordWrap(bool word_wrap) {
  word_wrap_ = word_wrap;
  if (auto_size_) FitToText();
}

void HeadlessLabel::SetUseMnemonic(bool use_mnemonic) {
  use_mnemonic_ = use_mnemonic;
  if (auto_size_) FitToText();
}

void HeadlessLabel::SetAutoSize(bool auto_size) {
  auto_size_ = auto_size;
  if (auto_size_) FitToText();
}

std::u16string HeadlessLabel::DisplayText() const {
  return use_mnemonic_ ? StripMnemonics(caption_) : caption_;
}

void HeadlessLabel::FitToText() {
  const double tpp_x = screen_.TwipsPerPixelX();
  const double tpp_y = screen_.TwipsPerPixelY();
  // A wrapping label keeps its width; at least one pixel, so that words still stack.
  const int32_t wrap_width =
      word_wrap_ ? std::max<int32_t>(1, static_cast<int32_t>(std::lround(Width() / tpp_x))) : 0;
  const TextExtent extent = fonts_.MeasureText(font_, DisplayText(), wrap_width);
  const double width = word_wrap_ ? Width() : extent.width * tpp_x;
  HeadlessElement::Move(Left(), Top(), width, extent.height * tpp_y);
}

}  // namespace zk
