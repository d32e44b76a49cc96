#include "models/edit_list_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "models/ordinal_caseless_collation.h"

namespace zk {
namespace {

constexpr int Sign(int value) noexcept {
  return (value > 0) - (value < 0);
}

std::shared_ptr<const TextCollation> OrDefault(std::shared_ptr<const TextCollation> collation) {
  if (collation) return collation;
  return std::make_shared<OrdinalCaselessCollation>();
}

}  // namespace

EditListRows::Relation EditListRows::Block::RelationAt(int column, int32_t offset) const noexcept {
  return static_cast<Relation>((order[static_cast<size_t>(offset)] >> (2 * column)) & 3);
}

void EditListRows::Block::SetRelation(int column, int32_t offset, Relation relation) noexcept {
  const Relation old = RelationAt(column, offset);
  if (old != kEqual) --relation_counts[column][old - 1];
  uint8_t& bits = order[static_cast<size_t>(offset)];
  bits = static_cast<uint8_t>((bits & ~(3 << (2 * column))) | (relation << (2 * column)));
  if (relation != kEqual) ++relation_counts[column][relation - 1];
}

void EditListRows::Block::Recount() noexcept {
  relation_counts = {};
  for (int32_t offset = 0; offset < Size(); ++offset) {
    for (int column : {kItemColumn, kTagColumn}) {
      const Relation relation = RelationAt(column, offset);
      if (relation != kEqual) ++relation_counts[column][relation - 1];
    }
  }
}

EditListRows::EditListRows(std::shared_ptr<const TextCollation> collation, int32_t block_rows)
    : collation_(OrDefault(std::move(collation))),
      generation_(collation_->Generation()),
      max_block_rows_(std::max(block_rows, 2)) {}

void EditListRows::SetCollation(std::shared_ptr<const TextCollation> collation) {
  collation_ = OrDefault(std::move(collation));
  generation_ = collation_->Generation();
  keeps_order_ = {};
}

const std::u16string& EditListRows::Text(int column, int32_t index) const {
  const Location at = Locate(index);
  return blocks_[at.block].texts[column][static_cast<size_t>(at.offset)];
}

EditListRows::Location EditListRows::Locate(int32_t index) const noexcept {
  // The last block whose first row is at or before `index`.
  const auto after = std::upper_bound(starts_.begin(), starts_.end(), index);
  const size_t block = static_cast<size_t>(std::distance(starts_.begin(), after)) - 1;
  return {block, index - starts_[block]};
}

EditListRows::Relation EditListRows::Compare(std::u16string_view a, std::u16string_view b) const {
  const int order = Sign(collation_->Compare(a, b));
  return order < 0 ? kBefore : (order > 0 ? kAfter : kEqual);
}

void EditListRows::SetRelation(int32_t index, int column, Relation relation) noexcept {
  const Location at = Locate(index);
  blocks_[at.block].SetRelation(column, at.offset, relation);
}

void EditListRows::CheckGeneration() noexcept {
  const uint64_t generation = collation_->Generation();
  if (generation == generation_) return;
  generation_ = generation;
  keeps_order_ = {};
}

bool EditListRows::KeepsOrder(int column) const noexcept {
  return keeps_order_[static_cast<size_t>(column)];
}

void EditListRows::ForgetOrder(int column) noexcept {
  keeps_order_[static_cast<size_t>(column)] = false;
}

void EditListRows::LearnOrder(int column) {
  // Every relation is compared first, so that a comparison that throws changes nothing.
  std::vector<Relation> relations;
  relations.reserve(static_cast<size_t>(count_));
  const std::u16string* previous = nullptr;
  ForEachRow([&](const std::u16string& item, const std::u16string& tag) {
    const std::u16string& text = column == kItemColumn ? item : tag;
    if (previous != nullptr) relations.push_back(Compare(*previous, text));
    previous = &text;
  });
  relations.push_back(kEqual);
  size_t next = 0;
  for (Block& block : blocks_) {
    for (int32_t offset = 0; offset < block.Size(); ++offset)
      block.SetRelation(column, offset, count_ > 0 ? relations[next++] : kEqual);
  }
  keeps_order_[static_cast<size_t>(column)] = true;
}

void EditListRows::RenumberFrom(size_t block) noexcept {
  starts_.resize(blocks_.size());
  int32_t start = block == 0 ? 0 : starts_[block - 1] + blocks_[block - 1].Size();
  for (size_t k = block; k < blocks_.size(); ++k) {
    starts_[k] = start;
    start += blocks_[k].Size();
  }
}

void EditListRows::Insert(int32_t index, std::u16string item, std::u16string tag,
                          const Placement* placement) {
  CheckGeneration();
  // The relations that change: the row before the new one now precedes the new row, and the
  // new row precedes the row that was at `index`.
  std::array<Relation, 2> before{kEqual, kEqual};
  std::array<Relation, 2> own{kEqual, kEqual};
  for (int column : {kItemColumn, kTagColumn}) {
    if (!keeps_order_[static_cast<size_t>(column)]) continue;
    const std::u16string& text = column == kItemColumn ? item : tag;
    const bool hinted =
        placement != nullptr && placement->column == column && placement->index == index;
    if (index > 0) {
      // The key compared with the row before gives the reverse of that row against the key.
      before[column] =
          hinted && placement->before_known
              ? (placement->key_vs_before > 0 ? kBefore
                                              : (placement->key_vs_before < 0 ? kAfter : kEqual))
              : Compare(Text(column, index - 1), text);
    }
    if (index < count_) {
      own[column] =
          hinted && placement->at_known
              ? (placement->key_vs_at < 0 ? kBefore : (placement->key_vs_at > 0 ? kAfter : kEqual))
              : Compare(text, Text(column, index));
    }
  }
  const uint8_t order = static_cast<uint8_t>(own[kItemColumn] | (own[kTagColumn] << 2));
  InsertIntoBlocks(index, std::move(item), std::move(tag), order);
  if (index > 0) {
    for (int column : {kItemColumn, kTagColumn}) {
      if (keeps_order_[static_cast<size_t>(column)]) SetRelation(index - 1, column, before[column]);
    }
  }
}

void EditListRows::InsertIntoBlocks(int32_t index, std::u16string item, std::u16string tag,
                                    uint8_t order) {
  if (blocks_.empty()) {
    blocks_.emplace_back();
    starts_.assign(1, 0);
  }
  size_t block;
  int32_t offset;
  if (index == count_) {
    block = blocks_.size() - 1;
    offset = blocks_[block].Size();
  } else {
    const Location at = Locate(index);
    block = at.block;
    offset = at.offset;
    // At the border of two blocks, the end of the earlier one is as good a place and may
    // have room.
    if (offset == 0 && block > 0 && blocks_[block - 1].Size() < max_block_rows_) {
      --block;
      offset = blocks_[block].Size();
    }
  }
  if (blocks_[block].Size() >= max_block_rows_) {
    if (offset == blocks_[block].Size()) {
      // Rows added at the end of a full block (appending, a list read in order) start a new
      // block rather than leaving two half-empty ones behind.
      blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block) + 1, Block());
      ++block;
      offset = 0;
    } else if (offset == 0) {
      blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block), Block());
    } else {
      Block upper;
      Block& lower = blocks_[block];
      const int32_t half = lower.Size() / 2;
      for (int column : {kItemColumn, kTagColumn}) {
        auto& texts = lower.texts[column];
        upper.texts[column].assign(std::make_move_iterator(texts.begin() + half),
                                   std::make_move_iterator(texts.end()));
        texts.erase(texts.begin() + half, texts.end());
      }
      upper.order.assign(lower.order.begin() + half, lower.order.end());
      lower.order.erase(lower.order.begin() + half, lower.order.end());
      lower.Recount();
      upper.Recount();
      blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block) + 1, std::move(upper));
      if (offset > half) {
        ++block;
        offset -= half;
      }
    }
  }
  Block& target = blocks_[block];
  const auto at = static_cast<std::ptrdiff_t>(offset);
  target.texts[kItemColumn].insert(target.texts[kItemColumn].begin() + at, std::move(item));
  target.texts[kTagColumn].insert(target.texts[kTagColumn].begin() + at, std::move(tag));
  target.order.insert(target.order.begin() + at, uint8_t{0});
  target.SetRelation(kItemColumn, offset, static_cast<Relation>(order & 3));
  target.SetRelation(kTagColumn, offset, static_cast<Relation>((order >> 2) & 3));
  ++count_;
  RenumberFrom(block);
}

