#pragma once

#include <string>

#include "platform/common/control_site_state.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

namespace zk {

// The place of one control on a headless form (see ControlSiteState).
class HeadlessControlSite final
    : public ControlSiteState<HeadlessControlSite, HeadlessPlatform, HeadlessSurface> {
 public:
  // The site of a control on a form; `container` is the surface of the container control that
  // the control lies in, or null for one on the form itself.
  HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient, WindowHandle form_window,
                      std::u16string name, HeadlessSurface* container = nullptr)
      : ControlSiteState(platform, ambient, false, std::move(name), form_window, container) {}
  // The site of a part of the control whose surface is `owner`.
  HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient, HeadlessSurface& owner,
                      std::u16string name)
      : ControlSiteState(platform, ambient, true, std::move(name), owner) {}
};

}  // namespace zk
