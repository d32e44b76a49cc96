#pragma once

#include <string_view>

#include "models/text_collation.h"

namespace zk {

// The order of UTF-16 code units with the ASCII letters A to Z taken as a to z: the same on
// every machine and in every locale. An edit list that was handed no platform comparison sorts
// by it; tests use it as the plain deterministic order.
class OrdinalCaselessCollation final : public TextCollation {
 public:
  int Compare(std::u16string_view a, std::u16string_view b) const override;
};

}  // namespace zk
