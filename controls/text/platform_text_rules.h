#pragma once

#include <string>
#include <string_view>

#include "models/typed_text_model.h"
#include "platform/locale.h"

namespace zk {

// The typed text rules of the running platform: the numeric and date tests and the case mapping
// of a locale, the beep of the current platform's screen.
class PlatformTextRules final : public TypedTextRules {
 public:
  // The current platform's locale, looked up at each call so that a change of the user's
  // regional settings takes effect with the next keystroke.
  PlatformTextRules() = default;
  // A chosen locale, which must outlive this object.
  explicit PlatformTextRules(const ILocale& locale) : locale_(&locale) {}

  bool IsNumeric(std::u16string_view text) const override;
  bool IsDate(std::u16string_view text) const override;
  std::u16string ToUpper(std::u16string_view text) const override;
  std::u16string ToLower(std::u16string_view text) const override;
  // Silent while no platform is installed: there is no screen to beep on.
  void Beep() override;

 private:
  const ILocale& Locale() const;

  const ILocale* locale_ = nullptr;
};

}  // namespace zk
