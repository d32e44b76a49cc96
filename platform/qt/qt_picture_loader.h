#pragma once

#include "platform/picture.h"

namespace zk {

// Pictures decoded by Qt (PNG, JPEG, GIF, BMP ...), with their pixels.
class QtPictureLoader final : public IPictureLoader {
 public:
  PictureRef LoadPicture(const std::u16string& path) override;

 private:
  int32_t NewHandle() override { return next_handle_++; }

  int32_t next_handle_ = 2001;
};

}  // namespace zk
