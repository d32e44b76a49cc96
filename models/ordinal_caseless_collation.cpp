#include "models/ordinal_caseless_collation.h"

#include <algorithm>
#include <cstddef>

namespace zk {
namespace {

constexpr char16_t Folded(char16_t unit) noexcept {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

}  // namespace

int OrdinalCaselessCollation::Compare(std::u16string_view a, std::u16string_view b) const {
  const size_t common = std::min(a.size(), b.size());
  for (size_t i = 0; i < common; ++i) {
    const char16_t left = Folded(a[i]);
    const char16_t right = Folded(b[i]);
    if (left != right) return left < right ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace zk
