#include "framework/control.h"

#include <string>
#include <utility>

#include "foundation/archive_utils.h"
#include "foundation/debug_utils.h"
#include "foundation/zk_error.h"
#include "platform/platform.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

std::u16string Decimal(int value) {
  const std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

const std::vector<std::u16string>& RequireElements(const std::vector<std::u16string>& elements,
                                                   int index) {
  if (index >= static_cast<int>(elements.size())) {
    throw ZKError(error_number::kSubscriptOutOfRange, u"Subscript out of range");
  }
  return elements;
}

}  // namespace

ZKControl::ZKControl(IControlSite& site) : site_(site) {
  ambient_connection_ = site_.Ambient().AmbientChanged().Connect(
      [this](std::u16string_view property) { OnAmbientChanged(property); });
  AdoptFont(CurrentPlatform().NewFont());
}

ZKControl::~ZKControl() = default;

std::u16string ZKControl::Name() const {
  try {
    return const_cast<IControlSite&>(site_).Extender().GetProperty(u"Name").ToText();
  } catch (...) {
    return std::u16string(Kind());
  }
}

void ZKControl::NotifyChanged(std::u16string_view property) {
  site_.PropertyChanged(property);
}

void ZKControl::Changed(std::u16string_view property, Effect effect) {
  NotifyChanged(property);
  switch (effect) {
    case Effect::kNone:
      break;
    case Effect::kRedraw:
      Redraw();
      break;
    case Effect::kLayout:
      Layout();
      break;
  }
}

void ZKControl::InitProperties() {
  Properties().InitProperties(*this, site_.Ambient());
  AfterInitProperties();
}

void ZKControl::ReadProperties(IPropertyBag& bag) {
  Properties().ReadProperties(*this, bag, site_.Ambient());
  AfterReadProperties();
}

void ZKControl::WriteProperties(IPropertyBag& bag) {
  Properties().WriteProperties(*this, bag, site_.Ambient());
}

void ZKControl::SetControlGroup(std::u16string New_ControlGroup) {
  control_group_ = std::move(New_ControlGroup);
  NotifyChanged(u"ControlGroup");
}

void ZKControl::SetDesignMode(bool New_DesignMode) {
  design_mode_ = New_DesignMode;
  NotifyChanged(u"DesignMode");
}

bool ZKControl::Enabled() const {
  return Surface().Enabled();
}

void ZKControl::SetEnabled(bool New_Enabled) {
  Surface().SetEnabled(New_Enabled);
  OnEnabledChanged(New_Enabled);
  NotifyChanged(u"Enabled");
}

int32_t ZKControl::hWnd() const {
  return Surface().hWnd();
}

void ZKControl::Refresh() {
  Surface().Refresh();
}

void ZKControl::PopupMenu(const Variant& Menu, const Variant& Flags, const Variant& X,
                          const Variant& Y, const Variant& DefaultMenu) {
  Surface().PopupMenu(Menu, Flags, X, Y, DefaultMenu);
}

void ZKControl::Clone(const ObjectRef& p_obj) {
  if (!p_obj) throw ZKError(91, u"Object variable or With block variable not set");
  const std::u16string archive = p_obj->CallMethod(u"GetArchiveStr").ToText();
  ParseArchiveStr(archive);
}

std::u16string ZKControl::GetArchiveStr() {
  const std::span<const ArchiveField> fields = ArchiveFields();
  std::vector<std::u16string> elements(fields.size() + 1);
  int index = 0;
  try {
    elements[0] = MArchiveUtils::ArchiveEscapeExtender(&site_.Extender());
    for (index = 1; index < static_cast<int>(elements.size()); ++index) {
      const ArchiveField& field = fields[static_cast<size_t>(index - 1)];
      const Variant value = field.get ? field.get(*this) : GetProperty(field.property);
      switch (field.kind) {
        case ArchiveKind::kText:
          elements[static_cast<size_t>(index)] = MArchiveUtils::ArchiveEscapeString(value.ToText());
          break;
        case ArchiveKind::kNumber:
          elements[static_cast<size_t>(index)] =
              MArchiveUtils::ArchiveEscapeNumber(value.ToDouble());
          break;
        case ArchiveKind::kBool:
          elements[static_cast<size_t>(index)] = MArchiveUtils::ArchiveEscapeBool(value.ToBool());
          break;
        case ArchiveKind::kFont: {
          const ObjectRef font = value.ToObject();
          if (!font) throw ZKError(91, u"Object variable or With block variable not set");
          elements[static_cast<size_t>(index)] = MArchiveUtils::ArchiveEscapeFont(*font);
          break;
        }
        case ArchiveKind::kStringList:
          elements[static_cast<size_t>(index)] = value.ToText();
          break;
      }
    }
    return MArchiveUtils::ArchiveJoinElements(elements);
  } catch (...) {
    MDebugUtils::TraceError(Name(), u"GetArchiveStr (el: " + Decimal(index) + u")");
    return {};
  }
}

