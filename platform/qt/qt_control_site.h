#pragma once

#include <QWidget>
#include <string>

#include "platform/form_ambient.h"
#include "platform/form_extender.h"
#include "platform/host.h"
#include "platform/qt/qt_surface.h"

namespace zk {

class QtPlatform;

// The place of one control on a Qt form: its extender and surface (owned here), the form's
// ambient properties and the property-changed notification, kept in the platform's recorder.
class QtControlSite final : public IControlSite {
 public:
  QtControlSite(QtPlatform& platform, FormAmbient& ambient, QWidget* form, std::u16string name,
                bool can_focus);

  FormExtender& Extender() override { return extender_; }
  FormAmbient& Ambient() override { return ambient_; }
  QtSurface& Surface() override { return surface_; }
  void PropertyChanged(std::u16string_view property) override;

 private:
  QtPlatform& platform_;
  FormAmbient& ambient_;
  FormExtender extender_;
  QtSurface surface_;
};

}  // namespace zk
