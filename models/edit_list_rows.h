#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "models/packed_texts.h"
#include "models/text_collation.h"

namespace zk {

// The rows of an edit list: an item text and a tag text per row, in two columns that always
// hold the same number of rows in the same order.
//
// The rows are stored in blocks of up to a hundred or so, each column of a block packed in one
// buffer (PackedTexts), so that inserting or removing a row anywhere moves the texts of one
// block only, and finding a row by index is a search over the blocks.
//
// Sorted placement. For a column that takes part in sorted insertions the rows also keep how
// each row compares with the next one. The column then falls into runs, stretches in which
// every row sorts with or before the next (for A to Z; with or after it for Z to A). Within a
// run the rows that a key sorts before make up a tail, so the first of them is found by a
// binary search, and a run whose last row does not stop the search holds no stopping row at
// all. The position of a new row, the first row whose comparison with the key is the wanted
// one, therefore costs one comparison per run up to it and a binary search inside its run:
// a logarithmic number of comparisons on a sorted column, about one per row before the
// stopping row on a column wholly out of order (as the scan), and always the very position
// that the scan gives (given a consistent order, see TextCollation).
class EditListRows {
 public:
  static constexpr int kItemColumn = 0;
  static constexpr int kTagColumn = 1;

  // Where FindPlacement put a key, and the comparisons of the key with the rows before and at
  // that position when the search made them; Insert reuses them instead of comparing again.
  struct Placement {
    int32_t index = 0;
    int column = kItemColumn;
    bool before_known = false;
    int8_t key_vs_before = 0;
    bool at_known = false;
    int8_t key_vs_at = 0;
  };

  // A block holds this many rows at most: small enough that moving the rows after an insertion
  // point costs little, large enough that the block index stays short.
  static constexpr int32_t kDefaultBlockRows = 128;

  // Without a collation (null) the rows are ordered by OrdinalCaselessCollation. `block_rows`
  // (at least 2) is the size of a full block; tests choose tiny blocks to split and merge often.
  explicit EditListRows(std::shared_ptr<const TextCollation> collation = nullptr,
                        int32_t block_rows = kDefaultBlockRows);

  // Another order for later placements; what was learnt about the old one is forgotten.
  void SetCollation(std::shared_ptr<const TextCollation> collation);
  const TextCollation& Collation() const noexcept { return *collation_; }

  int32_t Count() const noexcept { return count_; }

  // The text of row `index` (0 to Count() - 1) in column kItemColumn or kTagColumn, valid until
  // the rows change.
  std::u16string_view Text(int column, int32_t index) const;

  // Inserts a row at `index` (0 to Count()); the texts may be views of rows of this list.
  // `placement` is what FindPlacement answered for
  // this very row (its key being the row's text in the placement's column) or null. Comparisons
  // happen before anything changes, so a comparison that throws leaves the rows as they were.
  void Insert(int32_t index, std::u16string_view item, std::u16string_view tag,
              const Placement* placement = nullptr);
  // Removes row `index` (0 to Count() - 1).
  void Erase(int32_t index);
  // Replaces the text of row `index` (0 to Count() - 1) in one column.
  void SetText(int column, int32_t index, std::u16string_view text);
  void Clear() noexcept;

  // The index of the first row whose comparison with `key` (Compare(key, row text)) has the
  // sign of `wanted` (-1 or +1), or Count() when no row has it. Starts keeping the order of the
  // column when it does not yet.
  Placement FindPlacement(int column, std::u16string_view key, int wanted);

  // The first row whose text in the column equals `text` unit for unit, or -1.
  int32_t FindExact(int column, std::u16string_view text) const noexcept;

  // Stops keeping the order of a column: inserting into it then compares nothing until the
  // next FindPlacement on it.
  void ForgetOrder(int column) noexcept;
  bool KeepsOrder(int column) const noexcept;

  // Calls visit(item, tag) with two std::u16string_view for every row in order.
  template <typename Visit>
  void ForEachRow(Visit&& visit) const {
    for (const Block& block : blocks_) {
      for (int32_t offset = 0; offset < block.Size(); ++offset)
        visit(block.texts[kItemColumn].At(offset), block.texts[kTagColumn].At(offset));
    }
  }

 private:
  // How a row compares with the row after it, two bits per column in Block::order. The last
  // row has no next one and counts as kEqual, as does a column whose order is not kept.
  enum Relation : uint8_t { kEqual = 0, kBefore = 1, kAfter = 2 };

  struct Block {
    std::array<PackedTexts, 2> texts;
    std::vector<uint8_t> order;

    int32_t Size() const noexcept { return static_cast<int32_t>(order.size()); }
    Relation RelationAt(int column, int32_t offset) const noexcept;
  };

  // [column][relation - 1]: the rows of a block that sort before (after) their next row.
  using RelationCounts = std::array<std::array<int32_t, 2>, 2>;

  struct Location {
    size_t block;
    int32_t offset;
  };

  // Moves the rows of `from` from `first` on to the end of `to`; all or nothing.
  static void MoveRows(Block& from, int32_t first, Block& to);
  Location Locate(int32_t index) const noexcept;
  int CompareKey(std::u16string_view key, int column, size_t block, int32_t offset) const;
  Relation Compare(std::u16string_view a, std::u16string_view b) const;
  void SetRelation(size_t block, int32_t offset, int column, Relation relation) noexcept;
  void SetRelation(int32_t index, int column, Relation relation) noexcept;
  // Counts the relations of a block afresh after rows moved in or out of it.
  void Recount(size_t block) noexcept;
  void InsertBlock(size_t at, Block block);
  void EraseBlock(size_t at) noexcept;
  // Block starts from `block` on, after blocks were added, removed or resized.
  void Renumber(size_t block) noexcept;
  // Forgets everything learnt when the collation's order has changed.
  void CheckGeneration() noexcept;
  void LearnOrder(int column);
  // The last row of the run that `index` starts: the first row from `index` on that `breaking`
  // separates from its next row, or the last row.
  int32_t RunEnd(int column, Relation breaking, int32_t index) const noexcept;
  void InsertIntoBlocks(int32_t index, std::u16string_view item, std::u16string_view tag,
                        uint8_t order);
  // Joins the block with a neighbour when both fit in half a block: the block that took the
  // other's rows, or the number of blocks when none did.
  size_t MergeSmall(size_t block);

  std::shared_ptr<const TextCollation> collation_;
  uint64_t generation_ = 0;
  int32_t max_block_rows_;
  std::vector<Block> blocks_;
  // What the searches read of each block, kept apart from the rows so that a pass over the
  // blocks reads small contiguous records: the index of each block's first row, and the
  // relation counts of each block.
  std::vector<int32_t> starts_;
  std::vector<RelationCounts> relation_counts_;
  // The relation counts of all blocks: a column without a single break is one run.
  std::array<std::array<int64_t, 2>, 2> relation_totals_{};
  int32_t count_ = 0;
  std::array<bool, 2> keeps_order_{};
};

}  // namespace zk
