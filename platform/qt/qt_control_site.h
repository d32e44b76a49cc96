#pragma once

#include <QWidget>
#include <string>

#include "platform/common/control_site_state.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"

namespace zk {

// The place of one control on a Qt form (see ControlSiteState).
class QtControlSite final : public ControlSiteState<QtControlSite, QtPlatform, QtSurface> {
 public:
  // The site of a control on a form; `container` is the surface of the container control that
  // the control lies in, or null for one on the form itself.
  QtControlSite(QtPlatform& platform, FormAmbient& ambient, QWidget* form, std::u16string name,
                bool can_focus, QtSurface* container = nullptr)
      : ControlSiteState(platform, ambient, false, std::move(name), form, can_focus, container) {}
  // The site of a part of the control whose surface is `owner`.
  QtControlSite(QtPlatform& platform, FormAmbient& ambient, QtSurface& owner, std::u16string name)
      : ControlSiteState(platform, ambient, true, std::move(name), owner) {}
};

}  // namespace zk