std::u16string ZKControl::ParseFailureProcedure(int element) const {
  return u"ParseArchiveStr (el: " + Decimal(element) + u")";
}

bool ZKControl::ParseArchiveStr(std::u16string_view p_str) {
  const std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(p_str);
  const std::span<const ArchiveField> fields = ArchiveFields();
  int index = 0;
  try {
    MArchiveUtils::ArchiveUnescapeExtender(RequireElements(elements, 0)[0], &site_.Extender());
    for (index = 1; index <= static_cast<int>(fields.size()); ++index) {
      const std::u16string& element = RequireElements(elements, index)[static_cast<size_t>(index)];
      const ArchiveField& field = fields[static_cast<size_t>(index - 1)];
      Variant value;
      switch (field.kind) {
        case ArchiveKind::kText:
          value = Variant(MArchiveUtils::ArchiveUnescapeString(element));
          break;
        case ArchiveKind::kNumber:
          value = Variant(MArchiveUtils::ArchiveUnescapeNumber(element));
          break;
        case ArchiveKind::kBool:
          value = Variant(MArchiveUtils::ArchiveUnescapeBool(element));
          break;
        case ArchiveKind::kFont:
          value = Variant(MArchiveUtils::ArchiveUnescapeFont(element, CurrentPlatform().NewFont()));
          break;
        case ArchiveKind::kStringList:
          value = Variant(element);
          break;
      }
      if (field.set) {
        field.set(*this, value);
      } else {
        SetProperty(field.property, value);
      }
    }
    return true;
  } catch (...) {
    MDebugUtils::TraceError(Name(), ParseFailureProcedure(index));
    return false;
  }
}

std::u16string ZKControl::ExtraProp(std::u16string_view /*p_propname*/) const {
  return {};
}

void ZKControl::SetExtraProp(std::u16string_view /*p_propname*/, const Variant& /*value*/) {}

std::u16string ZKControl::ExtraAction(std::u16string_view /*p_action*/, const Variant& /*p_args*/) {
  return {};
}

void ZKControl::SetFont(FontRef New_Font) {
  if (!New_Font) {
    MDebugUtils::TraceError(Name(), u"Font (SET)", -1, u"New_Font is nothing");
    return;
  }
  AdoptFont(MGuiUtils::CloneFont(New_Font));
  NotifyChanged(u"Font");
  OnFontChanged();
}

void ZKControl::AdoptFont(FontRef font) {
  font_ = std::move(font);
  font_connection_ = font_->FontChanged().Connect([this](std::u16string_view) { OnFontChanged(); });
}

Variant ZKControl::GetProperty(std::u16string_view name, std::span<const Variant> index) {
  const MemberInfo* member = Automation().Find(name);
  if (member == nullptr || member->kind != MemberKind::kProperty || !member->get) {
    throw ZKError::MemberNotFound();
  }
  return member->get(*this, index);
}

void ZKControl::SetProperty(std::u16string_view name, const Variant& value,
                            std::span<const Variant> index) {
  const MemberInfo* member = Automation().Find(name);
  if (member == nullptr || member->kind != MemberKind::kProperty || !member->set) {
    throw ZKError::MemberNotFound();
  }
  member->set(*this, value, index);
}

Variant ZKControl::CallMethod(std::u16string_view name, std::span<Variant> args) {
  const MemberInfo* member = Automation().Find(name);
  if (member == nullptr) throw ZKError::MemberNotFound();
  if (member->kind == MemberKind::kMethod) return member->call(*this, args);
  // A property read with arguments, the way late binding allows.
  if (!member->get) throw ZKError::MemberNotFound();
  return member->get(*this, args);
}

}  // namespace zk
