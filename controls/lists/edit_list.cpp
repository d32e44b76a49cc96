#include "controls/lists/edit_list.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <functional>
#include <limits>
#include <string>
#include <utility>

#include "foundation/archive_utils.h"
#include "foundation/debug_utils.h"
#include "foundation/flag_scope.h"
#include "foundation/low_level_utils.h"
#include "foundation/zk_error.h"
#include "framework/layout_steps.h"
#include "platform/platform.h"
#include "platform/window_messages.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

using automation::Method;
using automation::OptionalArgument;
using automation::RequiredArgument;

constexpr int kItems = 0;
constexpr int kTags = 1;
constexpr int16_t kKeyTab = 9;
constexpr int16_t kKeyEnter = 13;
constexpr int16_t kKeyEscape = 27;
constexpr int16_t kKeyArrowUp = 38;
constexpr int16_t kKeyArrowDown = 40;
constexpr int16_t kKeyF2 = 113;
// The tag list box's background on a new control.
constexpr OLE_COLOR kTagDesignBackColor = 0xE0E0E0;
// The archive elements that are not read in element order.
constexpr int kItemsElement = 27;
constexpr int kTagsElement = 28;
constexpr int kListIndexElement = 29;
constexpr int kTopIndexElement = 30;
constexpr int kRowHeightElement = 37;
// The bag key of the rows' count: the rows are read and written where it stands.
constexpr std::u16string_view kItemCountKey = u"ItemCount";
constexpr std::u16string_view kRowHeightKey = u"RowHeight";

std::u16string Decimal(int value) {
  const std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

ZKEditList& Self(ZKControl& control) {
  return static_cast<ZKEditList&>(control);
}

// The user's locale-aware comparison that ignores letter case; the order changes with the
// locale's name.
class PlatformCollation final : public TextCollation {
 public:
  int Compare(std::u16string_view a, std::u16string_view b) const override {
    return CurrentPlatform().Locale().Compare(a, b, true);
  }
  uint64_t Generation() const override {
    return std::hash<std::u16string>{}(CurrentPlatform().Locale().Name());
  }
};

// The height a list box gives its rows for the font: the font's line.
int32_t NaturalRowHeight(const FontRef& font) {
  if (!font) return 1;
  const int32_t height =
      CurrentPlatform().FontCatalogue()->MeasureText(font->Description(), u"", 0).height;
  return std::clamp(height, 1, 255);
}

[[noreturn]] void MissingElement() {
  throw ZKError(error_number::kSubscriptOutOfRange, u"Subscript out of range");
}

// An indexed property whose index may be left out (-1 then).
template <typename Get, typename Set>
MemberInfo CellProperty(std::u16string_view name, Get get, Set set) {
  MemberInfo info;
  info.name = name;
  info.get = [get](ZKControl& control, std::span<const Variant> index) {
    const int32_t row = index.empty() || index[0].IsEmpty() ? -1 : index[0].ToInt32();
    return Variant(get(Self(control), row));
  };
  info.set = [set](ZKControl& control, const Variant& value, std::span<const Variant> index) {
    const int32_t row = index.empty() || index[0].IsEmpty() ? -1 : index[0].ToInt32();
    set(Self(control), row, value.ToText());
  };
  return info;
}

MemberInfo SelectedMember() {
  MemberInfo info;
  info.name = u"Selected";
  info.get = [](ZKControl& control, std::span<const Variant> index) {
    if (index.empty()) throw ZKError(449, u"Argument not optional");
    return Variant(Self(control).Selected(index[0].ToInt32()));
  };
  info.set = [](ZKControl& control, const Variant& value, std::span<const Variant> index) {
    if (index.empty()) throw ZKError(449, u"Argument not optional");
    Self(control).SetSelected(index[0].ToInt32(), value.ToBool());
  };
  return info;
}

}  // namespace

// The model's notifications reach the control through here.
class ZKEditList::ModelHost final : public IEditListModelHost {
 public:
  explicit ModelHost(ZKEditList& control) : control_(control) {}
  std::u16string Name() const override { return control_.Name(); }
  void Change(int32_t& Index, int32_t& COLUMN) override {
    control_.MirrorCell(Index, COLUMN);
    control_.Change.Raise(Index, COLUMN);
  }
  void PropertyChanged(std::u16string_view property) override { control_.NotifyChanged(property); }

 private:
  ZKEditList& control_;
};

ZKEditList::ZKEditList(IControlSite& site)
    : ZKControl(site),
      model_host_(std::make_unique<ModelHost>(*this)),
      model_(std::make_shared<PlatformCollation>(), model_host_.get()),
      lst_items_(Surface().CreateListBox()),
      lst_tags_(Surface().CreateListBox()),
      pic_border_mask_(Surface().CreatePictureBox()),
      ted_values_(site, u"tedValues") {
  pic_border_mask_->SetBorderStyle(0);
  pic_border_mask_->SetVisible(false);
  for (IListBoxElement* box : {lst_items_.get(), lst_tags_.get()}) {
    box->SetBorderStyle(1);
    box->SetAppearance(0);
  }
  lst_tags_->SetVisible(false);
  lst_tags_->SetBackColor(kTagDesignBackColor);
  // The editor shows only while a cell is edited, and never draws its own border: the cell's
  // grid is the list box's.
  ted_values_.Extender().SetProperty(u"Visible", Variant(false));
  ted_values_->SetBorderStyle(zktBSNone);
  // The list boxes' own procedures must still run: the wheel is only watched.
  subclass1_.SetPropagate(true);
  subclass2_.SetPropagate(true);
  ConnectElements();
  Clear();
  Layout();
  // The keys go to the item column when the control gets the focus.
  IgnoringFailure([&] { lst_items_->SetFocus(); });
}

ZKEditList::~ZKEditList() {
  subclass1_.Unhook();
  subclass2_.Unhook();
  connections_.clear();
}

// ---- Wiring ----

void ZKEditList::ConnectElements() {
  ISurface& surface = Surface();
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  connections_.push_back(surface.Shown().Connect([this](bool shown) { OnShown(shown); }));
  connections_.push_back(surface.KeyDown().Connect(
      [this](int16_t& key_code, int16_t& shift) { ControlKeyDown(key_code, shift); }));
  ConnectColumn(*lst_items_, kItems);
  ConnectColumn(*lst_tags_, kTags);
  connections_.push_back(
      subclass1_.AfterEvent().Connect([this](uint32_t message, int32_t, int32_t) {
        if (message == window_message::kMouseWheel) ColumnScrolled(kItems);
      }));
  connections_.push_back(
      subclass2_.AfterEvent().Connect([this](uint32_t message, int32_t, int32_t) {
        if (message == window_message::kMouseWheel) ColumnScrolled(kTags);
      }));
  ConnectEditor();
}

