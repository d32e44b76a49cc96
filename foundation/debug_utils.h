#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// The library's diagnostic trace. It never raises and never shows anything to a user.
namespace zk::MDebugUtils {

struct TraceRecord {
  std::u16string source;
  std::u16string procedure;
  int32_t number = 0;
  std::u16string description;

  bool operator==(const TraceRecord&) const = default;
};

// The error being handled: the exception of the innermost active catch block. A ZKError gives
// its own number and description; std::bad_alloc 7 "Out of memory"; another exception 51 with
// its message; no exception 0 and the empty text.
struct PendingError {
  int32_t number = 0;
  std::u16string description;
};
PendingError CurrentPendingError() noexcept;

// Emits one diagnostic line. A missing number or description is taken from the pending error,
// so a catch block can simply call TraceError(source, procedure).
void TraceError(std::u16string_view source, std::u16string_view procedure,
                std::optional<int32_t> number = std::nullopt,
                std::optional<std::u16string_view> description = std::nullopt) noexcept;

// Where trace lines go. The default sink appends them to the file named by the environment
// variable ZK_TRACE_LOG and drops them when it is not set. Returns the previous sink; an empty
// function restores the default.
using TraceSink = std::function<void(const TraceRecord&)>;
TraceSink SetTraceSink(TraceSink sink);

// "source | procedure | number | description", the form of a trace line in logs and scripts.
std::u16string FormatTraceLine(const TraceRecord& record);

}  // namespace zk::MDebugUtils
