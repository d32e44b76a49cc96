#include "foundation/dispatch_object.h"

#include "foundation/zk_error.h"

namespace zk {

Variant DispatchObject::GetProperty(std::u16string_view /*name*/,
                                    std::span<const Variant> /*index*/) {
  throw ZKError::MemberNotFound();
}

void DispatchObject::SetProperty(std::u16string_view /*name*/, const Variant& /*value*/,
                                 std::span<const Variant> /*index*/) {
  throw ZKError::MemberNotFound();
}

Variant DispatchObject::CallMethod(std::u16string_view /*name*/, std::span<Variant> /*args*/) {
  throw ZKError::MemberNotFound();
}

bool MemberNameEquals(std::u16string_view a, std::u16string_view b) noexcept {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char16_t x = a[i];
    char16_t y = b[i];
    if (x >= u'A' && x <= u'Z') x = static_cast<char16_t>(x + 32);
    if (y >= u'A' && y <= u'Z') y = static_cast<char16_t>(y + 32);
    if (x != y) return false;
  }
  return true;
}

}  // namespace zk