void ZKEditList::ConnectColumn(IListBoxElement& box, int column) {
  connections_.push_back(box.Click().Connect([this, column] {
    if (column == kItems) {
      ItemsClicked();
    } else {
      TagsClicked();
    }
  }));
  connections_.push_back(box.Scroll().Connect([this, column] { ColumnScrolled(column); }));
  connections_.push_back(box.DblClick().Connect([this] { DblClick.Raise(); }));
  connections_.push_back(
      box.MouseDown().Connect([this, column](int16_t button, int16_t shift, float x, float y) {
        ColumnMouse(column, MouseAction::kDown, button, shift, x, y);
      }));
  connections_.push_back(
      box.MouseMove().Connect([this, column](int16_t button, int16_t shift, float x, float y) {
        ColumnMouse(column, MouseAction::kMove, button, shift, x, y);
      }));
  connections_.push_back(
      box.MouseUp().Connect([this, column](int16_t button, int16_t shift, float x, float y) {
        ColumnMouse(column, MouseAction::kUp, button, shift, x, y);
      }));
  connections_.push_back(box.KeyDown().Connect([this, column](int16_t& key_code, int16_t& shift) {
    if (column == kItems) {
      ItemsKeyDown(key_code, shift);
    } else {
      TagsKeyDown(key_code, shift);
    }
  }));
  connections_.push_back(ForwardTo(box.KeyPress(), KeyPress));
  connections_.push_back(ForwardTo(box.KeyUp(), KeyUp));
}

void ZKEditList::ConnectEditor() {
  ZKTextEdit& editor = *ted_values_;
  connections_.push_back(ted_values_.Surface().GotFocus().Connect([this] { EditorGotFocus(); }));
  connections_.push_back(ted_values_.Surface().LostFocus().Connect([this] { EditorLostFocus(); }));
  connections_.push_back(
      editor.KeyDown.Connect([this](int16_t& key_code, int16_t&) { EditorKeyDown(key_code); }));
}

// ---- Automation ----

