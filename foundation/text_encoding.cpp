#include "foundation/text_encoding.h"

#include <algorithm>
#include <cstdint>

namespace zk {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr std::string_view kBase64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int Base64Value(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  return -1;
}

void AppendUtf16(std::u16string& out, char32_t cp) {
  if (cp >= 0x10000) {
    cp -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
  } else {
    out.push_back(static_cast<char16_t>(cp));
  }
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else if (cp < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

// The code point that starts at `i` and the number of bytes it takes, or 0 for a byte that
// starts no valid sequence (a stray continuation, a truncated or overlong sequence, a surrogate).
size_t DecodeUtf8(std::string_view text, size_t i, char32_t& cp) {
  const auto lead = static_cast<uint8_t>(text[i]);
  int extra = 0;
  if (lead < 0x80) {
    cp = lead;
    return 1;
  }
  if ((lead & 0xE0) == 0xC0) {
    extra = 1;
    cp = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2;
    cp = lead & 0x0F;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3;
    cp = lead & 0x07;
  } else {
    return 0;
  }
  if (i + static_cast<size_t>(extra) >= text.size()) return 0;
  for (int k = 1; k <= extra; ++k) {
    const auto next = static_cast<uint8_t>(text[i + static_cast<size_t>(k)]);
    if ((next & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (next & 0x3F);
  }
  const bool overlong =
      (extra == 1 && cp < 0x80) || (extra == 2 && cp < 0x800) || (extra == 3 && cp < 0x10000);
  if (overlong || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return static_cast<size_t>(extra) + 1;
}

}  // namespace

std::u16string Utf8ToUtf16(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    char32_t cp = 0;
    const size_t length = DecodeUtf8(text, i, cp);
    if (length == 0) {
      out.push_back(static_cast<char16_t>(kReplacement));
      ++i;
      continue;
    }
    AppendUtf16(out, cp);
    i += length;
  }
  return out;
}

std::optional<size_t> FindNonText(std::string_view text) {
  size_t i = 0;
  while (i < text.size()) {
    char32_t cp = 0;
    const size_t length = DecodeUtf8(text, i, cp);
    if (length == 0 || cp == 0) return i;
    i += length;
  }
  return std::nullopt;
}

std::string Utf16ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t cp = text[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] <= 0xDFFF) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      cp = kReplacement;
    }
    AppendUtf8(out, cp);
  }
  return out;
}

std::string Base64Encode(std::span<const uint8_t> bytes) {
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t i = 0; i < bytes.size(); i += 3) {
    const size_t count = std::min<size_t>(3, bytes.size() - i);
    uint32_t group = uint32_t{bytes[i]} << 16;
    if (count > 1) group |= uint32_t{bytes[i + 1]} << 8;
    if (count > 2) group |= bytes[i + 2];
    for (size_t k = 0; k < 4; ++k) {
      out.push_back(k <= count ? kBase64Digits[(group >> (18 - 6 * k)) & 0x3F] : '=');
    }
  }
  return out;
}

std::optional<std::vector<uint8_t>> Base64Decode(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::vector<uint8_t> out;
  out.reserve(text.size() / 4 * 3);
  for (size_t i = 0; i < text.size(); i += 4) {
    const bool last = i + 4 == text.size();
    // Padding only ends the text: "x===" and "xx=y" are not Base64.
    const size_t padding = !last ? 0 : text[i + 3] != '=' ? 0 : text[i + 2] != '=' ? 1 : 2;
    uint32_t group = 0;
    for (size_t k = 0; k < 4; ++k) {
      if (k >= 4 - padding) {
        group <<= 6;
        continue;
      }
      const int value = Base64Value(text[i + k]);
      if (value < 0) return std::nullopt;
      group = (group << 6) | static_cast<uint32_t>(value);
    }
    out.push_back(static_cast<uint8_t>(group >> 16));
    if (padding < 2) out.push_back(static_cast<uint8_t>(group >> 8));
    if (padding < 1) out.push_back(static_cast<uint8_t>(group));
  }
  return out;
}

}  // namespace zk
