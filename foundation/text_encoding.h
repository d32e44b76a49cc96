#pragma once

#include <string>
#include <string_view>

namespace zk {

// Text inside the library is UTF-16; these convert at the edges (files, console, scripts).
// Invalid sequences become U+FFFD instead of failing.
std::u16string Utf8ToUtf16(std::string_view text);
std::string Utf16ToUtf8(std::u16string_view text);

}  // namespace zk
