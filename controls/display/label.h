#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "enumerations/enumerations.h"
#include "framework/ambient_back_color.h"
#include "framework/control.h"
#include "framework/element_mouse_relay.h"
#include "platform/elements.h"

namespace zk {

// A caption on a surface with its own back colour, border and appearance: a margin between
// border and text, horizontal and vertical alignment, word wrap, and an automatic size in which
// the control takes the size of its text.
class ZKLabel final : public ZKControl {
 public:
  explicit ZKLabel(IControlSite& site);
  ~ZKLabel() override;

  std::u16string_view Kind() const override { return u"ZKLabel"; }
  const PropertyTable& Properties() const override;

  std::u16string Caption() const;
  void SetCaption(std::u16string New_Caption);
  // zktTextAlignLeft, zktTextAlignRight or zktTextAlignCenter; other values are ignored.
  zktTextAlignment Alignment() const;
  void SetAlignment(zktTextAlignment New_Alignment);
  zktTextVerticalAlignment VerticalAlignment() const { return vertical_alignment_; }
  void SetVerticalAlignment(zktTextVerticalAlignment New_VerticalAlignment);
  bool AutoSize() const { return auto_size_; }
  void SetAutoSize(bool New_AutoSize);
  // zktApFlat or zktAp3d; keeps the container's back colour while AmbientBackColor is on.
  zktAppearance Appearance() const;
  void SetAppearance(zktAppearance New_Appearance);
  OLE_COLOR BackColor() const;
  // An explicit colour switches AmbientBackColor off.
  void SetBackColor(OLE_COLOR New_BackColor);
  bool AmbientBackColor() const { return ambient_back_color_.Value(); }
  void SetAmbientBackColor(bool New_AmbientBackColor);
  zktCmdBorderStyle BorderStyle() const;
  void SetBorderStyle(zktCmdBorderStyle New_BorderStyle);
  // Pixels between the border and the text; negative values are ignored.
  int32_t BorderMargin() const { return border_margin_; }
  void SetBorderMargin(int32_t New_BorderMargin);
  OLE_COLOR ForeColor() const;
  void SetForeColor(OLE_COLOR New_ForeColor);
  bool UseMnemonic() const;
  void SetUseMnemonic(bool New_UseMnemonic);
  bool WordWrap() const;
  void SetWordWrap(bool New_WordWrap);

  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};

  // The inner text element, for hosts and tests that look at the layout.
  const ILabelElement& TextElement() const { return *lbl_label_; }

 protected:
  void OnFontChanged() override;
  void OnEnabledChanged(bool enabled) override;
  void OnAmbientChanged(std::u16string_view property) override;
  void Layout() override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  void ConnectInput();

  std::unique_ptr<ILabelElement> lbl_label_;
  AmbientBackColorBinding ambient_back_color_;
  ElementMouseRelay text_mouse_;
  int32_t border_margin_ = 2;
  zktTextVerticalAlignment vertical_alignment_ = zktTextVAlignCenter;
  bool auto_size_ = false;
  bool laying_out_ = false;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
