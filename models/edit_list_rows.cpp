#include "models/edit_list_rows.h"

#include <algorithm>
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

void EditListRows::MoveRows(Block& from, int32_t first, Block& to) {
  const int32_t had = to.Size();
  to.order.reserve(to.order.size() + (from.order.size() - static_cast<size_t>(first)));
  from.texts[kItemColumn].MoveTailTo(first, to.texts[kItemColumn]);
  try {
    from.texts[kTagColumn].MoveTailTo(first, to.texts[kTagColumn]);
  } catch (...) {
    // The items go back into the room they left, which needs no allocation.
    to.texts[kItemColumn].MoveTailTo(had, from.texts[kItemColumn]);
    throw;
  }
  to.order.insert(to.order.end(), from.order.begin() + first, from.order.end());
  from.order.erase(from.order.begin() + first, from.order.end());
}

EditListRows::Relation EditListRows::Block::RelationAt(int column, int32_t offset) const noexcept {
  return static_cast<Relation>((order[static_cast<size_t>(offset)] >> (2 * column)) & 3);
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

std::u16string_view EditListRows::Text(int column, int32_t index) const {
  const Location at = Locate(index);
  return blocks_[at.block].texts[column].At(at.offset);
}

EditListRows::Location EditListRows::Locate(int32_t index) const noexcept {
  // The last block whose first row is at or before `index`.
  const auto after = std::upper_bound(starts_.begin(), starts_.end(), index);
  const size_t block = static_cast<size_t>(std::distance(starts_.begin(), after)) - 1;
  return {block, index - starts_[block]};
}

int EditListRows::CompareKey(std::u16string_view key, int column, size_t block,
                             int32_t offset) const {
  return Sign(collation_->Compare(key, blocks_[block].texts[column].At(offset)));
}

EditListRows::Relation EditListRows::Compare(std::u16string_view a, std::u16string_view b) const {
  const int order = Sign(collation_->Compare(a, b));
  return order < 0 ? kBefore : (order > 0 ? kAfter : kEqual);
}

void EditListRows::SetRelation(size_t block, int32_t offset, int column,
                               Relation relation) noexcept {
  Block& rows = blocks_[block];
  std::array<int32_t, 2>& counts = relation_counts_[block][column];
  std::array<int64_t, 2>& totals = relation_totals_[column];
  const Relation old = rows.RelationAt(column, offset);
  if (old != kEqual) {
    --counts[old - 1];
    --totals[old - 1];
  }
  uint8_t& bits = rows.order[static_cast<size_t>(offset)];
  bits = static_cast<uint8_t>((bits & ~(3 << (2 * column))) | (relation << (2 * column)));
  if (relation != kEqual) {
    ++counts[relation - 1];
    ++totals[relation - 1];
  }
}

void EditListRows::SetRelation(int32_t index, int column, Relation relation) noexcept {
  const Location at = Locate(index);
  SetRelation(at.block, at.offset, column, relation);
}

void EditListRows::Recount(size_t block) noexcept {
  RelationCounts& counts = relation_counts_[block];
  for (int column : {kItemColumn, kTagColumn}) {
    for (int slot : {0, 1})
      relation_totals_[column][slot] -= counts[column][slot];
  }
  counts = {};
  const Block& rows = blocks_[block];
  for (int32_t offset = 0; offset < rows.Size(); ++offset) {
    for (int column : {kItemColumn, kTagColumn}) {
      const Relation relation = rows.RelationAt(column, offset);
      if (relation != kEqual) ++counts[column][relation - 1];
    }
  }
  for (int column : {kItemColumn, kTagColumn}) {
    for (int slot : {0, 1})
      relation_totals_[column][slot] += counts[column][slot];
  }
}

void EditListRows::InsertBlock(size_t at, Block block) {
  starts_.reserve(starts_.size() + 1);
  relation_counts_.reserve(relation_counts_.size() + 1);
  blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(at), std::move(block));
  starts_.insert(starts_.begin() + static_cast<std::ptrdiff_t>(at), 0);
  relation_counts_.insert(relation_counts_.begin() + static_cast<std::ptrdiff_t>(at),
                          RelationCounts{});
  Recount(at);
}

void EditListRows::EraseBlock(size_t at) noexcept {
  for (int column : {kItemColumn, kTagColumn}) {
    for (int slot : {0, 1})
      relation_totals_[column][slot] -= relation_counts_[at][column][slot];
  }
  blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(at));
  starts_.erase(starts_.begin() + static_cast<std::ptrdiff_t>(at));
  relation_counts_.erase(relation_counts_.begin() + static_cast<std::ptrdiff_t>(at));
}

