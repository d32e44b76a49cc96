#include "models/edit_list_model.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "foundation/zk_error.h"
#include "tests/models/edit_list_host.h"

namespace zk {
namespace {

using edit_list_test::ItemsOf;
using edit_list_test::Narrow;
using edit_list_test::RecordingHost;
using edit_list_test::TagsOf;
using Texts = std::vector<std::u16string>;
using ChangeEvent = RecordingHost::ChangeEvent;

// One AddItem call: the item, then the tag and the Index when given.
struct Add {
  Add(const char16_t* p_item, const char16_t* p_tag = u"", Variant p_index = Variant())  // NOLINT
      : item(p_item), tag(p_tag), index(std::move(p_index)) {}
  std::u16string item;
  std::u16string tag;
  Variant index;
};

void AddAll(CEditListModel& model, const std::vector<Add>& adds) {
  for (const Add& add : adds)
    model.AddItem(add.item, add.index, add.tag);
}

// Where sorted and unsorted insertions put their rows, and the tags they get.
TEST(EditListModelPlacement, FollowsTheSortOrderAndTheKeyColumn) {
  struct Case {
    const char* name;
    zktSortOrder order;
    bool show_tags;
    zktELTagsPosition position;
    std::vector<Add> adds;
    Texts items;
    Texts tags;
  };
  const Case cases[] = {
      // Each tag is the index its row was inserted at: "A" went in at 0 in front of "b".
      {"a to z, no tags",
       zktSortAtoZ,
       false,
       zktTagPosLeft,
       {{u"b"}, {u"A"}, {u"c"}},
       {u"A", u"b", u"c"},
       {u"0", u"0", u"2"}},
      {"equal keys go after the equal rows",
       zktSortAtoZ,
       false,
       zktTagPosLeft,
       {{u"x"}, {u"x"}, {u"X"}},
       {u"x", u"x", u"X"},
       {u"0", u"1", u"2"}},
      {"z to a",
       zktSortZtoA,
       false,
       zktTagPosLeft,
       {{u"a"}, {u"c"}, {u"b"}},
       {u"c", u"b", u"a"},
       {u"0", u"1", u"0"}},
      {"z to a, equal keys after the equal rows",
       zktSortZtoA,
       false,
       zktTagPosLeft,
       {{u"b"}, {u"B"}, {u"a"}, {u"c"}},
       {u"c", u"b", u"B", u"a"},
       {u"0", u"0", u"1", u"2"}},
      {"no sort order appends",
       zktSortNone,
       true,
       zktTagPosLeft,
       {{u"b", u"2"}, {u"a", u"1"}, {u"c"}},
       {u"b", u"a", u"c"},
       {u"2", u"1", u"2"}},
      {"tags on the left order the rows",
       zktSortAtoZ,
       true,
       zktTagPosLeft,
       {{u"one", u"3"}, {u"two", u"1"}, {u"three", u"2"}},
       {u"two", u"three", u"one"},
       {u"1", u"2", u"3"}},
      {"tags on the right leave the items in charge",
       zktSortAtoZ,
       true,
       zktTagPosRight,
       {{u"one", u"3"}, {u"two", u"1"}, {u"three", u"2"}},
       {u"one", u"three", u"two"},
       {u"3", u"2", u"1"}},
      {"hidden tags leave the items in charge",
       zktSortAtoZ,
       false,
       zktTagPosLeft,
       {{u"one", u"3"}, {u"two", u"1"}, {u"three", u"2"}},
       {u"one", u"three", u"two"},
       {u"3", u"2", u"1"}},
      {"a row without a tag goes by its item even with tags on the left",
       zktSortAtoZ,
       true,
       zktTagPosLeft,
       {{u"m", u"2"}, {u"a", u"1"}, {u"b"}},
       {u"a", u"b", u"m"},
       {u"1", u"1", u"2"}},
      {"a given index bypasses sorting",
       zktSortAtoZ,
       false,
       zktTagPosLeft,
       {{u"a"}, {u"b"}, {u"z", u"", int32_t{0}}},
       {u"z", u"a", u"b"},
       {u"0", u"0", u"1"}},
      // The scan assumes no order: "c" stops at "z", the first row it sorts before.
      {"rows out of order stay and stop the scan",
       zktSortAtoZ,
       false,
       zktTagPosLeft,
       {{u"a"}, {u"b"}, {u"z", u"", int32_t{0}}, {u"c"}},
       {u"c", u"z", u"a", u"b"},
       {u"0", u"0", u"0", u"1"}},
      {"an index at the end appends",
       zktSortAtoZ,
       false,
       zktTagPosLeft,
       {{u"b"}, {u"a", u"t", int32_t{1}}},
       {u"b", u"a"},
       {u"0", u"t"}},
      {"a fractional index rounds half to even",
       zktSortNone,
       false,
       zktTagPosLeft,
       {{u"a"}, {u"b"}, {u"c"}, {u"x", u"", 1.5}, {u"y", u"", 0.5}},
       {u"y", u"a", u"b", u"x", u"c"},
       {u"0", u"0", u"1", u"2", u"2"}},
      {"a numeric text is an index",
       zktSortNone,
       false,
       zktTagPosLeft,
       {{u"a"}, {u"b"}, {u"x", u"", u"1"}},
       {u"a", u"x", u"b"},
       {u"0", u"1", u"1"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CEditListModel model;
    model.SetSortOrder(c.order);
    model.SetSortKeyLayout(c.show_tags, c.position);
    AddAll(model, c.adds);
    EXPECT_EQ(ItemsOf(model), c.items) << Narrow(ItemsOf(model));
    EXPECT_EQ(TagsOf(model), c.tags) << Narrow(TagsOf(model));
  }
}

TEST(EditListModelPlacement, ChangingTheSortOrderNeverReordersRows) {
  CEditListModel model;
  AddAll(model, {{u"d"}, {u"a"}, {u"c"}});
  ASSERT_TRUE(model.SetSortOrder(zktSortAtoZ));
  EXPECT_EQ(ItemsOf(model), (Texts{u"d", u"a", u"c"}));
  // The first row that "b" sorts before is "d", at the top.
  model.AddItem(u"b");
  EXPECT_EQ(ItemsOf(model), (Texts{u"b", u"d", u"a", u"c"}));
  EXPECT_EQ(model.NewIndex(), 0);
  ASSERT_TRUE(model.SetSortOrder(zktSortZtoA));
  model.AddItem(u"c");
  // Z to A stops at the first row that sorts before the key: "b".
  EXPECT_EQ(ItemsOf(model), (Texts{u"c", u"b", u"d", u"a", u"c"}));
}

TEST(EditListModelAddItem, RefusedIndexesAddNothingAndAreTraced) {
  struct Case {
    Variant index;
    const char* shown;
    int32_t number;
  };
  const Case cases[] = {
      {int32_t{5}, "AddItem (el: a, 5)", error_number::kInvalidProcedureCall},
      {int32_t{3}, "AddItem (el: a, 3)", error_number::kInvalidProcedureCall},
      {int32_t{-1}, "AddItem (el: a, -1)", error_number::kInvalidProcedureCall},
      {2.6, "AddItem (el: a, 2.6)", error_number::kInvalidProcedureCall},
      {true, "AddItem (el: a, True)", error_number::kInvalidProcedureCall},
      {u"x", "AddItem (el: a, x)", error_number::kTypeMismatch},
      {1e12, "AddItem (el: a, 1000000000000)", error_number::kOverflow},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.shown);
    RecordingHost host;
    CEditListModel model(nullptr, &host);
    AddAll(model, {{u"p"}, {u"q"}});
    host.Forget();
    model.AddItem(u"a", c.index);
    EXPECT_EQ(ItemsOf(model), (Texts{u"p", u"q"}));
    EXPECT_EQ(TagsOf(model), (Texts{u"0", u"1"}));
    EXPECT_EQ(model.NewIndex(), 1);
    ASSERT_EQ(host.traces.size(), 1u);
    EXPECT_EQ(host.traces[0].source, u"EditList1");
    EXPECT_EQ(Narrow(host.traces[0].procedure), c.shown);
    EXPECT_EQ(host.traces[0].number, c.number);
  }
}

TEST(EditListModelAddItem, CurrentAndTopRowsFollowTheirRows) {
  CEditListModel model;
  AddAll(model, {{u"a"}, {u"b"}, {u"c"}, {u"d"}});
  ASSERT_TRUE(model.SetListIndex(2));
  ASSERT_TRUE(model.SetTopIndex(2));
  model.AddItem(u"x", int32_t{1});
  EXPECT_EQ(model.ListIndex(), 3);
  EXPECT_EQ(model.TopIndex(), 3);
  // A row inserted at the first visible place is shown first; the current row moves down.
  model.AddItem(u"y", int32_t{3});
  EXPECT_EQ(model.ListIndex(), 4);
  EXPECT_EQ(model.TopIndex(), 3);
  EXPECT_EQ(model.Text(), u"c");
  model.AddItem(u"z", int32_t{6});
  EXPECT_EQ(model.ListIndex(), 4);
  EXPECT_EQ(model.TopIndex(), 3);
  EXPECT_EQ(model.NewIndex(), 6);
  EXPECT_EQ(ItemsOf(model), (Texts{u"a", u"x", u"b", u"y", u"c", u"d", u"z"}));
}

TEST(EditListModelRows, RemovalAndClearFollowTheListRules) {
  struct Case {
    const char* name;
    int32_t remove;
    int32_t list_index;
    int32_t top_index;
    bool removed;
    Texts items;
    int32_t list_after;
    int32_t top_after;
    int32_t new_after;
  };
  // Rows a b c d e; the last AddItem put "e" at 4.
  const Case cases[] = {
      {"before the current row", 1, 3, 2, true, {u"a", u"c", u"d", u"e"}, 2, 1, -1},
      {"the current row", 3, 3, 0, true, {u"a", u"b", u"c", u"e"}, -1, 0, -1},
      {"after the current row", 4, 3, 3, true, {u"a", u"b", u"c", u"d"}, 3, 3, -1},
      {"the first visible row, the last one", 4, -1, 4, true, {u"a", u"b", u"c", u"d"}, -1, 3, -1},
      {"an index past the rows", 5, 3, 1, false, {u"a", u"b", u"c", u"d", u"e"}, 3, 1, 4},
      {"a negative index", -1, 3, 1, false, {u"a", u"b", u"c", u"d", u"e"}, 3, 1, 4},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CEditListModel model;
    AddAll(model, {{u"a"}, {u"b"}, {u"c"}, {u"d"}, {u"e"}});
    ASSERT_TRUE(model.SetListIndex(c.list_index));
    ASSERT_TRUE(model.SetTopIndex(c.top_index));
    EXPECT_EQ(model.RemoveItem(c.remove), c.removed);
    EXPECT_EQ(ItemsOf(model), c.items);
    EXPECT_EQ(TagsOf(model).size(), c.items.size());
    EXPECT_EQ(model.ListIndex(), c.list_after);
    EXPECT_EQ(model.TopIndex(), c.top_after);
    EXPECT_EQ(model.NewIndex(), c.new_after);
  }

  CEditListModel model;
  AddAll(model, {{u"a"}, {u"b"}});
  model.SetListIndex(1);
  model.SetTopIndex(1);
  model.Clear();
  EXPECT_EQ(model.ListCount(), 0);
  EXPECT_EQ(model.ListIndex(), -1);
  EXPECT_EQ(model.NewIndex(), -1);
  EXPECT_EQ(model.TopIndex(), 0);
  model.AddItem(u"z");
  EXPECT_EQ(model.TagList(0), u"0");
}

TEST(EditListModelRows, CurrentTopAndSelectedRowsTakeOnlyRowsOfTheList) {
  CEditListModel model;
  EXPECT_TRUE(model.SetTopIndex(0));
  EXPECT_FALSE(model.SetTopIndex(1));
  EXPECT_FALSE(model.SetListIndex(0));
  EXPECT_TRUE(model.SetListIndex(-1));
  AddAll(model, {{u"a"}, {u"b"}, {u"c"}});
  struct Case {
    int32_t value;
    bool taken;
  };
  for (const Case& c :
       {Case{-2, false}, Case{-1, true}, Case{0, true}, Case{2, true}, Case{3, false}}) {
    SCOPED_TRACE(c.value);
    CEditListModel list;
    AddAll(list, {{u"a"}, {u"b"}, {u"c"}});
    list.SetListIndex(1);
    EXPECT_EQ(list.SetListIndex(c.value), c.taken);
    EXPECT_EQ(list.ListIndex(), c.taken ? c.value : 1);
    EXPECT_EQ(list.SetTopIndex(c.value), c.taken && c.value >= 0);
  }
  // Only the current row is selected; selecting a row makes it current.
  EXPECT_TRUE(model.SetSelected(2, true));
  EXPECT_EQ(model.ListIndex(), 2);
  EXPECT_EQ((std::vector<bool>{model.Selected(0), model.Selected(1), model.Selected(2)}),
            (std::vector<bool>{false, false, true}));
  EXPECT_TRUE(model.SetSelected(1, false));
  EXPECT_EQ(model.ListIndex(), 2);
  EXPECT_TRUE(model.SetSelected(2, false));
  EXPECT_EQ(model.ListIndex(), -1);
  EXPECT_FALSE(model.Selected(-1));
  EXPECT_FALSE(model.SetSelected(3, true));
  EXPECT_EQ(model.ListIndex(), -1);
}

TEST(EditListModelCells, ReadsTakeMinusOneAsTheCurrentRow) {
  CEditListModel model;
  AddAll(model, {{u"a", u"ta"}, {u"b", u"tb"}});
  struct Case {
    int32_t list_index;
    int32_t index;
    const char16_t* item;
    const char16_t* tag;
  };
  const Case cases[] = {
      {-1, -1, u"", u""},  {-1, 0, u"a", u"ta"}, {1, -1, u"b", u"tb"},
      {1, 0, u"a", u"ta"}, {0, 2, u"", u""},     {0, -2, u"", u""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.list_index << " " << c.index);
    model.SetListIndex(c.list_index);
    EXPECT_EQ(model.ItemList(c.index), c.item);
    EXPECT_EQ(model.TagList(c.index), c.tag);
    EXPECT_EQ(model.Text(), model.ItemList(-1));
  }
}

TEST(EditListModelCells, WritesRaiseChangeWithRowAndColumn) {
  using Write = std::function<void(CEditListModel&)>;
  struct Case {
    const char* name;
    int32_t list_index;
    Write write;
    Texts items;
    Texts tags;
    std::vector<ChangeEvent> changes;
    const char16_t* marked;
  };
  const Case cases[] = {
      {"tag of row 2",
       -1,
       [](CEditListModel& m) { m.SetTagList(2, u"k"); },
       {u"a", u"b", u"c"},
       {u"0", u"1", u"k"},
       {{2, 1}},
       u"TagList"},
      {"item of row 2",
       -1,
       [](CEditListModel& m) { m.SetItemList(2, u"k"); },
       {u"a", u"b", u"k"},
       {u"0", u"1", u"2"},
       {{2, 0}},
       u"ItemList"},
      {"item of the current row",
       1,
       [](CEditListModel& m) { m.SetItemList(-1, u"k"); },
       {u"a", u"k", u"c"},
       {u"0", u"1", u"2"},
       {{1, 0}},
       u"ItemList"},
      {"tag of the current row",
       0,
       [](CEditListModel& m) { m.SetTagList(-1, u"k"); },
       {u"a", u"b", u"c"},
       {u"k", u"1", u"2"},
       {{0, 1}},
       u"TagList"},
      {"Text of the current row",
       2,
       [](CEditListModel& m) { m.SetText(u"k"); },
       {u"a", u"b", u"k"},
       {u"0", u"1", u"2"},
       {{2, 0}},
       u"ItemList"},
      {"Text without a current row",
       -1,
       [](CEditListModel& m) { m.SetText(u"x"); },
       {u"a", u"b", u"c"},
       {u"0", u"1", u"2"},
       {},
       u"ItemList"},
      {"a negative row",
       -1,
       [](CEditListModel& m) { m.SetTagList(-3, u"x"); },
       {u"a", u"b", u"c"},
       {u"0", u"1", u"2"},
       {},
       u"TagList"},
      // The list ignores a write past its last row; the event still follows the write.
      {"a row past the last",
       0,
       [](CEditListModel& m) { m.SetItemList(7, u"x"); },
       {u"a", u"b", u"c"},
       {u"0", u"1", u"2"},
       {{7, 0}},
       u"ItemList"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RecordingHost host;
    CEditListModel model(nullptr, &host);
    AddAll(model, {{u"a"}, {u"b"}, {u"c"}});
    model.SetListIndex(c.list_index);
    host.Forget();
    c.write(model);
    EXPECT_EQ(ItemsOf(model), c.items);
    EXPECT_EQ(TagsOf(model), c.tags);
    EXPECT_EQ(host.changes, c.changes);
    EXPECT_EQ(host.changed, Texts{c.marked});
    EXPECT_TRUE(host.traces.empty());
  }
}

TEST(EditListModelCells, AWrittenCellTakesPartInLaterPlacements) {
  CEditListModel model;
  model.SetSortOrder(zktSortAtoZ);
  AddAll(model, {{u"b"}, {u"d"}, {u"f"}});
  model.SetItemList(1, u"a");  // b a f: no longer in order
  model.AddItem(u"c");
  EXPECT_EQ(ItemsOf(model), (Texts{u"b", u"a", u"c", u"f"}));
  model.SetItemList(1, u"bb");  // b bb c f: in order again
  model.AddItem(u"ba");
  EXPECT_EQ(ItemsOf(model), (Texts{u"b", u"ba", u"bb", u"c", u"f"}));
}

TEST(EditListModelSelect, FindsTheFirstExactMatch) {
  struct Case {
    const char* name;
    Texts items;
    Texts tags;
    bool by_tag;
    const char16_t* wanted;
    int32_t found;
  };
  const Case cases[] = {
      {"case matters", {u"ABC", u"x"}, {u"1", u"2"}, false, u"abc", -1},
      {"the first of two", {u"q", u"abc", u"abc"}, {u"1", u"2", u"3"}, false, u"abc", 1},
      {"no trimming", {u"abc ", u" abc"}, {u"1", u"2"}, false, u"abc", -1},
      {"an empty list", {}, {}, false, u"", -1},
      {"tags, case matters", {u"a", u"b"}, {u"K", u"k"}, true, u"k", 1},
      {"tags, the first of two", {u"a", u"b", u"c"}, {u"t", u"k", u"k"}, true, u"k", 1},
      {"an empty item", {u"a", u""}, {u"1", u"2"}, false, u"", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CEditListModel model;
    for (size_t i = 0; i < c.items.size(); ++i)
      model.AddItem(c.items[i], Variant(), c.tags[i]);
    model.SetListIndex(model.ListCount() > 0 ? 0 : -1);
    const int32_t before = model.ListIndex();
    const int32_t found = c.by_tag ? model.SelectTag(c.wanted) : model.SelectItem(c.wanted);
    EXPECT_EQ(found, c.found);
    EXPECT_EQ(model.ListIndex(), found >= 0 ? found : before);
  }
}

TEST(EditListModelSettings, SixteenPlainValuesWithTheirRanges) {
  using Model = CEditListModel;
  // A property, how to write it (true when taken) and how to read it as text.
  struct Property {
    const char16_t* name;
    std::function<bool(Model&, int32_t, const std::u16string&)> write;
    std::function<std::u16string(const Model&)> read;
  };
  const auto number = [](auto value) {
    const std::string text = std::to_string(static_cast<long long>(value));
    return std::u16string(text.begin(), text.end());
  };
  const auto text_property = [](const char16_t* name, void (Model::*set)(std::u16string_view),
                                const std::u16string& (Model::*get)() const) {
    return Property{name,
                    [set](Model& m, int32_t, const std::u16string& value) {
                      (m.*set)(value);
                      return true;
                    },
                    [get](const Model& m) { return (m.*get)(); }};
  };
  const auto number_property = [number](const char16_t* name, bool (Model::*set)(int32_t),
                                        auto get) {
    return Property{
        name, [set](Model& m, int32_t value, const std::u16string&) { return (m.*set)(value); },
        [get, number](const Model& m) { return number((m.*get)()); }};
  };
  const std::vector<Property> properties = {
      number_property(u"ItemDataType", &Model::SetItemDataType, &Model::ItemDataType),
      text_property(u"ItemDecimalSep", &Model::SetItemDecimalSep, &Model::ItemDecimalSep),
      text_property(u"ItemDateSep", &Model::SetItemDateSep, &Model::ItemDateSep),
      text_property(u"ItemHourSep", &Model::SetItemHourSep, &Model::ItemHourSep),
      text_property(u"ItemDateHourSep", &Model::SetItemDateHourSep, &Model::ItemDateHourSep),
      number_property(u"ItemMaxLength", &Model::SetItemMaxLength, &Model::ItemMaxLength),
      text_property(u"ItemTextFormat", &Model::SetItemTextFormat, &Model::ItemTextFormat),
      number_property(u"ItemForceTextCase", &Model::SetItemForceTextCase,
                      &Model::ItemForceTextCase),
      number_property(u"TagDataType", &Model::SetTagDataType, &Model::TagDataType),
      text_property(u"TagDecimalSep", &Model::SetTagDecimalSep, &Model::TagDecimalSep),
      text_property(u"TagDateSep", &Model::SetTagDateSep, &Model::TagDateSep),
      text_property(u"TagHourSep", &Model::SetTagHourSep, &Model::TagHourSep),
      text_property(u"TagDateHourSep", &Model::SetTagDateHourSep, &Model::TagDateHourSep),
      number_property(u"TagMaxLength", &Model::SetTagMaxLength, &Model::TagMaxLength),
      text_property(u"TagTextFormat", &Model::SetTagTextFormat, &Model::TagTextFormat),
      number_property(u"TagForceTextCase", &Model::SetTagForceTextCase, &Model::TagForceTextCase),
  };
  // Defaults, a value taken, values refused: for numbers the accepted range, texts take any.
  const std::map<std::u16string, std::u16string> defaults = {
      {u"DataType", u"0"},    {u"DecimalSep", u"."}, {u"DateSep", u"/"},   {u"HourSep", u":"},
      {u"DateHourSep", u" "}, {u"MaxLength", u"0"},  {u"TextFormat", u""}, {u"ForceTextCase", u"0"},
  };
  const std::map<std::u16string, std::vector<int32_t>> accepted = {
      {u"DataType", {5, 0}}, {u"MaxLength", {100000, 0}}, {u"ForceTextCase", {2, 0}}};
  const std::map<std::u16string, std::vector<int32_t>> refused = {
      {u"DataType", {6, -1}}, {u"MaxLength", {-1}}, {u"ForceTextCase", {3, -1}}};

  for (const Property& property : properties) {
    const std::u16string name = property.name;
    const std::u16string setting = name.substr(name.starts_with(u"Item") ? 4 : 3);
    SCOPED_TRACE(Narrow(name));
    RecordingHost host;
    CEditListModel model(nullptr, &host);
    EXPECT_EQ(property.read(model), defaults.at(setting));
    if (accepted.count(setting) != 0) {
      for (int32_t value : accepted.at(setting)) {
        host.Forget();
        EXPECT_TRUE(property.write(model, value, {}));
        EXPECT_EQ(property.read(model), number(value));
        EXPECT_EQ(host.changed, Texts{name});
      }
      property.write(model, accepted.at(setting)[0], {});
      for (int32_t value : refused.at(setting)) {
        host.Forget();
        EXPECT_FALSE(property.write(model, value, {}));
        EXPECT_EQ(property.read(model), number(accepted.at(setting)[0]));
        EXPECT_TRUE(host.changed.empty());
      }
    } else {
      for (const std::u16string value : {u",", u"", u"##-??"}) {
        host.Forget();
        EXPECT_TRUE(property.write(model, 0, value));
        EXPECT_EQ(property.read(model), value);
        EXPECT_EQ(host.changed, Texts{name});
      }
    }
  }
  // Each column keeps its own settings.
  CEditListModel model;
  model.SetItemDateSep(u"-");
  model.SetTagMaxLength(4);
  EXPECT_EQ(model.ItemSettings().DateSep, u"-");
  EXPECT_EQ(model.TagSettings().DateSep, u"/");
  EXPECT_EQ(model.TagSettings().MaxLength, 4);
  EXPECT_EQ(model.ItemSettings().MaxLength, 0);
}

TEST(EditListModelSettings, SortOrderTakesTheThreeRulesOnly) {
  RecordingHost host;
  CEditListModel model(nullptr, &host);
  EXPECT_EQ(model.SortOrder(), zktSortNone);
  for (int32_t value : {2, 1, 0}) {
    host.Forget();
    EXPECT_TRUE(model.SetSortOrder(value));
    EXPECT_EQ(model.SortOrder(), value);
    EXPECT_EQ(host.changed, Texts{u"SortOrder"});
  }
  for (int32_t value : {3, -1}) {
    host.Forget();
    EXPECT_FALSE(model.SetSortOrder(value));
    EXPECT_EQ(model.SortOrder(), zktSortNone);
    EXPECT_TRUE(host.changed.empty());
  }
}

TEST(EditListModelArchive, RoundTripsRebuildTheRowsThroughAddItem) {
  struct Case {
    const char* name;
    zktSortOrder order;
    std::vector<Add> adds;
    // Tags written empty after the rows were added.
    std::vector<int32_t> emptied_tags;
    const char16_t* items_archive;
    const char16_t* tags_archive;
    Texts items_after;
    Texts tags_after;
    int32_t new_index_after;
  };
  const Case cases[] = {
      {"no rows", zktSortNone, {}, {}, u"", u"", {}, {}, -1},
      {"tags that were all empty come back as insertion indexes",
       zktSortNone,
       {{u"c", u"x"}, {u"a", u"y"}, {u"b", u"z"}},
       {0, 1, 2},
       u"\"c\"|\"a\"|\"b\"",
       u"\"\"|\"\"|\"\"",
       {u"c", u"a", u"b"},
       {u"0", u"1", u"2"},
       2},
      {"quotes, bars and commas survive",
       zktSortNone,
       {{u"say \"hi\"", u"a|b"}, {u"x,y", u""}},
       {},
       u"\"say \"\"hi\"\"\"|\"x,y\"",
       u"\"a|b\"|\"1\"",
       {u"say \"hi\"", u"x,y"},
       {u"a|b", u"1"},
       1},
      {"a sorted list is placed again",
       zktSortAtoZ,
       {{u"b", u"t"}, {u"a"}, {u"z", u"", 0}},
       {1},
       u"\"z\"|\"a\"|\"b\"",
       u"\"0\"|\"\"|\"t\"",
       {u"a", u"b", u"z"},
       {u"0", u"t", u"0"},
       1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CEditListModel model;
    model.SetSortOrder(c.order);
    AddAll(model, c.adds);
    for (int32_t row : c.emptied_tags)
      model.SetTagList(row, u"");
    const std::u16string items = model.ItemsArchive();
    const std::u16string tags = model.TagsArchive();
    EXPECT_EQ(items, c.items_archive);
    EXPECT_EQ(tags, c.tags_archive);

    CEditListModel copy;
    copy.SetSortOrder(c.order);
    copy.AddItem(u"left over");
    copy.SetListIndex(0);
    copy.ParseListArchive(items, tags);
    EXPECT_EQ(ItemsOf(copy), c.items_after);
    EXPECT_EQ(TagsOf(copy), c.tags_after);
    EXPECT_EQ(copy.ListIndex(), -1);
    EXPECT_EQ(copy.NewIndex(), c.new_index_after);
  }
}

TEST(EditListModelArchive, ATagListShorterThanTheItemsFailsAfterTheRowsItCovers) {
  CEditListModel model;
  try {
    model.ParseListArchive(u"\"a\"|\"b\"|\"c\"", u"\"x\"");
    ADD_FAILURE() << "no error";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), error_number::kSubscriptOutOfRange);
  }
  EXPECT_EQ(ItemsOf(model), Texts{u"a"});
  EXPECT_EQ(TagsOf(model), Texts{u"x"});
  // Extra tags are left unused.
  model.ParseListArchive(u"\"a\"", u"\"x\"|\"y\"");
  EXPECT_EQ(TagsOf(model), Texts{u"x"});
}

// A property bag that, like the host's, stores nothing equal to its default.
class MapBag {
 public:
  CEditListModel::BagWriter Writer() {
    return [this](std::u16string_view key, const Variant& value, const Variant& default_value) {
      keys_written.emplace_back(key);
      if (value == default_value) {
        entries.erase(std::u16string(key));
      } else {
        entries[std::u16string(key)] = value;
      }
    };
  }
  CEditListModel::BagReader Reader() {
    return [this](std::u16string_view key, const Variant& default_value) {
      const auto found = entries.find(std::u16string(key));
      return found == entries.end() ? default_value : found->second;
    };
  }

  std::map<std::u16string, Variant> entries;
  Texts keys_written;
};

TEST(EditListModelBag, RowsTravelAsCountAndNumberedKeys) {
  CEditListModel model;
  AddAll(model, {{u"apple", u"7"}, {u""}, {u"pear", u""}});
  model.SetTagList(2, u"");
  model.SetItemList(0, u"");
  MapBag bag;
  model.WriteRows(bag.Writer());
  EXPECT_EQ(bag.keys_written, (Texts{u"ItemCount", u"TagList0", u"ItemList0", u"TagList1",
                                     u"ItemList1", u"TagList2", u"ItemList2"}));
  // Empty texts equal the default and are not stored.
  const std::map<std::u16string, Variant> stored = {{u"ItemCount", int32_t{3}},
                                                    {u"TagList0", u"7"},
                                                    {u"TagList1", u"1"},
                                                    {u"ItemList2", u"pear"}};
  EXPECT_EQ(bag.entries, stored);

  // Rows come back in their stored order with their stored tags, empty texts as "0", even
  // when the list sorts and shows its tags on the left.
  CEditListModel read;
  read.SetSortOrder(zktSortAtoZ);
  read.SetSortKeyLayout(true, zktTagPosLeft);
  read.ReadRows(bag.Reader());
  EXPECT_EQ(ItemsOf(read), (Texts{u"0", u"0", u"pear"}));
  EXPECT_EQ(TagsOf(read), (Texts{u"7", u"1", u"0"}));

  // An empty list writes a count of 0, which is not stored either.
  MapBag empty_bag;
  CEditListModel().WriteRows(empty_bag.Writer());
  EXPECT_EQ(empty_bag.keys_written, Texts{u"ItemCount"});
  EXPECT_TRUE(empty_bag.entries.empty());
  CEditListModel none;
  none.ReadRows(empty_bag.Reader());
  EXPECT_EQ(none.ListCount(), 0);
}

TEST(EditListModelBag, CountsAndTextsConvertAsBagValuesDo) {
  struct Case {
    const char* name;
    std::map<std::u16string, Variant> entries;
    Texts items;
    Texts tags;
    int32_t error;
  };
  const Case cases[] = {
      {"a count written as text",
       {{u"ItemCount", u"2"}, {u"ItemList1", u"b"}},
       {u"0", u"b"},
       {u"0", u"0"},
       0},
      {"a negative count", {{u"ItemCount", int32_t{-4}}}, {}, {}, 0},
      {"numbers as texts",
       {{u"ItemCount", 1.0}, {u"ItemList0", 2.5}, {u"TagList0", true}},
       {u"2.5"},
       {u"True"},
       0},
      {"a count that is no number", {{u"ItemCount", u"many"}}, {}, {}, error_number::kTypeMismatch},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    MapBag bag;
    bag.entries = c.entries;
    CEditListModel model;
    int32_t error = 0;
    try {
      model.ReadRows(bag.Reader());
    } catch (const ZKError& e) {
      error = e.Number();
    }
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(ItemsOf(model), c.items);
    EXPECT_EQ(TagsOf(model), c.tags);
  }
}

}  // namespace
}  // namespace zk
