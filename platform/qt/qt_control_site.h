#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "platform/common/form_ambient.h"
#include "platform/common/form_extender.h"
#include "platform/host.h"
#include "platform/qt/qt_surface.h"

namespace zk {

class QtPlatform;

// The place of one control on a Qt form: its extender and surface (owned here), the form's
// ambient properties and the property-changed notification, kept in the platform's recorder.
// The site of a part (CreateChildSite) has its widget inside the owner's, an extender without
// the form's placement members, the owner's ambient properties, and drops its property-changed
// notifications.
class QtControlSite final : public IControlSite {
 public:
  QtControlSite(QtPlatform& platform, FormAmbient& ambient, QWidget* form, std::u16string name,
                bool can_focus);
  // The site of a part of the control whose surface is `owner`.
  QtControlSite(QtPlatform& platform, FormAmbient& ambient, QtSurface& owner, std::u16string name);

  FormExtender& Extender() override { return extender_; }
  FormAmbient& Ambient() override { return ambient_; }
  QtSurface& Surface() override { return surface_; }
  void PropertyChanged(std::u16string_view property) override;
  std::unique_ptr<IControlSite> CreateChildSite(std::u16string_view name) override;
  bool IsPart() const { return is_part_; }

 private:
  QtPlatform& platform_;
  FormAmbient& ambient_;
  bool is_part_;
  FormExtender extender_;
  QtSurface surface_;
};

}  // namespace zk