const PropertyTable& ZKEditList::Properties() const {
  using property_rows::Internal;
  using property_rows::Member;
  using property_rows::Property;
  using property_rows::ReadOnly;
  using C = ZKEditList;
  const Variant window_text = ColorValue(system_color::kWindowText);
  // The bag's places: the first number is where a key is read, the second where it is written.
  static const PropertyTable table(
      {
          Property(u"BackColor", &C::BackColor, &C::SetBackColor)
              .Archive(3)
              .New(ColorValue(system_color::kWindowBackground))
              .Bag(ColorValue(system_color::kWindowBackground), 1, 1)
              .Store(&C::back_color_),
          Property(u"ForeColor", &C::ForeColor, &C::SetForeColor)
              .Archive(4)
              .New(window_text)
              .Bag(window_text, 2, 2)
              .Store([](C& c, OLE_COLOR v) { c.lst_items_->SetForeColor(v); }),
          Common<C>(u"Enabled").Bag(Variant(true), 3, 3),
          Common<C>(u"Font")
              .Archive(33)
              .New(Ambient::kFont, InitBy::kSetter)
              .Bag(Ambient::kFont, 4, 4),
          Common<C>(u"DesignMode").Archive(34).Bag(Variant(false), 5, 5),
          Property(u"TagColumnWidth", &C::TagColumnWidth, &C::SetTagColumnWidth)
              .Archive(7)
              .New(Variant(500.0))
              .Bag(Variant(500.0), 6, 6)
              .Store([](C& c, double v) {
                if (std::fabs(v) <= std::numeric_limits<float>::max())
                  c.tag_column_width_ = static_cast<float>(v);
              }),
          Property(u"ShowTags", &C::ShowTags, &C::SetShowTags)
              .Archive(9)
              .New(Variant(false))
              .Bag(Variant(false), 7, 7)
              .Store(&C::show_tags_),
          Property(u"TagBackColor", &C::TagBackColor, &C::SetTagBackColor)
              .Archive(5)
              .New(ColorValue(kTagDesignBackColor))
              .Bag(ColorValue(kTagDesignBackColor), 8, 8)
              .Store(&C::tag_back_color_)
              .Stored([](C& c) { return c.tag_back_color_; }),
          Property(u"TagForeColor", &C::TagForeColor, &C::SetTagForeColor)
              .Archive(6)
              .New(window_text)
              .Bag(window_text, 9, 9)
              .Store([](C& c, OLE_COLOR v) { c.lst_tags_->SetForeColor(v); }),
          Property(u"EditTags", &C::EditTags, &C::SetEditTags)
              .Archive(32)
              .New(Variant(false))
              .Bag(Variant(false), 10, 10)
              .Store(&C::edit_tags_),
          Property(u"Locked", &C::Locked, &C::SetLocked)
              .Archive(31)
              .New(Variant(true))
              .Bag(Variant(true), 11, 11)
              .Store(&C::locked_),
          Property(u"ListIndex", &C::ListIndex, &C::SetListIndex)
              .Archive(kListIndexElement)
              .Bag(Variant(int32_t{-1}), 12, 12)
              .Store([](C& c, int32_t v) { c.lst_items_->SetListIndex(v); }),
          ReadOnly(u"ListCount", &C::ListCount),
          ReadOnly(u"NewIndex", &C::NewIndex),
          Member(SelectedMember()),
          Property(u"TopIndex", &C::TopIndex, &C::SetTopIndex)
              .Archive(kTopIndexElement)
              .Bag(Variant(int32_t{0}), 35, 33)
              .Store([](C& c, int32_t v) { c.lst_items_->SetTopIndex(v); }),
          Member(CellProperty(
              u"ItemList", [](C& c, int32_t row) { return c.ItemList(row); },
              [](C& c, int32_t row, const std::u16string& v) { c.SetItemList(row, v); })),
          Member(CellProperty(
              u"TagList", [](C& c, int32_t row) { return c.TagList(row); },
              [](C& c, int32_t row, const std::u16string& v) { c.SetTagList(row, v); })),
          Property(u"Text", &C::Text, &C::SetText, dispatch_id::kText),
          Property(u"SortOrder", &C::SortOrder, &C::SetSortOrder)
              .Archive(36)
              .New(Variant(int32_t{zktSortNone}))
              .Bag(Variant(int32_t{zktSortNone}), 33, 34)
              .Store([](C& c, int32_t v) {
                // Stored without telling the host: the model notifies only through its host.
                c.model_.SetHost(nullptr);
                c.model_.SetSortOrder(v);
                c.model_.SetHost(c.model_host_.get());
              }),
          Property(u"HorizontalScrollBar", &C::HorizontalScrollBar, &C::SetHorizontalScrollBar)
              .Archive(10)
              .New(Variant(int32_t{0}))
              .Bag(Variant(int32_t{0}), 14, 13)
              .Store(&C::horizontal_scroll_bar_),
          Property(u"TagColumnPosition", &C::TagColumnPosition, &C::SetTagColumnPosition)
              .Archive(8)
              .New(Variant(int32_t{zktTagPosLeft}))
              .Bag(Variant(int32_t{zktTagPosLeft}), 13, 14)
              .Store(&C::tag_column_position_),
          Common<C>(u"ControlGroup").Archive(35).Bag(u"", 15, 15),
          // The tag settings are kept before the item settings in the bag.
          Property(u"TagDataType", &C::TagDataType, &C::SetTagDataType)
              .Archive(19)
              .New(Variant(int32_t{zktTDText}))
              .Bag(Variant(int32_t{zktTDText}), 16, 16)
              .Store([](C& c, int32_t v) {
                c.model_.MutableTagSettings().DataType = static_cast<zktTextDataType>(v);
              }),
          Property(u"TagDecimalSep", &C::TagDecimalSep, &C::SetTagDecimalSep)
              .Archive(22)
              .New(u".")
              .Bag(u".", 17, 17)
              .Store([](C& c, std::u16string v) { c.model_.MutableTagSettings().DecimalSep = v; }),
          Property(u"TagDateSep", &C::TagDateSep, &C::SetTagDateSep)
              .Archive(24)
              .New(u"/")
              .Bag(u"/", 18, 18)
              .Store([](C& c, std::u16string v) { c.model_.MutableTagSettings().DateSep = v; }),
          Property(u"TagHourSep", &C::TagHourSep, &C::SetTagHourSep)
              .Archive(23)
              .New(u":")
              .Bag(u":", 19, 19)
              .Store([](C& c, std::u16string v) { c.model_.MutableTagSettings().HourSep = v; }),
          Property(u"TagDateHourSep", &C::TagDateHourSep, &C::SetTagDateHourSep)
              .Archive(25)
              .New(u" ")
              .Bag(u" ", 20, 20)
              .Store([](C& c, std::u16string v) { c.model_.MutableTagSettings().DateHourSep = v; }),
          Property(u"TagMaxLength", &C::TagMaxLength, &C::SetTagMaxLength)
              .Archive(20)
              .New(Variant(int32_t{0}))
              .Bag(Variant(int32_t{0}), 21, 21)
              .Store([](C& c, int32_t v) { c.model_.MutableTagSettings().MaxLength = v; }),
          Property(u"TagTextFormat", &C::TagTextFormat, &C::SetTagTextFormat)
              .Archive(21)
              .New(u"")
              .Bag(u"", 22, 22)
              .Store([](C& c, std::u16string v) { c.model_.MutableTagSettings().TextFormat = v; }),
          Property(u"TagForceTextCase", &C::TagForceTextCase, &C::SetTagForceTextCase)
              .Archive(26)
              .New(Variant(int32_t{zktTForceNone}))
              .Bag(Variant(int32_t{zktTForceNone}), 23, 23)
              .Store([](C& c, int32_t v) {
                c.model_.MutableTagSettings().ForceTextCase = static_cast<zktTextForceCase>(v);
              }),
          Property(u"ItemDataType", &C::ItemDataType, &C::SetItemDataType)
              .Archive(11)
              .New(Variant(int32_t{zktTDText}))
              .Bag(Variant(int32_t{zktTDText}), 24, 24)
              .Store([](C& c, int32_t v) {
                c.model_.MutableItemSettings().DataType = static_cast<zktTextDataType>(v);
              }),
          Property(u"ItemDateSep", &C::ItemDateSep, &C::SetItemDateSep)
              .Archive(16)
              .New(u"/")
              .Bag(u"/", 25, 25)
              .Store([](C& c, std::u16string v) { c.model_.MutableItemSettings().DateSep = v; }),
          Property(u"ItemHourSep", &C::ItemHourSep, &C::SetItemHourSep)
              .Archive(15)
              .New(u":")
              .Bag(u":", 26, 26)
              .Store([](C& c, std::u16string v) { c.model_.MutableItemSettings().HourSep = v; }),
          Property(u"ItemDecimalSep", &C::ItemDecimalSep, &C::SetItemDecimalSep)
              .Archive(14)
              .New(u".")
              .Bag(u".", 27, 27)
              .Store([](C& c, std::u16string v) { c.model_.MutableItemSettings().DecimalSep = v; }),
          Property(u"ItemDateHourSep", &C::ItemDateHourSep, &C::SetItemDateHourSep)
              .Archive(17)
              .New(u" ")
              .Bag(u" ", 28, 28)
              .Store(
                  [](C& c, std::u16string v) { c.model_.MutableItemSettings().DateHourSep = v; }),
          Property(u"ItemForceTextCase", &C::ItemForceTextCase, &C::SetItemForceTextCase)
              .Archive(18)
              .New(Variant(int32_t{zktTForceNone}))
              .Bag(Variant(int32_t{zktTForceNone}), 29, 29)
              .Store([](C& c, int32_t v) {
                c.model_.MutableItemSettings().ForceTextCase = static_cast<zktTextForceCase>(v);
              }),
          Property(u"ItemTextFormat", &C::ItemTextFormat, &C::SetItemTextFormat)
              .Archive(13)
              .New(u"")
              .Bag(u"", 30, 30)
              .Store([](C& c, std::u16string v) { c.model_.MutableItemSettings().TextFormat = v; }),
          Property(u"ItemMaxLength", &C::ItemMaxLength, &C::SetItemMaxLength)
              .Archive(12)
              .New(Variant(int32_t{0}))
              .Bag(Variant(int32_t{0}), 31, 31)
              .Store([](C& c, int32_t v) { c.model_.MutableItemSettings().MaxLength = v; }),
          // Where the rows go in the bag; ReadProperties and WriteProperties put them there.
          Internal<C, int32_t>(ArchiveKind::kNumber)
              .Key(kItemCountKey)
              .Describe(u"the rows")
              .Bag(Variant(int32_t{0}), 34, 32)
              .Store([](C&, int32_t) {})
              .Stored([](C& c) { return c.ListCount(); }),
          // The row height's default is the font's own line, which no fixed value gives: the
          // bag is read and written with it by ReadProperties and WriteProperties.
          Property(u"RowHeight", &C::RowHeight, &C::SetRowHeight)
              .Archive(kRowHeightElement)
              .Bag(Variant(int32_t{0}), 32, 35)
              .Store([](C& c, int32_t v) {
                if (v > 0) IgnoringFailure([&] { c.lst_items_->SetRowHeight(v); });
              })
              .Stored([](C& c) { return c.RowHeight(); }),
          Property(u"Appearance", &C::Appearance, &C::SetAppearance)
              .Archive(1)
              .New(Variant(int32_t{zktApFlat}))
              .Bag(Variant(int32_t{zktApFlat}), 36, 36)
              .Store(&C::appearance_),
          Property(u"BorderStyle", &C::BorderStyle, &C::SetBorderStyle)
              .Archive(2)
              .New(Variant(int32_t{zktBSSolid}))
              .Bag(Variant(int32_t{zktBSSolid}), 37, 37)
              .Store(&C::border_style_),
          Internal<C, std::u16string>(ArchiveKind::kStringList)
              .Archive(kItemsElement)
              .Describe(u"item texts")
              .Store([](C&, const std::u16string&) {})
              .Stored([](C& c) { return c.model_.ItemsArchive(); }),
          Internal<C, std::u16string>(ArchiveKind::kStringList)
              .Archive(kTagsElement)
              .Describe(u"tag texts")
              .Store([](C&, const std::u16string&) {})
              .Stored([](C& c) { return c.model_.TagsArchive(); }),
          Common<C>(u"hWnd"),
          Member(Method(u"AddItem",
                        [](ZKControl& control, std::span<Variant> args) {
                          const Variant& tag = OptionalArgument(args, 2);
                          Self(control).AddItem(RequiredArgument(args, 0).ToText(),
                                                OptionalArgument(args, 1),
                                                tag.IsEmpty() ? std::u16string() : tag.ToText());
                          return Variant();
                        })),
          Member(Method(u"RemoveItem",
                        [](ZKControl& control, std::span<Variant> args) {
                          Self(control).RemoveItem(RequiredArgument(args, 0).ToInt16());
                          return Variant();
                        })),
          Member(Method(u"Clear",
                        [](ZKControl& control, std::span<Variant>) {
                          Self(control).Clear();
                          return Variant();
                        })),
          Member(Method(u"SelectItem",
                        [](ZKControl& control, std::span<Variant> args) {
                          return Variant(
                              Self(control).SelectItem(RequiredArgument(args, 0).ToText()));
                        })),
          Member(Method(u"SelectTag",
                        [](ZKControl& control, std::span<Variant> args) {
                          return Variant(
                              Self(control).SelectTag(RequiredArgument(args, 0).ToText()));
                        })),
          Member(Method(u"OpenEditBox",
                        [](ZKControl& control, std::span<Variant> args) {
                          return Variant(
                              Self(control).OpenEditBox(RequiredArgument(args, 0).ToInt32(),
                                                        RequiredArgument(args, 1).ToInt32()));
                        })),
          Common<C>(u"Refresh"),
          Common<C>(u"Clone"),
          Common<C>(u"GetArchiveStr"),
          Common<C>(u"ParseArchiveStr"),
          Common<C>(u"PopupMenu"),
          Common<C>(u"ExtraProp"),
          Common<C>(u"ExtraAction"),
      },
      {u"MouseDown", u"MouseMove", u"MouseUp", u"Click", u"DblClick", u"KeyDown", u"KeyPress",
       u"KeyUp", u"Change", u"Scroll"});
  return table;
}

