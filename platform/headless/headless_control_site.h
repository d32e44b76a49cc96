#pragma once

#include <memory>
#include <string>

#include "platform/common/form_ambient.h"
#include "platform/common/form_extender.h"
#include "platform/headless/headless_surface.h"
#include "platform/host.h"

namespace zk {

class HeadlessPlatform;

// The place of one control on a headless form: its extender and surface (owned here), the
// form's ambient properties and the property-changed notification, which the platform's
// recorder keeps with the control's name. The site of a part (CreateChildSite) has its surface
// inside the owner's, an extender without the form's placement members, the owner's ambient
// properties, and drops its property-changed notifications.
class HeadlessControlSite final : public IControlSite {
 public:
  HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient, WindowHandle form_window,
                      std::u16string name);
  // The site of a part of the control whose surface is `owner`.
  HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient, HeadlessSurface& owner,
                      std::u16string name);

  FormExtender& Extender() override { return extender_; }
  FormAmbient& Ambient() override { return ambient_; }
  HeadlessSurface& Surface() override { return surface_; }
  void PropertyChanged(std::u16string_view property) override;
  std::unique_ptr<IControlSite> CreateChildSite(std::u16string_view name) override;
  bool IsPart() const { return is_part_; }

 private:
  HeadlessPlatform& platform_;
  FormAmbient& ambient_;
  bool is_part_;
  FormExtender extender_;
  HeadlessSurface surface_;
};

}  // namespace zk
