// The archive string (its element order, what a short string applies, the failure traces) and
// the property bag (the keys' orders, the rows, the loading guard).
#include <gtest/gtest.h>

#include <vector>

#include "foundation/archive_utils.h"
#include "platform/common/memory_property_bag.h"
#include "tests/edit_list/edit_list_fixture.h"

namespace zk {
namespace {

// A bag that keeps what it was asked, in order, over a memory bag.
class RecordingBag final : public IPropertyBag {
 public:
  Variant ReadProperty(std::u16string_view key, const Variant& default_value) override {
    keys.emplace_back(key);
    return bag.ReadProperty(key, default_value);
  }
  void WriteProperty(std::u16string_view key, const Variant& value,
                     const Variant& default_value) override {
    keys.emplace_back(key);
    bag.WriteProperty(key, value, default_value);
  }
  std::vector<std::string> Keys() {
    std::vector<std::string> lines;
    for (const std::u16string& key : std::exchange(keys, {}))
      lines.push_back(Utf8(key));
    return lines;
  }

  MemoryPropertyBag bag;
  std::vector<std::u16string> keys;
};

std::vector<std::string> Elements(std::u16string_view archive) {
  std::vector<std::string> elements;
  for (const std::u16string& element : MArchiveUtils::ArchiveSplitElements(archive))
    elements.push_back(Utf8(element));
  return elements;
}

std::u16string Joined(const std::vector<std::string>& elements) {
  std::vector<std::u16string> texts;
  for (const std::string& element : elements)
    texts.push_back(Utf8ToUtf16(element));
  return MArchiveUtils::ArchiveJoinElements(texts);
}

class EditListArchiveTest : public EditListTest {
 protected:
  // A list with everything away from the new control's values.
  ZKEditList& Configured(std::u16string_view name, zktSortOrder sort = zktSortZtoA) {
    ZKEditList& list = Place(name);
    list.SetAppearance(zktAp3d);
    list.SetBorderStyle(zktBSNone);
    list.SetBackColor(0x101010);
    list.SetForeColor(0x202020);
    list.SetTagBackColor(0x303030);
    list.SetTagForeColor(0x404040);
    list.SetTagColumnWidth(700);
    list.SetTagColumnPosition(zktTagPosRight);
    list.SetShowTags(true);
    list.SetHorizontalScrollBar(2);
    list.SetItemDataType(zktTDDecimal);
    list.SetItemMaxLength(9);
    list.SetItemTextFormat(u"#.##");
    list.SetItemDecimalSep(u",");
    list.SetItemHourSep(u"h");
    list.SetItemDateSep(u"-");
    list.SetItemDateHourSep(u"T");
    list.SetItemForceTextCase(zktTForceLowerCase);
    list.SetTagDataType(zktTDDate);
    list.SetTagMaxLength(10);
    list.SetTagTextFormat(u"dd/mm/yyyy");
    list.SetTagDecimalSep(u";");
    list.SetTagHourSep(u"'");
    list.SetTagDateSep(u".");
    list.SetTagDateHourSep(u"@");
    list.SetTagForceTextCase(zktTForceUpperCase);
    list.SetLocked(false);
    list.SetEditTags(true);
    list.Font()->SetSize(12);
    list.SetControlGroup(u"G");
    list.SetRowHeight(21);
    Fill(list, 12);
    list.SetItemList(3, u"a|\"b\"");
    list.SetTopIndex(2);
    list.SetListIndex(4);
    list.SetSortOrder(sort);
    return list;
  }
};

TEST_F(EditListArchiveTest, TheStringHas38ElementsInItsOrder) {
  ZKEditList& list = Place(u"E");
  list.AddItem(u"b");
  list.AddItem(u"a", Variant(), u"x");
  list.SetListIndex(1);
  const std::vector<std::string> elements = Elements(list.GetArchiveStr());
  ASSERT_EQ(elements.size(), 38u);
  const std::vector<std::string> expected = {
      "0",           "1",        "-2147483643",
      "-2147483640", "14737632", "-2147483640",
      "500",         "0",        "F",
      "0",           "0",        "0",
      "\"\"",        "\".\"",    "\":\"",
      "\"/\"",       "\" \"",    "0",
      "0",           "0",        "\"\"",
      "\".\"",       "\":\"",    "\"/\"",
      "\" \"",       "0",        "\"b\"|\"a\"",
      "\"0\"|\"x\"", "1",        "0",
      "T",           "F",        "\"MS Sans Serif\"#8.25#F#F#F#F",
      "F",           "\"\"",     "0",
      "13"};
  EXPECT_EQ(std::vector<std::string>(elements.begin() + 1, elements.end()), expected);
}

TEST_F(EditListArchiveTest, CloneCopiesEverythingAndTheRowsComeBackInTheirOrder) {
  ZKEditList& source = Configured(u"S", zktSortNone);
  ZKEditList& copy = Place(u"C");
  copy.Clone(form_.ControlRef(u"S"));
  const std::vector<std::string> a = Elements(source.GetArchiveStr());
  const std::vector<std::string> b = Elements(copy.GetArchiveStr());
  EXPECT_EQ(std::vector<std::string>(a.begin() + 1, a.end()),
            std::vector<std::string>(b.begin() + 1, b.end()));
  EXPECT_EQ(copy.ListCount(), 12);
  EXPECT_EQ(Utf8(copy.ItemList(3)), "a|\"b\"");
  EXPECT_EQ(copy.ListIndex(), 4);
  EXPECT_EQ(copy.TopIndex(), 2);
  EXPECT_EQ(copy.RowHeight(), 21);
  EXPECT_EQ(copy.TagsBox().RowHeight(), 21);
}

TEST_F(EditListArchiveTest, TheRowsArePlacedAgainBySortOrderAndEmptyTagsBecomeIndexes) {
  ZKEditList& list = Place(u"E");
  std::vector<std::string> elements = Elements(list.GetArchiveStr());
  elements[27] = "\"b\"|\"c\"|\"a\"";
  elements[28] = "\"\"|\"\"|\"\"";
  elements[36] = "1";  // A to Z
  ASSERT_TRUE(list.ParseArchiveStr(Joined(elements)));
  std::vector<std::string> rows;
  for (int row = 0; row < list.ListCount(); ++row)
    rows.push_back(Utf8(list.ItemList(row) + u"/" + list.TagList(row)));
  EXPECT_EQ(rows, (std::vector<std::string>{"a/0", "b/0", "c/1"}));
  EXPECT_EQ(Utf8(list.TagsBox().List(2)), "1");
  EXPECT_EQ(Utf8(list.ItemsBox().List(0)), "a");
}

TEST_F(EditListArchiveTest, ShortStringsApplyWhatComesBeforeTheMissingElement) {
  struct Case {
    size_t elements;
    bool accepted;
    const char* trace;  // empty: none
    bool rows_replaced;
    bool row_height_applied;
  };
  const Case cases[] = {
      {38, true, "", true, true},
      {37, true, "", true, false},
      {31, false, "ParseArchiveStr  (el: 31)", false, false},
      {30, false, "ParseArchiveStr  (el: 30)", false, false},
      {20, false, "ParseArchiveStr  (el: 20)", false, false},
      {0, false, "ParseArchiveStr  (el: 0)", false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.elements);
    ZKEditList& source = Configured(u"S" + Utf8ToUtf16(std::to_string(c.elements)));
    std::vector<std::string> elements = Elements(source.GetArchiveStr());
    elements.resize(c.elements);
    ZKEditList& target = Place(u"T" + Utf8ToUtf16(std::to_string(c.elements)));
    target.AddItem(u"kept");
    Traces();
    EXPECT_EQ(target.ParseArchiveStr(c.elements == 0 ? u"" : Joined(elements)), c.accepted);
    const std::vector<std::string> traces = Traces();
    if (*c.trace == 0) {
      EXPECT_TRUE(traces.empty());
    } else {
      EXPECT_EQ(traces, (std::vector<std::string>{c.trace}));
    }
    EXPECT_EQ(target.ListCount(), c.rows_replaced ? 12 : 1);
    EXPECT_EQ(target.ListIndex(), c.rows_replaced ? 4 : -1);
    // The font (element 33) gives the rows its line unless element 37 comes after it.
    EXPECT_EQ(target.RowHeight(), c.row_height_applied ? 21 : (c.elements > 33 ? 19 : 13));
    // Elements 1 to 26 are applied by every string that has them.
    EXPECT_EQ(target.TagColumnWidth(), c.elements > 7 ? 700 : 500);
    EXPECT_EQ(Utf8(target.TagTextFormat()), c.elements > 21 ? "dd/mm/yyyy" : "");
    // Element 31 onwards only when the four before them are there.
    EXPECT_EQ(target.EditTags(), c.elements > 30 && c.elements != 31 ? true : c.elements > 32);
  }
}

TEST_F(EditListArchiveTest, GetArchiveStrTracesTheElementItCouldNotBuild) {
  ZKEditList& list = Place(u"E");
  list.SetFont(nullptr);  // refused: the font stays
  Traces();
  EXPECT_FALSE(list.GetArchiveStr().empty());
  EXPECT_TRUE(Traces().empty());
}

TEST_F(EditListArchiveTest, TheBagIsWrittenAndReadInItsOrders) {
  ZKEditList& source = Configured(u"S");
  RecordingBag bag;
  source.WriteProperties(bag);
  const std::vector<std::string> head = {
      "BackColor",           "ForeColor",         "Enabled",          "Font",
      "DesignMode",          "TagColumnWidth",    "ShowTags",         "TagBackColor",
      "TagForeColor",        "EditTags",          "Locked",           "ListIndex",
      "HorizontalScrollBar", "TagColumnPosition", "ControlGroup",     "TagDataType",
      "TagDecimalSep",       "TagDateSep",        "TagHourSep",       "TagDateHourSep",
      "TagMaxLength",        "TagTextFormat",     "TagForceTextCase", "ItemDataType",
      "ItemDateSep",         "ItemHourSep",       "ItemDecimalSep",   "ItemDateHourSep",
      "ItemForceTextCase",   "ItemTextFormat",    "ItemMaxLength",    "ItemCount"};
  std::vector<std::string> written = bag.Keys();
  ASSERT_EQ(written.size(), head.size() + 2 * 12 + 5);
  EXPECT_EQ(std::vector<std::string>(written.begin(), written.begin() + 32), head);
  EXPECT_EQ(written[32], "TagList0");
  EXPECT_EQ(written[33], "ItemList0");
  EXPECT_EQ(std::vector<std::string>(written.end() - 5, written.end()),
            (std::vector<std::string>{"TopIndex", "SortOrder", "RowHeight", "Appearance",
                                      "BorderStyle"}));

  ZKEditList& loaded = Place(u"L");
  loaded.ReadProperties(bag);
  const std::vector<std::string> read = bag.Keys();
  const std::vector<std::string> read_head = {"BackColor",
                                              "ForeColor",
                                              "Enabled",
                                              "Font",
                                              "DesignMode",
                                              "TagColumnWidth",
                                              "ShowTags",
                                              "TagBackColor",
                                              "TagForeColor",
                                              "EditTags",
                                              "Locked",
                                              "ListIndex",
                                              "TagColumnPosition",
                                              "HorizontalScrollBar",
                                              "ControlGroup",
                                              "TagDataType",
                                              "TagDecimalSep",
                                              "TagDateSep",
                                              "TagHourSep",
                                              "TagDateHourSep",
                                              "TagMaxLength",
                                              "TagTextFormat",
                                              "TagForceTextCase",
                                              "ItemDataType",
                                              "ItemDateSep",
                                              "ItemHourSep",
                                              "ItemDecimalSep",
                                              "ItemDateHourSep",
                                              "ItemForceTextCase",
                                              "ItemTextFormat",
                                              "ItemMaxLength",
                                              "RowHeight",
                                              "SortOrder",
                                              "ItemCount",
                                              "ItemList0",
                                              "TagList0"};
  ASSERT_EQ(read.size(), read_head.size() - 2 + 2 * 12 + 3);
  EXPECT_EQ(std::vector<std::string>(read.begin(), read.begin() + 36), read_head);
  EXPECT_EQ(std::vector<std::string>(read.end() - 3, read.end()),
            (std::vector<std::string>{"TopIndex", "Appearance", "BorderStyle"}));

  // What was read gives the same archive string; the rows keep their stored order and tags,
  // though SortOrder is Z to A, and ListIndex could not apply to the empty list.
  std::vector<std::string> a = Elements(source.GetArchiveStr());
  std::vector<std::string> b = Elements(loaded.GetArchiveStr());
  EXPECT_EQ(b[29], "-1");
  a[29] = b[29];
  EXPECT_EQ(std::vector<std::string>(a.begin() + 1, a.end()),
            std::vector<std::string>(b.begin() + 1, b.end()));
}

TEST_F(EditListArchiveTest, ReadingRaisesNoClickAndANewControlWritesNothing) {
  ZKEditList& list = Place(u"E");
  MemoryPropertyBag bag;
  bag.Store(u"ItemCount", Variant(int32_t{2}));
  bag.Store(u"ItemList0", Variant(u"x"));
  bag.Store(u"TopIndex", Variant(int32_t{1}));
  Events();
  list.ReadProperties(bag);
  EXPECT_TRUE(Events().empty());
  // A missing text comes back as "0".
  EXPECT_EQ(Utf8(list.ItemList(0)), "x");
  EXPECT_EQ(Utf8(list.TagList(0)), "0");
  EXPECT_EQ(Utf8(list.ItemList(1)), "0");
  EXPECT_EQ(Utf8(list.ItemsBox().List(1)), "0");
  for (const auto& [control, property] : form_.TakePropertyChanges())
    ADD_FAILURE() << "reading notified " << Utf8(property);

  ZKEditList& fresh = Place(u"F");
  MemoryPropertyBag written;
  fresh.WriteProperties(written);
  for (const auto& [key, value] : written.Entries())
    ADD_FAILURE() << Utf8(key) << " written though it is the default";
}

}  // namespace
}  // namespace zk
