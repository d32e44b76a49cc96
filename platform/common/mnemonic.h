#pragma once

#include <string>
#include <string_view>

namespace zk {

// The text a caption shows when "&" marks access keys: "&x" shows x (the access key) and "&&"
// shows one "&"; a lone "&" at the end shows nothing.
inline std::u16string StripMnemonics(std::u16string_view caption) {
  std::u16string shown;
  shown.reserve(caption.size());
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&') {
      shown.push_back(caption[i]);
    } else if (i + 1 < caption.size()) {
      shown.push_back(caption[++i]);
    }
  }
  return shown;
}

}  // namespace zk
