#include "platform/headless/headless_control_site.h"

#include <utility>

#include "platform/headless/headless_platform.h"

namespace zk {

HeadlessControlSite::HeadlessControlSite(HeadlessPlatform& platform, FormAmbient& ambient,
                                         WindowHandle form_window, std::u16string name)
    : platform_(platform),
      ambient_(ambient),
      extender_(std::move(name)),
      surface_(platform, extender_, form_window) {}

void HeadlessControlSite::PropertyChanged(std::u16string_view property) {
  PlatformRecorder& recorder = platform_.Recorder();
  if (recorder.keep_property_changes) {
    recorder.property_changes.push_back({extender_.Name(), std::u16string(property)});
  }
}

}  // namespace zk
