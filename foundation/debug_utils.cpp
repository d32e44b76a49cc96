#include "foundation/debug_utils.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"

namespace zk::MDebugUtils {
namespace {

// The debug log: only written when a developer asks for it through ZK_TRACE_LOG.
void WriteToDebugLog(const TraceRecord& record) {
  const char* path = std::getenv("ZK_TRACE_LOG");
  if (path == nullptr || *path == '\0') return;
  if (std::FILE* file = std::fopen(path, "a")) {
    const std::string line = Utf16ToUtf8(FormatTraceLine(record));
    std::fprintf(file, "%s\n", line.c_str());
    std::fclose(file);
  }
}

TraceSink& CurrentSink() {
  static TraceSink sink;
  return sink;
}

std::u16string NumberText(int32_t number) {
  const std::string digits = std::to_string(number);
  return std::u16string(digits.begin(), digits.end());
}

}  // namespace

PendingError CurrentPendingError() noexcept {
  try {
    std::exception_ptr pending = std::current_exception();
    if (!pending) return {};
    try {
      std::rethrow_exception(pending);
    } catch (const ZKError& error) {
      return {error.Number(), error.Description()};
    } catch (const std::bad_alloc&) {
      return {error_number::kOutOfMemory, u"Out of memory"};
    } catch (const std::exception& error) {
      return {error_number::kInternalError, Utf8ToUtf16(error.what())};
    } catch (...) {
      return {error_number::kInternalError, u"Internal error"};
    }
  } catch (...) {
    // Building the description itself failed (memory); report the number alone.
    return {error_number::kOutOfMemory, {}};
  }
}

void TraceError(std::u16string_view source, std::u16string_view procedure,
                std::optional<int32_t> number,
                std::optional<std::u16string_view> description) noexcept {
  try {
    TraceRecord record;
    record.source = source;
    record.procedure = procedure;
    if (!number || !description) {
      PendingError pending = CurrentPendingError();
      record.number = number ? *number : pending.number;
      record.description = description ? std::u16string(*description) : pending.description;
    } else {
      record.number = *number;
      record.description = *description;
    }
    if (const TraceSink& sink = CurrentSink()) {
      sink(record);
    } else {
      WriteToDebugLog(record);
    }
  } catch (...) {
    // The trace is the last resort for reporting; a failure here has nowhere to go.
  }
}

TraceSink SetTraceSink(TraceSink sink) {
  TraceSink previous = std::move(CurrentSink());
  CurrentSink() = std::move(sink);
  return previous;
}

std::u16string FormatTraceLine(const TraceRecord& record) {
  return record.source + u" | " + record.procedure + u" | " + NumberText(record.number) + u" | " +
         record.description;
}

}  // namespace zk::MDebugUtils
