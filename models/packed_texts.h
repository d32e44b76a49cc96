#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zk {

// A short sequence of texts stored end to end in one buffer, with the end of each text: a
// column of one block of edit list rows. Inserting or removing a text moves the units and ends
// after it with one memory move each, and a text costs its units plus four bytes, where a
// string object per text would cost 32 bytes and, past a few units, an allocation of its own.
//
// The views that At gives stay valid until the next change of the sequence.
class PackedTexts {
 public:
  int32_t Size() const noexcept { return static_cast<int32_t>(ends_.size()); }
  // Units held by all texts together.
  size_t Units() const noexcept { return units_.size(); }

  // The text at `offset` (0 to Size() - 1).
  std::u16string_view At(int32_t offset) const noexcept {
    const uint32_t begin = offset == 0 ? 0 : ends_[static_cast<size_t>(offset) - 1];
    return std::u16string_view(units_).substr(begin, ends_[static_cast<size_t>(offset)] - begin);
  }
  std::u16string_view Back() const noexcept { return At(Size() - 1); }
  // The text lies in this sequence's buffer: it would move with the next change.
  bool Holds(std::u16string_view text) const noexcept;

  // Inserts a text before `offset` (0 to Size()). Throws std::length_error, changing nothing,
  // when the units would no longer be countable in 32 bits.
  void Insert(int32_t offset, std::u16string_view text);
  void Erase(int32_t offset);
  // Replaces the text at `offset`; the same failure as Insert.
  void Replace(int32_t offset, std::u16string_view text);
  // Moves the texts from `first` to the end over to the end of `to`.
  void MoveTailTo(int32_t first, PackedTexts& to);

 private:
  std::u16string units_;
  std::vector<uint32_t> ends_;
};

}  // namespace zk
