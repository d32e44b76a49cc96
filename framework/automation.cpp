#include "framework/automation.h"

#include <utility>

#include "foundation/dispatch_object.h"
#include "foundation/zk_error.h"

namespace zk {

AutomationTable::AutomationTable(std::vector<MemberInfo> members,
                                 std::vector<std::u16string_view> events)
    : members_(std::move(members)) {
  int32_t next_own = dispatch_id::kFirstOwn;
  for (MemberInfo& member : members_) {
    if (member.dispid == 0) member.dispid = next_own++;
  }
  int32_t next_event = 1;
  for (std::u16string_view name : events)
    events_.push_back({name, next_event++});
}

const MemberInfo* AutomationTable::Find(std::u16string_view name) const {
  for (const MemberInfo& member : members_) {
    if (MemberNameEquals(member.name, name)) return &member;
  }
  return nullptr;
}

const MemberInfo* AutomationTable::FindById(int32_t dispid) const {
  for (const MemberInfo& member : members_) {
    if (member.dispid == dispid) return &member;
  }
  return nullptr;
}

namespace automation {

Variant& RequiredArgument(std::span<Variant> args, size_t index) {
  if (index >= args.size()) throw ZKError(449, u"Argument not optional");
  return args[index];
}

}  // namespace automation
}  // namespace zk
