#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "foundation/dispatch_object.h"
#include "foundation/signal.h"
#include "platform/font_catalogue.h"

namespace zk {

// The platform's standard font object: name, size with four decimals, bold, italic, underline,
// strikethrough, weight and character set, a clone operation and a change notification.
// Controls never share a caller's font object; they keep a clone.
class StdFont final : public DispatchObject {
 public:
  // A new font with the catalogue's default values.
  static std::shared_ptr<StdFont> Create(std::shared_ptr<const IFontCatalogue> catalogue);

  StdFont(std::shared_ptr<const IFontCatalogue> catalogue, FontDescription description);

  const std::u16string& Name() const { return description_.name; }
  // Takes the installed face of that name. A face that is not installed does not read back:
  // the name stays as it was. The empty name raises error 380.
  void SetName(std::u16string_view name);

  double Size() const { return description_.Size(); }
  // Stored with four decimals, halves to even. Sizes outside (0, 2160] raise error 380.
  void SetSize(double size);

  bool Bold() const { return description_.Bold(); }
  void SetBold(bool bold);
  int16_t Weight() const { return description_.weight; }
  // Weights outside 0 to 1000 raise error 380.
  void SetWeight(int16_t weight);
  bool Italic() const { return description_.italic; }
  void SetItalic(bool italic);
  bool Underline() const { return description_.underline; }
  void SetUnderline(bool underline);
  bool Strikethrough() const { return description_.strikethrough; }
  void SetStrikethrough(bool strikethrough);
  int16_t Charset() const { return description_.charset; }
  void SetCharset(int16_t charset);

  const FontDescription& Description() const { return description_; }
  const std::shared_ptr<const IFontCatalogue>& Catalogue() const { return catalogue_; }

  // A new font object with the same values and no listeners.
  std::shared_ptr<StdFont> Clone() const;

  // Raised after every successful write with the property's name ("Size", "Bold" ...).
  Signal<std::u16string_view>& FontChanged() { return font_changed_; }

  Variant GetProperty(std::u16string_view name, std::span<const Variant> index = {}) override;
  void SetProperty(std::u16string_view name, const Variant& value,
                   std::span<const Variant> index = {}) override;

 private:
  void Changed(std::u16string_view property);

  std::shared_ptr<const IFontCatalogue> catalogue_;
  FontDescription description_;
  Signal<std::u16string_view> font_changed_;
};

using FontRef = std::shared_ptr<StdFont>;

}  // namespace zk
