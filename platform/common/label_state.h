#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/common/mnemonic.h"
#include "platform/elements.h"
#include "platform/font_catalogue.h"

namespace zk {

// What a label element is on every platform, over the platform's element base `Base` (an
// ElementState of ILabelElement): its caption, alignment, colours, font, word wrap, access-key
// rule and automatic size. With AutoSize on, the size fits the text when it is next read: a
// label's setters run one after another while a control is set up, and only the last text
// counts. A platform adds only how the text is measured and drawn.
template <typename Base>
class LabelState : public Base {
 public:
  template <typename... BaseArgs>
  explicit LabelState(FontDescription font, BaseArgs&&... base_args)
      : Base(std::forward<BaseArgs>(base_args)...), font_(std::move(font)) {}

  double Width() const override {
    EnsureFitted();
    return Base::Width();
  }
  double Height() const override {
    EnsureFitted();
    return Base::Height();
  }
  void Move(double left, double top, double width, double height) override {
    // A wrapping label fits its height to the width it is given.
    if (word_wrap_ && width != Base::Width()) fitted_ = false;
    Base::Move(left, top, width, height);
    RefitLater();
  }

  std::u16string Caption() const override { return caption_; }
  void SetCaption(std::u16string_view caption) override {
    // Layouts write the same caption again to refresh the label; its last fit still holds.
    if (caption != caption_) {
      caption_ = caption;
      ShownTextChanged();
    }
    RefitLater();
    this->Changed();
  }
  int16_t Alignment() const override { return alignment_; }
  void SetAlignment(int16_t alignment) override {
    alignment_ = alignment;
    this->Changed();
  }
  OLE_COLOR ForeColor() const override { return fore_color_; }
  void SetForeColor(OLE_COLOR color) override {
    fore_color_ = color;
    this->Changed();
  }
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override {
    back_color_ = color;
    this->Changed();
  }
  int16_t BackStyle() const override { return back_style_; }
  void SetBackStyle(int16_t style) override {
    back_style_ = style;
    this->Changed();
  }
  FontDescription Font() const override { return font_; }
  // The font without a copy, for painting.
  const FontDescription& ShownFont() const { return font_; }
  void SetFont(const FontDescription& font) override {
    if (!(font == font_)) {
      font_ = font;
      ++font_version_;
      fitted_ = false;
    }
    RefitLater();
    this->Changed();
  }
  bool WordWrap() const override { return word_wrap_; }
  void SetWordWrap(bool word_wrap) override {
    word_wrap_ = word_wrap;
    fitted_ = false;
    RefitLater();
    this->Changed();
  }
  bool UseMnemonic() const override { return use_mnemonic_; }
  void SetUseMnemonic(bool use_mnemonic) override {
    if (use_mnemonic != use_mnemonic_) {
      use_mnemonic_ = use_mnemonic;
      ShownTextChanged();
    }
    RefitLater();
    this->Changed();
  }
  bool AutoSize() const override { return auto_size_; }
  void SetAutoSize(bool auto_size) override {
    auto_size_ = auto_size;
    RefitLater();
    this->Changed();
  }

  // The text as shown: without the access-key marks when UseMnemonic is on.
  std::u16string DisplayText() const { return use_mnemonic_ ? StripMnemonics(caption_) : caption_; }

 protected:
  // The platform's measurement of `text` in pixels; `wrap_width` 0 for one line.
  virtual TextExtent Measure(const FontDescription& font, std::u16string_view text,
                             int32_t wrap_width) const = 0;
  virtual double TwipsPerPixelX() const = 0;
  virtual double TwipsPerPixelY() const = 0;
  // The shown text changed (a platform that keeps a drawn copy drops it).
  virtual void OnShownTextChanged() {}

 private:
  void RefitLater() { size_stale_ = auto_size_; }
  void EnsureFitted() const {
    // The label itself is never const; only the size read is.
    if (size_stale_) const_cast<LabelState*>(this)->FitToText();
  }
  void ShownTextChanged() {
    ++text_version_;
    fitted_ = false;
    OnShownTextChanged();
  }
  void FitToText() {
    size_stale_ = false;
    if (fitted_) {
      // Nothing that decides the size changed: the size of the last fit stands.
      this->SetSize(word_wrap_ ? Base::Width() : fitted_width_, fitted_height_);
      return;
    }
    const double tpp_x = TwipsPerPixelX();
    const double tpp_y = TwipsPerPixelY();
    // A wrapping label keeps its width; at least one pixel, so that words still stack.
    const int32_t wrap_width =
        word_wrap_ ? std::max<int32_t>(1, static_cast<int32_t>(std::lround(Base::Width() / tpp_x)))
                   : 0;
    if (measured_.wrap_width != wrap_width || measured_.text_version != text_version_ ||
        measured_.font_version != font_version_) {
      measured_.extent = Measure(font_, DisplayText(), wrap_width);
      measured_.text_version = text_version_;
      measured_.font_version = font_version_;
      measured_.wrap_width = wrap_width;
    }
    const TextExtent extent = measured_.extent;
    this->SetSize(word_wrap_ ? Base::Width() : extent.width * tpp_x, extent.height * tpp_y);
    fitted_width_ = Base::Width();
    fitted_height_ = Base::Height();
    fitted_ = true;
  }

  std::u16string caption_;
  int16_t alignment_ = 0;
  OLE_COLOR fore_color_ = 0x80000012;
  OLE_COLOR back_color_ = 0x8000000F;
  int16_t back_style_ = 1;
  FontDescription font_;
  bool word_wrap_ = false;
  bool use_mnemonic_ = true;
  bool auto_size_ = false;
  // The last measurement: layouts ask for the same text again and again. The shown text and
  // the font change their version with every change, so that the last measurement is
  // recognised without keeping copies of them.
  uint32_t text_version_ = 0;
  uint32_t font_version_ = 0;
  struct Measured {
    uint32_t text_version = UINT32_MAX;
    uint32_t font_version = UINT32_MAX;
    int32_t wrap_width = -1;
    TextExtent extent;
  };
  Measured measured_;
  // False once something that decides the fitted size changed since the last fit.
  bool fitted_ = false;
  // True while the size waits for a fit that RefitLater asked for.
  bool size_stale_ = false;
  double fitted_width_ = 0;
  double fitted_height_ = 0;
};

}  // namespace zk
