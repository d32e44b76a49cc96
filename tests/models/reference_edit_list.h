#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "enumerations/enumerations.h"

// The edit list's rows written the plain way, as the yardstick for the model: two vectors and
// the scan of sorted placement row by row from the top, stopping at the first row whose
// comparison with the key is the wanted one. Quadratic, and obviously so; tests only.
namespace zk::edit_list_test {

class ReferenceEditList {
 public:
  // Compare(a, b): negative, 0 or positive.
  using Compare = std::function<int(std::u16string_view, std::u16string_view)>;

  explicit ReferenceEditList(Compare compare) : compare_(std::move(compare)) {}

  void SetCompare(Compare compare) { compare_ = std::move(compare); }
  void SetSortOrder(zktSortOrder order) { sort_order_ = order; }
  void SetLayout(bool show_tags, zktELTagsPosition position) {
    show_tags_ = show_tags;
    tag_position_ = position;
  }

  // False when an Index outside the rows refuses the row.
  bool AddItem(std::u16string_view item, std::optional<int32_t> index, std::u16string_view tag) {
    const auto count = static_cast<int32_t>(items_.size());
    int32_t position = count;
    if (index) {
      if (*index < 0 || *index > count) return false;
      position = *index;
    } else if (sort_order_ != zktSortNone) {
      const int wanted = sort_order_ == zktSortAtoZ ? -1 : 1;
      const bool by_tag = !tag.empty() && show_tags_ && tag_position_ == zktTagPosLeft;
      const std::vector<std::u16string>& column = by_tag ? tags_ : items_;
      const std::u16string_view key = by_tag ? tag : item;
      for (int32_t row = 0; row < count; ++row) {
        if (Sign(compare_(key, column[static_cast<size_t>(row)])) == wanted) {
          position = row;
          break;
        }
      }
    }
    items_.insert(items_.begin() + position, std::u16string(item));
    tags_.insert(tags_.begin() + position, tag.empty() ? Decimal(position) : std::u16string(tag));
    new_index_ = position;
    if (list_index_ >= position) ++list_index_;
    if (top_index_ > position) ++top_index_;
    return true;
  }

  bool RemoveItem(int32_t index) {
    const auto count = static_cast<int32_t>(items_.size());
    if (index < 0 || index >= count) return false;
    items_.erase(items_.begin() + index);
    tags_.erase(tags_.begin() + index);
    if (list_index_ == index) list_index_ = -1;
    if (list_index_ > index) --list_index_;
    if (top_index_ > index) --top_index_;
    if (top_index_ > count - 2) top_index_ = count - 2 < 0 ? 0 : count - 2;
    new_index_ = -1;
    return true;
  }

  void Clear() {
    items_.clear();
    tags_.clear();
    list_index_ = -1;
    new_index_ = -1;
    top_index_ = 0;
  }

  // Writes a cell; -1 is the current row. Only existing rows change.
  void SetCell(int column, int32_t index, std::u16string_view text) {
    const int32_t row = index == -1 ? list_index_ : index;
    if (row < 0 || row >= static_cast<int32_t>(items_.size())) return;
    (column == 0 ? items_ : tags_)[static_cast<size_t>(row)] = std::u16string(text);
  }

  bool SetListIndex(int32_t index) {
    if (index < -1 || index >= static_cast<int32_t>(items_.size())) return false;
    list_index_ = index;
    return true;
  }

  const std::vector<std::u16string>& Items() const { return items_; }
  const std::vector<std::u16string>& Tags() const { return tags_; }
  int32_t ListIndex() const { return list_index_; }
  int32_t NewIndex() const { return new_index_; }
  int32_t TopIndex() const { return top_index_; }

  static std::u16string Decimal(int32_t value) {
    std::u16string text;
    for (char digit : std::to_string(value))
      text += static_cast<char16_t>(digit);
    return text;
  }

 private:
  static int Sign(int value) { return (value > 0) - (value < 0); }

  Compare compare_;
  std::vector<std::u16string> items_;
  std::vector<std::u16string> tags_;
  int32_t list_index_ = -1;
  int32_t new_index_ = -1;
  int32_t top_index_ = 0;
  zktSortOrder sort_order_ = zktSortNone;
  bool show_tags_ = false;
  zktELTagsPosition tag_position_ = zktTagPosLeft;
};

}  // namespace zk::edit_list_test
