#include "platform/headless/headless_picture_loader.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <optional>

#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

struct ImageSize {
  int64_t width = 0;
  int64_t height = 0;
};

using Header = std::array<uint8_t, 32>;

uint32_t BigEndian32(const Header& h, size_t at) {
  return (uint32_t{h[at]} << 24) | (uint32_t{h[at + 1]} << 16) | (uint32_t{h[at + 2]} << 8) |
         uint32_t{h[at + 3]};
}

uint32_t LittleEndian32(const Header& h, size_t at) {
  return uint32_t{h[at]} | (uint32_t{h[at + 1]} << 8) | (uint32_t{h[at + 2]} << 16) |
         (uint32_t{h[at + 3]} << 24);
}

uint32_t LittleEndian16(const Header& h, size_t at) {
  return uint32_t{h[at]} | (uint32_t{h[at + 1]} << 8);
}

std::optional<ImageSize> SizeFromHeader(const Header& h, size_t length) {
  static constexpr std::array<uint8_t, 8> kPng = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  if (length >= 24 && std::equal(kPng.begin(), kPng.end(), h.begin())) {
    return ImageSize{BigEndian32(h, 16), BigEndian32(h, 20)};
  }
  if (length >= 10 && h[0] == 'G' && h[1] == 'I' && h[2] == 'F' && h[3] == '8') {
    return ImageSize{LittleEndian16(h, 6), LittleEndian16(h, 8)};
  }
  if (length >= 26 && h[0] == 'B' && h[1] == 'M') {
    const auto height = static_cast<int32_t>(LittleEndian32(h, 22));  // negative: top-down rows
    return ImageSize{static_cast<int32_t>(LittleEndian32(h, 18)),
                     height < 0 ? -int64_t{height} : int64_t{height}};
  }
  return std::nullopt;
}

}  // namespace

PictureRef HeadlessPictureLoader::LoadPicture(const std::u16string& path) {
  std::ifstream file(Utf16ToUtf8(path), std::ios::binary);
  if (!file) throw ZKError(error_number::kFileNotFound, u"File not found: " + path);
  Header header{};
  file.read(reinterpret_cast<char*>(header.data()), header.size());
  const auto length = static_cast<size_t>(file.gcount());
  const std::optional<ImageSize> size = SizeFromHeader(header, length);
  if (!size || size->width <= 0 || size->height <= 0 || size->width > INT32_MAX ||
      size->height > INT32_MAX) {
    throw ZKError(error_number::kInvalidPicture, u"Invalid picture");
  }
  return std::make_shared<Picture>(NewHandle(), static_cast<int32_t>(size->width),
                                   static_cast<int32_t>(size->height));
}

}  // namespace zk
