#pragma once

#include "platform/common/element_state.h"

namespace zk {

// An element of the headless platform: the shared state alone, since nothing is drawn.
template <typename Base>
class HeadlessElement : public ElementState<Base> {};

}  // namespace zk
