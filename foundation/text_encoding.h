#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zk {

// Text inside the library is UTF-16; these convert at the edges (files, console, scripts).
// Invalid sequences become U+FFFD instead of failing.
std::u16string Utf8ToUtf16(std::string_view text);
std::string Utf16ToUtf8(std::u16string_view text);

// Where bytes that are not text start: the offset of the first NUL byte or invalid UTF-8
// sequence, nothing for text. Programs refuse such files instead of reading garbage.
std::optional<size_t> FindNonText(std::string_view text);

// Base64 with padding (RFC 4648), for binary data inside text files; decoding gives nothing for
// text that is not Base64 (blanks included).
std::string Base64Encode(std::span<const uint8_t> bytes);
std::optional<std::vector<uint8_t>> Base64Decode(std::string_view text);

}  // namespace zk
