#include "platform/qt/qt_control_site.h"

#include <utility>

#include "platform/qt/qt_platform.h"

namespace zk {

QtControlSite::QtControlSite(QtPlatform& platform, FormAmbient& ambient, QWidget* form,
                             std::u16string name, bool can_focus)
    : platform_(platform),
      ambient_(ambient),
      extender_(std::move(name)),
      surface_(platform, extender_, form, can_focus) {}

void QtControlSite::PropertyChanged(std::u16string_view property) {
  PlatformRecorder& recorder = platform_.Recorder();
  if (recorder.keep_property_changes) {
    recorder.property_changes.push_back({extender_.Name(), std::u16string(property)});
  }
}

}  // namespace zk
