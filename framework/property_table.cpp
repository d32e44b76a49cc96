#include "framework/property_table.h"

#include <algorithm>
#include <string>
#include <utility>

#include "foundation/zk_error.h"
#include "framework/control.h"

namespace zk {
namespace {

std::vector<MemberInfo> PublishedMembers(const std::vector<PropertyRow>& rows) {
  std::vector<MemberInfo> members;
  for (const PropertyRow& row : rows) {
    if (row.Published()) members.push_back(row.member);
  }
  return members;
}

[[noreturn]] void TableError(std::u16string_view what, std::u16string_view name) {
  throw ZKError(error_number::kInternalError,
                u"Property table: " + std::u16string(what) + u" (" + std::u16string(name) + u")");
}

// The persisted rows in the order that `place` gives them; rows without places keep the
// interface order, and a table gives places to all its persisted rows or to none.
std::vector<const PropertyRow*> BagOrder(const std::vector<PropertyRow>& rows,
                                         int (*place)(const PropertyRow&)) {
  std::vector<const PropertyRow*> order;
  for (const PropertyRow& row : rows) {
    if (row.bag_default.Present()) order.push_back(&row);
  }
  const bool placed = std::any_of(order.begin(), order.end(),
                                  [place](const PropertyRow* row) { return place(*row) != 0; });
  if (!placed) return order;
  for (const PropertyRow* row : order) {
    if (place(*row) == 0) TableError(u"a persisted row without a bag place", row->BagKey());
  }
  std::stable_sort(order.begin(), order.end(), [place](const PropertyRow* a, const PropertyRow* b) {
    return place(*a) < place(*b);
  });
  return order;
}

int ReadPlace(const PropertyRow& row) {
  return row.bag_read_place;
}

int WritePlace(const PropertyRow& row) {
  return row.bag_write_place != 0 ? row.bag_write_place : row.bag_read_place;
}

}  // namespace

Variant PropertyValue::Resolve(IAmbientProperties& ambient) const {
  if (!from_ambient_) return fixed_;
  switch (ambient_) {
    case Ambient::kBackColor:
      return ColorValue(ambient.BackColor());
    case Ambient::kForeColor:
      return ColorValue(ambient.ForeColor());
    case Ambient::kFont:
      return Variant(ObjectRef(ambient.Font()));
  }
  return fixed_;
}

PropertyTable::PropertyTable(std::vector<PropertyRow> rows, std::vector<std::u16string_view> events)
    : rows_(std::move(rows)), automation_(PublishedMembers(rows_), std::move(events)) {
  std::vector<const PropertyRow*> archived;
  for (const PropertyRow& row : rows_) {
    if (row.archive_place > 0) archived.push_back(&row);
    if (!row.Published() && (row.archive_place > 0 || row.bag_default.Present()) &&
        (!row.store || !row.stored)) {
      TableError(u"internal state needs Store and Stored", row.description);
    }
    if ((row.bag_default.Present() || (row.new_value.Present() && row.init_by == InitBy::kStore)) &&
        !row.store) {
      TableError(u"a stored value needs Store", row.BagKey());
    }
    if (row.new_value.Present() && row.init_by == InitBy::kSetter && !row.member.set) {
      TableError(u"a value through the setter needs a setter", row.Name());
    }
  }
  std::sort(archived.begin(), archived.end(), [](const PropertyRow* a, const PropertyRow* b) {
    return a->archive_place < b->archive_place;
  });
  for (size_t i = 0; i < archived.size(); ++i) {
    const PropertyRow& row = *archived[i];
    if (row.archive_place != static_cast<int>(i) + 1) {
      TableError(u"archive places must run from 1 without gaps", row.Name());
    }
    ArchiveField field{row.kind, row.Name()};
    if (!row.Published()) {
      field.get = row.stored;
      field.set = row.store;
      field.description = row.description;
    }
    archive_fields_.push_back(std::move(field));
  }
  bag_read_ = BagOrder(rows_, &ReadPlace);
  bag_write_ = BagOrder(rows_, &WritePlace);
}

const PropertyRow* PropertyTable::Find(std::u16string_view name) const {
  for (const PropertyRow& row : rows_) {
    if (row.Published() && MemberNameEquals(row.Name(), name)) return &row;
  }
  return nullptr;
}

Variant PropertyTable::StoredValue(const PropertyRow& row, ZKControl& control) {
  if (row.stored) return row.stored(control);
  return row.member.get(control, {});
}

void PropertyTable::InitProperties(ZKControl& control, IAmbientProperties& ambient) const {
  for (const PropertyRow& row : rows_) {
    if (!row.new_value.Present()) continue;
    const Variant value = row.new_value.Resolve(ambient);
    if (row.init_by == InitBy::kSetter) {
      row.member.set(control, value, {});
    } else {
      row.store(control, value);
    }
  }
}

void PropertyTable::ReadProperties(ZKControl& control, IPropertyBag& bag,
                                   IAmbientProperties& ambient) const {
  for (const PropertyRow* row : bag_read_) {
    row->store(control, bag.ReadProperty(row->BagKey(), row->bag_default.Resolve(ambient)));
  }
}

void PropertyTable::WriteProperties(ZKControl& control, IPropertyBag& bag,
                                    IAmbientProperties& ambient) const {
  for (const PropertyRow* row : bag_write_) {
    bag.WriteProperty(row->BagKey(), StoredValue(*row, control), row->bag_default.Resolve(ambient));
  }
}

}  // namespace zk
