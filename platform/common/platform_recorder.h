#pragma once

#include <string>
#include <vector>

#include "foundation/debug_utils.h"

namespace zk {

// One property-changed notification: the control's name and the property's name.
struct PropertyChangeRecord {
  std::u16string control;
  std::u16string property;
  bool operator==(const PropertyChangeRecord&) const = default;
};

// What a platform saw happen (trace lines, property-changed notifications, beeps), for tests
// and the script host to assert.
struct PlatformRecorder {
  std::vector<MDebugUtils::TraceRecord> traces;
  std::vector<PropertyChangeRecord> property_changes;
  int beeps = 0;
  // Whether property-changed notifications are kept: tests and scripts read them, a running
  // program has no use for them and would only pile them up.
  bool keep_property_changes = true;

  void Clear() {
    traces.clear();
    property_changes.clear();
    beeps = 0;
  }
};

}  // namespace zk
