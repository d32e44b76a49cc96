#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "framework/control.h"
#include "platform/elements.h"
#include "services/timer.h"

namespace zk {

// A two-state lamp: one filled shape that shows ColorOn when lit and ColorOff when not, with an
// outline shape and width, and a flashing mode that switches it on and off at an interval
// (only while the host runs the form, never while it is being designed).
class ZKLed final : public ZKControl {
 public:
  explicit ZKLed(IControlSite& site);
  ~ZKLed() override;

  std::u16string_view Kind() const override { return u"ZKLed"; }
  const PropertyTable& Properties() const override;

  bool Lit() const { return lit_; }
  // Recolours and notifies on every write; Change only when the value changes.
  void SetLit(bool New_Lit);
  // A shape code, 0 to 5; other values are ignored.
  int16_t LedShape() const;
  void SetLedShape(int16_t New_LedShape);
  OLE_COLOR ColorOn() const { return color_on_; }
  void SetColorOn(OLE_COLOR New_ColorOn);
  OLE_COLOR ColorOff() const { return color_off_; }
  void SetColorOff(OLE_COLOR New_ColorOff);
  // Outline width in pixels, 0 (no outline) to 8192; other values are ignored.
  int16_t BorderWidth() const { return border_width_; }
  void SetBorderWidth(int16_t New_BorderWidth);
  bool FlashEnabled() const { return flash_enabled_; }
  void SetFlashEnabled(bool New_FlashEnabled);
  // Milliseconds between two switches; negative values are ignored, 0 stops the flashing.
  int32_t FlashInterval() const { return flash_interval_; }
  void SetFlashInterval(int32_t New_FlashInterval);

  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> Change{EventRaised(), u"Change"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};

  // The lamp's shape element, for hosts and tests that look at what it shows.
  const IShapeElement& LampShape() const { return *shp_led_; }

 protected:
  void Layout() override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  void ApplyOutline();
  void ApplyFlashing();

  std::unique_ptr<IShapeElement> shp_led_;
  bool lit_ = false;
  OLE_COLOR color_on_ = 65280;
  OLE_COLOR color_off_ = 16777215;
  bool flash_enabled_ = false;
  int32_t flash_interval_ = 500;
  int16_t border_width_ = 1;
  bool terminating_ = false;
  ZKCTimer timer_;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
