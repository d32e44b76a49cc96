#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/text/text_edit.h"
#include "enumerations/enumerations.h"
#include "framework/constituent.h"
#include "framework/control.h"
#include "models/edit_list_model.h"
#include "platform/elements.h"
#include "services/subclass.h"

namespace zk {

// A two-column list of rows (an item and a tag) whose cells the user edits in place. Each
// column is a list box of the platform (lstItems, lstTags) and the two are kept at the same
// first visible row and the same current row, so that they read as one list. A cell is edited
// in a ZKTextEdit part (tedValues) laid exactly over it, with the typed settings of its column,
// and written back when the editor loses the focus. Without a border the list boxes lie one
// pixel outside the control and a one-pixel picture box (picBorderMask) hides the inner border
// line at the seam of the two columns. The rows, their sorted placement and the typed settings
// are CEditListModel's; the control mirrors the rows into its two list boxes.
class ZKEditList final : public ZKControl {
 public:
  explicit ZKEditList(IControlSite& site);
  ~ZKEditList() override;

  std::u16string_view Kind() const override { return u"ZKEditList"; }
  const PropertyTable& Properties() const override;

  // ---- Look ----
  // The item column's background while enabled (the value last written).
  OLE_COLOR BackColor() const { return back_color_; }
  void SetBackColor(OLE_COLOR New_BackColor);
  // The item list box's text colour.
  OLE_COLOR ForeColor() const;
  void SetForeColor(OLE_COLOR New_ForeColor);
  // The tag list box's current background: the disabled colour while the control is disabled.
  OLE_COLOR TagBackColor() const;
  void SetTagBackColor(OLE_COLOR New_TagBackColor);
  OLE_COLOR TagForeColor() const;
  void SetTagForeColor(OLE_COLOR New_TagForeColor);
  // Twips; 0 or less is ignored.
  float TagColumnWidth() const { return tag_column_width_; }
  void SetTagColumnWidth(double New_TagColumnWidth);
  bool ShowTags() const { return show_tags_; }
  void SetShowTags(bool New_ShowTags);
  // zktTagPosLeft or zktTagPosRight; other values are ignored.
  zktELTagsPosition TagColumnPosition() const { return tag_column_position_; }
  void SetTagColumnPosition(int32_t New_TagColumnPosition);
  // How many times its own width each column can be scrolled sideways; 0 and 1 leave the
  // extents alone, negative values are ignored.
  int32_t HorizontalScrollBar() const { return horizontal_scroll_bar_; }
  void SetHorizontalScrollBar(int32_t New_HorizontalScrollBar);
  // zktApFlat or zktAp3d (3-D only shows with a border); other values are ignored.
  zktAppearance Appearance() const { return appearance_; }
  void SetAppearance(int32_t New_Appearance);
  // zktBSNone or zktBSSolid; other values are ignored.
  zktCmdBorderStyle BorderStyle() const { return border_style_; }
  void SetBorderStyle(int32_t New_BorderStyle);
  // The rows' height in pixels, as the item list box has it; 0 or less is ignored, and so is
  // a height the list box refuses.
  int32_t RowHeight() const;
  void SetRowHeight(int32_t New_RowHeight);

  // ---- Editing ----
  // No cell editor opens while Locked is set. DesignMode forces it on: writing false has no
  // effect while DesignMode is set.
  bool Locked() const { return locked_; }
  void SetLocked(bool New_Locked);
  void SetDesignMode(bool New_DesignMode) override;
  // A click on the tag column opens the tag editor.
  bool EditTags() const { return edit_tags_; }
  void SetEditTags(bool New_EditTags);
  // Opens the editor over the cell (p_index, p_column: 0 items, 1 tags): the row becomes
  // current, comes into view, and the editor takes the column's typed settings, colours, font
  // and text, and the focus. False for a row outside the list, another column, or while the
  // editor is being opened already.
  bool OpenEditBox(int32_t p_index, int32_t p_column);

