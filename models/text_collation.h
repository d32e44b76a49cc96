#pragma once

#include <cstdint>
#include <string_view>

namespace zk {

// The comparison that places a new row among the rows of a sorted edit list: on a real platform
// the user's locale-aware comparison that ignores letter case, handed to the model by its
// control, so that the model itself needs no platform service.
//
// The edit list searches its rows instead of scanning all of them, and gives the same position
// as a scan only because the comparison is a consistent order: Compare(a, b) is the opposite of
// Compare(b, a), and a <= b <= c implies a <= c (equal texts are allowed, such as "x" and "X").
// A locale's collation is such an order.
class TextCollation {
 public:
  virtual ~TextCollation() = default;

  // Negative, 0 or positive: `a` sorts before, together with, or after `b`.
  virtual int Compare(std::u16string_view a, std::u16string_view b) const = 0;

  // A number that changes whenever the order may have changed (the user chose another locale).
  // The list then learns the order of its rows afresh before it relies on it again.
  virtual uint64_t Generation() const { return 0; }
};

}  // namespace zk
