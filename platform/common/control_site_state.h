#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/common/form_ambient.h"
#include "platform/common/form_extender.h"
#include "platform/common/platform_recorder.h"
#include "platform/host.h"

namespace zk {

// What the place of one control is on every platform: its extender and surface (owned here),
// the form's ambient properties and the property-changed notification, which the platform's
// recorder keeps with the control's name. The site of a part (CreateChildSite) has its surface
// inside the owner's, an extender without the form's placement members, the owner's ambient
// properties, and drops its property-changed notifications. `SiteT` is the platform's site class
// (made for parts), `PlatformT` and `SurfaceT` the platform's own; a surface is made from the
// platform, the extender and what the site's constructor passes on (the form's window, or the
// owner's surface for a part).
template <typename SiteT, typename PlatformT, typename SurfaceT>
class ControlSiteState : public IControlSite {
 public:
  FormExtender& Extender() override { return extender_; }
  FormAmbient& Ambient() override { return ambient_; }
  SurfaceT& Surface() override { return surface_; }
  void PropertyChanged(std::u16string_view property) override {
    // A part's changes concern only the control it belongs to; the form never hears of them.
    if (is_part_) return;
    PlatformRecorder& recorder = platform_.Recorder();
    if (recorder.keep_property_changes) {
      recorder.property_changes.push_back({extender_.Name(), std::u16string(property)});
    }
  }
  std::unique_ptr<IControlSite> CreateChildSite(std::u16string_view name) override {
    return std::make_unique<SiteT>(platform_, ambient_, surface_, std::u16string(name));
  }
  std::vector<ObjectRef> ContainedControls() override {
    return contents_ ? contents_() : std::vector<ObjectRef>{};
  }
  bool IsPart() const { return is_part_; }
  // Where a container's site finds the controls that the form placed inside it.
  void SetContainedControls(std::function<std::vector<ObjectRef>()> contents) {
    contents_ = std::move(contents);
  }

 protected:
  template <typename... SurfaceArgs>
  ControlSiteState(PlatformT& platform, FormAmbient& ambient, bool is_part, std::u16string name,
                   SurfaceArgs&&... surface_args)
      : platform_(platform),
        ambient_(ambient),
        is_part_(is_part),
        extender_(std::move(name)),
        surface_(platform, extender_, std::forward<SurfaceArgs>(surface_args)...) {
    if (is_part_) extender_.WithholdFormPlacement();
  }

 private:
  PlatformT& platform_;
  FormAmbient& ambient_;
  bool is_part_;
  FormExtender extender_;
  SurfaceT surface_;
  std::function<std::vector<ObjectRef>()> contents_;
};

}  // namespace zk
