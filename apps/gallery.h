#pragma once

#include <string>

namespace zk {

struct GalleryOptions {
  // Where to write a PNG of the gallery instead of showing it ("" to show it).
  std::string screenshot;
  // The file that Save writes every control's archive string to and Restore reads.
  std::string archive_file;
  // Render on Qt's offscreen platform even where a display is available.
  bool offscreen = false;
};

// Shows every control of the library on a form, live, with Save and Restore buttons; or
// renders it to a PNG. Returns the program's exit status.
int RunGallery(const GalleryOptions& options);

}  // namespace zk