  // ---- Rows ----
  // Inserts a row (see CEditListModel::AddItem); failures are traced, never raised.
  void AddItem(std::u16string_view Item, const Variant& Index = Variant(),
               std::u16string_view Tag = {});
  // Removes a row from both columns; an index outside the rows is ignored.
  void RemoveItem(int16_t Index);
  void Clear();
  int32_t ListCount() const { return model_.ListCount(); }
  int32_t NewIndex() const { return model_.NewIndex(); }
  // The current row, -1 for none. A write from the program raises Click but opens no editor;
  // an index outside -1 to ListCount - 1 is ignored.
  int32_t ListIndex() const;
  void SetListIndex(int32_t New_ListIndex);
  // The first visible row; the tag column follows. An index outside the rows is ignored.
  int32_t TopIndex() const;
  void SetTopIndex(int32_t New_TopIndex);
  // The current row is the only selected one. Selecting a row makes it current as a user's
  // click does (the editor may open); deselecting the current row leaves none current.
  bool Selected(int32_t Index) const;
  void SetSelected(int32_t Index, bool New_Selected);
  // A cell's text; -1 stands for the current row. A write raises Change(row, column).
  std::u16string ItemList(int32_t Index = -1) const;
  void SetItemList(int32_t Index, std::u16string_view New_ItemList);
  std::u16string TagList(int32_t Index = -1) const;
  void SetTagList(int32_t Index, std::u16string_view New_TagList);
  std::u16string Text() const { return ItemList(-1); }
  void SetText(std::u16string New_Text) { SetItemList(-1, New_Text); }
  // Makes the first row whose text equals the argument exactly current; its index or -1.
  int32_t SelectItem(std::u16string_view p_item);
  int32_t SelectTag(std::u16string_view p_tag);
  zktSortOrder SortOrder() const { return model_.SortOrder(); }
  void SetSortOrder(int32_t New_SortOrder);

  // ---- Typed settings of the two columns (handed to the editor) ----
  zktTextDataType ItemDataType() const { return model_.ItemDataType(); }
  void SetItemDataType(int32_t v) { model_.SetItemDataType(v); }
  std::u16string ItemDecimalSep() const { return model_.ItemDecimalSep(); }
  void SetItemDecimalSep(std::u16string v) { model_.SetItemDecimalSep(v); }
  std::u16string ItemDateSep() const { return model_.ItemDateSep(); }
  void SetItemDateSep(std::u16string v) { model_.SetItemDateSep(v); }
  std::u16string ItemHourSep() const { return model_.ItemHourSep(); }
  void SetItemHourSep(std::u16string v) { model_.SetItemHourSep(v); }
  std::u16string ItemDateHourSep() const { return model_.ItemDateHourSep(); }
  void SetItemDateHourSep(std::u16string v) { model_.SetItemDateHourSep(v); }
  int32_t ItemMaxLength() const { return model_.ItemMaxLength(); }
  void SetItemMaxLength(int32_t v) { model_.SetItemMaxLength(v); }
  std::u16string ItemTextFormat() const { return model_.ItemTextFormat(); }
  void SetItemTextFormat(std::u16string v) { model_.SetItemTextFormat(v); }
  zktTextForceCase ItemForceTextCase() const { return model_.ItemForceTextCase(); }
  void SetItemForceTextCase(int32_t v) { model_.SetItemForceTextCase(v); }
  zktTextDataType TagDataType() const { return model_.TagDataType(); }
  void SetTagDataType(int32_t v) { model_.SetTagDataType(v); }
  std::u16string TagDecimalSep() const { return model_.TagDecimalSep(); }
  void SetTagDecimalSep(std::u16string v) { model_.SetTagDecimalSep(v); }
  std::u16string TagDateSep() const { return model_.TagDateSep(); }
  void SetTagDateSep(std::u16string v) { model_.SetTagDateSep(v); }
  std::u16string TagHourSep() const { return model_.TagHourSep(); }
  void SetTagHourSep(std::u16string v) { model_.SetTagHourSep(v); }
  std::u16string TagDateHourSep() const { return model_.TagDateHourSep(); }
  void SetTagDateHourSep(std::u16string v) { model_.SetTagDateHourSep(v); }
  int32_t TagMaxLength() const { return model_.TagMaxLength(); }
  void SetTagMaxLength(int32_t v) { model_.SetTagMaxLength(v); }
  std::u16string TagTextFormat() const { return model_.TagTextFormat(); }
  void SetTagTextFormat(std::u16string v) { model_.SetTagTextFormat(v); }
  zktTextForceCase TagForceTextCase() const { return model_.TagForceTextCase(); }
  void SetTagForceTextCase(int32_t v) { model_.SetTagForceTextCase(v); }

  // ---- The common contract ----
  // The item list box's window.
  int32_t hWnd() const override;
  void Refresh() override;
  // Elements 0 to 26 and 31 to 36, element 37 when present, then the rows, TopIndex and
  // ListIndex; false (traced "ParseArchiveStr  (el: N)") at the first element missing or
  // refused, with what came before it applied.
  bool ParseArchiveStr(std::u16string_view p_str) override;
  // The table's keys in their orders, with the rows between them ("ItemCount", "ItemList" i,
  // "TagList" i); reading sets the loading guard, so that the list boxes' clicks are ignored.
  void ReadProperties(IPropertyBag& bag) override;
  void WriteProperties(IPropertyBag& bag) override;

