#include "controls/text/platform_text_rules.h"

#include "platform/platform.h"

namespace zk {

const ILocale& PlatformTextRules::Locale() const {
  return locale_ != nullptr ? *locale_ : CurrentPlatform().Locale();
}

bool PlatformTextRules::IsNumeric(std::u16string_view text) const {
  return Locale().IsNumeric(text);
}

bool PlatformTextRules::IsDate(std::u16string_view text) const {
  return Locale().IsDate(text);
}

std::u16string PlatformTextRules::ToUpper(std::u16string_view text) const {
  return Locale().ToUpper(text);
}

std::u16string PlatformTextRules::ToLower(std::u16string_view text) const {
  return Locale().ToLower(text);
}

void PlatformTextRules::Beep() {
  if (HasCurrentPlatform()) CurrentPlatform().Screen().Beep();
}

}  // namespace zk
