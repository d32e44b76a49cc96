#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "enumerations/enumerations.h"
#include "framework/control.h"
#include "framework/element_mouse_relay.h"
#include "platform/elements.h"

namespace zk {

// A value between two limits shown as a bar that grows in one of four directions, drawn into
// the surface's persistent drawing, with a caption that shows the value (a number or a
// percentage) or a text of the host's choosing, anchored at the centre, at either end of the
// scale, or just past or just before the bar's end.
//
// The bar and the caption are measured in the inner area (inside the border, when there is
// one), so that neither runs under the border; without a border that is the whole size.
class ZKProgessBar final : public ZKControl {
 public:
  explicit ZKProgessBar(IControlSite& site);
  ~ZKProgessBar() override;

  std::u16string_view Kind() const override { return u"ZKProgessBar"; }
  const PropertyTable& Properties() const override;

  OLE_COLOR BackColor() const;
  void SetBackColor(OLE_COLOR New_BackColor);
  // The caption's text colour.
  OLE_COLOR ForeColor() const;
  void SetForeColor(OLE_COLOR New_ForeColor);
  // zktBSNone or zktBSSolid (a one-pixel line); other values are ignored.
  zktCmdBorderStyle BorderStyle() const;
  void SetBorderStyle(zktCmdBorderStyle New_BorderStyle);
  // The caption's text. A text written here shows until the next redraw while ShowProgress is
  // on; with ShowProgress off it stays.
  std::u16string Caption() const;
  void SetCaption(std::u16string New_Caption);
  // Refused, without error, outside ScaleMin to ScaleMax.
  int32_t Progress() const { return progress_; }
  void SetProgress(int32_t New_Progress);
  // The limits never move Progress, even when it falls outside the new scale (the bar then runs
  // beyond an edge and is cut there). A write raises ZKError 6 (overflow), with the value
  // stored, when ScaleMax - ScaleMin does not fit in 32 bits. A ScaleMin write does not redraw.
  int32_t ScaleMax() const { return scale_max_; }
  void SetScaleMax(int32_t New_ScaleMax);
  int32_t ScaleMin() const { return scale_min_; }
  void SetScaleMin(int32_t New_ScaleMin);
  // zktPBLeftToRight to zktPBTopToBottom; other values are ignored.
  zktPBDirection Direction() const { return direction_; }
  void SetDirection(zktPBDirection New_Direction);
  // The caption shows Progress as a whole percentage of the scale ("37%") instead of its value.
  bool Percentage() const { return percentage_; }
  void SetPercentage(bool New_Percentage);
  // Whether every redraw writes the value into the caption.
  bool ShowProgress() const { return show_progress_; }
  void SetShowProgress(bool New_ShowProgress);
  OLE_COLOR BarColor() const { return bar_color_; }
  void SetBarColor(OLE_COLOR New_BarColor);
  // The background picture, below the bar; not archived.
  PictureRef Picture() const;
  void SetPicture(PictureRef New_Picture);
  // zktPAnchorCenter to zktPAnchorBelowLevel; other values are ignored. A write places the
  // caption again without redrawing the bar.
  zktProgressBarAnchor CaptionAnchor() const { return caption_anchor_; }
  void SetCaptionAnchor(zktProgressBarAnchor New_CaptionAnchor);

  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};

  // The caption element, for hosts and tests that look at the layout.
  const ILabelElement& CaptionElement() const { return *lbl_progress_; }

 protected:
  void OnFontChanged() override;
  void OnEnabledChanged(bool enabled) override;
  // The resize handler: the control grows to fit its caption, then the bar is drawn.
  void Layout() override;
  // The bar is drawn again, then the caption is updated. Raises ZKError 6 when the scale's
  // range does not fit in 32 bits.
  void Redraw() override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  void ConnectInput();
  // Range = ScaleMax - ScaleMin, or 1 for equal limits; ZKError 6 when it does not fit in 32
  // bits (the last range stays).
  void RecomputeRange();
  // Where Progress lies on the scale: 0 at ScaleMin, 1 at ScaleMax.
  double Fraction() const;
  // Clears the persistent drawing and fills the bar with the current range.
  void PaintBar();
  // Writes the value into the caption (unless its text is kept) and places it; a failure is
  // traced and leaves the caption where it is.
  void UpdateCaption();
  void PlaceCaption();
  // Redraws as the resize handler and a loaded control do: a failure is traced with
  // `procedure`, never raised.
  void DrawBarTraced(std::u16string_view procedure);

  std::unique_ptr<ILabelElement> lbl_progress_;
  ElementMouseRelay caption_mouse_;
  int32_t progress_ = 0;
  int32_t scale_min_ = 0;
  int32_t scale_max_ = 100;
  // A new control has range 1 until it is first drawn.
  int32_t range_ = 1;
  zktPBDirection direction_ = zktPBLeftToRight;
  bool percentage_ = false;
  bool show_progress_ = true;
  OLE_COLOR bar_color_ = 0xFF0000;
  zktProgressBarAnchor caption_anchor_ = zktPAnchorCenter;
  // Set while the control redraws after a Caption write (or re-fits itself to a new border):
  // the caption keeps its text.
  bool keep_caption_text_ = false;
  bool laying_out_ = false;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
