#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "enumerations/enumerations.h"
#include "framework/ambient_back_color.h"
#include "framework/control.h"
#include "framework/element_mouse_relay.h"
#include "platform/elements.h"

namespace zk {

// A container control: a caption over a border rectangle, inside which the host places other
// controls. The caption sits on the border's top line, inside the border or above it; the
// control publishes where the inside of the border begins (TopBorderOffset) so that a host can
// arrange its contents below it. Enabling or disabling the frame enables or disables every
// control the host placed inside it, and with BorderDisables the border shows the inactive
// colour while the frame is disabled.
class ZKFrame final : public ZKControl {
 public:
  explicit ZKFrame(IControlSite& site);
  ~ZKFrame() override;

  std::u16string_view Kind() const override { return u"ZKFrame"; }
  const PropertyTable& Properties() const override;

  // The caption's enabled state.
  bool Enabled() const override;
  // Enables or disables the frame, its caption and every control the host placed inside it
  // (their Enabled, set by name in the host's order), then colours the border. A contained
  // object without Enabled raises error 438 there: the controls before it keep their new
  // state, the later ones and the border colour stay as they were.
  void SetEnabled(bool New_Enabled) override;

  OLE_COLOR ForeColor() const;
  void SetForeColor(OLE_COLOR New_ForeColor);
  // zktBSSolid shows the border, zktBSNone hides it; other values are ignored.
  zktCmdBorderStyle BorderStyle() const;
  void SetBorderStyle(zktCmdBorderStyle New_BorderStyle);
  // zktTextAlignLeft, zktTextAlignRight or zktTextAlignCenter; other values are ignored.
  zktTextAlignment Alignment() const;
  void SetAlignment(zktTextAlignment New_Alignment);
  // zktApFlat or zktAp3d, for the surface and the caption (each resets its back colour to the
  // appearance's own, and a frame that follows the container takes the container's again).
  zktAppearance Appearance() const;
  void SetAppearance(zktAppearance New_Appearance);
  std::u16string Caption() const;
  void SetCaption(std::u16string New_Caption);
  bool UseMnemonic() const;
  void SetUseMnemonic(bool New_UseMnemonic);
  // The surface's colour. A write switches AmbientBackColor off (unless it is the container's
  // colour being applied); the surface and the caption take the colour only while the frame is
  // flat, a 3-D frame keeps its colours.
  OLE_COLOR BackColor() const;
  void SetBackColor(OLE_COLOR New_BackColor);
  bool AmbientBackColor() const { return ambient_back_color_.Value(); }
  void SetAmbientBackColor(bool New_AmbientBackColor);
  bool WordWrap() const;
  void SetWordWrap(bool New_WordWrap);
  // Pixels between the border and the caption; negative values are ignored.
  int32_t BorderMargin() const { return border_margin_; }
  void SetBorderMargin(int32_t New_BorderMargin);
  // Where the caption sits against the border's top line: zktTextVAlignCenter on it,
  // zktTextVAlignBottom inside the border, zktTextVAlignTop above it; other values are ignored.
  zktTextVerticalAlignment VerticalAlignment() const { return vertical_alignment_; }
  void SetVerticalAlignment(zktTextVerticalAlignment New_VerticalAlignment);
  // The border's colour while it is not shown disabled.
  OLE_COLOR BorderColor() const { return border_color_; }
  void SetBorderColor(OLE_COLOR New_BorderColor);
  // Whether the border shows the inactive colour while the frame is disabled.
  bool BorderDisables() const { return border_disables_; }
  void SetBorderDisables(bool New_BorderDisables);
  // The border's width in pixels, 1 to 8192; other values are ignored.
  int16_t BorderWidth() const;
  void SetBorderWidth(int16_t New_BorderWidth);
  // Twips from the top of the frame to the inside of the border: the border's top plus its
  // width.
  float TopBorderOffset() const { return top_border_offset_; }
  // The border's shape (shape_code, 0 to 5); other values are ignored.
  int16_t BorderShape() const;
  void SetBorderShape(int16_t New_BorderShape);

  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};

  // The caption and the border, for hosts and tests that look at the layout.
  const ILabelElement& CaptionElement() const { return *lbl_label_; }
  const IShapeElement& BorderElement() const { return *shp_border_; }

 protected:
  void OnFontChanged() override;
  void OnAmbientChanged(std::u16string_view property) override;
  void Layout() override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  void ConnectInput();
  // The enabling procedure: the frame, the caption, every contained control, the border.
  void ApplyEnabled(bool enabled);
  // The appearance of the surface and of the caption: each takes the appearance's own back
  // colour (the caption the one that the surface took).
  void ApplyAppearance(zktAppearance appearance);

  // Created border first, so that the caption lies over the border's top line.
  std::unique_ptr<IShapeElement> shp_border_;
  std::unique_ptr<ILabelElement> lbl_label_;
  AmbientBackColorBinding ambient_back_color_;
  ElementMouseRelay caption_mouse_;
  bool border_disables_ = false;
  OLE_COLOR border_color_ = 0;
  int32_t border_margin_ = 5;
  zktTextVerticalAlignment vertical_alignment_ = zktTextVAlignCenter;
  float top_border_offset_ = 0;
  bool laying_out_ = false;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
