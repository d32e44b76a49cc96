#include "support/test_kinds.h"

#include <memory>

#include "controls/control_kinds.h"
#include "support/test_composite.h"
#include "support/test_plain.h"

namespace zk {

void RegisterTestControlKinds() {
  RegisterControlKind(ControlKind{u"ZKTestComposite",
                                  [](IControlSite& site) -> std::shared_ptr<ZKControl> {
                                    return std::make_shared<ZKTestComposite>(site);
                                  },
                                  2880, 990, false, true, true});
  RegisterControlKind(ControlKind{u"ZKTestPlain",
                                  [](IControlSite& site) -> std::shared_ptr<ZKControl> {
                                    return std::make_shared<ZKTestPlain>(site);
                                  },
                                  600, 300, false, false, false});
}

}  // namespace zk