// ---- Look ----

void ZKEditList::SetBackColor(OLE_COLOR New_BackColor) {
  back_color_ = New_BackColor;
  NotifyChanged(u"BackColor");
  ApplyEnabledLook();
}

OLE_COLOR ZKEditList::ForeColor() const {
  return lst_items_->ForeColor();
}

void ZKEditList::SetForeColor(OLE_COLOR New_ForeColor) {
  lst_items_->SetForeColor(New_ForeColor);
  Changed(u"ForeColor");
}

OLE_COLOR ZKEditList::TagBackColor() const {
  return lst_tags_->BackColor();
}

void ZKEditList::SetTagBackColor(OLE_COLOR New_TagBackColor) {
  tag_back_color_ = New_TagBackColor;
  NotifyChanged(u"TagBackColor");
  ApplyEnabledLook();
}

OLE_COLOR ZKEditList::TagForeColor() const {
  return lst_tags_->ForeColor();
}

void ZKEditList::SetTagForeColor(OLE_COLOR New_TagForeColor) {
  lst_tags_->SetForeColor(New_TagForeColor);
  Changed(u"TagForeColor");
}

void ZKEditList::SetTagColumnWidth(double New_TagColumnWidth) {
  if (!(New_TagColumnWidth > 0)) return;
  if (New_TagColumnWidth > std::numeric_limits<float>::max()) throw ZKError::Overflow();
  tag_column_width_ = static_cast<float>(New_TagColumnWidth);
  Changed(u"TagColumnWidth", Effect::kLayout);
}

void ZKEditList::SetShowTags(bool New_ShowTags) {
  show_tags_ = New_ShowTags;
  SortKeyChanged();
  NotifyChanged(u"ShowTags");
  ApplyTagListLook();
  // A column that was hidden had no size to keep its rows in view: it takes the other's now.
  SyncTagsToItems();
}

void ZKEditList::SetTagColumnPosition(int32_t New_TagColumnPosition) {
  if (New_TagColumnPosition != zktTagPosLeft && New_TagColumnPosition != zktTagPosRight) return;
  tag_column_position_ = static_cast<zktELTagsPosition>(New_TagColumnPosition);
  SortKeyChanged();
  NotifyChanged(u"TagColumnPosition");
  // The mask takes the front column's colour.
  ApplyEnabledLook();
  Layout();
}

