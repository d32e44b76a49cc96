// The automation entries of the members that every control shares.
#include <string>

#include "foundation/zk_error.h"
#include "framework/control.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

using automation::Method;
using automation::OptionalArgument;
using automation::RequiredArgument;

MemberInfo FontMember(int32_t dispid) {
  MemberInfo info;
  info.name = u"Font";
  info.dispid = dispid;
  info.get = [](ZKControl& control, std::span<const Variant>) {
    return Variant(ObjectRef(control.Font()));
  };
  info.set = [](ZKControl& control, const Variant& value, std::span<const Variant>) {
    const ObjectRef object = value.ToObject();
    FontRef font = std::dynamic_pointer_cast<StdFont>(object);
    if (object && !font) throw ZKError::TypeMismatch();
    control.SetFont(std::move(font));
  };
  return info;
}

MemberInfo ExtraPropMember(int32_t dispid) {
  MemberInfo info;
  info.name = u"ExtraProp";
  info.dispid = dispid;
  info.get = [](ZKControl& control, std::span<const Variant> index) {
    if (index.empty()) throw ZKError(449, u"Argument not optional");
    return Variant(control.ExtraProp(index[0].ToText()));
  };
  info.set = [](ZKControl& control, const Variant& value, std::span<const Variant> index) {
    if (index.empty()) throw ZKError(449, u"Argument not optional");
    control.SetExtraProp(index[0].ToText(), value);
  };
  return info;
}

}  // namespace

MemberInfo ZKControl::CommonMember(std::u16string_view name, int32_t dispid) {
  using automation::Property;
  using automation::ReadOnlyProperty;
  if (name == u"ControlGroup") {
    return Property(u"ControlGroup", &ZKControl::ControlGroup, &ZKControl::SetControlGroup, dispid);
  }
  if (name == u"DesignMode") {
    return Property(u"DesignMode", &ZKControl::DesignMode, &ZKControl::SetDesignMode, dispid);
  }
  if (name == u"Enabled") {
    return Property(u"Enabled", &ZKControl::Enabled, &ZKControl::SetEnabled, dispatch_id::kEnabled);
  }
  if (name == u"hWnd") return ReadOnlyProperty(u"hWnd", &ZKControl::hWnd, dispid);
  if (name == u"Refresh") {
    return Method(
        u"Refresh",
        [](ZKControl& control, std::span<Variant>) {
          control.Refresh();
          return Variant();
        },
        dispid);
  }
  if (name == u"PopupMenu") {
    return Method(
        u"PopupMenu",
        [](ZKControl& control, std::span<Variant> args) {
          control.PopupMenu(OptionalArgument(args, 0), OptionalArgument(args, 1),
                            OptionalArgument(args, 2), OptionalArgument(args, 3),
                            OptionalArgument(args, 4));
          return Variant();
        },
        dispid);
  }
  if (name == u"Clone") {
    return Method(
        u"Clone",
        [](ZKControl& control, std::span<Variant> args) {
          control.Clone(RequiredArgument(args, 0).ToObject());
          return Variant();
        },
        dispid);
  }
  if (name == u"GetArchiveStr") {
    return Method(
        u"GetArchiveStr",
        [](ZKControl& control, std::span<Variant>) { return Variant(control.GetArchiveStr()); },
        dispid);
  }
  if (name == u"ParseArchiveStr") {
    return Method(
        u"ParseArchiveStr",
        [](ZKControl& control, std::span<Variant> args) {
          return Variant(control.ParseArchiveStr(RequiredArgument(args, 0).ToText()));
        },
        dispid);
  }
  if (name == u"ExtraProp") return ExtraPropMember(dispid);
  if (name == u"ExtraAction") {
    return Method(
        u"ExtraAction",
        [](ZKControl& control, std::span<Variant> args) {
          return Variant(
              control.ExtraAction(RequiredArgument(args, 0).ToText(), OptionalArgument(args, 1)));
        },
        dispid);
  }
  if (name == u"Font") return FontMember(dispid);
  throw ZKError(error_number::kInternalError, u"No common member named " + std::u16string(name));
}

PropertyRow ZKControl::CommonRow(std::u16string_view name, int32_t dispid) {
  PropertyRow row = property_rows::Member(CommonMember(name, dispid));
  if (name == u"ControlGroup") {
    row.kind = ArchiveKind::kText;
    row.new_value = PropertyValue(u"");
    row.bag_default = PropertyValue(u"");
    row.store = [](ZKControl& control, const Variant& value) {
      control.StoreControlGroup(value.ToText());
    };
  } else if (name == u"DesignMode") {
    row.kind = ArchiveKind::kBool;
    row.new_value = PropertyValue(Variant(false));
    row.bag_default = PropertyValue(Variant(false));
    row.store = [](ZKControl& control, const Variant& value) {
      control.StoreDesignMode(value.ToBool());
    };
  } else if (name == u"Enabled") {
    row.kind = ArchiveKind::kBool;
    row.bag_default = PropertyValue(Variant(true));
    row.store = [](ZKControl& control, const Variant& value) {
      control.Surface().SetEnabled(value.ToBool());
    };
  } else if (name == u"Font") {
    row.kind = ArchiveKind::kFont;
    row.new_value = PropertyValue(Ambient::kFont);
    row.bag_default = PropertyValue(Ambient::kFont);
    // The control keeps its own copy; a bag without a usable font keeps the current one.
    row.store = [](ZKControl& control, const Variant& value) {
      if (FontRef font = variant_conversion::FromVariant<FontRef>(value)) {
        control.AdoptFont(MGuiUtils::CloneFont(font));
      }
    };
  }
  return row;
}

}  // namespace zk
