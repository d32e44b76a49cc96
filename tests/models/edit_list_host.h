#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/debug_utils.h"
#include "models/edit_list_model.h"

namespace zk::edit_list_test {

// The control's side of the model, reduced to what it records: Change events, the properties
// marked as changed, and the trace lines of the whole process while it lives.
class RecordingHost final : public IEditListModelHost {
 public:
  struct ChangeEvent {
    int32_t index;
    int32_t column;
    bool operator==(const ChangeEvent&) const = default;
  };

  RecordingHost() {
    previous_sink_ = MDebugUtils::SetTraceSink(
        [this](const MDebugUtils::TraceRecord& record) { traces.push_back(record); });
  }
  ~RecordingHost() override { MDebugUtils::SetTraceSink(std::move(previous_sink_)); }
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  std::u16string Name() const override { return u"EditList1"; }
  void Change(int32_t& Index, int32_t& COLUMN) override { changes.push_back({Index, COLUMN}); }
  void PropertyChanged(std::u16string_view property) override { changed.emplace_back(property); }

  void Forget() {
    changes.clear();
    changed.clear();
    traces.clear();
  }

  std::vector<ChangeEvent> changes;
  std::vector<std::u16string> changed;
  std::vector<MDebugUtils::TraceRecord> traces;

 private:
  MDebugUtils::TraceSink previous_sink_;
};

// The rows of a model, column by column, for comparisons in one assertion.
inline std::vector<std::u16string> ItemsOf(const CEditListModel& model) {
  std::vector<std::u16string> items;
  model.Rows().ForEachRow(
      [&](std::u16string_view item, std::u16string_view) { items.emplace_back(item); });
  return items;
}

inline std::vector<std::u16string> TagsOf(const CEditListModel& model) {
  std::vector<std::u16string> tags;
  model.Rows().ForEachRow(
      [&](std::u16string_view, std::u16string_view tag) { tags.emplace_back(tag); });
  return tags;
}

// UTF-16 to ASCII-ish text for failure messages.
inline std::string Narrow(std::u16string_view text) {
  std::string out;
  for (char16_t unit : text)
    out += unit < 0x80 ? static_cast<char>(unit) : '?';
  return out;
}

inline std::string Narrow(const std::vector<std::u16string>& texts) {
  std::string out = "[";
  for (size_t i = 0; i < texts.size(); ++i)
    out += (i > 0 ? ", \"" : "\"") + Narrow(texts[i]) + "\"";
  return out + "]";
}

}  // namespace zk::edit_list_test
