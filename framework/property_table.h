#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "foundation/variant.h"
#include "framework/automation.h"
#include "framework/variant_conversion.h"
#include "platform/host.h"

namespace zk {

class ZKControl;

// How an archive element is written and read. A string list element is a list of texts that
// the archive codec joined already (ArchiveJoinStrings): it goes into the string as it is.
enum class ArchiveKind { kText, kNumber, kBool, kFont, kStringList };

// One element of a control's archive string after the extender block. The element is read and
// written through the control's public property of that name, so that parsing validates,
// notifies and lays out as a host's call does; `get` and `set` replace that for an element that
// no property carries.
struct ArchiveField {
  ArchiveKind kind;
  std::u16string_view property;
  std::function<Variant(ZKControl&)> get = {};
  std::function<void(ZKControl&, const Variant&)> set = {};
  // What an element without a property carries, for people reading archive strings.
  std::u16string_view description = {};
};

// The container's values that a new control or a property bag default may take.
enum class Ambient { kBackColor, kForeColor, kFont };

// A property's value for a new control or its property-bag default: fixed, or the container's
// ambient value at the time it is asked for.
class PropertyValue {
 public:
  PropertyValue() = default;
  PropertyValue(Variant fixed) : fixed_(std::move(fixed)), present_(true) {}  // NOLINT: implicit
  PropertyValue(const char16_t* text) : PropertyValue(Variant(text)) {}       // NOLINT
  PropertyValue(Ambient ambient)
      : ambient_(ambient), present_(true), from_ambient_(true) {}  // NOLINT

  bool Present() const { return present_; }
  bool FromAmbient() const { return from_ambient_; }
  Ambient AmbientSource() const { return ambient_; }
  const Variant& Fixed() const { return fixed_; }
  // The value itself; an ambient one is read from `ambient` now.
  Variant Resolve(IAmbientProperties& ambient) const;

 private:
  Variant fixed_;
  Ambient ambient_ = Ambient::kBackColor;
  bool present_ = false;
  bool from_ambient_ = false;
};

// How a new control takes a property's starting value: stored directly, as a stored property
// is read, or through the public setter, as a host's assignment (which notifies).
enum class InitBy { kStore, kSetter };

// One property of a control, declared once: its automation member (name, dispatch identifier,
// getter and setter), its value kind, the new control's value, the property-bag default and key,
// and its archive element. The same row may stand for an element that no public property
// carries (an archive element or a bag key of internal state): its member then has no name.
struct PropertyRow {
  MemberInfo member;
  ArchiveKind kind = ArchiveKind::kNumber;
  // Element of the archive string (1 = the first after the extender block); 0: not archived.
  int archive_place = 0;
  std::u16string_view description;
  PropertyValue new_value;
  InitBy init_by = InitBy::kStore;
  // The bag key; empty: the member's name.
  std::u16string_view bag_key;
  // Absent: not persisted in the property bag.
  PropertyValue bag_default;
  // Places in the bag's read and write orders; 0 everywhere: the interface order. A write place
  // of 0 with a read place means the write order is the read order.
  int bag_read_place = 0;
  int bag_write_place = 0;
  // Stores a value without checks or notification (bag reads, new controls).
  std::function<void(ZKControl&, const Variant&)> store;
  // The value to persist or archive when the row has no getter, or when it persists something
  // other than what its getter reports.
  std::function<Variant(ZKControl&)> stored;

  std::u16string_view Name() const { return member.name; }
  std::u16string_view BagKey() const { return bag_key.empty() ? member.name : bag_key; }
  bool Published() const { return !member.name.empty(); }
};

namespace property_rows {

// The archive kind of a C++ value type.
template <typename T>
constexpr ArchiveKind KindOf() {
  using V = std::remove_cvref_t<T>;
  if constexpr (std::is_same_v<V, bool>) {
    return ArchiveKind::kBool;
  } else if constexpr (std::is_same_v<V, std::u16string> ||
                       std::is_same_v<V, std::u16string_view>) {
    return ArchiveKind::kText;
  } else if constexpr (std::is_arithmetic_v<V> || std::is_enum_v<V>) {
    return ArchiveKind::kNumber;
  } else {
    return ArchiveKind::kFont;
  }
}

// A row under construction for control class C whose values have type T. The builder methods
// add the row's columns; the row converts to a PropertyRow where the table is made.
template <typename C, typename T>
class Row {
 public:
  explicit Row(PropertyRow row) : row_(std::move(row)) {}

