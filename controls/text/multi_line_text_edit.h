#pragma once

#include <cstdint>
#include <string_view>

#include "controls/text/text_edit.h"

namespace zk {

// The text edit on a text box of several lines (line breaks are part of the text). Everything
// else is the one-line control's: the same members, typed rules, persistence and archive
// string, which each of the two reads from the other.
class ZKMultiLineTextEdit final : public ZKTextEdit {
 public:
  explicit ZKMultiLineTextEdit(IControlSite& site);

  std::u16string_view Kind() const override { return u"ZKMultiLineTextEdit"; }
  // As the one-line control's, with Font under an identifier of its own.
  const PropertyTable& Properties() const override;

 protected:
  // Ctrl+Tab would put a tab into the text; a typed value has no place for one.
  void FilterKeyDown(int16_t& key_code) override;
};

}  // namespace zk
