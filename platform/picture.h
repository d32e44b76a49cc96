#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/dispatch_object.h"

namespace zk {

// A picture loaded from an image file: a handle (0 for no picture), its size in pixels and,
// where the platform decodes images, its pixels.
class Picture final : public DispatchObject {
 public:
  // `pixels` are 0xAARRGGBB values row by row; a platform without pixels passes none.
  Picture(int32_t handle, int32_t width_px, int32_t height_px, std::vector<uint32_t> pixels = {});

  int32_t Handle() const { return handle_; }
  int32_t WidthPixels() const { return width_px_; }
  int32_t HeightPixels() const { return height_px_; }
  const std::vector<uint32_t>& Pixels() const { return pixels_; }

  // By name: Handle; Width and Height in HiMetric units (0.01 mm), as pictures report them.
  Variant GetProperty(std::u16string_view name, std::span<const Variant> index = {}) override;

 private:
  int32_t handle_;
  int32_t width_px_;
  int32_t height_px_;
  std::vector<uint32_t> pixels_;
};

using PictureRef = std::shared_ptr<Picture>;

// Loads pictures from image files (PNG at least).
class IPictureLoader {
 public:
  virtual ~IPictureLoader() = default;
  // Throws ZKError 53 for a file that cannot be read and 481 for one that is not an image.
  virtual PictureRef LoadPicture(const std::u16string& path) = 0;
  // A picture made from a size and its pixels as Pixels() gives them (none from a platform
  // that keeps no pixels), with a handle of this loader: how a saved picture comes back.
  // Throws ZKError 481 for a size that is not positive or too large, or pixels that do not
  // fill it.
  PictureRef MakePicture(int32_t width_px, int32_t height_px, std::vector<uint32_t> pixels);

 protected:
  // The handle of the next picture.
  virtual int32_t NewHandle() = 0;
};

}  // namespace zk