void ZKEditList::SetHorizontalScrollBar(int32_t New_HorizontalScrollBar) {
  if (New_HorizontalScrollBar < 0) return;
  horizontal_scroll_bar_ = New_HorizontalScrollBar;
  Changed(u"HorizontalScrollBar", Effect::kLayout);
}

void ZKEditList::SetAppearance(int32_t New_Appearance) {
  if (New_Appearance != zktApFlat && New_Appearance != zktAp3d) return;
  appearance_ = static_cast<zktAppearance>(New_Appearance);
  NotifyChanged(u"Appearance");
  ApplyAppearance();
}

void ZKEditList::SetBorderStyle(int32_t New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  border_style_ = static_cast<zktCmdBorderStyle>(New_BorderStyle);
  NotifyChanged(u"BorderStyle");
  ApplyAppearance();
}

int32_t ZKEditList::RowHeight() const {
  return MGuiUtils::GetListItemHeight(lst_items_->hWnd(), false);
}

void ZKEditList::SetRowHeight(int32_t New_RowHeight) {
  if (New_RowHeight <= 0) return;
  if (!MGuiUtils::SetListItemHeight(lst_items_->hWnd(), New_RowHeight)) return;
  lst_items_->Refresh();
  NotifyChanged(u"RowHeight");
  ApplyTagListLook();
}

// ---- Editing ----

void ZKEditList::SetLocked(bool New_Locked) {
  locked_ = DesignMode() || New_Locked;
  NotifyChanged(u"Locked");
}

void ZKEditList::SetDesignMode(bool New_DesignMode) {
  ZKControl::SetDesignMode(New_DesignMode);
  locked_ = locked_ || New_DesignMode;
}

void ZKEditList::SetEditTags(bool New_EditTags) {
  edit_tags_ = New_EditTags;
  NotifyChanged(u"EditTags");
}

IListBoxElement& ZKEditList::ColumnBox(int column) const {
  return column == kTags ? *lst_tags_ : *lst_items_;
}

bool ZKEditList::EditorVisible() const {
  return ted_values_.Extender().GetProperty(u"Visible").ToBool();
}

bool ZKEditList::OpenEditBox(int32_t p_index, int32_t p_column) {
  if (p_index < 0 || p_index >= ListCount() || opening_editor_) return false;
  const FlagScope opening(opening_editor_);
  SetListIndex(p_index);
  edit_column_ = p_column;
  if (p_column != kItems && p_column != kTags) return false;

  ZKTextEdit& editor = *ted_values_;
  {
    const FlagScope preparing(preparing_editor_);
    const TypedTextSettings& settings =
        p_column == kItems ? model_.ItemSettings() : model_.TagSettings();
    editor.SetDataType(settings.DataType);
    editor.SetDecimalSep(settings.DecimalSep);
    editor.SetDateSep(settings.DateSep);
    editor.SetHourSep(settings.HourSep);
    editor.SetDateHourSep(settings.DateHourSep);
    editor.SetForceTextCase(settings.ForceTextCase);
    editor.SetMaxLength(settings.MaxLength);
    editor.SetTextFormat(settings.TextFormat);
    editor.SetForeColor(p_column == kItems ? ForeColor() : TagForeColor());
    editor.SetBackColor(p_column == kItems ? BackColor() : TagBackColor());
    editor.SetAutoSelect(true);
    editor.SetText(p_column == kItems ? ItemList(p_index) : TagList(p_index));
    editor.SetFont(Font());

    const IListBoxElement& box = ColumnBox(p_column);
    const double height = MGuiUtils::GetListItemHeight(box.hWnd(), true);
    const double control_height = Surface().ScaleHeight();
    if (height > 0 && (TopIndex() > p_index || TopIndex() + control_height / height < p_index)) {
      SetTopIndex(p_index);
    }
    const double top = height * (ListIndex() - TopIndex());
    const double scroll_bar =
        CurrentPlatform().Screen().SystemMetric(system_metric::kVerticalScrollWidth) *
        CurrentPlatform().Screen().TwipsPerPixelX();
    double left = 0;
    double width = 0;
    if (p_column == kTags) {
      left = lst_tags_->Left();
      width = tag_column_width_;
      if (tag_column_position_ == zktTagPosRight &&
          MGuiUtils::HasVerticalScrollBar(lst_tags_->hWnd())) {
        width -= scroll_bar;
      }
    } else {
      left = lst_items_->Left();
      width = show_tags_ ? Surface().ScaleWidth() - tag_column_width_ : Surface().ScaleWidth();
      if (MGuiUtils::HasVerticalScrollBar(lst_items_->hWnd()) &&
          (tag_column_position_ == zktTagPosLeft || !lst_tags_->Visible())) {
        width -= scroll_bar;
      }
    }
    ted_values_.Move(left, top, std::max(0.0, width), height);
  }
  ted_values_.Extender().SetProperty(u"Visible", Variant(true));
  // Tab commits the cell instead of leaving the control while the editor is open.
  Surface().SetTakesTab(true);
  ted_values_.Surface().BringToFront();
  ted_values_.Surface().SetFocus();
  return true;
}

void ZKEditList::HideEditor() {
  IgnoringFailure([&] { ted_values_.Extender().SetProperty(u"Visible", Variant(false)); });
}

void ZKEditList::EditorGotFocus() {
  commit_edit_ = true;
  edit_row_ = ListIndex();
}

void ZKEditList::EditorKeyDown(int16_t& key_code) {
  switch (key_code) {
    case kKeyEnter:
    case kKeyTab:
    case kKeyArrowUp:
    case kKeyArrowDown:
      commit_edit_ = true;
      IgnoringFailure([&] { ColumnBox(edit_column_).SetFocus(); });
      return;
    case kKeyEscape:
      commit_edit_ = false;
      IgnoringFailure([&] { ColumnBox(edit_column_).SetFocus(); });
      return;
    default:
      return;
  }
}

void ZKEditList::EditorLostFocus() {
  if (commit_edit_) {
    commit_edit_ = false;
    const std::u16string text = ted_values_->Text();
    try {
      if (edit_column_ == kTags) {
        SetTagList(edit_row_, text);
      } else {
        SetItemList(edit_row_, text);
      }
      ColumnBox(edit_column_).Refresh();
    } catch (...) {
      MDebugUtils::TraceError(Name(), u"tedValues_LostFocus");
    }
  }
  commit_edit_ = false;
  HideEditor();
  IgnoringFailure([&] { Surface().SetTakesTab(false); });
}

