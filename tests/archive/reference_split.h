#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// A deliberately naive element scanner, kept as the yardstick for the production one. It works
// on 1-based positions and searches the next separator, the next quote and the next doubled
// quote afresh from the scan position at every step, exactly as the archive format describes
// the scan. It is quadratic on long quoted texts, so it serves tests and fuzzing only.
namespace zk::archive_test {

// The 1-based position of `needle` in `text` at or after `from`, or 0. An empty needle is
// never found, which makes an empty separator give the whole text as one element.
inline std::size_t FindFrom(std::size_t from, std::u16string_view text,
                            std::u16string_view needle) {
  if (needle.empty()) return 0;
  for (std::size_t pos = from; pos + needle.size() - 1 <= text.size(); ++pos) {
    if (text.substr(pos - 1, needle.size()) == needle) return pos;
  }
  return 0;
}

inline std::u16string TrimBlanks(std::u16string_view text) {
  while (!text.empty() && text.front() == u' ')
    text.remove_prefix(1);
  while (!text.empty() && text.back() == u' ')
    text.remove_suffix(1);
  return std::u16string(text);
}

inline std::vector<std::u16string> ReferenceSplit(std::u16string_view text,
                                                  std::u16string_view separator, bool trim) {
  std::vector<std::u16string> elements;
  const auto add = [&](std::size_t first, std::size_t last_exclusive) {
    const std::u16string_view element = text.substr(first - 1, last_exclusive - first);
    elements.push_back(trim ? TrimBlanks(element) : std::u16string(element));
  };
  std::size_t start = 1;
  std::size_t scan = 1;
  bool in_quotes = false;
  while (start <= text.size()) {
    const std::size_t next_sep = FindFrom(scan, text, separator);
    const std::size_t next_quote = FindFrom(scan, text, u"\"");
    const std::size_t next_pair = FindFrom(scan, text, u"\"\"");
    if (in_quotes) {
      if (next_quote == 0) {
        add(start, text.size() + 1);
        break;
      }
      if (next_quote == next_pair) {
        scan = next_pair + 2;
      } else {
        scan = next_quote + 1;
        in_quotes = false;
      }
    } else if (next_quote > 0 && next_sep > 0 && next_sep > next_quote) {
      if (next_quote == next_pair) {
        scan = next_pair + 2;
      } else {
        scan = next_quote + 1;
        in_quotes = true;
      }
    } else if (next_sep > 0) {
      add(start, next_sep);
      start = next_sep + separator.size();
      scan = start;
    } else {
      add(start, text.size() + 1);
      break;
    }
  }
  return elements;
}

}  // namespace zk::archive_test
