#pragma once

#include "platform/picture.h"

namespace zk {

// Reads the size of PNG, GIF and BMP files from their headers; the headless platform keeps no
// pixels. Handles are numbered from 1001 in loading order.
class HeadlessPictureLoader final : public IPictureLoader {
 public:
  PictureRef LoadPicture(const std::u16string& path) override;

 private:
  int32_t NewHandle() override { return next_handle_++; }

  int32_t next_handle_ = 1001;
};

}  // namespace zk
