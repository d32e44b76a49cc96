#include "models/edit_list_model.h"

#include <utility>
#include <vector>

#include "foundation/archive_utils.h"
#include "foundation/debug_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

constexpr int kItems = EditListRows::kItemColumn;
constexpr int kTags = EditListRows::kTagColumn;

// "0", "12", "-3": the index tag of a row and the suffix of the bag keys.
std::u16string Decimal(int64_t value) {
  const bool negative = value < 0;
  uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
  std::u16string digits;
  do {
    digits.insert(digits.begin(), static_cast<char16_t>(u'0' + magnitude % 10));
    magnitude /= 10;
  } while (magnitude != 0);
  if (negative) digits.insert(digits.begin(), u'-');
  return digits;
}

// The Index argument as the trace shows it; a value that has no text shows as nothing.
std::u16string IndexText(const Variant& Index) noexcept {
  try {
    return Index.ToText();
  } catch (...) {
    return {};
  }
}

}  // namespace

CEditListModel::CEditListModel(std::shared_ptr<const TextCollation> collation,
                               IEditListModelHost* host)
    : rows_(std::move(collation)), host_(host) {}

void CEditListModel::SetCollation(std::shared_ptr<const TextCollation> collation) {
  rows_.SetCollation(std::move(collation));
}

void CEditListModel::SetSortKeyLayout(bool ShowTags, zktELTagsPosition TagColumnPosition) noexcept {
  show_tags_ = ShowTags;
  tag_column_position_ = TagColumnPosition;
  // The tags can no longer be a sort key: keeping their order would only cost comparisons.
  if (!TagsLead()) rows_.ForgetOrder(kTags);
}

bool CEditListModel::TagsLead() const noexcept {
  return show_tags_ && tag_column_position_ == zktTagPosLeft;
}

void CEditListModel::AddItem(std::u16string_view Item, const Variant& Index,
                             std::u16string_view Tag) noexcept {
  try {
    EditListRows::Placement placement;
    bool placed_by_search = false;
    const int32_t position = PlaceOf(Item, Index, Tag, placement, placed_by_search);
    Insert(position, Item, Tag, placed_by_search ? &placement : nullptr);
  } catch (...) {
    try {
      MDebugUtils::TraceError(
          TraceSource(), u"AddItem (el: " + std::u16string(Item) + u", " + IndexText(Index) + u")");
    } catch (...) {
      // Not even the trace line could be built (out of memory): the failure stays silent.
    }
  }
}

int32_t CEditListModel::PlaceOf(std::u16string_view Item, const Variant& Index,
                                std::u16string_view Tag, EditListRows::Placement& placement,
                                bool& placed_by_search) {
  if (!Index.IsEmpty()) {
    const int32_t position = Index.ToInt32();
    if (position < 0 || position > rows_.Count()) {
      throw ZKError(error_number::kInvalidProcedureCall, u"Invalid procedure call or argument");
    }
    return position;
  }
  if (sort_order_ == zktSortNone) return rows_.Count();
  // The list is ordered by the column the user sees first: the tags when they are shown on
  // the left, for a row that has a tag.
  const bool by_tag = !Tag.empty() && TagsLead();
  const int wanted = sort_order_ == zktSortAtoZ ? -1 : 1;
  placement = rows_.FindPlacement(by_tag ? kTags : kItems, by_tag ? Tag : Item, wanted);
  placed_by_search = true;
  return placement.index;
}

void CEditListModel::Insert(int32_t position, std::u16string_view Item, std::u16string_view Tag,
                            const EditListRows::Placement* placement) {
  // A row added without a tag carries the index it was inserted at, for good.
  std::u16string tag = Tag.empty() ? Decimal(position) : std::u16string(Tag);
  rows_.Insert(position, Item, tag, placement);
  new_index_ = position;
  if (list_index_ >= position) ++list_index_;
  if (top_index_ > position) ++top_index_;
}

bool CEditListModel::RemoveItem(int32_t Index) {
  if (Index < 0 || Index >= rows_.Count()) return false;
  rows_.Erase(Index);
  if (list_index_ == Index) {
    list_index_ = -1;
  } else if (list_index_ > Index) {
    --list_index_;
  }
  if (top_index_ > Index) --top_index_;
  if (top_index_ >= rows_.Count()) top_index_ = rows_.Count() > 0 ? rows_.Count() - 1 : 0;
  new_index_ = -1;
  return true;
}

void CEditListModel::Clear() noexcept {
  rows_.Clear();
  list_index_ = -1;
  new_index_ = -1;
  top_index_ = 0;
}

bool CEditListModel::SetListIndex(int32_t New_ListIndex) noexcept {
  if (New_ListIndex < -1 || New_ListIndex >= rows_.Count()) return false;
  list_index_ = New_ListIndex;
  return true;
}