  // ---- Events, in the order of the event interface ----
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};
  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};
  ControlEvent<int16_t&, int16_t&> KeyDown{EventRaised(), u"KeyDown"};
  ControlEvent<int16_t&> KeyPress{EventRaised(), u"KeyPress"};
  ControlEvent<int16_t&, int16_t&> KeyUp{EventRaised(), u"KeyUp"};
  ControlEvent<int32_t&, int32_t&> Change{EventRaised(), u"Change"};
  ControlEvent<> Scroll{EventRaised(), u"Scroll"};

  // ---- The pieces, for hosts and tests that look at what is shown ----
  const IListBoxElement& ItemsBox() const { return *lst_items_; }
  const IListBoxElement& TagsBox() const { return *lst_tags_; }
  const IPictureBoxElement& BorderMask() const { return *pic_border_mask_; }
  ZKTextEdit& Editor() const { return *ted_values_; }
  // The editor's private extender (Left, Top, Width, Height, Visible) and its surface.
  DispatchObject& EditorExtender() const { return ted_values_.Extender(); }
  ISurface& EditorSurface() const { return ted_values_.Surface(); }
  bool EditorVisible() const;
  // The cell the editor was last opened on.
  int32_t EditRow() const { return edit_row_; }
  int32_t EditColumn() const { return edit_column_; }
  // The windows observed for the wheel (0 while not observed).
  WindowHandle ObservedItemsWindow() const { return subclass1_.hWnd(); }
  WindowHandle ObservedTagsWindow() const { return subclass2_.hWnd(); }
  const CEditListModel& Model() const { return model_; }

 protected:
  void Layout() override;
  void OnFontChanged() override;
  void OnEnabledChanged(bool enabled) override;
  void AfterInitProperties() override;
  std::u16string ParseFailureProcedure(int element) const override;

 private:
  class ModelHost;
  using Editor_ = Constituent<ZKTextEdit>;

  void ConnectElements();
  void ConnectColumn(IListBoxElement& box, int column);
  void ConnectEditor();

  void ApplyEnabledLook();
  void ApplyAppearance();
  void ApplyTagListLook();
  void SortKeyChanged();
  // Fills both list boxes from the model again.
  void MirrorAllRows();
  // A cell of the model was written: the list box shows it.
  void MirrorCell(int32_t Index, int32_t COLUMN);

  void SyncTagsToItems();
  void SyncItemsToTags();
  void ItemsClicked();
  void TagsClicked();
  void ColumnScrolled(int column);
  void ColumnMouse(int column, MouseAction action, int16_t button, int16_t shift, float x, float y);
  void ItemsKeyDown(int16_t& key_code, int16_t& shift);
  void TagsKeyDown(int16_t& key_code, int16_t& shift);
  void OnShown(bool shown);

  void HideEditor();
  void EditorGotFocus();
  void EditorKeyDown(int16_t& key_code);
  void EditorLostFocus();
  void ControlKeyDown(int16_t& key_code, int16_t& shift);
  IListBoxElement& ColumnBox(int column) const;
  // The index -1 stands for the current row.
  int32_t RowOf(int32_t Index) const;

  std::unique_ptr<ModelHost> model_host_;
  CEditListModel model_;
  std::unique_ptr<IListBoxElement> lst_items_;
  std::unique_ptr<IListBoxElement> lst_tags_;
  std::unique_ptr<IPictureBoxElement> pic_border_mask_;
  Editor_ ted_values_;
  ZKCSubclass subclass1_;
  ZKCSubclass subclass2_;

  OLE_COLOR back_color_ = system_color::kWindowBackground;
  OLE_COLOR tag_back_color_ = 0xE0E0E0;
  float tag_column_width_ = 500;
  zktELTagsPosition tag_column_position_ = zktTagPosLeft;
  int32_t horizontal_scroll_bar_ = 0;
  zktAppearance appearance_ = zktApFlat;
  zktCmdBorderStyle border_style_ = zktBSSolid;
  bool locked_ = true;
  bool edit_tags_ = false;
  bool show_tags_ = false;
  // Set while one list box is moved to follow the other: its clicks are not the user's.
  bool syncing_items_ = false;
  bool syncing_tags_ = false;
  // Set while the property bag is read.
  bool loading_ = false;
  int32_t edit_row_ = -1;
  int32_t edit_column_ = 0;
  // The editor's text is written back when it loses the focus.
  bool commit_edit_ = false;
  bool preparing_editor_ = false;
  bool opening_editor_ = false;
  int16_t last_top_index_ = 0;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
