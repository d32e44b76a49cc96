#include "platform/picture.h"

#include <utility>

#include "foundation/low_level_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

// 2540 HiMetric units per inch, 96 pixels per inch at the reference resolution.
int32_t PixelsToHiMetric(int32_t pixels) {
  return MLowLevelUtils::RoundToInt32(static_cast<double>(pixels) * 2540.0 / 96.0);
}

}  // namespace

Picture::Picture(int32_t handle, int32_t width_px, int32_t height_px, std::vector<uint32_t> pixels)
    : handle_(handle), width_px_(width_px), height_px_(height_px), pixels_(std::move(pixels)) {}

Variant Picture::GetProperty(std::u16string_view name, std::span<const Variant> index) {
  if (index.empty()) {
    if (MemberNameEquals(name, u"Handle")) return Variant(handle_);
    if (MemberNameEquals(name, u"Width")) return Variant(PixelsToHiMetric(width_px_));
    if (MemberNameEquals(name, u"Height")) return Variant(PixelsToHiMetric(height_px_));
  }
  return DispatchObject::GetProperty(name, index);
}

PictureRef IPictureLoader::MakePicture(int32_t width_px, int32_t height_px,
                                       std::vector<uint32_t> pixels) {
  // A picture of a screen's size and then some; anything larger is not one the library made.
  constexpr int64_t kLargestSide = 32768;
  const bool size_ok =
      width_px > 0 && height_px > 0 && width_px <= kLargestSide && height_px <= kLargestSide;
  if (!size_ok || (!pixels.empty() && pixels.size() != static_cast<size_t>(width_px) *
                                                           static_cast<size_t>(height_px))) {
    throw ZKError(error_number::kInvalidPicture, u"Invalid picture");
  }
  return std::make_shared<Picture>(NewHandle(), width_px, height_px, std::move(pixels));
}

}  // namespace zk
