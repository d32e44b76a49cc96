#include "platform/common/list_rows.h"

#include <iterator>

namespace zk {
namespace {

// Rows a block holds before it is split in two halves.
constexpr size_t kBlockRows = 128;

}  // namespace

ListRows::Place ListRows::Find(int32_t index) const {
  if (hint_block_ >= blocks_.size()) {
    hint_block_ = 0;
    hint_first_ = 0;
  }
  size_t block = hint_block_;
  int32_t first = hint_first_;
  // Walk from the last block found, forward or back.
  while (block > 0 && index < first) {
    --block;
    first -= static_cast<int32_t>(blocks_[block].size());
  }
  while (block + 1 < blocks_.size() &&
         index >= first + static_cast<int32_t>(blocks_[block].size())) {
    first += static_cast<int32_t>(blocks_[block].size());
    ++block;
  }
  hint_block_ = block;
  hint_first_ = first;
  return {block, static_cast<size_t>(index - first)};
}

const std::u16string& ListRows::At(int32_t index) const {
  const Place place = Find(index);
  return blocks_[place.block][place.offset];
}

void ListRows::Set(int32_t index, std::u16string_view text) {
  const Place place = Find(index);
  blocks_[place.block][place.offset] = text;
}

void ListRows::Insert(int32_t index, std::u16string_view text) {
  if (blocks_.empty()) blocks_.emplace_back().reserve(kBlockRows);
  const Place place = Find(index);
  std::vector<std::u16string>& rows = blocks_[place.block];
  rows.emplace(rows.begin() + static_cast<std::ptrdiff_t>(place.offset), text);
  ++size_;
  if (rows.size() < kBlockRows) return;
  // A full block gives its second half to a new block after it.
  std::vector<std::u16string> second;
  second.reserve(kBlockRows);
  const auto half = rows.begin() + static_cast<std::ptrdiff_t>(rows.size() / 2);
  second.assign(std::make_move_iterator(half), std::make_move_iterator(rows.end()));
  rows.erase(half, rows.end());
  blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block) + 1, std::move(second));
}

void ListRows::Erase(int32_t index) {
  const Place place = Find(index);
  std::vector<std::u16string>& rows = blocks_[place.block];
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(place.offset));
  --size_;
  if (rows.empty() && blocks_.size() > 1) {
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block));
    hint_block_ = 0;
    hint_first_ = 0;
  }
}

void ListRows::Clear() noexcept {
  blocks_.clear();
  size_ = 0;
  hint_block_ = 0;
  hint_first_ = 0;
}

}  // namespace zk