void EditListRows::Erase(int32_t index) {
  CheckGeneration();
  std::array<Relation, 2> before{kEqual, kEqual};
  if (index > 0 && index + 1 < count_) {
    for (int column : {kItemColumn, kTagColumn}) {
      if (keeps_order_[static_cast<size_t>(column)])
        before[column] = Compare(Text(column, index - 1), Text(column, index + 1));
    }
  }
  const Location at = Locate(index);
  Block& block = blocks_[at.block];
  block.SetRelation(kItemColumn, at.offset, kEqual);
  block.SetRelation(kTagColumn, at.offset, kEqual);
  const auto offset = static_cast<std::ptrdiff_t>(at.offset);
  block.texts[kItemColumn].erase(block.texts[kItemColumn].begin() + offset);
  block.texts[kTagColumn].erase(block.texts[kTagColumn].begin() + offset);
  block.order.erase(block.order.begin() + offset);
  --count_;

  size_t first_changed = at.block;
  if (block.Size() == 0) {
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(at.block));
  } else {
    // A block that has shrunk joins a neighbour when both fit in half a block.
    for (size_t left : {at.block, at.block - 1}) {
      if (left >= blocks_.size() || left + 1 >= blocks_.size()) continue;
      Block& a = blocks_[left];
      Block& b = blocks_[left + 1];
      if (a.Size() + b.Size() > max_block_rows_ / 2) continue;
      for (int column : {kItemColumn, kTagColumn}) {
        a.texts[column].insert(a.texts[column].end(),
                               std::make_move_iterator(b.texts[column].begin()),
                               std::make_move_iterator(b.texts[column].end()));
      }
      a.order.insert(a.order.end(), b.order.begin(), b.order.end());
      a.Recount();
      blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(left) + 1);
      first_changed = std::min(first_changed, left);
      break;
    }
  }
  if (blocks_.empty()) {
    starts_.clear();
  } else {
    RenumberFrom(std::min(first_changed, blocks_.size() - 1));
  }
  if (index > 0) {
    for (int column : {kItemColumn, kTagColumn}) {
      if (keeps_order_[static_cast<size_t>(column)]) SetRelation(index - 1, column, before[column]);
    }
  }
}

