#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "foundation/variant.h"
#include "framework/variant_conversion.h"

namespace zk {

class ZKControl;

// The standard dispatch identifiers that hosts treat as the standard properties of those names.
namespace dispatch_id {
inline constexpr int32_t kAutoSize = -500;
inline constexpr int32_t kFont = -512;
inline constexpr int32_t kEnabled = -514;
inline constexpr int32_t kText = -517;
inline constexpr int32_t kCaption = -518;
// The library's own identifiers are numbered from here in interface order.
inline constexpr int32_t kFirstOwn = 0x68030000;
}  // namespace dispatch_id

enum class MemberKind { kProperty, kMethod };

// One member of a control's automation interface.
struct MemberInfo {
  std::u16string_view name;
  MemberKind kind = MemberKind::kProperty;
  // 0: take the next of the library's own identifiers.
  int32_t dispid = 0;
  // Properties: a missing getter makes the property write-only, a missing setter read-only.
  std::function<Variant(ZKControl&, std::span<const Variant> index)> get;
  std::function<void(ZKControl&, const Variant& value, std::span<const Variant> index)> set;
  // Methods: the arguments are passed by reference.
  std::function<Variant(ZKControl&, std::span<Variant> args)> call;
};

struct EventInfo {
  std::u16string_view name;
  int32_t dispid;
};

// A control's members and events by name. Names compare without regard to ASCII case;
// events are numbered from 1 in their order.
class AutomationTable {
 public:
  AutomationTable(std::vector<MemberInfo> members, std::vector<std::u16string_view> events);

  const MemberInfo* Find(std::u16string_view name) const;
  const MemberInfo* FindById(int32_t dispid) const;
  std::span<const MemberInfo> Members() const { return members_; }
  std::span<const EventInfo> Events() const { return events_; }

 private:
  std::vector<MemberInfo> members_;
  std::vector<EventInfo> events_;
};

namespace automation {

// A property read and written through a control's typed getter and setter.
template <typename C, typename G, typename S>
MemberInfo Property(std::u16string_view name, G (C::*get)() const, void (C::*set)(S),
                    int32_t dispid = 0) {
  MemberInfo info;
  info.name = name;
  info.dispid = dispid;
  info.get = [get](ZKControl& control, std::span<const Variant>) {
    return variant_conversion::ToVariant((static_cast<C&>(control).*get)());
  };
  info.set = [set](ZKControl& control, const Variant& value, std::span<const Variant>) {
    (static_cast<C&>(control).*set)(variant_conversion::FromVariant<std::remove_cvref_t<S>>(value));
  };
  return info;
}

template <typename C, typename G>
MemberInfo ReadOnlyProperty(std::u16string_view name, G (C::*get)() const, int32_t dispid = 0) {
  MemberInfo info;
  info.name = name;
  info.dispid = dispid;
  info.get = [get](ZKControl& control, std::span<const Variant>) {
    return variant_conversion::ToVariant((static_cast<C&>(control).*get)());
  };
  return info;
}

// A method with its own argument handling.
inline MemberInfo Method(std::u16string_view name,
                         std::function<Variant(ZKControl&, std::span<Variant>)> call,
                         int32_t dispid = 0) {
  MemberInfo info;
  info.name = name;
  info.kind = MemberKind::kMethod;
  info.dispid = dispid;
  info.call = std::move(call);
  return info;
}

// The argument at `index`, or an empty variant when the caller left it out.
inline const Variant& OptionalArgument(std::span<Variant> args, size_t index) {
  static const Variant kMissing;
  return index < args.size() ? args[index] : kMissing;
}

// The argument at `index`; a missing one is the platform's argument-not-optional error (449).
Variant& RequiredArgument(std::span<Variant> args, size_t index);

}  // namespace automation
}  // namespace zk
