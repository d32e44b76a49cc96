#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/common/label_state.h"
#include "platform/elements.h"
#include "platform/qt/qt_painted_element.h"

namespace zk {

// A label element on the Qt platform: a windowless element that the control's surface paints
// (the caption, with the access key underlined when UseMnemonic is on), sized to its text by the
// font catalogue's measurement. While disabled it leaves the mouse to the control.
class QtLabel final : public LabelState<QtPaintedBase<ILabelElement>> {
 public:
  QtLabel(QtSurface& surface, FontDescription font);

  void Paint(QPainter& painter, const QRectF& area) const override;

 protected:
  TextExtent Measure(const FontDescription& font, std::u16string_view text,
                     int32_t wrap_width) const override;
  double TwipsPerPixelX() const override;
  double TwipsPerPixelY() const override;
  void OnShownTextChanged() override { painted_text_.reset(); }

 private:
  // The caption as Qt draws it, made at the first paint after it changed.
  mutable std::optional<QString> painted_text_;
};

}  // namespace zk
