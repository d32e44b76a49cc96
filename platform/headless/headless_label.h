#pragma once

#include <string>

#include "platform/common/label_state.h"
#include "platform/elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

class IFontCatalogue;
class IScreen;

// A label element measured with the font catalogue's text measurement; sizes in twips are the
// measured pixels times the screen's twips per pixel.
class HeadlessLabel : public LabelState<HeadlessElement<ILabelElement>> {
 public:
  HeadlessLabel(const IFontCatalogue& fonts, const IScreen& screen, FontDescription font);

  int RefreshCount() const { return refresh_count_; }
  void Refresh() override { ++refresh_count_; }

 protected:
  TextExtent Measure(const FontDescription& font, std::u16string_view text,
                     int32_t wrap_width) const override;
  double TwipsPerPixelX() const override;
  double TwipsPerPixelY() const override;

 private:
  const IFontCatalogue& fonts_;
  const IScreen& screen_;
  int refresh_count_ = 0;
};

}  // namespace zk