bool CEditListModel::SetTopIndex(int32_t New_TopIndex) noexcept {
  if (New_TopIndex < 0 || (New_TopIndex > 0 && New_TopIndex >= rows_.Count())) return false;
  top_index_ = New_TopIndex;
  return true;
}

bool CEditListModel::Selected(int32_t Index) const noexcept {
  return Index >= 0 && Index == list_index_;
}

bool CEditListModel::SetSelected(int32_t Index, bool New_Selected) noexcept {
  if (Index < 0 || Index >= rows_.Count()) return false;
  if (New_Selected) {
    list_index_ = Index;
  } else if (list_index_ == Index) {
    list_index_ = -1;
  }
  return true;
}

std::u16string CEditListModel::CellText(int column, int32_t Index) const {
  const int32_t row = Index == -1 ? list_index_ : Index;
  if (row < 0 || row >= rows_.Count()) return {};
  return std::u16string(rows_.Text(column, row));
}

std::u16string CEditListModel::ItemList(int32_t Index) const {
  return CellText(kItems, Index);
}

std::u16string CEditListModel::TagList(int32_t Index) const {
  return CellText(kTags, Index);
}

void CEditListModel::WriteCell(int column, int32_t Index, std::u16string_view text) {
  const int32_t row = Index == -1 ? list_index_ : Index;
  if (row >= 0) {
    if (row < rows_.Count()) rows_.SetText(column, row, text);
    if (host_ != nullptr) {
      int32_t changed_row = row;
      int32_t changed_column = column;
      host_->Change(changed_row, changed_column);
    }
  }
  Notify(column == kItems ? u"ItemList" : u"TagList");
}

void CEditListModel::SetItemList(int32_t Index, std::u16string_view New_ItemList) {
  WriteCell(kItems, Index, New_ItemList);
}

void CEditListModel::SetTagList(int32_t Index, std::u16string_view New_TagList) {
  WriteCell(kTags, Index, New_TagList);
}

int32_t CEditListModel::FindItem(std::u16string_view p_item) const noexcept {
  return rows_.FindExact(kItems, p_item);
}

int32_t CEditListModel::FindTag(std::u16string_view p_tag) const noexcept {
  return rows_.FindExact(kTags, p_tag);
}

int32_t CEditListModel::SelectItem(std::u16string_view p_item) noexcept {
  const int32_t found = FindItem(p_item);
  if (found >= 0) SetListIndex(found);
  return found;
}

int32_t CEditListModel::SelectTag(std::u16string_view p_tag) noexcept {
  const int32_t found = FindTag(p_tag);
  if (found >= 0) SetListIndex(found);
  return found;
}

bool CEditListModel::SetSortOrder(int32_t New_SortOrder) {
  if (New_SortOrder < zktSortNone || New_SortOrder > zktSortZtoA) return false;
  sort_order_ = static_cast<zktSortOrder>(New_SortOrder);
  if (sort_order_ == zktSortNone) {
    // Nothing is placed by comparison until a sort order comes back.
    rows_.ForgetOrder(kItems);
    rows_.ForgetOrder(kTags);
  }
  Notify(u"SortOrder");
  return true;
}

void CEditListModel::Notify(std::u16string_view property) {
  if (host_ != nullptr) host_->PropertyChanged(property);
}

std::u16string CEditListModel::TraceSource() const {
  return host_ != nullptr ? host_->Name() : std::u16string();
}

// The sixteen typed text settings: store, mark, nothing else.

bool CEditListModel::SetItemDataType(int32_t New_ItemDataType) {
  if (!SetDataType(item_settings_, New_ItemDataType)) return false;
  Notify(u"ItemDataType");
  return true;
}

void CEditListModel::SetItemDecimalSep(std::u16string_view New_ItemDecimalSep) {
  item_settings_.DecimalSep = New_ItemDecimalSep;
  Notify(u"ItemDecimalSep");
}

void CEditListModel::SetItemDateSep(std::u16string_view New_ItemDateSep) {
  item_settings_.DateSep = New_ItemDateSep;
  Notify(u"ItemDateSep");
}

void CEditListModel::SetItemHourSep(std::u16string_view New_ItemHourSep) {
  item_settings_.HourSep = New_ItemHourSep;
  Notify(u"ItemHourSep");
}

void CEditListModel::SetItemDateHourSep(std::u16string_view New_ItemDateHourSep) {
  item_settings_.DateHourSep = New_ItemDateHourSep;
  Notify(u"ItemDateHourSep");
}

bool CEditListModel::SetItemMaxLength(int32_t New_ItemMaxLength) {
  if (New_ItemMaxLength < 0) return false;
  item_settings_.MaxLength = New_ItemMaxLength;
  Notify(u"ItemMaxLength");
  return true;
}