void ZKEditList::ControlKeyDown(int16_t& key_code, int16_t& /*shift*/) {
  // Tab reaches the control only while the editor is open (the control takes it then).
  if (key_code != kKeyTab || !ted_values_.Surface().HasFocus()) return;
  EditorKeyDown(key_code);
  key_code = 0;
}

// ---- Rows ----

int32_t ZKEditList::RowOf(int32_t Index) const {
  return Index == -1 ? ListIndex() : Index;
}

void ZKEditList::AddItem(std::u16string_view Item, const Variant& Index, std::u16string_view Tag) {
  const int32_t before = model_.ListCount();
  model_.AddItem(Item, Index, Tag);
  if (model_.ListCount() == before) return;
  const int32_t row = model_.NewIndex();
  const EditListRows& rows = model_.Rows();
  lst_items_->AddItem(rows.Text(kItems, row), row);
  lst_tags_->AddItem(rows.Text(kTags, row), row);
}

void ZKEditList::RemoveItem(int16_t Index) {
  if (!model_.RemoveItem(Index)) return;
  lst_items_->RemoveItem(Index);
  lst_tags_->RemoveItem(Index);
}

void ZKEditList::Clear() {
  model_.Clear();
  lst_items_->Clear();
  lst_tags_->Clear();
}

void ZKEditList::MirrorAllRows() {
  lst_items_->Clear();
  lst_tags_->Clear();
  model_.Rows().ForEachRow([&](std::u16string_view item, std::u16string_view tag) {
    lst_items_->AddItem(item, -1);
    lst_tags_->AddItem(tag, -1);
  });
}

void ZKEditList::MirrorCell(int32_t Index, int32_t COLUMN) {
  if (Index < 0 || Index >= ListCount()) return;
  if (COLUMN == kTags) {
    lst_tags_->SetList(Index, model_.Rows().Text(kTags, Index));
  } else {
    lst_items_->SetList(Index, model_.Rows().Text(kItems, Index));
  }
}

int32_t ZKEditList::ListIndex() const {
  return lst_items_->ListIndex();
}

void ZKEditList::SetListIndex(int32_t New_ListIndex) {
  if (New_ListIndex < -1 || New_ListIndex >= ListCount()) return;
  // The click that follows is the program's: it raises Click and opens no editor.
  const bool locked = locked_;
  locked_ = true;
  try {
    lst_items_->SetListIndex(New_ListIndex);
  } catch (...) {
    locked_ = locked;
    throw;
  }
  locked_ = locked;
  model_.SetListIndex(New_ListIndex);
  NotifyChanged(u"ListIndex");
}

int32_t ZKEditList::TopIndex() const {
  return lst_items_->TopIndex();
}

void ZKEditList::SetTopIndex(int32_t New_TopIndex) {
  if (!lst_items_->SetTopIndex(New_TopIndex)) return;
  SyncTagsToItems();
  NotifyChanged(u"TopIndex");
}

bool ZKEditList::Selected(int32_t Index) const {
  return Index >= 0 && Index < ListCount() && ListIndex() == Index;
}

void ZKEditList::SetSelected(int32_t Index, bool New_Selected) {
  if (Index < 0 || Index >= ListCount()) return;
  if (New_Selected) {
    lst_items_->SetListIndex(Index);
  } else if (ListIndex() == Index) {
    lst_items_->SetListIndex(-1);
  }
  NotifyChanged(u"Selected");
}

std::u16string ZKEditList::ItemList(int32_t Index) const {
  const int32_t row = RowOf(Index);
  return row < 0 ? std::u16string() : model_.ItemList(row);
}

void ZKEditList::SetItemList(int32_t Index, std::u16string_view New_ItemList) {
  const int32_t row = RowOf(Index);
  if (row < 0) {
    NotifyChanged(u"ItemList");
    return;
  }
  model_.SetItemList(row, New_ItemList);
}

std::u16string ZKEditList::TagList(int32_t Index) const {
  const int32_t row = RowOf(Index);
  return row < 0 ? std::u16string() : model_.TagList(row);
}

void ZKEditList::SetTagList(int32_t Index, std::u16string_view New_TagList) {
  const int32_t row = RowOf(Index);
  if (row < 0) {
    NotifyChanged(u"TagList");
    return;
  }
  model_.SetTagList(row, New_TagList);
}

int32_t ZKEditList::SelectItem(std::u16string_view p_item) {
  const int32_t row = model_.FindItem(p_item);
  if (row >= 0) SetListIndex(row);
  return row;
}

int32_t ZKEditList::SelectTag(std::u16string_view p_tag) {
  const int32_t row = model_.FindTag(p_tag);
  if (row >= 0) SetListIndex(row);
  return row;
}

void ZKEditList::SetSortOrder(int32_t New_SortOrder) {
  if (!model_.SetSortOrder(New_SortOrder)) return;
  NotifyChanged(u"SortOrder");
}

void ZKEditList::SortKeyChanged() {
  model_.SetSortKeyLayout(show_tags_, tag_column_position_);
}

// ---- Layout and look ----

