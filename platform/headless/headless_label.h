#pragma once

#include <string>

#include "platform/elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

class IFontCatalogue;
class IScreen;

// A label element measured with the font catalogue's text measurement; sizes in twips are the
// measured pixels times the screen's twips per pixel.
class HeadlessLabel : public HeadlessElement<ILabelElement> {
 public:
  HeadlessLabel(const IFontCatalogue& fonts, const IScreen& screen, FontDescription font);

  void Move(double left, double top, double width, double height) override;

  std::u16string Caption() const override { return caption_; }
  void SetCaption(std::u16string_view caption) override;
  int16_t Alignment() const override { return alignment_; }
  void SetAlignment(int16_t alignment) override { alignment_ = alignment; }
  OLE_COLOR ForeColor() const override { return fore_color_; }
  void SetForeColor(OLE_COLOR color) override { fore_color_ = color; }
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override { back_color_ = color; }
  int16_t BackStyle() const override { return back_style_; }
  void SetBackStyle(int16_t style) override { back_style_ = style; }
  FontDescription Font() const override { return font_; }
  void SetFont(const FontDescription& font) override;
  bool WordWrap() const override { return word_wrap_; }
  void SetWordWrap(bool word_wrap) override;
  bool UseMnemonic() const override { return use_mnemonic_; }
  void SetUseMnemonic(bool use_mnemonic) override;
  bool AutoSize() const override { return auto_size_; }
  void SetAutoSize(bool auto_size) override;

  // The text as shown: without the access-key marks when UseMnemonic is on.
  std::u16string DisplayText() const;
  int RefreshCount() const { return refresh_count_; }
  void Refresh() override { ++refresh_count_; }

 private:
  void FitToText();

  const IFontCatalogue& fonts_;
  const IScreen& screen_;
  std::u16string caption_;
  int16_t alignment_ = 0;
  OLE_COLOR fore_color_ = 0x80000012;
  OLE_COLOR back_color_ = 0x8000000F;
  int16_t back_style_ = 1;
  FontDescription font_;
  bool word_wrap_ = false;
  bool use_mnemonic_ = true;
  bool auto_size_ = false;
  int refresh_count_ = 0;
};

}  // namespace zk