void EditListRows::Renumber(size_t block) noexcept {
  int32_t start = block == 0 ? 0 : starts_[block - 1] + blocks_[block - 1].Size();
  for (size_t k = block; k < blocks_.size(); ++k) {
    starts_[k] = start;
    start += blocks_[k].Size();
  }
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
  std::u16string_view previous;
  bool first = true;
  ForEachRow([&](std::u16string_view item, std::u16string_view tag) {
    const std::u16string_view text = column == kItemColumn ? item : tag;
    if (!first) relations.push_back(Compare(previous, text));
    previous = text;
    first = false;
  });
  relations.push_back(kEqual);
  size_t next = 0;
  for (size_t block = 0; block < blocks_.size(); ++block) {
    for (int32_t offset = 0; offset < blocks_[block].Size(); ++offset)
      SetRelation(block, offset, column, relations[next++]);
  }
  keeps_order_[static_cast<size_t>(column)] = true;
}

void EditListRows::Insert(int32_t index, std::u16string_view item, std::u16string_view tag,
                          const Placement* placement) {
  CheckGeneration();
  // The relations that change: the row before the new one now precedes the new row, and the
  // new row precedes the row that was at `index`.
  std::array<Relation, 2> before{kEqual, kEqual};
  std::array<Relation, 2> own{kEqual, kEqual};
  for (int column : {kItemColumn, kTagColumn}) {
    if (!keeps_order_[static_cast<size_t>(column)]) continue;
    const std::u16string_view text = column == kItemColumn ? item : tag;
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
  InsertIntoBlocks(index, item, tag, order);
  if (index > 0) {
    for (int column : {kItemColumn, kTagColumn}) {
      if (keeps_order_[static_cast<size_t>(column)]) SetRelation(index - 1, column, before[column]);
    }
  }
}

void EditListRows::InsertIntoBlocks(int32_t index, std::u16string_view item,
                                    std::u16string_view tag, uint8_t order) {
  // The texts may be views of rows of this list. Blocks that move (when the block list grows)
  // take short texts stored inside them along, and the block that changes moves its own texts:
  // in either case the new row's texts are copied first.
  std::u16string own_item;
  std::u16string own_tag;
  const auto keep = [&] {
    if (item.data() != own_item.data()) item = own_item.assign(item);
    if (tag.data() != own_tag.data()) tag = own_tag.assign(tag);
  };
  if (blocks_.size() == blocks_.capacity()) {
    keep();
    // Room for more blocks first, so that adding a block cannot fail halfway.
    const size_t room = std::max<size_t>(8, blocks_.size() * 2);
    blocks_.reserve(room);
    starts_.reserve(room);
    relation_counts_.reserve(room);
  }
  size_t block = 0;
  int32_t offset = 0;
  if (blocks_.empty()) {
    InsertBlock(0, Block());
  } else if (index == count_) {
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
  const Block& changing = blocks_[block];
  if (changing.Size() >= max_block_rows_) {
    keep();
  } else {
    for (const PackedTexts& texts : changing.texts) {
      if (texts.Holds(item) || texts.Holds(tag)) keep();
    }
  }
  if (blocks_[block].Size() >= max_block_rows_) {
    const size_t first_changed = block;
    if (offset == blocks_[block].Size()) {
      // Rows added at the end of a full block (appending, a list read in order) start a new
      // block rather than leaving two half-empty ones behind.
      InsertBlock(block + 1, Block());
      ++block;
      offset = 0;
    } else if (offset == 0) {
      InsertBlock(block, Block());
    } else {
      Block upper;
      const int32_t half = blocks_[block].Size() / 2;
      MoveRows(blocks_[block], half, upper);
      Recount(block);
      InsertBlock(block + 1, std::move(upper));
      if (offset > half) {
        ++block;
        offset -= half;
      }
    }
    Renumber(first_changed);
  }
  Block& target = blocks_[block];
  try {
    target.order.reserve(target.order.size() + 1);
    target.texts[kItemColumn].Insert(offset, item);
    try {
      target.texts[kTagColumn].Insert(offset, tag);
    } catch (...) {
      target.texts[kItemColumn].Erase(offset);
      throw;
    }
  } catch (...) {
    // A block made for this row goes again: no block is ever empty.
    if (target.Size() == 0) {
      EraseBlock(block);
      if (!blocks_.empty()) Renumber(std::min(block, blocks_.size() - 1));
    }
    throw;
  }
  target.order.insert(target.order.begin() + offset, uint8_t{0});
  SetRelation(block, offset, kItemColumn, static_cast<Relation>(order & 3));
  SetRelation(block, offset, kTagColumn, static_cast<Relation>((order >> 2) & 3));
  ++count_;
  for (size_t k = block + 1; k < starts_.size(); ++k)
    ++starts_[k];
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
  SetRelation(at.block, at.offset, kItemColumn, kEqual);
  SetRelation(at.block, at.offset, kTagColumn, kEqual);
  Block& block = blocks_[at.block];
  block.texts[kItemColumn].Erase(at.offset);
  block.texts[kTagColumn].Erase(at.offset);
  block.order.erase(block.order.begin() + at.offset);
  --count_;
  if (block.Size() == 0) {
    EraseBlock(at.block);
    if (!blocks_.empty()) Renumber(std::min(at.block, blocks_.size() - 1));
  } else if (const size_t merged = MergeSmall(at.block); merged < blocks_.size()) {
    Renumber(merged);
  } else {
    for (size_t k = at.block + 1; k < starts_.size(); ++k)
      --starts_[k];
  }
  if (index > 0) {
    for (int column : {kItemColumn, kTagColumn}) {
      if (keeps_order_[static_cast<size_t>(column)]) SetRelation(index - 1, column, before[column]);
    }
  }
}

size_t EditListRows::MergeSmall(size_t block) {
  for (const size_t left : {block, block - 1}) {
    // block - 1 wraps around for the first block.
    if (left >= blocks_.size() || left + 1 >= blocks_.size()) continue;
    Block& a = blocks_[left];
    Block& b = blocks_[left + 1];
    if (a.Size() + b.Size() > max_block_rows_ / 2) continue;
    MoveRows(b, 0, a);
    // The relations of the moved rows are now counted in `a` and must leave `b`'s count.
    Recount(left);
    EraseBlock(left + 1);
    return left;
  }
  return blocks_.size();
}

void EditListRows::SetText(int column, int32_t index, std::u16string_view text) {
  CheckGeneration();
  Relation before = kEqual;
  Relation own = kEqual;
  const bool keeps = keeps_order_[static_cast<size_t>(column)];
  if (keeps) {
    if (index > 0) before = Compare(Text(column, index - 1), text);
    if (index + 1 < count_) own = Compare(text, Text(column, index + 1));
  }
  const Location at = Locate(index);
  blocks_[at.block].texts[column].Replace(at.offset, text);
  if (!keeps) return;
  SetRelation(at.block, at.offset, column, own);
  if (index > 0) SetRelation(index - 1, column, before);
}

void EditListRows::Clear() noexcept {
  blocks_.clear();
  starts_.clear();
  relation_counts_.clear();
  relation_totals_ = {};
  count_ = 0;
  keeps_order_ = {};
}

int32_t EditListRows::RunEnd(int column, Relation breaking, int32_t index) const noexcept {
  const int slot = breaking - 1;
  if (relation_totals_[column][slot] == 0) return count_ - 1;
  const Location at = Locate(index);
  for (size_t k = at.block; k < blocks_.size(); ++k) {
    if (relation_counts_[k][column][slot] == 0) continue;
    const Block& block = blocks_[k];
    for (int32_t offset = k == at.block ? at.offset : 0; offset < block.Size(); ++offset) {
      if (block.RelationAt(column, offset) == breaking) return starts_[k] + offset;
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
  // The last comparison made below the position and the last one at or above it; Insert may
  // reuse those made with the rows right before and at the position.
  int32_t below_row = -1;
  int below = 0;
  int32_t above_row = -1;
  int above = 0;
  const auto probe = [&](size_t block, int32_t offset) {
    const int order = CompareKey(key, column, block, offset);
    if (order == wanted) {
      above_row = starts_[block] + offset;
      above = order;
    } else {
      below_row = starts_[block] + offset;
      below = order;
    }
    return order == wanted;
  };
  int32_t position = count_;
  for (int32_t start = 0; start < count_;) {
    const int32_t last = RunEnd(column, breaking, start);
    const Location end = Locate(last);
    if (!probe(end.block, end.offset)) {
      // Nothing in this run stops the scan: the key compares so with the run's last row, and
      // every earlier row of the run lies on the same side of the key.
      start = last + 1;
      continue;
    }
    // The stopping rows of the run form its tail. Find the block where the tail begins by the
    // last row of each block, then the row inside that block.
    const Location begin = Locate(start);
    size_t low_block = begin.block;
    size_t high_block = end.block;
    while (low_block < high_block) {
      const size_t middle = low_block + (high_block - low_block) / 2;
      if (probe(middle, blocks_[middle].Size() - 1)) {
        high_block = middle;
      } else {
        low_block = middle + 1;
      }
    }
    int32_t low = low_block == begin.block ? begin.offset : 0;
    int32_t high = low_block == end.block ? end.offset : blocks_[low_block].Size() - 1;
    while (low < high) {
      const int32_t middle = low + (high - low) / 2;
      if (probe(low_block, middle)) {
        high = middle;
      } else {
        low = middle + 1;
      }
    }
    position = starts_[low_block] + low;
    break;
  }
  Placement placement;
  placement.column = column;
  placement.index = position;
  placement.before_known = position > 0 && below_row == position - 1;
  placement.key_vs_before = static_cast<int8_t>(placement.before_known ? below : 0);
  placement.at_known = position < count_ && above_row == position;
  placement.key_vs_at = static_cast<int8_t>(placement.at_known ? above : 0);
  return placement;
}

int32_t EditListRows::FindExact(int column, std::u16string_view text) const noexcept {
  for (size_t k = 0; k < blocks_.size(); ++k) {
    const PackedTexts& texts = blocks_[k].texts[column];
    for (int32_t offset = 0; offset < texts.Size(); ++offset) {
      if (texts.At(offset) == text) return starts_[k] + offset;
    }
  }
  return -1;
}

}  // namespace zk