void ZKEditList::Layout() {
  const IScreen& screen = CurrentPlatform().Screen();
  const double tppx = screen.TwipsPerPixelX();
  const double tppy = screen.TwipsPerPixelY();
  const double w = Surface().ScaleWidth();
  const double h = Surface().ScaleHeight();
  const double tw = tag_column_width_;
  const bool borderless = border_style_ == zktBSNone;
  const double bx = borderless ? tppx : 0;
  const double by = borderless ? tppy : 0;
  if (!show_tags_) {
    IgnoringFailure([&] { lst_items_->Move(-bx, -by, w + 2 * bx, h + 2 * by); });
    IgnoringFailure([&] { pic_border_mask_->SetVisible(false); });
  } else {
    IListBoxElement* front = nullptr;
    if (tag_column_position_ == zktTagPosLeft) {
      IgnoringFailure([&] { lst_tags_->Move(-bx, -by, w, h + 2 * by); });
      IgnoringFailure([&] { lst_items_->Move(tw - bx, -by, w + 2 * bx - tw, h + 2 * by); });
      IgnoringFailure([&] { lst_items_->BringToFront(); });
      front = lst_items_.get();
    } else {
      IgnoringFailure([&] { lst_items_->Move(-bx, -by, w, h + 2 * by); });
      IgnoringFailure([&] { lst_tags_->Move(w - (tw + bx), -by, tw + 2 * bx, h + 2 * by); });
      IgnoringFailure([&] { lst_tags_->BringToFront(); });
      front = lst_tags_.get();
    }
    IgnoringFailure([&] { pic_border_mask_->Move(front->Left(), 0, bx, h); });
    IgnoringFailure([&] { pic_border_mask_->SetBackColor(front->BackColor()); });
    IgnoringFailure([&] { pic_border_mask_->BringToFront(); });
    IgnoringFailure([&] { pic_border_mask_->SetVisible(borderless); });
  }
  if (horizontal_scroll_bar_ > 1) {
    for (IListBoxElement* box : {lst_items_.get(), lst_tags_.get()}) {
      IgnoringFailure([&] { MGuiUtils::SetListHorizontalExtent(box->hWnd(), 1); });
    }
    for (IListBoxElement* box : {lst_items_.get(), lst_tags_.get()}) {
      IgnoringFailure([&] {
        const auto twips = static_cast<int64_t>(
            MLowLevelUtils::RoundHalfEven(box->Width() * horizontal_scroll_bar_));
        const auto per_pixel = static_cast<int64_t>(MLowLevelUtils::RoundHalfEven(tppx));
        if (per_pixel <= 0) return;
        MGuiUtils::SetListHorizontalExtent(box->hWnd(), static_cast<int32_t>(twips / per_pixel));
      });
    }
  }
  // The editor stays above the columns that were brought forward.
  IgnoringFailure([&] {
    if (EditorVisible()) ted_values_.Surface().BringToFront();
  });
}

void ZKEditList::ApplyEnabledLook() {
  const bool enabled = Enabled();
  IgnoringFailure([&] { lst_items_->SetEnabled(enabled); });
  IgnoringFailure([&] { lst_tags_->SetEnabled(enabled); });
  if (enabled) {
    IgnoringFailure([&] { lst_items_->SetBackColor(back_color_); });
    IgnoringFailure([&] { lst_tags_->SetBackColor(tag_back_color_); });
    IgnoringFailure([&] {
      pic_border_mask_->SetBackColor(tag_column_position_ == zktTagPosLeft ? back_color_
                                                                           : tag_back_color_);
    });
  } else {
    IgnoringFailure([&] { lst_items_->SetBackColor(system_color::kInactiveBorder); });
    IgnoringFailure([&] { lst_tags_->SetBackColor(system_color::kInactiveBorder); });
    IgnoringFailure([&] { pic_border_mask_->SetBackColor(system_color::kInactiveBorder); });
  }
}

void ZKEditList::ApplyAppearance() {
  IgnoringFailure([&] {
    lst_items_->SetAppearance(border_style_ == zktBSSolid && appearance_ == zktAp3d ? 1 : 0);
  });
  ApplyTagListLook();
}

void ZKEditList::ApplyTagListLook() {
  IgnoringFailure([&] { lst_tags_->SetAppearance(lst_items_->Appearance()); });
  IgnoringFailure([&] { lst_tags_->SetFont(Font()->Description()); });
  IgnoringFailure([&] {
    MGuiUtils::SetListItemHeight(lst_tags_->hWnd(),
                                 MGuiUtils::GetListItemHeight(lst_items_->hWnd(), false));
  });
  IgnoringFailure([&] { lst_tags_->Refresh(); });
  IgnoringFailure([&] { lst_tags_->SetVisible(show_tags_); });
  Layout();
}

void ZKEditList::OnFontChanged() {
  IgnoringFailure([&] { lst_items_->SetFont(Font()->Description()); });
  ApplyTagListLook();
}

void ZKEditList::OnEnabledChanged(bool /*enabled*/) {
  ApplyEnabledLook();
}

void ZKEditList::AfterInitProperties() {
  SortKeyChanged();
  ApplyEnabledLook();
  ApplyAppearance();
}

int32_t ZKEditList::hWnd() const {
  return lst_items_->hWnd();
}

void ZKEditList::Refresh() {
  Surface().Refresh();
  lst_items_->Refresh();
  lst_tags_->Refresh();
}

// ---- Column synchronisation ----

void ZKEditList::SyncTagsToItems() {
  const FlagScope syncing(syncing_tags_);
  IgnoringFailure([&] { lst_tags_->SetTopIndex(lst_items_->TopIndex()); });
  IgnoringFailure([&] { lst_tags_->SetListIndex(lst_items_->ListIndex()); });
}

void ZKEditList::SyncItemsToTags() {
  const FlagScope syncing(syncing_items_);
  IgnoringFailure([&] { lst_items_->SetTopIndex(lst_tags_->TopIndex()); });
  IgnoringFailure([&] { lst_items_->SetListIndex(lst_tags_->ListIndex()); });
}

void ZKEditList::ItemsClicked() {
  if (syncing_items_ || loading_) return;
  if (DesignMode()) {
    const FlagScope clearing(syncing_items_);
    lst_items_->SetListIndex(-1);
  }
  SyncTagsToItems();
  Click.Raise();
  if (!locked_ && !DesignMode()) OpenEditBox(ListIndex(), kItems);
}

void ZKEditList::TagsClicked() {
  if (syncing_tags_ || loading_) return;
  if (DesignMode()) {
    const FlagScope clearing(syncing_items_);
    lst_items_->SetListIndex(-1);
  }
  SyncItemsToTags();
  Click.Raise();
  if (!locked_ && edit_tags_) OpenEditBox(ListIndex(), kTags);
}

void ZKEditList::ColumnScrolled(int column) {
  HideEditor();
  if (column == kItems) {
    SyncTagsToItems();
    const int32_t top = lst_items_->TopIndex();
    if (top != last_top_index_) Scroll.Raise();
    last_top_index_ = static_cast<int16_t>(std::clamp<int32_t>(top, INT16_MIN, INT16_MAX));
  } else {
    SyncItemsToTags();
  }
}

void ZKEditList::ColumnMouse(int column, MouseAction action, int16_t button, int16_t shift, float x,
                             float y) {
  IListBoxElement& box = ColumnBox(column);
  if (action == MouseAction::kMove) {
    IgnoringFailure([&] {
      lst_items_->SetToolTipText(Site().Extender().GetProperty(u"ToolTipText").ToText());
    });
  }
  if (button != 0) {
    if (column == kItems) {
      SyncTagsToItems();
    } else {
      SyncItemsToTags();
    }
  }
  float cx = x + static_cast<float>(box.Left());
  float cy = y;
  switch (action) {
    case MouseAction::kDown:
      MouseDown.Raise(button, shift, cx, cy);
      return;
    case MouseAction::kMove:
      MouseMove.Raise(button, shift, cx, cy);
      return;
    case MouseAction::kUp:
      MouseUp.Raise(button, shift, cx, cy);
      return;
    case MouseAction::kDoubleDown:
      return;
  }
}

