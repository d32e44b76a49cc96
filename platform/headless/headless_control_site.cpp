#include "platform/headless/headless_control_site.h"

#include <utility>

#include "platform/headless/headless_platform.h"

namespace zk {
HeadlessControlSite::HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient,
                                         WindowHandle form_window, std::u16string name)
    : platform_(platform),
      ambient_(ambient),
      is_part_(false),
      extender_(std::move(name)),
      surface_(platform, extender_, form_window) {}

HeadlessControlSite::HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient,
                                         HeadlessSurface& owner, std::u16string name)
    : platform_(platform),
      ambient_(ambient),
      is_part_(true),
      extender_(std::move(name)),
      surface_(platform, extender_, owner) {
  extender_.WithholdFormPlacement();
}

void HeadlessControlSite::PropertyChanged(std::u16string_view property) {
  // A part's changes concern only the control it belongs to; the form never hears of them.
  if (is_part_) return;
  PlatformRecorder& recorder = platform_.Recorder();
  if (recorder.keep_property_changes) {
    recorder.property_changes.push_back({extender_.Name(), std::u16string(property)});
  }
}

std::unique_ptr<IControlSite> HeadlessControlSite::CreateChildSite(std::u16string_view name) {
  return std::make_unique<HeadlessControlSite>(platform_, ambient_, surface_, std::u16string(name));
}

}  // namespace zk