void EditListRows::SetText(int column, int32_t index, std::u16string text) {
  CheckGeneration();
  Relation before = kEqual;
  Relation own = kEqual;
  const bool keeps = keeps_order_[static_cast<size_t>(column)];
  if (keeps) {
    if (index > 0) before = Compare(Text(column, index - 1), text);
    if (index + 1 < count_) own = Compare(text, Text(column, index + 1));
  }
  const Location at = Locate(index);
  Block& block = blocks_[at.block];
  block.texts[column][static_cast<size_t>(at.offset)] = std::move(text);
  if (!keeps) return;
  block.SetRelation(column, at.offset, own);
  if (index > 0) SetRelation(index - 1, column, before);
}

void EditListRows::Clear() noexcept {
  blocks_.clear();
  starts_.clear();
  count_ = 0;
  keeps_order_ = {};
}

int32_t EditListRows::RunEnd(int column, Relation breaking, int32_t index) const noexcept {
  Location at = Locate(index);
  for (size_t k = at.block; k < blocks_.size(); ++k) {
    const Block& block = blocks_[k];
    if (block.relation_counts[column][breaking - 1] > 0) {
      for (int32_t offset = k == at.block ? at.offset : 0; offset < block.Size(); ++offset) {
        if (block.RelationAt(column, offset) == breaking) return starts_[k] + offset;
      }
    }
  }
  return count_ - 1;
}

EditListRows::Placement EditListRows::FindPlacement(int column, std::u16string_view key,
                                                    int wanted) {
  CheckGeneration();
  if (!keeps_order_[static_cast<size_t>(column)]) LearnOrder(column);
  wanted = Sign(wanted);
  // A-to-Z runs end where a row sorts after its next; Z-to-A runs where it sorts before it.
  const Relation breaking = wanted < 0 ? kAfter : kBefore;
  Placement placement;
  placement.column = column;
  int32_t start = 0;
  while (start < count_) {
    const int32_t last = RunEnd(column, breaking, start);
    const int at_last = Sign(collation_->Compare(key, Text(column, last)));
    if (at_last != wanted) {
      // Nothing in this run stops the scan: the key compares so with the run's last row, and
      // every earlier row of the run lies on the same side of the key.
      placement.before_known = true;
      placement.key_vs_before = static_cast<int8_t>(at_last);
      start = last + 1;
      continue;
    }
    // The stopping rows of the run form its tail: find where the tail begins.
    int32_t low = start;
    int32_t high = last;
    int at_high = at_last;
    while (low < high) {
      const int32_t middle = low + (high - low) / 2;
      const int at_middle = Sign(collation_->Compare(key, Text(column, middle)));
      if (at_middle == wanted) {
        high = middle;
        at_high = at_middle;
      } else {
        low = middle + 1;
        placement.before_known = true;
        placement.key_vs_before = static_cast<int8_t>(at_middle);
      }
    }
    placement.index = low;
    placement.at_known = true;
    placement.key_vs_at = static_cast<int8_t>(at_high);
    return placement;
  }
  placement.index = count_;
  return placement;
}

int32_t EditListRows::FindExact(int column, std::u16string_view text) const noexcept {
  for (size_t k = 0; k < blocks_.size(); ++k) {
    const std::vector<std::u16string>& texts = blocks_[k].texts[column];
    for (size_t offset = 0; offset < texts.size(); ++offset) {
      if (texts[offset] == text) return starts_[k] + static_cast<int32_t>(offset);
    }
  }
  return -1;
}

}  // namespace zk
