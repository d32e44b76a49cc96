#include "controls/control_kinds.h"

#include <array>
#include <deque>

#include "controls/buttons/color_button.h"
#include "controls/buttons/image_button.h"
#include "controls/display/frame.h"
#include "controls/display/label.h"
#include "controls/display/led.h"
#include "controls/display/progress_bar.h"
#include "controls/slider/slider.h"
#include "controls/text/multi_line_text_edit.h"
#include "controls/text/text_edit.h"
#include "foundation/dispatch_object.h"

namespace zk {
namespace {

template <typename Control>
std::shared_ptr<ZKControl> Create(IControlSite& site) {
  return std::make_shared<Control>(site);
}

const std::array kKinds = {
    ControlKind{u"ZKLabel", &Create<ZKLabel>, 1935, 375, true, false, false},
    ControlKind{u"ZKFrame", &Create<ZKFrame>, 2895, 1935, true, false, false, true},
    ControlKind{u"ZKLed", &Create<ZKLed>, 375, 375, false, false, false},
    ControlKind{u"ZKProgessBar", &Create<ZKProgessBar>, 2415, 375, false, false, false},
    ControlKind{u"ZKColorButton", &Create<ZKColorButton>, 1215, 495, true, true, true},
    ControlKind{u"ZKImgButton", &Create<ZKImgButton>, 1215, 495, true, true, true},
    ControlKind{u"ZKTextEdit", &Create<ZKTextEdit>, 1215, 315, false, true, true},
    ControlKind{u"ZKMultiLineTextEdit", &Create<ZKMultiLineTextEdit>, 1935, 975, false, true, true},
    ControlKind{u"ZKSlider", &Create<ZKSlider>, 2880, 375, false, true, true},
};

// Kinds added at run time; a deque keeps the addresses that forms hold.
std::deque<ControlKind>& RegisteredKinds() {
  static std::deque<ControlKind> kinds;
  return kinds;
}

}  // namespace

std::span<const ControlKind> ControlKinds() {
  return kKinds;
}

const ControlKind* FindControlKind(std::u16string_view name) {
  for (const ControlKind& kind : kKinds) {
    if (MemberNameEquals(kind.name, name)) return &kind;
  }
  for (const ControlKind& kind : RegisteredKinds()) {
    if (MemberNameEquals(kind.name, name)) return &kind;
  }
  return nullptr;
}

bool RegisterControlKind(const ControlKind& kind) {
  if (FindControlKind(kind.name) != nullptr || !kind.create) return false;
  RegisteredKinds().push_back(kind);
  return true;
}

}  // namespace zk
