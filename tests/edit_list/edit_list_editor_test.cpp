// The in-place editor: when it opens, where it lies, what it takes from the column, and how an
// edit is written back or discarded.
#include <gtest/gtest.h>

#include "tests/edit_list/edit_list_fixture.h"

namespace zk {
namespace {

class EditListEditorTest : public EditListTest {
 protected:
  EditListEditorTest() : list_(Place(u"E")) {
    Fill(list_, 20);
    list_.SetLocked(false);
    form_.Focus(u"E");
    Events();
  }

  ZKEditList& list_;
};

TEST_F(EditListEditorTest, AClickOnARowOpensTheItemEditorOverIt) {
  ClickAt(u"E", 300, RowY(2));
  EXPECT_EQ(list_.ListIndex(), 2);
  ASSERT_TRUE(list_.EditorVisible());
  EXPECT_EQ(list_.EditRow(), 2);
  EXPECT_EQ(list_.EditColumn(), 0);
  EXPECT_EQ(Utf8(list_.Editor().Text()), "Row 2");
  EXPECT_TRUE(list_.EditorSurface().HasFocus());
  // 20 rows do not fit in 1500 twips: the vertical scroll bar's 16 pixels are left free.
  EXPECT_EQ(EditorBox(list_), (Box{0, 2 * kRow, 3000 - ScrollBarTwips(), kRow}));
  EXPECT_EQ(Events(), (std::vector<std::string>{"MouseDown(1, 0, 300, 495)", "Click",
                                                "MouseUp(1, 0, 300, 495)"}));
}

TEST_F(EditListEditorTest, EscapeDiscardsAndAnotherClickWritesBackThenOpensThere) {
  ClickAt(u"E", 300, RowY(1));
  ASSERT_TRUE(list_.EditorVisible());
  form_.TypeKeys(u"{END}x{ESC}");
  EXPECT_FALSE(list_.EditorVisible());
  EXPECT_EQ(Utf8(list_.ItemList(1)), "Row 1");
  EXPECT_TRUE(list_.ItemsBox().HasFocus());
  Events();

  ClickAt(u"E", 300, RowY(1));
  form_.TypeKeys(u"{END}y");
  Events();
  ClickAt(u"E", 300, RowY(4));
  EXPECT_EQ(Utf8(list_.ItemList(1)), "Row 1y");
  EXPECT_EQ(Utf8(list_.ItemsBox().List(1)), "Row 1y");
  const std::vector<std::string> events = Events();
  EXPECT_EQ(events, (std::vector<std::string>{"Change(1, 0)", "MouseDown(1, 0, 300, 885)", "Click",
                                              "MouseUp(1, 0, 300, 885)"}));
  EXPECT_TRUE(list_.EditorVisible());
  EXPECT_EQ(list_.EditRow(), 4);
  EXPECT_EQ(Utf8(list_.Editor().Text()), "Row 4");
}

TEST_F(EditListEditorTest, EnterTabUpAndDownCommitEscapeDoesNot) {
  struct Case {
    const char16_t* key;
    bool written;
  };
  const Case cases[] = {
      {u"{ENTER}", true}, {u"{TAB}", true}, {u"{UP}", true}, {u"{DOWN}", true}, {u"{ESC}", false}};
  int row = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(Utf8(c.key));
    ASSERT_TRUE(list_.OpenEditBox(row, 0));
    form_.TypeKeys(u"{END}!");
    Events();
    form_.TypeKeys(c.key);
    EXPECT_FALSE(list_.EditorVisible());
    EXPECT_EQ(list_.ItemList(row) == Utf8ToUtf16("Row " + std::to_string(row) + "!"), c.written);
    const std::vector<std::string> events = Events();
    const bool changed = std::find(events.begin(), events.end(),
                                   "Change(" + std::to_string(row) + ", 0)") != events.end();
    EXPECT_EQ(changed, c.written);
    EXPECT_EQ(Utf8(form_.FocusedControl()->Name()), "E");
    ++row;
  }
}

TEST_F(EditListEditorTest, TheEditorTakesTheColumnsSettingsColoursAndText) {
  list_.SetShowTags(true);
  list_.SetTagDataType(zktTDInteger);
  list_.SetTagMaxLength(4);
  list_.SetTagDecimalSep(u",");
  list_.SetTagForeColor(0x0000FF);
  list_.SetTagBackColor(0x00FF00);
  list_.SetItemForceTextCase(zktTForceUpperCase);
  ASSERT_TRUE(list_.OpenEditBox(3, 1));
  ZKTextEdit& editor = list_.Editor();
  EXPECT_EQ(editor.DataType(), zktTDInteger);
  EXPECT_EQ(editor.MaxLength(), 4);
  EXPECT_EQ(Utf8(editor.DecimalSep()), ",");
  EXPECT_EQ(editor.ForeColor(), 0x0000FFu);
  EXPECT_EQ(editor.BackColor(), 0x00FF00u);
  EXPECT_TRUE(editor.AutoSelect());
  EXPECT_EQ(Utf8(editor.Text()), "T3");
  // Tags on the left: the tag column's left, the tag column's width.
  EXPECT_EQ(EditorBox(list_), (Box{0, 3 * kRow, 500, kRow}));
  form_.TypeKeys(u"{ESC}");
  ASSERT_TRUE(list_.OpenEditBox(3, 0));
  EXPECT_EQ(editor.DataType(), zktTDText);
  EXPECT_EQ(editor.ForceTextCase(), zktTForceUpperCase);
  EXPECT_EQ(editor.MaxLength(), 0);
  EXPECT_EQ(Utf8(editor.Text()), "ROW 3");
  // The item column starts after the tags; its width leaves the scroll bar free.
  EXPECT_EQ(EditorBox(list_), (Box{500, 3 * kRow, 2500 - ScrollBarTwips(), kRow}));
}

TEST_F(EditListEditorTest, TheTagEditorOnTheRightLeavesTheScrollBarFree) {
  list_.SetShowTags(true);
  list_.SetTagColumnPosition(zktTagPosRight);
  ASSERT_TRUE(list_.OpenEditBox(0, 1));
  EXPECT_EQ(EditorBox(list_), (Box{2500, 0, 500 - ScrollBarTwips(), kRow}));
  form_.TypeKeys(u"{ESC}");
  // The items before the tags on the right: the whole width less the tags, no scroll bar
  // taken since the tags show it.
  ASSERT_TRUE(list_.OpenEditBox(0, 0));
  EXPECT_EQ(EditorBox(list_), (Box{0, 0, 2500, kRow}));
}

TEST_F(EditListEditorTest, ARowOutOfViewIsScrolledToTheTop) {
  // Seven whole rows show; making row 15 current brings it up from the bottom.
  list_.SetShowTags(true);
  ASSERT_TRUE(list_.OpenEditBox(15, 0));
  EXPECT_EQ(list_.TopIndex(), 9);
  EXPECT_EQ(list_.TagsBox().TopIndex(), 9);
  EXPECT_EQ(EditorBox(list_).top, 6 * kRow);
  form_.TypeKeys(u"{ESC}");
  // The editor's own test counts the part row at the bottom (1500 / 195 rows) as shown; a
  // row above the top goes to the top.
  list_.SetTopIndex(12);
  ASSERT_TRUE(list_.OpenEditBox(13, 0));
  EXPECT_EQ(list_.TopIndex(), 12);
  EXPECT_EQ(EditorBox(list_).top, kRow);
  form_.TypeKeys(u"{ESC}");
  list_.SetListIndex(-1);
  list_.SetTopIndex(12);
  ASSERT_TRUE(list_.OpenEditBox(5, 0));
  EXPECT_EQ(list_.TopIndex(), 5);
  EXPECT_EQ(EditorBox(list_).top, 0);
}

TEST_F(EditListEditorTest, OpenEditBoxRefusesRowsAndColumnsItCannotEdit) {
  EXPECT_FALSE(list_.OpenEditBox(-1, 0));
  EXPECT_FALSE(list_.OpenEditBox(20, 0));
  EXPECT_FALSE(list_.EditorVisible());
  // A valid row with an unknown column still becomes current.
  EXPECT_FALSE(list_.OpenEditBox(5, 2));
  EXPECT_EQ(list_.ListIndex(), 5);
  EXPECT_FALSE(list_.EditorVisible());
}

TEST_F(EditListEditorTest, TagClicksOpenTheTagEditorOnlyWithEditTagsButF2AlwaysDoes) {
  list_.SetShowTags(true);
  ClickAt(u"E", 100, RowY(2));
  EXPECT_EQ(list_.ListIndex(), 2);
  EXPECT_EQ(list_.TagsBox().ListIndex(), 2);
  EXPECT_FALSE(list_.EditorVisible());
  EXPECT_EQ(Events(), (std::vector<std::string>{"MouseDown(1, 0, 100, 495)", "Click",
                                                "MouseUp(1, 0, 100, 495)"}));
  form_.TypeKeys(u"{F2}");
  ASSERT_TRUE(list_.EditorVisible());
  EXPECT_EQ(list_.EditColumn(), 1);
  // The tag column raises no KeyDown of its own; KeyUp is forwarded.
  const std::vector<std::string> events = Events();
  EXPECT_EQ(std::count(events.begin(), events.end(), "KeyDown(113, 0)"), 0);
  form_.TypeKeys(u"{ESC}");
  list_.SetEditTags(true);
  ClickAt(u"E", 100, RowY(3));
  ASSERT_TRUE(list_.EditorVisible());
  EXPECT_EQ(list_.EditColumn(), 1);
  EXPECT_EQ(Utf8(list_.Editor().Text()), "T3");
  form_.TypeKeys(u"{END}z{ENTER}");
  EXPECT_EQ(Utf8(list_.TagList(3)), "T3z");
  EXPECT_EQ(Utf8(list_.TagsBox().List(3)), "T3z");
}

TEST_F(EditListEditorTest, F2OnTheItemsOpensTheEditorAndRaisesKeyDown) {
  list_.SetListIndex(4);
  list_.ItemsBox();
  form_.Focus(u"E");
  Events();
  form_.TypeKeys(u"{F2}");
  ASSERT_TRUE(list_.EditorVisible());
  EXPECT_EQ(list_.EditRow(), 4);
  const std::vector<std::string> events = Events();
  EXPECT_EQ(std::count(events.begin(), events.end(), "KeyDown(113, 0)"), 1);
}

TEST_F(EditListEditorTest, ListIndexFromTheProgramClicksButOpensNoEditor) {
  for (bool locked : {false, true}) {
    list_.SetLocked(locked);
    list_.SetListIndex(locked ? 7 : 6);
    EXPECT_EQ(Events(), (std::vector<std::string>{"Click"}));
    EXPECT_FALSE(list_.EditorVisible());
    EXPECT_EQ(list_.Locked(), locked);
  }
  // Selected(i) = True is a user's click: the editor opens on an unlocked list.
  list_.SetLocked(false);
  list_.SetSelected(9, true);
  EXPECT_TRUE(list_.EditorVisible());
  EXPECT_EQ(list_.EditRow(), 9);
}

TEST_F(EditListEditorTest, LockedAndDesignModeKeepTheEditorClosed) {
  struct Case {
    bool design;
    bool locked_written;
    bool locked_read;
  };
  const Case cases[] = {
      {false, false, false}, {false, true, true}, {true, false, true}, {true, true, true}};
  for (const Case& c : cases) {
    list_.SetDesignMode(c.design);
    list_.SetLocked(c.locked_written);
    EXPECT_EQ(list_.Locked(), c.locked_read);
    ClickAt(u"E", 300, RowY(1));
    EXPECT_EQ(list_.EditorVisible(), !c.locked_read);
    // In design mode the click leaves no current row.
    EXPECT_EQ(list_.ListIndex(), c.design ? -1 : 1);
    if (list_.EditorVisible()) form_.TypeKeys(u"{ESC}");
    list_.SetDesignMode(false);
  }
}

TEST_F(EditListEditorTest, ScrollingEitherColumnHidesTheEditor) {
  list_.SetShowTags(true);
  ASSERT_TRUE(list_.OpenEditBox(1, 0));
  ScrollBar(list_.TagsBox(), scroll_request::kLineDown);
  EXPECT_FALSE(list_.EditorVisible());
  EXPECT_EQ(list_.TopIndex(), 1);
}

}  // namespace
}  // namespace zk
