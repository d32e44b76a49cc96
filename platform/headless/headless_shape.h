#pragma once

#include "platform/common/drawn_elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

// A shape element of the headless platform: it keeps what it would draw.
class HeadlessShape : public ShapeElement<HeadlessElement<IShapeElement>> {
 public:
  void Refresh() override {}
};

}  // namespace zk
