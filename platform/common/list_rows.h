#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zk {

// The rows of a list box: texts in order, stored in blocks of at most a few hundred, so that a
// row inserted or removed anywhere moves only the rows of its own block. A list that sorts its
// rows as they come inserts each one in the middle; one contiguous array would move half the
// list every time, and a hundred thousand sorted insertions would take seconds.
class ListRows {
 public:
  int32_t Size() const noexcept { return size_; }
  // The text of a row; `index` is within 0 to Size() - 1.
  const std::u16string& At(int32_t index) const;
  void Set(int32_t index, std::u16string_view text);
  // Inserts a row before `index` (Size(): after the last).
  void Insert(int32_t index, std::u16string_view text);
  void Erase(int32_t index);
  void Clear() noexcept;

 private:
  struct Place {
    size_t block;
    size_t offset;
  };
  // The block that holds row `index` (for Size(), the last block's end).
  Place Find(int32_t index) const;
  // Counts come and go in block `block` (a row inserted or erased there).
  void CountRows(size_t block, int32_t delta);
  // Builds the block counts again after blocks were added or removed.
  void RecountBlocks();

  std::vector<std::vector<std::u16string>> blocks_;
  // The blocks' row counts as a binary indexed tree: finding the block of a row takes a few
  // steps however many blocks there are, where walking the blocks would take thousands.
  std::vector<int32_t> counts_;
  int32_t size_ = 0;
};

}  // namespace zk
