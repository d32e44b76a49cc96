#include "foundation/archive_utils.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "foundation/debug_utils.h"
#include "foundation/dispatch_object.h"
#include "foundation/string_utils.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zk::MArchiveUtils {

namespace {

constexpr char16_t kQuote = u'"';
constexpr char16_t kBlank = u' ';
constexpr std::size_t kNone = std::u16string_view::npos;

// The element [first, last) of `text`, with blanks (spaces only) removed from both ends when
// asked. The quotes stay: removing them is the text reader's job.
std::u16string_view ElementView(std::u16string_view text, std::size_t first, std::size_t last,
                                bool trim) noexcept {
  if (trim) {
    while (first < last && text[first] == kBlank)
      ++first;
    while (last > first && text[last - 1] == kBlank)
      --last;
  }
  return text.substr(first, last - first);
}

// The searches below look at 64 characters at a time: bit k of a block mask tells whether the
// character at block start + k is the one wanted. Characters past the end of the text are not.
constexpr std::size_t kBlock = 64;

std::uint64_t BlockMask(std::u16string_view text, std::size_t base, char16_t ch) noexcept {
  const char16_t* const data = text.data() + base;
  const std::size_t count = std::min(kBlock, text.size() - base);
  std::uint64_t mask = 0;
#if defined(__SSE2__)
  if (count == kBlock) {
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(ch));
    for (std::size_t k = 0; k < kBlock; k += 16) {
      const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + k));
      const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + k + 8));
      // Packing the two 16-bit comparisons gives one byte, and so one mask bit, per character.
      const __m128i hits =
          _mm_packs_epi16(_mm_cmpeq_epi16(low, wanted), _mm_cmpeq_epi16(high, wanted));
      mask |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(hits))) << k;
    }
    return mask;
  }
#endif
  for (std::size_t k = 0; k < count; ++k) {
    if (data[k] == ch) mask |= std::uint64_t{1} << k;
  }
  return mask;
}

// Position of `ch` in `text` at or after `from`, or kNone. This is the innermost loop of every
// split.
std::size_t FindChar(std::u16string_view text, char16_t ch, std::size_t from) noexcept {
  for (std::size_t base = from; base < text.size(); base += kBlock) {
    const std::uint64_t hits = BlockMask(text, base, ch);
    if (hits != 0) return base + static_cast<std::size_t>(std::countr_zero(hits));
  }
  return kNone;
}

// Position of the quote that closes quoted text, searching from `from`, or kNone when the quoted
// text runs to the end. Quotes are taken in pairs from the first one found: a run of quotes of
// even length is doubled quotes inside the text, and the first run of odd length ends with the
// closing quote. Working on whole runs in a block mask keeps a quoted string list, which is
// mostly doubled quotes, from costing a search per quote.
std::size_t FindClosingQuote(std::u16string_view text, std::size_t from) noexcept {
  const std::size_t size = text.size();
  std::size_t base = from;
  while (base < size) {
    const std::uint64_t quotes = BlockMask(text, base, kQuote);
    std::size_t next_base = base + kBlock;
    std::uint64_t pending = quotes;
    while (pending != 0) {
      const auto first = static_cast<std::size_t>(std::countr_zero(pending));
      const auto run = static_cast<std::size_t>(std::countr_zero(~(quotes >> first)));
      if (first + run == kBlock) {
        // The run reaches the end of the block and may go on: count the rest one by one.
        std::size_t end = base + kBlock;
        while (end < size && text[end] == kQuote)
          ++end;
        if ((end - (base + first)) % 2 == 1) return end - 1;
        next_base = end;
        break;
      }
      if (run % 2 == 1) return base + first + run - 1;
      pending = quotes & (~std::uint64_t{0} << (first + run));
    }
    base = next_base;
  }
  return kNone;
}

// Position of the separator at or after `from`, or kNone. An empty separator never matches,
// so a text split at it is one element.
std::size_t FindSeparator(std::u16string_view text, std::u16string_view separator,
                          std::size_t from) noexcept {
  if (separator.empty()) return kNone;
  if (separator.size() == 1) return FindChar(text, separator.front(), from);
  if (from >= text.size()) return kNone;
  return text.find(separator, from);
}

