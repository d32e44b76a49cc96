// The two columns kept in step: scrolling, the wheel in run mode, the mouse that drags over a
// column, and the events that the columns pass on.
#include <gtest/gtest.h>

#include "tests/edit_list/edit_list_fixture.h"

namespace zk {
namespace {

class EditListSyncTest : public EditListTest {
 protected:
  EditListSyncTest() : list_(Place(u"E")) {
    Fill(list_, 40);
    list_.SetShowTags(true);
    Events();
  }

  ZKEditList& list_;
};

TEST_F(EditListSyncTest, ScrollingTheItemsMovesTheTagsAndRaisesScrollOnce) {
  struct Case {
    int32_t request;
    int32_t position;
    int32_t top;
  };
  const Case cases[] = {{scroll_request::kLineDown, 0, 1},
                        {scroll_request::kPageDown, 0, 8},
                        {scroll_request::kThumbPosition, 20, 20},
                        {scroll_request::kTop, 0, 0}};
  for (const Case& c : cases) {
    ScrollBar(list_.ItemsBox(), c.request, c.position);
    EXPECT_EQ(list_.TopIndex(), c.top);
    EXPECT_EQ(list_.TagsBox().TopIndex(), c.top);
    EXPECT_EQ(Events(), (std::vector<std::string>{"Scroll"}));
  }
}

TEST_F(EditListSyncTest, ScrollingTheTagsMovesTheItemsWithoutScroll) {
  ScrollBar(list_.TagsBox(), scroll_request::kThumbPosition, 10);
  EXPECT_EQ(list_.TagsBox().TopIndex(), 10);
  EXPECT_EQ(list_.TopIndex(), 10);
  EXPECT_TRUE(Events().empty());
  // The item column's next scroll compares with the top at the last Scroll (0).
  ScrollBar(list_.ItemsBox(), scroll_request::kLineDown);
  EXPECT_EQ(Events(), (std::vector<std::string>{"Scroll"}));
}

TEST_F(EditListSyncTest, TheWheelOverEitherColumnMovesBothInRunModeOnly) {
  EXPECT_EQ(list_.ObservedItemsWindow(), list_.ItemsBox().hWnd());
  EXPECT_EQ(list_.ObservedTagsWindow(), list_.TagsBox().hWnd());
  Wheel(list_.TagsBox(), -120);
  EXPECT_EQ(list_.TagsBox().TopIndex(), 3);
  EXPECT_EQ(list_.TopIndex(), 3);
  EXPECT_TRUE(Events().empty());
  Wheel(list_.ItemsBox(), -240);
  EXPECT_EQ(list_.TopIndex(), 9);
  EXPECT_EQ(list_.TagsBox().TopIndex(), 9);
  EXPECT_EQ(Events(), (std::vector<std::string>{"Scroll"}));

  // At design time nothing observes the columns: the wheel moves only the one it turns over.
  form_.SetAmbient(u"UserMode", Variant(false));
  ZKEditList& designed = Place(u"D");
  Fill(designed, 40);
  designed.SetShowTags(true);
  EXPECT_EQ(designed.ObservedItemsWindow(), 0);
  Wheel(designed.TagsBox(), -120);
  EXPECT_EQ(designed.TagsBox().TopIndex(), 3);
  EXPECT_EQ(designed.TopIndex(), 0);
}

TEST_F(EditListSyncTest, MouseEventsCountFromTheControlsLeft) {
  // Tags on the left: the item column starts at 500.
  Mouse(u"E", MouseAction::kMove, 800, 100, 0);
  Mouse(u"E", MouseAction::kMove, 200, 100, 0);
  EXPECT_EQ(Events(),
            (std::vector<std::string>{"MouseMove(0, 0, 800, 100)", "MouseMove(0, 0, 200, 100)"}));
  list_.SetTagColumnPosition(zktTagPosRight);
  Mouse(u"E", MouseAction::kMove, 2600, 100, 0);
  EXPECT_EQ(Events(), (std::vector<std::string>{"MouseMove(0, 0, 2600, 100)"}));
}

TEST_F(EditListSyncTest, DraggingOverAColumnKeepsTheOtherInStep) {
  form_.Focus(u"E");
  Mouse(u"E", MouseAction::kDown, 800, RowY(1));
  Mouse(u"E", MouseAction::kMove, 800, RowY(4));
  EXPECT_EQ(list_.ListIndex(), 4);
  EXPECT_EQ(list_.TagsBox().ListIndex(), 4);
  Mouse(u"E", MouseAction::kUp, 800, RowY(4));
  Mouse(u"E", MouseAction::kDown, 100, RowY(6));
  EXPECT_EQ(list_.TagsBox().ListIndex(), 6);
  EXPECT_EQ(list_.ListIndex(), 6);
}

TEST_F(EditListSyncTest, TheMouseCopiesTheHostsToolTipToTheItems) {
  form_.FindSite(u"E")->Extender().SetProperty(u"ToolTipText", Variant(u"rows"));
  Mouse(u"E", MouseAction::kMove, 100, 100, 0);
  EXPECT_EQ(Utf8(list_.ItemsBox().ToolTipText()), "rows");
}

TEST_F(EditListSyncTest, KeysOfTheItemsAreForwardedAndMoveBothColumns) {
  form_.Focus(u"E");
  list_.SetListIndex(0);
  Events();
  form_.TypeKeys(u"{DOWN}a");
  EXPECT_EQ(list_.ListIndex(), 1);
  EXPECT_EQ(list_.TagsBox().ListIndex(), 1);
  EXPECT_EQ(Events(), (std::vector<std::string>{"KeyDown(40, 0)", "Click", "KeyUp(40, 0)",
                                                "KeyDown(65, 0)", "KeyPress(97)", "KeyUp(65, 0)"}));
}

TEST_F(EditListSyncTest, TopIndexWritesMoveBothColumns) {
  list_.SetTopIndex(12);
  EXPECT_EQ(list_.TopIndex(), 12);
  EXPECT_EQ(list_.TagsBox().TopIndex(), 12);
  list_.SetTopIndex(400);
  EXPECT_EQ(list_.TopIndex(), 12);
  EXPECT_TRUE(Events().empty());
}

}  // namespace
}  // namespace zk
