#include "models/packed_texts.h"

#include <functional>
#include <limits>
#include <stdexcept>

namespace zk {
namespace {

constexpr size_t kMaxUnits = std::numeric_limits<uint32_t>::max();

// Adds `delta` (modulo 2^32, so a decrease too) to the ends from `first` on.
void ShiftEnds(std::vector<uint32_t>& ends, size_t first, uint32_t delta) noexcept {
  for (size_t i = first; i < ends.size(); ++i)
    ends[i] += delta;
}

}  // namespace

bool PackedTexts::Holds(std::u16string_view text) const noexcept {
  if (text.empty() || units_.empty()) return false;
  const std::less_equal<const char16_t*> at_or_before;
  return at_or_before(units_.data(), text.data()) &&
         std::less<const char16_t*>()(text.data(), units_.data() + units_.size());
}

void PackedTexts::Insert(int32_t offset, std::u16string_view text) {
  if (text.size() > kMaxUnits - units_.size()) throw std::length_error("texts too long");
  const auto at = static_cast<size_t>(offset);
  const uint32_t begin = at == 0 ? 0 : ends_[at - 1];
  // Both buffers grow before either changes, so that a failed allocation changes nothing.
  ends_.reserve(ends_.size() + 1);
  units_.insert(begin, text);
  const auto length = static_cast<uint32_t>(text.size());
  ends_.insert(ends_.begin() + static_cast<std::ptrdiff_t>(at), begin + length);
  ShiftEnds(ends_, at + 1, length);
}

void PackedTexts::Erase(int32_t offset) {
  const auto at = static_cast<size_t>(offset);
  const uint32_t begin = at == 0 ? 0 : ends_[at - 1];
  const uint32_t length = ends_[at] - begin;
  units_.erase(begin, length);
  ends_.erase(ends_.begin() + static_cast<std::ptrdiff_t>(at));
  ShiftEnds(ends_, at, 0u - length);
}

void PackedTexts::Replace(int32_t offset, std::u16string_view text) {
  const auto at = static_cast<size_t>(offset);
  const uint32_t begin = at == 0 ? 0 : ends_[at - 1];
  const uint32_t length = ends_[at] - begin;
  if (text.size() > kMaxUnits - (units_.size() - length)) {
    throw std::length_error("texts too long");
  }
  units_.replace(begin, length, text);
  ShiftEnds(ends_, at, static_cast<uint32_t>(text.size()) - length);
}

void PackedTexts::MoveTailTo(int32_t first, PackedTexts& to) {
  const auto at = static_cast<size_t>(first);
  const uint32_t begin = at == 0 ? 0 : ends_[at - 1];
  const size_t moved = units_.size() - begin;
  if (moved > kMaxUnits - to.units_.size()) throw std::length_error("texts too long");
  const auto base = static_cast<uint32_t>(to.units_.size());
  to.ends_.reserve(to.ends_.size() + (ends_.size() - at));
  to.units_.append(units_, begin, moved);
  for (size_t i = at; i < ends_.size(); ++i)
    to.ends_.push_back(ends_[i] - begin + base);
  units_.erase(begin);
  ends_.erase(ends_.begin() + static_cast<std::ptrdiff_t>(at), ends_.end());
}

}  // namespace zk
