#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "enumerations/enumerations.h"
#include "foundation/variant.h"
#include "models/edit_list_rows.h"
#include "models/text_collation.h"
#include "models/typed_text_model.h"

namespace zk {

// What the edit list model tells the control that owns it.
class IEditListModelHost {
 public:
  virtual ~IEditListModelHost() = default;
  // The control's name: the source of the model's trace lines.
  virtual std::u16string Name() const = 0;
  // A cell was written through ItemList, TagList or Text: its row and its column (0 items,
  // 1 tags), passed on by reference as the control's Change event takes them.
  virtual void Change(int32_t& Index, int32_t& COLUMN) = 0;
  // A property that the host's property bag keeps was written.
  virtual void PropertyChanged(std::u16string_view property) = 0;
};

// The data behind an edit list: rows of an item text and a tag text, the current row, the first
// visible row, the placement rule of new rows and the typed text settings of both columns. It
// needs no user-interface service: the control hands it the comparison of the user's locale,
// the two layout settings that decide the sort key, and a host for its notifications.
//
// Row indexes count from 0. The current row (ListIndex) and the first visible row (TopIndex)
// follow the rows they name when rows are inserted or removed before them, as a list box's do:
// a removed current row leaves no current row, a removed first visible row makes the next one
// first, and NewIndex names no row after a removal (the row it named may be gone).
class CEditListModel {
 public:
  // Without a collation the rows sort by OrdinalCaselessCollation; without a host nothing is
  // notified and trace lines carry an empty source.
  explicit CEditListModel(std::shared_ptr<const TextCollation> collation = nullptr,
                          IEditListModelHost* host = nullptr);

  CEditListModel(const CEditListModel&) = delete;
  CEditListModel& operator=(const CEditListModel&) = delete;

  void SetHost(IEditListModelHost* host) noexcept { host_ = host; }
  // The comparison of later sorted insertions (the rows already there stay where they are).
  void SetCollation(std::shared_ptr<const TextCollation> collation);
  // The control's ShowTags and TagColumnPosition: with the tags shown on the left, a row added
  // with a tag is placed by its tag, otherwise by its item.
  void SetSortKeyLayout(bool ShowTags, zktELTagsPosition TagColumnPosition) noexcept;

  // Inserts a row. With an Index (not empty) the row goes there, 0 to ListCount(), whatever
  // SortOrder is; without one it is appended (zktSortNone) or goes before the first row whose
  // text in the key column sorts after the key (zktSortAtoZ; before it for zktSortZtoA), after
  // any rows equal to the key. An empty Tag becomes the decimal text of the row's index. Every
  // failure (an Index out of range or that is no number) adds nothing and is traced as
  // "AddItem (el: Item, Index)"; nothing reaches the caller.
  void AddItem(std::u16string_view Item, const Variant& Index = Variant(),
               std::u16string_view Tag = {}) noexcept;
  // Removes a row from both columns; false (and no change) for an index outside the rows.
  bool RemoveItem(int32_t Index);
  // Removes every row: ListIndex and NewIndex become -1, TopIndex 0.
  void Clear() noexcept;

  int32_t ListCount() const noexcept { return rows_.Count(); }
  // The current row, -1 for none.
  int32_t ListIndex() const noexcept { return list_index_; }
  // Makes a row current (-1: none); false (and no change) for another value.
  bool SetListIndex(int32_t New_ListIndex) noexcept;
  // Where the last AddItem put its row; -1 before the first insertion, after Clear and after a
  // removal.
  int32_t NewIndex() const noexcept { return new_index_; }
  int32_t TopIndex() const noexcept { return top_index_; }
  // A row of the list (0 on an empty list); false (and no change) for another value.
  bool SetTopIndex(int32_t New_TopIndex) noexcept;
  // The selection flag of a row: only the current row is selected. False outside the rows.
  bool Selected(int32_t Index) const noexcept;
  // True makes the row current; false clears the current row when it is that row. False (and
  // no change) for an index outside the rows.
  bool SetSelected(int32_t Index, bool New_Selected) noexcept;

  // The text of a row in one column; -1 stands for the current row. The empty text when there
  // is no current row, for a negative index and for an index past the last row.
  std::u16string ItemList(int32_t Index = -1) const;
  std::u16string TagList(int32_t Index = -1) const;
  // Replaces the text of a row (-1: the current row) and raises Change(row, column). A
  // negative row (no current row) changes nothing and raises nothing; a row past the last one
  // changes nothing, as the list ignores the write, but Change is raised. In every case the
  // property ("ItemList" or "TagList") is marked as changed.
  void SetItemList(int32_t Index, std::u16string_view New_ItemList);
  void SetTagList(int32_t Index, std::u16string_view New_TagList);
  // ItemList(-1) and SetItemList(-1, ...).
  std::u16string Text() const { return ItemList(-1); }
  void SetText(std::u16string_view New_Text) { SetItemList(-1, New_Text); }

  // The first row whose text equals the argument exactly (case-sensitive, nothing trimmed), or
  // -1. FindItem only looks; SelectItem also makes the found row current.
  int32_t FindItem(std::u16string_view p_item) const noexcept;
  int32_t FindTag(std::u16string_view p_tag) const noexcept;
  int32_t SelectItem(std::u16string_view p_item) noexcept;
  int32_t SelectTag(std::u16string_view p_tag) noexcept;

  zktSortOrder SortOrder() const noexcept { return sort_order_; }
  // 0 to 2; another value is ignored (false). Existing rows are never reordered.
  bool SetSortOrder(int32_t New_SortOrder);