void ZKEditList::ItemsKeyDown(int16_t& key_code, int16_t& shift) {
  if (!locked_ && !DesignMode() && key_code == kKeyF2) OpenEditBox(ListIndex(), kItems);
  KeyDown.Raise(key_code, shift);
}

void ZKEditList::TagsKeyDown(int16_t& key_code, int16_t& /*shift*/) {
  if (!locked_ && !DesignMode() && key_code == kKeyF2) OpenEditBox(ListIndex(), kTags);
}

void ZKEditList::OnShown(bool shown) {
  subclass1_.Unhook();
  subclass2_.Unhook();
  if (!shown) return;
  IgnoringFailure([&] {
    if (!Site().Ambient().UserMode()) return;
    subclass1_.Hook(lst_items_->hWnd());
    subclass2_.Hook(lst_tags_->hWnd());
  });
}

// ---- Archive string and property bag ----

std::u16string ZKEditList::ParseFailureProcedure(int element) const {
  return u"ParseArchiveStr  (el: " + Decimal(element) + u")";
}

bool ZKEditList::ParseArchiveStr(std::u16string_view p_str) {
  const std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(p_str);
  const std::span<const ArchiveField> fields = ArchiveFields();
  int index = 0;
  const auto element = [&](int at) -> const std::u16string& {
    index = at;
    if (at >= static_cast<int>(elements.size())) MissingElement();
    return elements[static_cast<size_t>(at)];
  };
  const auto apply = [&](int at) {
    const std::u16string& text = element(at);
    const ArchiveField& field = fields[static_cast<size_t>(at - 1)];
    Variant value;
    switch (field.kind) {
      case ArchiveKind::kText:
        value = Variant(MArchiveUtils::ArchiveUnescapeString(text));
        break;
      case ArchiveKind::kNumber:
        value = Variant(MArchiveUtils::ArchiveUnescapeNumber(text));
        break;
      case ArchiveKind::kBool:
        value = Variant(MArchiveUtils::ArchiveUnescapeBool(text));
        break;
      case ArchiveKind::kFont:
        value = Variant(MArchiveUtils::ArchiveUnescapeFont(text, CurrentPlatform().NewFont()));
        break;
      case ArchiveKind::kStringList:
        value = Variant(text);
        break;
    }
    SetProperty(field.property, value);
  };
  try {
    MArchiveUtils::ArchiveUnescapeExtender(element(0), &Site().Extender());
    for (int at = 1; at < kItemsElement; ++at)
      apply(at);
    // The rows and the two indexes are taken now and applied once the settings that place the
    // rows (SortOrder, the tags' layout) are in.
    const std::vector<std::u16string> items =
        MArchiveUtils::ArchiveSplitStrings(element(kItemsElement));
    const std::vector<std::u16string> tags =
        MArchiveUtils::ArchiveSplitStrings(element(kTagsElement));
    const double list_index = MArchiveUtils::ArchiveUnescapeNumber(element(kListIndexElement));
    const double top_index = MArchiveUtils::ArchiveUnescapeNumber(element(kTopIndexElement));
    for (int at = kTopIndexElement + 1; at < kRowHeightElement; ++at)
      apply(at);
    if (static_cast<int>(elements.size()) > kRowHeightElement) apply(kRowHeightElement);
    index = kItemsElement;
    Clear();
    for (size_t row = 0; row < items.size(); ++row) {
      if (row >= tags.size()) MissingElement();
      AddItem(items[row], Variant(), tags[row]);
    }
    index = kTopIndexElement;
    SetTopIndex(Variant(top_index).ToInt32());
    index = kListIndexElement;
    SetListIndex(Variant(list_index).ToInt32());
    return true;
  } catch (...) {
    MDebugUtils::TraceError(Name(), ParseFailureProcedure(index));
    return false;
  }
}

void ZKEditList::ReadProperties(IPropertyBag& bag) {
  const FlagScope loading(loading_);
  IAmbientProperties& ambient = Site().Ambient();
  // A bag that fails part way goes on to the host, but only after the columns show the rows and
  // the looks read so far, so that the control stays whole.
  std::exception_ptr failure;
  try {
    for (const PropertyRow* row : Properties().BagReadOrder()) {
      if (row->BagKey() == kItemCountKey) {
        // The rows come back as they were stored: no sorted placement, no index tags.
        try {
          model_.ReadRows([&bag](std::u16string_view key, const Variant& default_value) {
            return bag.ReadProperty(key, default_value);
          });
        } catch (...) {
          MirrorAllRows();
          throw;
        }
        MirrorAllRows();
        continue;
      }
      const Variant default_value = row->BagKey() == kRowHeightKey
                                        ? Variant(NaturalRowHeight(Font()))
                                        : row->bag_default.Resolve(ambient);
      row->store(*this, bag.ReadProperty(row->BagKey(), default_value));
      if (row->BagKey() == u"Font") {
        IgnoringFailure([&] { lst_items_->SetFont(Font()->Description()); });
      }
    }
  } catch (...) {
    failure = std::current_exception();
  }
  SortKeyChanged();
  ApplyEnabledLook();
  ApplyAppearance();
  SyncTagsToItems();
  if (failure) std::rethrow_exception(failure);
}

void ZKEditList::WriteProperties(IPropertyBag& bag) {
  IAmbientProperties& ambient = Site().Ambient();
  for (const PropertyRow* row : Properties().BagWriteOrder()) {
    if (row->BagKey() == kItemCountKey) {
      model_.WriteRows(
          [&bag](std::u16string_view key, const Variant& value, const Variant& default_value) {
            bag.WriteProperty(key, value, default_value);
          });
      continue;
    }
    const Variant default_value = row->BagKey() == kRowHeightKey
                                      ? Variant(NaturalRowHeight(Font()))
                                      : row->bag_default.Resolve(ambient);
    bag.WriteProperty(row->BagKey(), PropertyTable::StoredValue(*row, *this), default_value);
  }
}

}  // namespace zk
