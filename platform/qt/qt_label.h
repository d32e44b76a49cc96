#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/elements.h"
#include "platform/qt/qt_painted_element.h"

namespace zk {

// A label element on the Qt platform: a windowless element that the control's surface paints
// (the caption, with the access key underlined when UseMnemonic is on), sized to its text by the
// font catalogue's measurement. While disabled it leaves the mouse to the control.
class QtLabel final : public QtPaintedBase<ILabelElement> {
 public:
  QtLabel(QtSurface& surface, FontDescription font);

  // With AutoSize on, the size is fitted to the text when it is next read: a label's setters
  // run one after another while a control is set up, and only the last text counts.
  double Width() const override;
  double Height() const override;
  void Move(double left, double top, double width, double height) override;

  std::u16string Caption() const override { return caption_; }
  void SetCaption(std::u16string_view caption) override;
  int16_t Alignment() const override { return alignment_; }
  void SetAlignment(int16_t alignment) override;
  OLE_COLOR ForeColor() const override { return fore_color_; }
  void SetForeColor(OLE_COLOR color) override;
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override;
  int16_t BackStyle() const override { return back_style_; }
  void SetBackStyle(int16_t style) override;
  FontDescription Font() const override { return font_; }
  void SetFont(const FontDescription& font) override;
  bool WordWrap() const override { return word_wrap_; }
  void SetWordWrap(bool word_wrap) override;
  bool UseMnemonic() const override { return use_mnemonic_; }
  void SetUseMnemonic(bool use_mnemonic) override;
  bool AutoSize() const override { return auto_size_; }
  void SetAutoSize(bool auto_size) override;

  void Paint(QPainter& painter, const QRectF& area) const override;

 private:
  // Asks for a new fit when AutoSize is on (the next read of the size makes it).
  void RefitLater() { size_stale_ = auto_size_; }
  void EnsureFitted() const;
  void FitToText();
  // The caption or the mnemonic rule changed what is shown.
  void TextChanged();

  std::u16string caption_;
  int16_t alignment_ = 0;
  OLE_COLOR fore_color_ = 0x80000012;
  OLE_COLOR back_color_ = 0x8000000F;
  int16_t back_style_ = 1;
  FontDescription font_;
  bool word_wrap_ = false;
  bool use_mnemonic_ = true;
  bool auto_size_ = false;
  // The last measurement: layouts ask for the same text again and again.
  // The shown text and the font change their version with every change, so that the last
  // measurement is recognised without keeping copies of them.
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
  // The caption as Qt draws it, made at the first paint after it changed.
  mutable std::optional<QString> painted_text_;
  double fitted_width_ = 0;
  double fitted_height_ = 0;
};

}  // namespace zk