void CEditListModel::SetItemTextFormat(std::u16string_view New_ItemTextFormat) {
  item_settings_.TextFormat = New_ItemTextFormat;
  Notify(u"ItemTextFormat");
}

bool CEditListModel::SetItemForceTextCase(int32_t New_ItemForceTextCase) {
  if (!SetForceTextCase(item_settings_, New_ItemForceTextCase)) return false;
  Notify(u"ItemForceTextCase");
  return true;
}

bool CEditListModel::SetTagDataType(int32_t New_TagDataType) {
  if (!SetDataType(tag_settings_, New_TagDataType)) return false;
  Notify(u"TagDataType");
  return true;
}

void CEditListModel::SetTagDecimalSep(std::u16string_view New_TagDecimalSep) {
  tag_settings_.DecimalSep = New_TagDecimalSep;
  Notify(u"TagDecimalSep");
}

void CEditListModel::SetTagDateSep(std::u16string_view New_TagDateSep) {
  tag_settings_.DateSep = New_TagDateSep;
  Notify(u"TagDateSep");
}

void CEditListModel::SetTagHourSep(std::u16string_view New_TagHourSep) {
  tag_settings_.HourSep = New_TagHourSep;
  Notify(u"TagHourSep");
}

void CEditListModel::SetTagDateHourSep(std::u16string_view New_TagDateHourSep) {
  tag_settings_.DateHourSep = New_TagDateHourSep;
  Notify(u"TagDateHourSep");
}

bool CEditListModel::SetTagMaxLength(int32_t New_TagMaxLength) {
  if (New_TagMaxLength < 0) return false;
  tag_settings_.MaxLength = New_TagMaxLength;
  Notify(u"TagMaxLength");
  return true;
}

void CEditListModel::SetTagTextFormat(std::u16string_view New_TagTextFormat) {
  tag_settings_.TextFormat = New_TagTextFormat;
  Notify(u"TagTextFormat");
}

bool CEditListModel::SetTagForceTextCase(int32_t New_TagForceTextCase) {
  if (!SetForceTextCase(tag_settings_, New_TagForceTextCase)) return false;
  Notify(u"TagForceTextCase");
  return true;
}

// The list archive and the property bag.

std::u16string CEditListModel::ItemsArchive() const {
  std::vector<std::u16string> items;
  items.reserve(static_cast<size_t>(rows_.Count()));
  rows_.ForEachRow(
      [&](std::u16string_view item, std::u16string_view) { items.emplace_back(item); });
  return MArchiveUtils::ArchiveJoinStrings(items);
}

std::u16string CEditListModel::TagsArchive() const {
  std::vector<std::u16string> tags;
  tags.reserve(static_cast<size_t>(rows_.Count()));
  rows_.ForEachRow([&](std::u16string_view, std::u16string_view tag) { tags.emplace_back(tag); });
  return MArchiveUtils::ArchiveJoinStrings(tags);
}

void CEditListModel::ParseListArchive(std::u16string_view items, std::u16string_view tags) {
  const std::vector<std::u16string> item_texts = MArchiveUtils::ArchiveSplitStrings(items);
  const std::vector<std::u16string> tag_texts = MArchiveUtils::ArchiveSplitStrings(tags);
  Clear();
  for (size_t i = 0; i < item_texts.size(); ++i) {
    if (i >= tag_texts.size())
      throw ZKError(error_number::kSubscriptOutOfRange, u"Subscript out of range");
    AddItem(item_texts[i], Variant(), tag_texts[i]);
  }
}

void CEditListModel::WriteRows(const BagWriter& write) const {
  write(u"ItemCount", Variant(rows_.Count()), Variant(int32_t{0}));
  int64_t row = 0;
  rows_.ForEachRow([&](std::u16string_view item, std::u16string_view tag) {
    const std::u16string suffix = Decimal(row++);
    write(u"TagList" + suffix, Variant(std::u16string(tag)), Variant(u""));
    write(u"ItemList" + suffix, Variant(std::u16string(item)), Variant(u""));
  });
}

void CEditListModel::ReadRows(const BagReader& read) {
  const int32_t count = read(u"ItemCount", Variant(u"0")).ToInt32();
  for (int32_t row = 0; row < count; ++row) {
    const std::u16string suffix = Decimal(row);
    std::u16string item = read(u"ItemList" + suffix, Variant(u"0")).ToText();
    std::u16string tag = read(u"TagList" + suffix, Variant(u"0")).ToText();
    const int32_t position = rows_.Count();
    rows_.Insert(position, item, tag);
    new_index_ = position;
  }
}

}  // namespace zk
