#pragma once

#include <string>
#include <utility>
#include <vector>

#include "hosting/form.h"
#include "platform/headless/headless_control_site.h"
#include "platform/headless/headless_platform.h"

namespace zk {

// A form on the headless platform: the defaults of a classic desktop form (button-face back
// colour, button-text fore colour, "MS Sans Serif" 8.25, run mode), controls in a window of the
// platform's window tree, and input delivered synchronously.
class HeadlessForm final : public Form {
 public:
  explicit HeadlessForm(HeadlessPlatform& platform);
  ~HeadlessForm() override;

  WindowHandle hWnd() const { return window_; }
  HeadlessControlSite* FindSite(std::u16string_view name);
  // The control that has the focus, or null.
  ZKControl* FocusedControl();

  void DeliverMouse(std::u16string_view name, MouseAction action, int16_t button, int16_t shift,
                    float x, float y) override;
  bool Focus(std::u16string_view name) override;
  void TypeKeys(std::u16string_view keys) override;
  void Wheel(std::u16string_view name, int32_t delta,
             std::optional<std::pair<float, float>> at = std::nullopt) override;
  void Wait(int32_t milliseconds) override;
  void DeliverPopupMouse(IPopupWindow& popup, MouseAction action, int16_t button, int16_t shift,
                         float x, float y) override;
  void TypePopupKeys(IPopupWindow& popup, std::u16string_view keys) override;
  void Activate() override;

 protected:
  std::unique_ptr<IControlSite> CreateSite(const ControlKind& kind, std::u16string_view name,
                                           IControlSite* container) override;
  void SetTwipsPerPixel(double twips_per_pixel) override;

 private:
  Placed* FocusedPlaced();
  // Moves the focus after the control that has it agreed; false when it kept the focus. The
  // focus inside the control goes to `inner` when given (see HeadlessSurface::MoveFocusHere).
  bool SetFocusTo(Placed* placed, HeadlessSurface* inner = nullptr, bool here = false);

  HeadlessPlatform& platform_;
  WindowHandle window_;
  bool swallow_release_ = false;
};

}  // namespace zk
