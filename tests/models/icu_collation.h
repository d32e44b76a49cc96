#pragma once

#include <string_view>

#include "models/text_collation.h"
#include "platform/icu/icu_locale.h"

namespace zk::edit_list_test {

// The locale's comparison that ignores letter case, handed to the model as the control hands
// over its platform's.
class IcuCollation final : public TextCollation {
 public:
  explicit IcuCollation(std::u16string_view locale = u"en-US") : locale_(locale) {}
  int Compare(std::u16string_view a, std::u16string_view b) const override {
    return locale_.Compare(a, b, true);
  }

 private:
  IcuLocale locale_;
};

}  // namespace zk::edit_list_test
