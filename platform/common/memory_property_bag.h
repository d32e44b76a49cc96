#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/host.h"

namespace zk {

// A property bag in memory. Keys compare without regard to ASCII case and keep the order in
// which they were first written. Fonts are stored and handed out as clones, so neither the
// writer nor a reader shares its font object with the bag.
class MemoryPropertyBag final : public IPropertyBag {
 public:
  Variant ReadProperty(std::u16string_view key, const Variant& default_value) override;
  void WriteProperty(std::u16string_view key, const Variant& value,
                     const Variant& default_value) override;

  // Stores the value whatever it is (a file being read has no defaults).
  void Store(std::u16string_view key, const Variant& value);

  const std::vector<std::pair<std::u16string, Variant>>& Entries() const { return entries_; }
  bool Contains(std::u16string_view key) const;
  void Clear() { entries_.clear(); }

  // Equality by the bag's rule: numbers (and booleans) by value, texts exactly, fonts by their
  // values, other objects by identity.
  static bool SameValue(const Variant& a, const Variant& b);

 private:
  std::vector<std::pair<std::u16string, Variant>> entries_;
};

}  // namespace zk
