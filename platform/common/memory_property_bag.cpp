#include "platform/common/memory_property_bag.h"

#include <algorithm>

#include "platform/std_font.h"

namespace zk {
namespace {

// A font value is copied on its way in and out of the bag.
Variant Detached(const Variant& value) {
  if (value.IsObject()) {
    if (auto font = std::dynamic_pointer_cast<StdFont>(value.ToObject())) {
      return Variant(font->Clone());
    }
  }
  return value;
}

}  // namespace

bool MemoryPropertyBag::SameValue(const Variant& a, const Variant& b) {
  if (a.IsNumeric() && b.IsNumeric()) return a.ToDouble() == b.ToDouble();
  if (a.IsObject() && b.IsObject()) {
    auto font_a = std::dynamic_pointer_cast<StdFont>(a.ToObject());
    auto font_b = std::dynamic_pointer_cast<StdFont>(b.ToObject());
    if (font_a && font_b) return font_a->Description() == font_b->Description();
    return a.ToObject() == b.ToObject();
  }
  return a == b;
}

bool MemoryPropertyBag::Contains(std::u16string_view key) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [key](const auto& entry) { return MemberNameEquals(entry.first, key); });
}

Variant MemoryPropertyBag::ReadProperty(std::u16string_view key, const Variant& default_value) {
  for (const auto& [stored_key, value] : entries_) {
    if (MemberNameEquals(stored_key, key)) return Detached(value);
  }
  return default_value;
}

void MemoryPropertyBag::Store(std::u16string_view key, const Variant& value) {
  auto found = std::find_if(entries_.begin(), entries_.end(), [key](const auto& entry) {
    return MemberNameEquals(entry.first, key);
  });
  if (found != entries_.end()) {
    found->second = Detached(value);
  } else {
    entries_.emplace_back(std::u16string(key), Detached(value));
  }
}

void MemoryPropertyBag::WriteProperty(std::u16string_view key, const Variant& value,
                                      const Variant& default_value) {
  auto found = std::find_if(entries_.begin(), entries_.end(), [key](const auto& entry) {
    return MemberNameEquals(entry.first, key);
  });
  if (SameValue(value, default_value)) {
    if (found != entries_.end()) entries_.erase(found);
    return;
  }
  Store(key, value);
}

}  // namespace zk
