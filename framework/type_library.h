#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "enumerations/enumerations.h"

namespace zk {

// The public class that carries the library's enumerations. Hosts can name it, but it has no
// members and cannot be created.
class ZKCBaseCtrlsTypeLib final {
 public:
  ZKCBaseCtrlsTypeLib() = delete;
};

struct EnumeratorInfo {
  std::u16string_view name;
  int32_t value;
};

struct EnumerationInfo {
  std::u16string_view name;
  std::span<const EnumeratorInfo> enumerators;
};

// The fifteen published enumerations in the type library's order, so that scripts and tools
// can use the names as a host's code does.
std::span<const EnumerationInfo> PublishedEnumerations();

// The value of a published enumerator by its exact name ("zktTextAlignCenter").
std::optional<int32_t> FindEnumerator(std::u16string_view name);

}  // namespace zk
