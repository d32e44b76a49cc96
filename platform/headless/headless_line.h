#pragma once

#include "platform/common/drawn_elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

// A line element of the headless platform: its ends, colour, width and style.
class HeadlessLine : public LineElement<HeadlessElement<ILineElement>> {
 public:
  void Refresh() override {}
};

}  // namespace zk
