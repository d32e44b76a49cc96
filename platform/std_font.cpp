#include "platform/std_font.h"

#include <cmath>
#include <utility>

#include "foundation/low_level_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

constexpr double kLargestSize = 2160.0;

}  // namespace

std::shared_ptr<StdFont> StdFont::Create(std::shared_ptr<const IFontCatalogue> catalogue) {
  FontDescription description = catalogue->DefaultFont();
  return std::make_shared<StdFont>(std::move(catalogue), std::move(description));
}

StdFont::StdFont(std::shared_ptr<const IFontCatalogue> catalogue, FontDescription description)
    : catalogue_(std::move(catalogue)), description_(std::move(description)) {}

void StdFont::SetName(std::u16string_view name) {
  if (name.empty()) throw ZKError::InvalidPropertyValue();
  std::optional<std::u16string> face = catalogue_->InstalledFace(name);
  // The font mapper keeps the current face when the requested one does not exist; callers
  // detect a missing face by reading the name back.
  if (face && *face != description_.name) description_.name = std::move(*face);
  Changed(u"Name");
}

void StdFont::SetSize(double size) {
  if (!(size > 0.0) || size > kLargestSize) throw ZKError::InvalidPropertyValue();
  description_.size_e4 = static_cast<int64_t>(MLowLevelUtils::RoundHalfEven(size * 10000.0));
  Changed(u"Size");
}

void StdFont::SetBold(bool bold) {
  description_.weight = bold ? 700 : 400;
  Changed(u"Bold");
}

void StdFont::SetWeight(int16_t weight) {
  if (weight < 0 || weight > 1000) throw ZKError::InvalidPropertyValue();
  description_.weight = weight;
  Changed(u"Weight");
}

void StdFont::SetItalic(bool italic) {
  description_.italic = italic;
  Changed(u"Italic");
}

void StdFont::SetUnderline(bool underline) {
  description_.underline = underline;
  Changed(u"Underline");
}

void StdFont::SetStrikethrough(bool strikethrough) {
  description_.strikethrough = strikethrough;
  Changed(u"Strikethrough");
}

void StdFont::SetCharset(int16_t charset) {
  description_.charset = charset;
  Changed(u"Charset");
}

std::shared_ptr<StdFont> StdFont::Clone() const {
  return std::make_shared<StdFont>(catalogue_, description_);
}

void StdFont::Changed(std::u16string_view property) {
  font_changed_.Emit(property);
}

Variant StdFont::GetProperty(std::u16string_view name, std::span<const Variant> index) {
  if (index.empty()) {
    if (MemberNameEquals(name, u"Name")) return Variant(Name());
    if (MemberNameEquals(name, u"Size")) return Variant(Size());
    if (MemberNameEquals(name, u"Bold")) return Variant(Bold());
    if (MemberNameEquals(name, u"Italic")) return Variant(Italic());
    if (MemberNameEquals(name, u"Underline")) return Variant(Underline());
    if (MemberNameEquals(name, u"Strikethrough")) return Variant(Strikethrough());
    if (MemberNameEquals(name, u"Weight")) return Variant(int32_t{Weight()});
    if (MemberNameEquals(name, u"Charset")) return Variant(int32_t{Charset()});
  }
  return DispatchObject::GetProperty(name, index);
}

void StdFont::SetProperty(std::u16string_view name, const Variant& value,
                          std::span<const Variant> index) {
  if (index.empty()) {
    if (MemberNameEquals(name, u"Name")) return SetName(value.ToText());
    if (MemberNameEquals(name, u"Size")) return SetSize(value.ToDouble());
    if (MemberNameEquals(name, u"Bold")) return SetBold(value.ToBool());
    if (MemberNameEquals(name, u"Italic")) return SetItalic(value.ToBool());
    if (MemberNameEquals(name, u"Underline")) return SetUnderline(value.ToBool());
    if (MemberNameEquals(name, u"Strikethrough")) return SetStrikethrough(value.ToBool());
    if (MemberNameEquals(name, u"Weight")) return SetWeight(value.ToInt16());
    if (MemberNameEquals(name, u"Charset")) return SetCharset(value.ToInt16());
  }
  DispatchObject::SetProperty(name, value, index);
}

}  // namespace zk
