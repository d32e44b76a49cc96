// Checks the archive codec's split against the naive scanner and its round trips.
//
// Input: the first byte picks the separator and the trim flag; every further byte becomes one
// character of the text, taken from a small alphabet (byte mod 8). Only quotes, blanks and the
// separators steer the scanner, so a small alphabet reaches the interesting shapes (quote runs,
// separators inside quoted text, overlapping separators) far sooner than raw UTF-16 would; one
// non-ASCII letter stays in the alphabet to keep the code honest about 16-bit characters.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/archive_utils.h"
#include "tests/archive/fake_objects.h"
#include "tests/archive/reference_split.h"

namespace {

using namespace zk::MArchiveUtils;
using Texts = std::vector<std::u16string>;

constexpr std::u16string_view kAlphabet = u"a,\"| #b\u00e9";
constexpr std::u16string_view kSeparators[] = {u",", u"|", u",,", u"\",", u"ab", u"\"", u"#", u""};
// The naive scanner is quadratic; longer texts are only checked for the other properties.
constexpr std::size_t kReferenceLimit = 1024;

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

// Every field between "#" characters, empty ones included.
Texts PlainFields(std::u16string_view text) {
  Texts fields;
  std::size_t start = 0;
  for (std::size_t hash = text.find(u'#'); hash != std::u16string_view::npos;
       hash = text.find(u'#', start)) {
    fields.emplace_back(text.substr(start, hash - start));
    start = hash + 1;
  }
  fields.emplace_back(text.substr(start));
  return fields;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::u16string_view separator = kSeparators[data[0] % std::size(kSeparators)];
  const bool trim = (data[0] & 0x80) != 0;
  std::u16string text;
  text.reserve(size - 1);
  for (std::size_t i = 1; i < size; ++i)
    text.push_back(kAlphabet[data[i] % kAlphabet.size()]);

  // The fast scanner decides exactly as the naive one.
  const Texts elements = ArchiveSplit(text, separator, trim);
  if (text.size() <= kReferenceLimit) {
    Check(elements == zk::archive_test::ReferenceSplit(text, separator, trim));
  }

  // Without trimming the elements are the text cut at the separators that were taken: joined
  // again they give the text back, short of a trailing separator (which adds no element).
  const Texts untrimmed = trim ? ArchiveSplit(text, separator, false) : elements;
  const std::u16string joined = ArchiveJoin(untrimmed, separator);
  Check(joined == text || (!untrimmed.empty() && joined + std::u16string(separator) == text));

  // Quoting protects every character, so texts, string lists and records of quoted texts come
  // back unchanged. This holds for any item: blanks, separators and quotes all sit inside the
  // quotes, and trimming only ever removes blanks outside them.
  Check(ArchiveUnescapeString(ArchiveEscapeString(text)) == text);
  const Texts items = PlainFields(text);
  Check(ArchiveSplitStrings(ArchiveJoinStrings(items)) == items);
  Texts quoted;
  for (const std::u16string& item : items) {
    quoted.push_back(ArchiveEscapeString(item));
    // Booleans carry no separator and no quote, so they may sit between texts.
    quoted.push_back(ArchiveEscapeBool(item.size() % 2 == 0));
  }
  Check(ArchiveSplitElements(ArchiveJoinElements(quoted)) == quoted);

  // The readers take any text without raising.
  ArchiveUnescapeNumber(text);
  const auto font = std::make_shared<zk::archive_test::FakeFont>();
  Check(ArchiveUnescapeFont(text, font) == font);
  const std::size_t fields = ArchiveUnescapeExtender(text, nullptr).size();
  Check(fields == 0 || fields == static_cast<std::size_t>(kExtenderFieldCount));
  return 0;
}
