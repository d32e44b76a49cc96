#pragma once

#include <string>

#include "platform/headless/headless_ambient.h"
#include "platform/headless/headless_extender.h"
#include "platform/headless/headless_surface.h"
#include "platform/host.h"

namespace zk {

class HeadlessPlatform;

// The place of one control on a headless form: its extender and surface (owned here), the
// form's ambient properties and the property-changed notification, which the platform's
// recorder keeps with the control's name.
class HeadlessControlSite final : public IControlSite {
 public:
  HeadlessControlSite(HeadlessPlatform& platform, HeadlessAmbient& ambient,
                      WindowHandle form_window, std::u16string name);

  HeadlessExtender& Extender() override { return extender_; }
  HeadlessAmbient& Ambient() override { return ambient_; }
  HeadlessSurface& Surface() override { return surface_; }
  void PropertyChanged(std::u16string_view property) override;

 private:
  HeadlessPlatform& platform_;
  HeadlessAmbient& ambient_;
  HeadlessExtender extender_;
  HeadlessSurface surface_;
};

}  // namespace zk