std::u16string DecimalText(std::size_t value) {
  const std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

// Reads one property, giving the empty field when the object does not offer it (or its value
// does not convert): an archive string is written even for a partial object.
template <typename Format>
std::u16string ReadField(DispatchObject& object, std::u16string_view name, Format format) {
  try {
    return format(object.GetProperty(name));
  } catch (...) {
    return {};
  }
}

std::u16string TextField(const Variant& value) {
  return ArchiveEscapeString(value.ToText());
}
std::u16string NumberField(const Variant& value) {
  return ArchiveEscapeNumber(value.ToDouble());
}
std::u16string BoolField(const Variant& value) {
  return ArchiveEscapeBool(value.ToBool());
}

// Writes one property; reports whether the object took the value.
bool TryWrite(DispatchObject& object, std::u16string_view name, const Variant& value) {
  try {
    object.SetProperty(name, value);
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace

std::u16string ArchiveEscapeString(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size() + 2);
  result.push_back(kQuote);
  // Copies the runs between quotes whole; each quote goes out twice.
  std::size_t from = 0;
  for (std::size_t quote = FindChar(text, kQuote, 0); quote != kNone;
       quote = FindChar(text, kQuote, from)) {
    result.append(text.substr(from, quote + 1 - from));
    result.push_back(kQuote);
    from = quote + 1;
  }
  result.append(text.substr(from));
  result.push_back(kQuote);
  return result;
}

std::u16string ArchiveUnescapeString(std::u16string_view element) {
  if (element.size() <= 2) return {};
  // The outer characters are dropped unseen: a damaged element still gives its inner text.
  const std::u16string_view inner = element.substr(1, element.size() - 2);
  std::u16string result;
  result.reserve(inner.size());
  // Pairs are taken left to right and do not overlap: three quotes give two.
  std::size_t from = 0;
  for (std::size_t quote = FindChar(inner, kQuote, 0); quote != kNone;
       quote = FindChar(inner, kQuote, from)) {
    result.append(inner.substr(from, quote + 1 - from));
    from = quote + 1;
    if (from < inner.size() && inner[from] == kQuote) ++from;
  }
  result.append(inner.substr(from));
  return result;
}

std::u16string ArchiveEscapeBool(bool value) {
  return value ? u"T" : u"F";
}

bool ArchiveUnescapeBool(std::u16string_view element) noexcept {
  return element == u"T";
}

std::u16string ArchiveEscapeNumber(double value) {
  return MStringUtils::FormatNumberText(value, u".", -1, false);
}

double ArchiveUnescapeNumber(std::u16string_view element) noexcept {
  try {
    return MStringUtils::IsNumberText(element) ? MStringUtils::ParseNumberText(element, u".") : 0.0;
  } catch (...) {
    // A damaged element must not stop the reading of a whole record.
    return 0.0;
  }
}

std::u16string ArchiveEscapeFont(DispatchObject& font) {
  std::array<std::u16string, 6> fields;
  fields[0] = ReadField(font, u"Name", TextField);
  fields[1] = ReadField(font, u"Size", [](const Variant& value) {
    // Font sizes are fixed-point with four decimals; rounding first keeps a size such as 8.25
    // from showing the binary noise of a float that was computed on the way.
    return ArchiveEscapeNumber(std::nearbyint(value.ToDouble() * 10000.0) / 10000.0);
  });
  fields[2] = ReadField(font, u"Bold", BoolField);
  fields[3] = ReadField(font, u"Italic", BoolField);
  fields[4] = ReadField(font, u"Underline", BoolField);
  fields[5] = ReadField(font, u"Strikethrough", BoolField);
  return ArchiveJoin(fields, kFontSeparator);
}

ObjectRef ArchiveUnescapeFont(std::u16string_view element, ObjectRef new_font) {
  if (!new_font) return new_font;

  // A plain split: quotes do not protect a "#", so a name containing one does not come back.
  std::array<std::u16string_view, 6> fields;
  std::size_t found = 0;
  std::size_t start = 0;
  while (found < fields.size()) {
    const std::size_t hash = FindChar(element, kFontSeparator.front(), start);
    if (hash == kNone) {
      fields[found++] = element.substr(start);
      break;
    }
    fields[found++] = element.substr(start, hash - start);
    start = hash + 1;
  }
  if (found < fields.size()) return new_font;

  const std::array<std::pair<std::u16string_view, Variant>, 6> writes{{
      {u"Name", ArchiveUnescapeString(fields[0])},
      {u"Size", ArchiveUnescapeNumber(fields[1])},
      {u"Bold", ArchiveUnescapeBool(fields[2])},
      {u"Italic", ArchiveUnescapeBool(fields[3])},
      {u"Underline", ArchiveUnescapeBool(fields[4])},
      {u"Strikethrough", ArchiveUnescapeBool(fields[5])},
  }};
  // A refused field ends the reading: the font keeps what was set before it.
  for (const auto& [name, value] : writes) {
    if (!TryWrite(*new_font, name, value)) break;
  }
  return new_font;
}

std::u16string ArchiveEscapeExtender(DispatchObject* extender) {
  // Thirteen slots, the last always empty, so the block ends with a separator.
  std::array<std::u16string, kExtenderFieldCount + 1> slots;
  if (extender != nullptr) {
    DispatchObject& object = *extender;
    slots[0] = ReadField(object, u"Name", TextField);
    slots[1] = ReadField(object, u"Top", NumberField);
    slots[2] = ReadField(object, u"Left", NumberField);
    slots[3] = ReadField(object, u"Width", NumberField);
    slots[4] = ReadField(object, u"Height", NumberField);
    slots[5] = ReadField(object, u"Visible", BoolField);
    slots[6] = ReadField(object, u"Default", BoolField);
    slots[7] = ReadField(object, u"Cancel", BoolField);
    slots[8] = ReadField(object, u"Enabled", BoolField);
    slots[9] = ReadField(object, u"ToolTipText", TextField);
    slots[10] = ReadField(object, u"TabIndex", NumberField);
    slots[11] = ReadField(object, u"TabStop", BoolField);
  }
  return ArchiveJoin(slots, kBlockSeparator);
}

std::vector<std::u16string> ArchiveUnescapeExtender(std::u16string_view block,
                                                    DispatchObject* extender) {
  std::vector<std::u16string> fields = ArchiveSplit(block, kBlockSeparator, true);
  if (fields.size() != static_cast<std::size_t>(kExtenderFieldCount)) {
    MDebugUtils::TraceError(u"MArchiveUtils", u"ArchiveUnescapeExtender", 1,
                            u"Wrong number of elements. Received " + DecimalText(fields.size()) +
                                u", Expected " + DecimalText(kExtenderFieldCount));
    return {};
  }
  if (extender == nullptr) return fields;

  // The name (field 0) is not applied: a control keeps the name its host gave it. Hosts offer
  // Default, Cancel and others only to some controls, so a refused property is skipped.
  const std::array<std::pair<std::u16string_view, Variant>, 11> writes{{
      {u"Top", ArchiveUnescapeNumber(fields[1])},
      {u"Left", ArchiveUnescapeNumber(fields[2])},
      {u"Width", ArchiveUnescapeNumber(fields[3])},
      {u"Height", ArchiveUnescapeNumber(fields[4])},
      {u"Visible", ArchiveUnescapeBool(fields[5])},
      {u"Default", ArchiveUnescapeBool(fields[6])},
      {u"Cancel", ArchiveUnescapeBool(fields[7])},
      {u"Enabled", ArchiveUnescapeBool(fields[8])},
      {u"ToolTipText", ArchiveUnescapeString(fields[9])},
      {u"TabIndex", ArchiveUnescapeNumber(fields[10])},
      {u"TabStop", ArchiveUnescapeBool(fields[11])},
  }};
  for (const auto& [name, value] : writes)
    TryWrite(*extender, name, value);
  return fields;
}

std::u16string ArchiveJoin(std::span<const std::u16string> items, std::u16string_view separator) {
  if (items.empty()) return {};
  std::size_t length = separator.size() * (items.size() - 1);
  for (const std::u16string& item : items)
    length += item.size();
  std::u16string result;
  result.reserve(length);
  result.append(items.front());
  for (std::size_t i = 1; i < items.size(); ++i) {
    result.append(separator);
    result.append(items[i]);
  }
  return result;
}

namespace {

// One forward pass. The scanner's decisions depend only on three facts at the scan position:
// where the next separator is, where the next quote is, and whether that quote is followed by
// another one. The next separator and the next quote are remembered and searched again only
// once the scan position has passed them, so every character is searched over at most once per
// kind. Searching both afresh at every quote, as a naive scanner would, is quadratic on a
// record holding one long quoted string list.
template <typename Emit>
void ScanElements(std::u16string_view text, std::u16string_view separator, bool trim, Emit emit) {
  const std::size_t size = text.size();

  // A remembered position stays right while the scan position has not passed it; "none found"
  // stays right for good, since the scan position only moves forward.
  std::size_t next_separator = 0;
  bool separator_known = false;
  std::size_t next_quote = 0;
  bool quote_known = false;
  const auto separator_from = [&](std::size_t scan) {
    if (!separator_known || (next_separator != kNone && next_separator < scan)) {
      next_separator = FindSeparator(text, separator, scan);
      separator_known = true;
    }
    return next_separator;
  };
  const auto quote_from = [&](std::size_t scan) {
    if (!quote_known || (next_quote != kNone && next_quote < scan)) {
      next_quote = FindChar(text, kQuote, scan);
      quote_known = true;
    }
    return next_quote;
  };
  const auto is_doubled = [&](std::size_t quote) {
    return quote + 1 < size && text[quote + 1] == kQuote;
  };

  std::size_t start = 0;
  std::size_t scan = 0;
  bool in_quotes = false;
  while (start < size) {
    if (in_quotes) {
      const std::size_t closing = FindClosingQuote(text, scan);
      if (closing == kNone) {
        // An unclosed quote runs to the end of the text.
        emit(ElementView(text, start, size, trim));
        break;
      }
      scan = closing + 1;
      in_quotes = false;
      continue;
    }

    const std::size_t sep = separator_from(scan);
    if (sep == kNone) {
      // Quotes after the last separator no longer matter: the rest is the last element.
      emit(ElementView(text, start, size, trim));
      break;
    }
    const std::size_t quote = quote_from(scan);
    if (quote != kNone && sep > quote) {
      // A doubled quote outside quoted text is an empty quoted text and changes nothing.
      if (is_doubled(quote)) {
        scan = quote + 2;
      } else {
        scan = quote + 1;
        in_quotes = true;
      }
      continue;
    }
    // A separator that starts at the quote (one that begins with a quote character) splits.
    emit(ElementView(text, start, sep, trim));
    start = sep + separator.size();
    scan = start;
  }
}

}  // namespace

std::vector<std::u16string> ArchiveSplit(std::u16string_view text, std::u16string_view separator,
                                         bool trim) {
  std::vector<std::u16string> elements;
  ScanElements(text, separator, trim,
               [&](std::u16string_view element) { elements.emplace_back(element); });
  return elements;
}

std::u16string ArchiveJoinElements(std::span<const std::u16string> elements) {
  return ArchiveJoin(elements, kElementSeparator);
}

std::vector<std::u16string> ArchiveSplitElements(std::u16string_view archive) {
  return ArchiveSplit(archive, kElementSeparator, true);
}

std::u16string ArchiveJoinStrings(std::span<const std::u16string> texts) {
  std::vector<std::u16string> escaped;
  escaped.reserve(texts.size());
  for (const std::u16string& text : texts)
    escaped.push_back(ArchiveEscapeString(text));
  return ArchiveJoin(escaped, kBlockSeparator);
}

std::vector<std::u16string> ArchiveSplitStrings(std::u16string_view list) {
  // Unescaped straight from the list: a long list then costs one allocation per item.
  std::vector<std::u16string> items;
  ScanElements(list, kBlockSeparator, true, [&](std::u16string_view element) {
    items.push_back(ArchiveUnescapeString(element));
  });
  return items;
}

}  // namespace zk::MArchiveUtils