  // Element `place` of the archive string.
  Row&& Archive(int place) && {
    row_.archive_place = place;
    return std::move(*this);
  }
  // The new control's value, stored or assigned through the setter.
  Row&& New(PropertyValue value, InitBy by = InitBy::kStore) && {
    row_.new_value = std::move(value);
    row_.init_by = by;
    return std::move(*this);
  }
  // Persisted with this default; `read_place` and `write_place` when the bag's orders are not
  // the interface order.
  Row&& Bag(PropertyValue default_value, int read_place = 0, int write_place = 0) && {
    row_.bag_default = std::move(default_value);
    row_.bag_read_place = read_place;
    row_.bag_write_place = write_place;
    return std::move(*this);
  }
  // Persisted under another key than the member's name.
  Row&& Key(std::u16string_view key) && {
    row_.bag_key = key;
    return std::move(*this);
  }
  // How a value read from the bag (or a new control's value) is stored: a field of the control
  // or a function of it.
  template <typename F>
  Row&& Store(F store) && {
    if constexpr (std::is_member_object_pointer_v<F>) {
      row_.store = [store](ZKControl& control, const Variant& value) {
        static_cast<C&>(control).*store = variant_conversion::FromVariant<
            std::remove_cvref_t<decltype(static_cast<C&>(control).*store)>>(value);
      };
    } else {
      row_.store = [store](ZKControl& control, const Variant& value) {
        store(static_cast<C&>(control), variant_conversion::FromVariant<T>(value));
      };
    }
    return std::move(*this);
  }
  // What is persisted or archived, when it is not what the getter reports.
  template <typename F>
  Row&& Stored(F stored) && {
    row_.stored = [stored](ZKControl& control) {
      return variant_conversion::ToVariant(stored(static_cast<C&>(control)));
    };
    return std::move(*this);
  }
  // Describes an archive element that no property carries.
  Row&& Describe(std::u16string_view description) && {
    row_.description = description;
    return std::move(*this);
  }

  operator PropertyRow() && { return std::move(row_); }  // NOLINT: rows convert where tabled

 private:
  PropertyRow row_;
};

// A published property read and written through C's getter and setter.
template <typename C, typename G, typename S>
Row<C, std::remove_cvref_t<S>> Property(std::u16string_view name, G (C::*get)() const,
                                        void (C::*set)(S), int32_t dispid = 0) {
  PropertyRow row;
  row.member = automation::Property(name, get, set, dispid);
  row.kind = KindOf<S>();
  return Row<C, std::remove_cvref_t<S>>(std::move(row));
}

// A published property that can only be read.
template <typename C, typename G>
Row<C, std::remove_cvref_t<G>> ReadOnly(std::u16string_view name, G (C::*get)() const,
                                        int32_t dispid = 0) {
  PropertyRow row;
  row.member = automation::ReadOnlyProperty(name, get, dispid);
  row.kind = KindOf<G>();
  return Row<C, std::remove_cvref_t<G>>(std::move(row));
}

// Any published member built elsewhere (a method, a property with its own argument handling).
inline PropertyRow Member(MemberInfo member) {
  PropertyRow row;
  row.member = std::move(member);
  return row;
}

// State that no public property carries: an archive element or a bag key of its own. `Stored`
// reads it and `Store` writes it; for an archive element, the archive reads it back through
// `Store` as well.
template <typename C, typename T>
Row<C, T> Internal(ArchiveKind kind) {
  PropertyRow row;
  row.kind = kind;
  return Row<C, T>(std::move(row));
}

}  // namespace property_rows

// A control kind's properties, methods and events, declared once. The automation table (in the
// rows' order, which is the interface order), the archive fields (by archive place), a new
// control's values and the property bag's reads and writes all come from it.
class PropertyTable {
 public:
  PropertyTable(std::vector<PropertyRow> rows, std::vector<std::u16string_view> events);

  const AutomationTable& Automation() const { return automation_; }
  std::span<const ArchiveField> ArchiveFields() const { return archive_fields_; }
  std::span<const PropertyRow> Rows() const { return rows_; }
  // The published row of that name (compared without regard to ASCII case), or null.
  const PropertyRow* Find(std::u16string_view name) const;

  // Gives a new control its starting values, in the rows' order.
  void InitProperties(ZKControl& control, IAmbientProperties& ambient) const;
  // Stores every persisted value read from the bag, in the bag's read order; no notification.
  void ReadProperties(ZKControl& control, IPropertyBag& bag, IAmbientProperties& ambient) const;
  // Writes every persisted value with its default, in the bag's write order.
  void WriteProperties(ZKControl& control, IPropertyBag& bag, IAmbientProperties& ambient) const;

  // The rows that are persisted, in the bag's read (or write) order.
  std::vector<const PropertyRow*> BagReadOrder() const { return bag_read_; }
  std::vector<const PropertyRow*> BagWriteOrder() const { return bag_write_; }

  // The value a row persists or archives: its own `stored` function or the getter.
  static Variant StoredValue(const PropertyRow& row, ZKControl& control);

 private:
  std::vector<PropertyRow> rows_;
  AutomationTable automation_;
  std::vector<ArchiveField> archive_fields_;
  std::vector<const PropertyRow*> bag_read_;
  std::vector<const PropertyRow*> bag_write_;
};

// The variant that persists a colour (a signed 32-bit number, as hosts see OLE_COLOR values).
inline Variant ColorValue(OLE_COLOR color) {
  return variant_conversion::ToVariant(color);
}

}  // namespace zk
