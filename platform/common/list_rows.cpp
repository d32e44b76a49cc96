#include "platform/common/list_rows.h"

#include <iterator>

namespace zk {
namespace {

// Rows a block holds before it is split in two halves.
constexpr size_t kBlockRows = 128;

}  // namespace

ListRows::Place ListRows::Find(int32_t index) const {
  if (index >= size_) return {blocks_.size() - 1, blocks_.back().size()};
  // Descends the tree: the last block whose rows all lie before `index`, then the next one.
  size_t block = 0;
  int32_t before = 0;
  size_t step = 1;
  while (step * 2 <= counts_.size())
    step *= 2;
  for (; step > 0; step /= 2) {
    const size_t next = block + step;
    if (next <= counts_.size() && before + counts_[next - 1] <= index) {
      block = next;
      before += counts_[next - 1];
    }
  }
  return {block, static_cast<size_t>(index - before)};
}

void ListRows::CountRows(size_t block, int32_t delta) {
  for (size_t node = block + 1; node <= counts_.size(); node += node & (~node + 1)) {
    counts_[node - 1] += delta;
  }
}

void ListRows::RecountBlocks() {
  counts_.assign(blocks_.size(), 0);
  for (size_t node = 1; node <= counts_.size(); ++node) {
    counts_[node - 1] += static_cast<int32_t>(blocks_[node - 1].size());
    const size_t parent = node + (node & (~node + 1));
    if (parent <= counts_.size()) counts_[parent - 1] += counts_[node - 1];
  }
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
  if (blocks_.empty()) {
    blocks_.emplace_back().reserve(kBlockRows);
    RecountBlocks();
  }
  const Place place = Find(index);
  std::vector<std::u16string>& rows = blocks_[place.block];
  rows.emplace(rows.begin() + static_cast<std::ptrdiff_t>(place.offset), text);
  ++size_;
  CountRows(place.block, 1);
  if (rows.size() < kBlockRows) return;
  // A full block gives its second half to a new block after it.
  std::vector<std::u16string> second;
  second.reserve(kBlockRows);
  const auto half = rows.begin() + static_cast<std::ptrdiff_t>(rows.size() / 2);
  second.assign(std::make_move_iterator(half), std::make_move_iterator(rows.end()));
  rows.erase(half, rows.end());
  blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block) + 1, std::move(second));
  RecountBlocks();
}

void ListRows::Erase(int32_t index) {
  const Place place = Find(index);
  std::vector<std::u16string>& rows = blocks_[place.block];
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(place.offset));
  --size_;
  CountRows(place.block, -1);
  if (rows.empty() && blocks_.size() > 1) {
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block));
    RecountBlocks();
  }
}

void ListRows::Clear() noexcept {
  blocks_.clear();
  counts_.clear();
  size_ = 0;
}

}  // namespace zk