  // The typed text settings of the in-place editor for each column. The model stores them and
  // never checks a row's text against them.
  const TypedTextSettings& ItemSettings() const noexcept { return item_settings_; }
  const TypedTextSettings& TagSettings() const noexcept { return tag_settings_; }
  // Direct assignment, as a property bag read does: no range check, no notification.
  TypedTextSettings& MutableItemSettings() noexcept { return item_settings_; }
  TypedTextSettings& MutableTagSettings() noexcept { return tag_settings_; }

  // The sixteen settings as properties. A write stores the value and marks the property as
  // changed; a DataType outside 0 to 5, a ForceTextCase outside 0 to 2 or a negative
  // MaxLength is ignored (false, nothing marked).
  zktTextDataType ItemDataType() const noexcept { return item_settings_.DataType; }
  bool SetItemDataType(int32_t New_ItemDataType);
  const std::u16string& ItemDecimalSep() const noexcept { return item_settings_.DecimalSep; }
  void SetItemDecimalSep(std::u16string_view New_ItemDecimalSep);
  const std::u16string& ItemDateSep() const noexcept { return item_settings_.DateSep; }
  void SetItemDateSep(std::u16string_view New_ItemDateSep);
  const std::u16string& ItemHourSep() const noexcept { return item_settings_.HourSep; }
  void SetItemHourSep(std::u16string_view New_ItemHourSep);
  const std::u16string& ItemDateHourSep() const noexcept { return item_settings_.DateHourSep; }
  void SetItemDateHourSep(std::u16string_view New_ItemDateHourSep);
  int32_t ItemMaxLength() const noexcept { return item_settings_.MaxLength; }
  bool SetItemMaxLength(int32_t New_ItemMaxLength);
  const std::u16string& ItemTextFormat() const noexcept { return item_settings_.TextFormat; }
  void SetItemTextFormat(std::u16string_view New_ItemTextFormat);
  zktTextForceCase ItemForceTextCase() const noexcept { return item_settings_.ForceTextCase; }
  bool SetItemForceTextCase(int32_t New_ItemForceTextCase);

  zktTextDataType TagDataType() const noexcept { return tag_settings_.DataType; }
  bool SetTagDataType(int32_t New_TagDataType);
  const std::u16string& TagDecimalSep() const noexcept { return tag_settings_.DecimalSep; }
  void SetTagDecimalSep(std::u16string_view New_TagDecimalSep);
  const std::u16string& TagDateSep() const noexcept { return tag_settings_.DateSep; }
  void SetTagDateSep(std::u16string_view New_TagDateSep);
  const std::u16string& TagHourSep() const noexcept { return tag_settings_.HourSep; }
  void SetTagHourSep(std::u16string_view New_TagHourSep);
  const std::u16string& TagDateHourSep() const noexcept { return tag_settings_.DateHourSep; }
  void SetTagDateHourSep(std::u16string_view New_TagDateHourSep);
  int32_t TagMaxLength() const noexcept { return tag_settings_.MaxLength; }
  bool SetTagMaxLength(int32_t New_TagMaxLength);
  const std::u16string& TagTextFormat() const noexcept { return tag_settings_.TextFormat; }
  void SetTagTextFormat(std::u16string_view New_TagTextFormat);
  zktTextForceCase TagForceTextCase() const noexcept { return tag_settings_.ForceTextCase; }
  bool SetTagForceTextCase(int32_t New_TagForceTextCase);

  // The list archive: the item texts and the tag texts in row order, each a string list of the
  // archive codec (every text quoted, joined by "|"); no rows give two empty texts.
  std::u16string ItemsArchive() const;
  std::u16string TagsArchive() const;
  // Reads the two string lists back: Clear, then AddItem(item i, no Index, tag i) for every
  // item, so the rows are placed by SortOrder again and empty tags become index tags. A tag
  // list shorter than the item list adds the rows that have a tag, then raises error 9
  // (subscript out of range); the control's archive reading reports it.
  void ParseListArchive(std::u16string_view items, std::u16string_view tags);

  // The property bag as the rows see it: read a key with a default, write a key with a value
  // and a default (a value equal to the default is not stored).
  using BagReader = std::function<Variant(std::u16string_view key, const Variant& default_value)>;
  using BagWriter = std::function<void(std::u16string_view key, const Variant& value,
                                       const Variant& default_value)>;
  // "ItemCount" (default 0), then "TagList" i and "ItemList" i for every row (default "").
  void WriteRows(const BagWriter& write) const;
  // Appends ItemCount rows read from "ItemList" i and "TagList" i with the default "0", in
  // their stored order, with their stored tags: no sorted placement, no index tags. A value
  // that is no text or number raises the conversion error (13) with the rows read so far kept.
  void ReadRows(const BagReader& read);

  // Read access to the rows for the control's view and for tests.
  const EditListRows& Rows() const noexcept { return rows_; }

 private:
  // The tags are shown in the column the user sees first.
  bool TagsLead() const noexcept;
  int32_t PlaceOf(std::u16string_view Item, const Variant& Index, std::u16string_view Tag,
                  EditListRows::Placement& placement, bool& placed_by_search);
  void Insert(int32_t position, std::u16string_view Item, std::u16string_view Tag,
              const EditListRows::Placement* placement);
  std::u16string CellText(int column, int32_t Index) const;
  void WriteCell(int column, int32_t Index, std::u16string_view text);
  void Notify(std::u16string_view property);
  std::u16string TraceSource() const;

  EditListRows rows_;
  IEditListModelHost* host_;
  int32_t list_index_ = -1;
  int32_t new_index_ = -1;
  int32_t top_index_ = 0;
  zktSortOrder sort_order_ = zktSortNone;
  bool show_tags_ = false;
  zktELTagsPosition tag_column_position_ = zktTagPosLeft;
  TypedTextSettings item_settings_;
  TypedTextSettings tag_settings_;
};

}  // namespace zk
