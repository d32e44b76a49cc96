#include <functional>
#include <string>
#include <vector>

#include "list_box_fixture.h"
#include "platform/platform.h"
#include "services/gui_utils.h"
#include "services/subclass.h"

namespace zk {
namespace {

template <typename Host>
using ListBoxElementTest = ListBoxTest<Host>;
TYPED_TEST_SUITE(ListBoxElementTest, Hosts, HostNames);

using Lines = std::vector<std::u16string>;

std::u16string RowText(int row) {
  const std::string text = "Row " + std::to_string(row);
  return {text.begin(), text.end()};
}

TYPED_TEST(ListBoxElementTest, RowsAreAddedReplacedAndRemovedAndTheCurrentRowMovesWithThem) {
  IListBoxElement& list = *this->list_;
  struct Step {
    std::function<bool(IListBoxElement&)> change;
    bool accepted;
    Lines rows;
    int32_t list_index;
  };
  const Step steps[] = {
      {[](IListBoxElement& l) { return l.AddItem(u"b", -1); }, true, {u"b"}, -1},
      {[](IListBoxElement& l) { return l.AddItem(u"d", 1); }, true, {u"b", u"d"}, -1},
      {[](IListBoxElement& l) { return l.SetListIndex(1); }, true, {u"b", u"d"}, 1},
      // Rows inserted before the current one push it down; after it, they leave it.
      {[](IListBoxElement& l) { return l.AddItem(u"a", 0); }, true, {u"a", u"b", u"d"}, 2},
      {[](IListBoxElement& l) { return l.AddItem(u"c", 2); }, true, {u"a", u"b", u"c", u"d"}, 3},
      {[](IListBoxElement& l) { return l.AddItem(u"e", 4); },
       true,
       {u"a", u"b", u"c", u"d", u"e"},
       3},
      {[](IListBoxElement& l) { return l.AddItem(u"x", 6); },
       false,
       {u"a", u"b", u"c", u"d", u"e"},
       3},
      {[](IListBoxElement& l) { return l.AddItem(u"x", -2); },
       false,
       {u"a", u"b", u"c", u"d", u"e"},
       3},
      {[](IListBoxElement& l) { return l.SetList(3, u"D"); },
       true,
       {u"a", u"b", u"c", u"D", u"e"},
       3},
      {[](IListBoxElement& l) { return l.SetList(5, u"x"); },
       false,
       {u"a", u"b", u"c", u"D", u"e"},
       3},
      {[](IListBoxElement& l) { return l.SetList(-1, u"x"); },
       false,
       {u"a", u"b", u"c", u"D", u"e"},
       3},
      {[](IListBoxElement& l) { return l.RemoveItem(0); }, true, {u"b", u"c", u"D", u"e"}, 2},
      {[](IListBoxElement& l) { return l.RemoveItem(3); }, true, {u"b", u"c", u"D"}, 2},
      {[](IListBoxElement& l) { return l.RemoveItem(3); }, false, {u"b", u"c", u"D"}, 2},
      // Removing the current row leaves none current.
      {[](IListBoxElement& l) { return l.RemoveItem(2); }, true, {u"b", u"c"}, -1},
      {[](IListBoxElement& l) { return l.SetListIndex(0); }, true, {u"b", u"c"}, 0},
      {[](IListBoxElement& l) {
         l.Clear();
         return true;
       },
       true,
       {},
       -1},
  };
  int step_number = 0;
  for (const Step& step : steps) {
    SCOPED_TRACE(step_number++);
    EXPECT_EQ(step.change(list), step.accepted);
    Lines rows;
    for (int32_t row = 0; row < list.ListCount(); ++row)
      rows.push_back(list.List(row));
    EXPECT_EQ(rows, step.rows);
    EXPECT_EQ(list.ListIndex(), step.list_index);
    EXPECT_EQ(list.List(list.ListCount()), u"");
    EXPECT_EQ(list.List(-1), u"");
  }
  // Only the program's own changes of the current row raised Click.
  EXPECT_EQ(this->Events(), (Lines{u"Click", u"Click"}));
}

TYPED_TEST(ListBoxElementTest, TheProgramsChangesOfTheCurrentRowRaiseClickAndBringItIntoView) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 20);
  ASSERT_EQ(list.VisibleRows(), 6);
  struct Row {
    int32_t index;
    bool accepted;
    int32_t list_index;
    int32_t top_index;
    Lines events;
  };
  const Row rows[] = {
      {3, true, 3, 0, {u"Click"}},    {3, true, 3, 0, {}},  // no change, no Click
      {12, true, 12, 7, {u"Click"}},  {9, true, 9, 7, {u"Click"}},
      {2, true, 2, 2, {u"Click"}},    {19, true, 19, 14, {u"Click"}},
      {-1, true, -1, 14, {u"Click"}}, {20, false, -1, 14, {}},
      {-2, false, -1, 14, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.index);
    EXPECT_EQ(list.SetListIndex(row.index), row.accepted);
    EXPECT_EQ(list.ListIndex(), row.list_index);
    EXPECT_EQ(list.TopIndex(), row.top_index);
    EXPECT_EQ(this->Events(), row.events);
  }
}

TYPED_TEST(ListBoxElementTest, KeysMoveTheCurrentRowAndKeepItInView) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 20);
  ASSERT_TRUE(this->host_.form.Focus(u"C"));
  ASSERT_TRUE(list.HasFocus());
  this->Events();
  struct Row {
    std::u16string_view keys;
    int32_t list_index;
    int32_t top_index;
    Lines moves;  // Scroll and Click, between the key's own events
  };
  // Six rows show; a page moves five rows, so that one stays in view.
  const Row rows[] = {
      {u"{DOWN}", 0, 0, {u"Click"}},  // no current row yet: the top row
      {u"{DOWN}", 1, 0, {u"Click"}},
      {u"{RIGHT}", 2, 0, {u"Click"}},
      {u"{PGDN}", 7, 2, {u"Scroll", u"Click"}},
      {u"{UP}", 6, 2, {u"Click"}},
      {u"{LEFT}", 5, 2, {u"Click"}},
      {u"{END}", 19, 14, {u"Scroll", u"Click"}},
      {u"{DOWN}", 19, 14, {}},  // already the last row
      {u"{PGUP}", 14, 14, {u"Click"}},
      {u"{PGUP}", 9, 9, {u"Scroll", u"Click"}},
      {u"{HOME}", 0, 0, {u"Scroll", u"Click"}},
      {u"{UP}", 0, 0, {}},
      {u"{F2}", 0, 0, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.keys.begin(), row.keys.end()));
    const std::vector<KeyStroke> strokes = ParseSendKeys(row.keys);
    ASSERT_EQ(strokes.size(), 1u);
    const std::string code = std::to_string(strokes[0].key_code);
    const std::u16string down = u"KeyDown(" + std::u16string(code.begin(), code.end()) + u")";
    const std::u16string up = u"KeyUp(" + std::u16string(code.begin(), code.end()) + u")";
    this->host_.form.TypeKeys(row.keys);
    Lines expected{down};
    expected.insert(expected.end(), row.moves.begin(), row.moves.end());
    expected.push_back(up);
    EXPECT_EQ(this->Events(), expected);
    EXPECT_EQ(list.ListIndex(), row.list_index);
    EXPECT_EQ(list.TopIndex(), row.top_index);
  }
}

TYPED_TEST(ListBoxElementTest, AKeyDownHandlerMayTakeTheKeyAwayAndTypedCharactersAreReported) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 5);
  ASSERT_TRUE(this->host_.form.Focus(u"C"));
  ScopedConnection swallow = list.KeyDown().Connect([](int16_t& code, int16_t&) {
    if (code == 40) code = 0;
  });
  this->Events();
  this->host_.form.TypeKeys(u"{DOWN}a");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(this->Events(),
            (Lines{u"KeyDown(40)", u"KeyUp(40)", u"KeyDown(65)", u"KeyPress(97)", u"KeyUp(65)"}));
}

TYPED_TEST(ListBoxElementTest, TheLeftButtonMakesTheRowUnderItCurrentEvenWhenItAlreadyIs) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 20);
  list.SetTopIndex(4);
  ASSERT_TRUE(this->host_.form.Focus(u"C"));  // the first press would give it
  this->Events();
  struct Row {
    int visible_row;
    int16_t button;
    int32_t list_index;
    Lines events;
  };
  // Points: 10 pixels into the rows; MouseDown and MouseUp report twips from the box's corner.
  const int x = 180;
  auto y = [](int visible_row) { return std::to_string(15 * (2 + visible_row * 13 + 6)); };
  auto mouse = [&](const char* event, int visible_row, int button) {
    const std::string line = std::string(event) + "(" + std::to_string(button) + "," +
                             std::to_string(x) + "," + y(visible_row) + ")";
    return std::u16string(line.begin(), line.end());
  };
  const Row rows[] = {
      {1, 1, 5, {mouse("MouseDown", 1, 1), u"Click", mouse("MouseUp", 1, 1)}},
      {1, 1, 5, {mouse("MouseDown", 1, 1), u"Click", mouse("MouseUp", 1, 1)}},
      {5, 1, 9, {mouse("MouseDown", 5, 1), u"Click", mouse("MouseUp", 5, 1)}},
      // The right button reports itself and selects nothing.
      {2, 2, 9, {mouse("MouseDown", 2, 2), mouse("MouseUp", 2, 2)}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.visible_row);
    const float at_y = this->RowY(row.visible_row);
    this->Mouse(MouseAction::kDown, row.button, this->InnerX(10), at_y);
    this->Mouse(MouseAction::kUp, row.button, this->InnerX(10), at_y);
    EXPECT_EQ(list.ListIndex(), row.list_index);
    EXPECT_EQ(list.TopIndex(), 4);
    EXPECT_EQ(this->Events(), row.events);
  }
}

TYPED_TEST(ListBoxElementTest, PressesBelowTheLastRowSelectNothingAndDraggingFollowsThePointer) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 3);
  this->Mouse(MouseAction::kDown, 1, this->InnerX(10), this->RowY(4));
  this->Mouse(MouseAction::kUp, 1, this->InnerX(10), this->RowY(4));
  EXPECT_EQ(list.ListIndex(), -1);
  this->Events();
  this->Mouse(MouseAction::kDown, 1, this->InnerX(10), this->RowY(0));
  this->Mouse(MouseAction::kMove, 1, this->InnerX(10), this->RowY(0) + 60);  // same row
  this->Mouse(MouseAction::kMove, 1, this->InnerX(10), this->RowY(2));
  this->Mouse(MouseAction::kMove, 1, this->InnerX(10), this->RowY(5));  // below the rows
  this->Mouse(MouseAction::kUp, 1, this->InnerX(10), this->RowY(5));
  EXPECT_EQ(list.ListIndex(), 2);
  Lines clicks;
  for (const std::u16string& line : this->Events()) {
    if (line == u"Click") clicks.push_back(line);
  }
  EXPECT_EQ(clicks, (Lines{u"Click", u"Click"}));
}

TYPED_TEST(ListBoxElementTest, TheSecondPressOfADoubleClickRaisesDblClick) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 5);
  this->ClickAt(this->InnerX(10), this->RowY(1));
  this->Events();
  this->Mouse(MouseAction::kDoubleDown, 1, this->InnerX(10), this->RowY(1));
  this->Mouse(MouseAction::kUp, 1, this->InnerX(10), this->RowY(1));
  const Lines events = this->Events();
  ASSERT_GE(events.size(), 1u);
  EXPECT_EQ(events.front(), u"DblClick");
  EXPECT_EQ(list.ListIndex(), 1);
}

TYPED_TEST(ListBoxElementTest, TheScrollBarMovesTheTopRowAndRaisesScroll) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 20);
  IWindowSystem& windows = CurrentPlatform().Windows();
  struct Row {
    int32_t request;
    int32_t position;
    int32_t top_index;
    bool scrolled;
  };
  // Six rows show: the last row is on top at 14, a page is six rows.
  const Row rows[] = {
      {scroll_request::kLineDown, 0, 1, true},
      {scroll_request::kPageDown, 0, 7, true},
      {scroll_request::kPageDown, 0, 13, true},
      {scroll_request::kPageDown, 0, 14, true},
      {scroll_request::kLineDown, 0, 14, false},
      {scroll_request::kLineUp, 0, 13, true},
      {scroll_request::kThumbTrack, 3, 3, true},
      {scroll_request::kThumbPosition, 40, 14, true},
      {scroll_request::kTop, 0, 0, true},
      {scroll_request::kPageUp, 0, 0, false},
      {scroll_request::kBottom, 0, 14, true},
      {8, 0, 14, false},  // the end of a scroll: nothing to do
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.request);
    windows.SendMessage(list.hWnd(), window_message::kVScroll, row.request | (row.position << 16),
                        0);
    EXPECT_EQ(list.TopIndex(), row.top_index);
    EXPECT_EQ(this->Events(), row.scrolled ? Lines{u"Scroll"} : Lines{});
  }
  // The program scrolls without telling.
  EXPECT_TRUE(list.SetTopIndex(5));
  EXPECT_EQ(list.TopIndex(), 5);
  EXPECT_TRUE(list.SetTopIndex(19));
  EXPECT_EQ(list.TopIndex(), 14);
  EXPECT_FALSE(list.SetTopIndex(20));
  EXPECT_FALSE(list.SetTopIndex(-1));
  EXPECT_EQ(list.TopIndex(), 14);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_TRUE(this->Events().empty());
}

TYPED_TEST(ListBoxElementTest, TheWheelScrollsThreeRowsANotchAndReachesAWindowObserver) {
  IListBoxElement& list = *this->list_;
  this->Fill(list, 20);
  ZKCSubclass observer;
  observer.SetPropagate(true);
  std::vector<std::string> seen;
  ScopedConnection before =
      observer.BeforeEvent().Connect([&](uint32_t message, int32_t wparam, int32_t) {
        if (message != window_message::kMouseWheel) return;
        seen.push_back("before " + std::to_string(static_cast<int16_t>(wparam >> 16)) + " top " +
                       std::to_string(list.TopIndex()));
      });
  ScopedConnection after = observer.AfterEvent().Connect([&](uint32_t message, int32_t, int32_t) {
    if (message == window_message::kMouseWheel) {
      seen.push_back("after top " + std::to_string(list.TopIndex()));
    }
  });
  ASSERT_TRUE(observer.Hook(list.hWnd()));
  struct Row {
    int delta;
    int32_t top_index;
  };
  const Row rows[] = {{-120, 3}, {-240, 9}, {-60, 9}, {-60, 12}, {-360, 14}, {120, 11}, {480, 0}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.delta);
    this->Wheel(list, row.delta);
    EXPECT_EQ(list.TopIndex(), row.top_index);
  }
  EXPECT_EQ(seen, (std::vector<std::string>{
                      "before -120 top 0", "after top 3", "before -240 top 3", "after top 9",
                      "before -60 top 9", "after top 9", "before -60 top 9", "after top 12",
                      "before -360 top 12", "after top 14", "before 120 top 14", "after top 11",
                      "before 480 top 11", "after top 0"}));
  // The wheel scrolls without Scroll; the current row stays.
  EXPECT_TRUE(this->Events().empty());
  EXPECT_EQ(list.ListIndex(), -1);
  // An observer that keeps the message keeps the box from scrolling.
  observer.SetPropagate(false);
  this->Wheel(list, -120);
  EXPECT_EQ(list.TopIndex(), 0);
  EXPECT_EQ(seen.back(), "before -120 top 0");
}

TYPED_TEST(ListBoxElementTest, TheListMessagesSentToItsWindowAreAnsweredByTheBox) {
  IListBoxElement& list = *this->list_;
  IWindowSystem& windows = CurrentPlatform().Windows();
  this->Fill(list, 8);  // six rows show, so the scroll bar shows
  struct Row {
    uint32_t message;
    int32_t wparam;
    int32_t lparam;
    int32_t answer;
    int32_t row_height;
    int32_t visible_rows;
  };
  const Row rows[] = {
      {window_message::kListGetItemHeight, 0, 0, 13, 13, 6},
      {window_message::kListSetItemHeight, 0, 20, 0, 20, 3},
      {window_message::kListGetItemHeight, 0, 0, 20, 20, 3},
      {window_message::kListSetItemHeight, 0, 0, window_message::kListError, 20, 3},
      {window_message::kListSetItemHeight, 0, 256, window_message::kListError, 20, 3},
      {window_message::kListSetItemHeight, 0, 255, 0, 255, 0},
      {window_message::kListSetItemHeight, 0, 1, 0, 1, 78},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.message);
    SCOPED_TRACE(row.lparam);
    EXPECT_EQ(windows.SendMessage(list.hWnd(), row.message, row.wparam, row.lparam), row.answer);
    EXPECT_EQ(list.RowHeight(), row.row_height);
    EXPECT_EQ(list.VisibleRows(), row.visible_rows);
  }
  // An extent wider than the rows brings the horizontal scroll bar, which takes its height from
  // the rows.
  const int32_t bar =
      CurrentPlatform().Screen().SystemMetric(system_metric::kHorizontalScrollHeight);
  ASSERT_GT(bar, 0);
  EXPECT_EQ(windows.SendMessage(list.hWnd(), window_message::kListSetHorizontalExtent, 96, 0), 0);
  EXPECT_EQ(list.HorizontalExtent(), 96);
  EXPECT_EQ(list.VisibleRows(), 78);
  EXPECT_EQ(
      windows.GetWindowLong(list.hWnd(), window_long::kStyle) & window_style::kHorizontalScrollBar,
      0);
  EXPECT_EQ(windows.SendMessage(list.hWnd(), window_message::kListSetHorizontalExtent, 450, 0), 0);
  EXPECT_EQ(list.HorizontalExtent(), 450);
  EXPECT_EQ(list.VisibleRows(), 78 - bar);
  EXPECT_NE(
      windows.GetWindowLong(list.hWnd(), window_long::kStyle) & window_style::kHorizontalScrollBar,
      0);
  // The helpers of the library speak to the box alike.
  EXPECT_TRUE(MGuiUtils::SetListItemHeight(list.hWnd(), 16));
  EXPECT_FALSE(MGuiUtils::SetListItemHeight(list.hWnd(), 300));
  EXPECT_EQ(MGuiUtils::GetListItemHeight(list.hWnd(), false), 16);
  EXPECT_EQ(MGuiUtils::GetListItemHeight(list.hWnd(), true), 240);
  // Another window of the control answers none of them.
  EXPECT_EQ(windows.SendMessage(this->surface_->hWnd(), window_message::kListGetItemHeight, 0, 0),
            0);
}

TYPED_TEST(ListBoxElementTest, TheVerticalScrollBarStyleBitIsSetWhileTheRowsDoNotFit) {
  IListBoxElement& list = *this->list_;
  auto has_bar = [&] { return MGuiUtils::HasVerticalScrollBar(list.hWnd()); };
  struct Row {
    std::function<void(IListBoxElement&)> change;
    bool bar;
    int32_t visible_rows;
  };
  const Row rows[] = {
      {[](IListBoxElement& l) { l.AddItem(u"x", -1); }, false, 6},
      {[this](IListBoxElement& l) { this->Fill(l, 5); }, false, 6},
      {[](IListBoxElement& l) { l.AddItem(u"x", -1); }, true, 6},
      {[](IListBoxElement& l) { l.RemoveItem(0); }, false, 6},
      {[](IListBoxElement& l) { l.SetRowHeight(20); }, true, 3},
      // Four rows of 20 pixels: 80 pixels, two more than the 3-D border leaves.
      {[](IListBoxElement& l) {
         l.RemoveItem(0);
         l.RemoveItem(0);
       },
       true, 3},
      {[](IListBoxElement& l) { l.SetBorderStyle(0); }, false, 4},  // 82 pixels
      {[](IListBoxElement& l) { l.SetBorderStyle(1); }, true, 3},
      {[](IListBoxElement& l) { l.SetAppearance(0); }, false, 4},  // a flat border: 80 pixels
      {[](IListBoxElement& l) { l.Move(300, 2550, 1500, 1500); }, false, 4},
      {[](IListBoxElement& l) { l.SetRowHeight(30); }, true, 3},
      {[](IListBoxElement& l) { l.Clear(); }, false, 3},
  };
  int step = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(step++);
    row.change(list);
    EXPECT_EQ(has_bar(), row.bar);
    EXPECT_EQ(list.VisibleRows(), row.visible_rows);
  }
}

TYPED_TEST(ListBoxElementTest, ANewFontGivesTheRowsItsLineHeight) {
  IListBoxElement& list = *this->list_;
  const auto fonts = CurrentPlatform().FontCatalogue();
  FontDescription font = list.Font();
  EXPECT_EQ(font, fonts->DefaultFont());
  for (const int64_t size_e4 : {82500, 120000, 240000}) {
    SCOPED_TRACE(size_e4);
    font.size_e4 = size_e4;
    list.SetFont(font);
    EXPECT_EQ(list.Font(), font);
    EXPECT_EQ(list.RowHeight(), fonts->MeasureText(font, u"", 0).height);
    EXPECT_EQ(list.VisibleRows(), 78 / list.RowHeight());
  }
  EXPECT_GT(list.RowHeight(), 30);
}

TYPED_TEST(ListBoxElementTest, AHundredThousandRowsOpenAndTheLastOneBecomesCurrent) {
  IListBoxElement& list = *this->list_;
  constexpr int kRows = 100000;
  this->Fill(list, kRows);
  ASSERT_EQ(list.ListCount(), kRows);
  EXPECT_TRUE(list.SetListIndex(kRows - 1));
  EXPECT_EQ(list.TopIndex(), kRows - 6);
  EXPECT_EQ(list.List(kRows - 1), RowText(kRows - 1));
  EXPECT_TRUE(MGuiUtils::HasVerticalScrollBar(list.hWnd()));
  // The user goes on from there.
  ASSERT_TRUE(this->host_.form.Focus(u"C"));
  this->host_.form.TypeKeys(u"{HOME}");
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(list.TopIndex(), 0);
  EXPECT_EQ(this->Events(),
            (Lines{u"Click", u"GotFocus", u"KeyDown(36)", u"Scroll", u"Click", u"KeyUp(36)"}));
}

TYPED_TEST(ListBoxElementTest, TheBoxTakesTheKeysWhenPressedOrGivenTheFocusAndGivesThemUp) {
  IListBoxElement& first = *this->list_;
  std::unique_ptr<IListBoxElement> second = this->MakeList(u"second ");
  second->Move(3000, 2550, 1500, 1230);
  this->Fill(first, 3);
  this->Fill(*second, 3);
  // Without the form's focus, the box only becomes where the focus goes.
  EXPECT_TRUE(first.SetFocus());
  EXPECT_FALSE(first.HasFocus());
  EXPECT_TRUE(this->Events().empty());
  ASSERT_TRUE(this->host_.form.Focus(u"C"));
  EXPECT_TRUE(first.HasFocus());
  EXPECT_EQ(this->Events(), (Lines{u"GotFocus"}));
  this->host_.form.TypeKeys(u"{DOWN}");
  EXPECT_EQ(first.ListIndex(), 0);
  // A press on the other box gives it the keys.
  this->ClickAt(3000 + 10 * 15 + 30, this->RowY(1));
  EXPECT_TRUE(second->HasFocus());
  EXPECT_FALSE(first.HasFocus());
  this->host_.form.TypeKeys(u"{DOWN}");
  EXPECT_EQ(second->ListIndex(), 2);
  EXPECT_EQ(first.ListIndex(), 0);
  EXPECT_EQ(this->Events(),
            (Lines{u"KeyDown(40)", u"Click", u"KeyUp(40)", u"LostFocus", u"second GotFocus",
                   u"second MouseDown(1,180,315)", u"second Click", u"second MouseUp(1,180,315)",
                   u"second KeyDown(40)", u"second Click", u"second KeyUp(40)"}));
  // A part of the control takes the focus from the box, and the box takes it back.
  ASSERT_TRUE(this->composite_->FocusPart(u"tedValue"));
  EXPECT_FALSE(second->HasFocus());
  EXPECT_TRUE(first.SetFocus());
  EXPECT_TRUE(first.HasFocus());
  EXPECT_EQ(this->composite_->FocusedPart(), u"");
  EXPECT_EQ(this->Events(), (Lines{u"second LostFocus", u"GotFocus"}));
  // The form's focus leaves the control, and comes back to the box that had it.
  ASSERT_TRUE(this->host_.form.Focus(u"Before"));
  ASSERT_TRUE(this->host_.form.Focus(u"C"));
  EXPECT_EQ(this->Events(), (Lines{u"LostFocus", u"GotFocus"}));
  // A hidden or disabled box cannot take the focus, and gives it up to the control's own
  // window, where the keys then go.
  second->SetVisible(false);
  EXPECT_FALSE(second->SetFocus());
  second->SetVisible(true);
  second->SetEnabled(false);
  EXPECT_FALSE(second->SetFocus());
  EXPECT_TRUE(first.HasFocus());
  first.SetEnabled(false);
  EXPECT_FALSE(first.HasFocus());
  EXPECT_EQ(this->Focused(), u"C");
  EXPECT_TRUE(this->surface_->HasFocus());
  EXPECT_EQ(this->composite_->FocusedPart(), u"");
  this->host_.form.TypeKeys(u"{DOWN}");
  EXPECT_EQ(first.ListIndex(), 0);
  EXPECT_EQ(this->Events(), (Lines{u"LostFocus"}));
  first.SetEnabled(true);
  EXPECT_TRUE(first.SetFocus());
  EXPECT_EQ(this->Events(), (Lines{u"GotFocus"}));
  first.SetVisible(false);
  EXPECT_FALSE(first.HasFocus());
  EXPECT_EQ(this->Events(), (Lines{u"LostFocus"}));
}

TYPED_TEST(ListBoxElementTest, TheBoxIsAWindowOfTheControlAboveItsWindowlessElements) {
  IListBoxElement& list = *this->list_;
  EXPECT_EQ(this->host_.ParentWindow(list.hWnd()), this->surface_->hWnd());
  EXPECT_NE(list.hWnd(), 0);
  // The control's own label fills it and lies below the box: presses on the box are the box's.
  int label_clicks = 0;
  ScopedConnection label = this->composite_->Click.Connect([&label_clicks] { ++label_clicks; });
  this->Fill(list, 2);
  this->ClickAt(this->InnerX(10), this->RowY(0));
  EXPECT_EQ(label_clicks, 0);
  EXPECT_EQ(list.ListIndex(), 0);
  // A hidden box lets the press through to what lies below.
  list.SetVisible(false);
  this->ClickAt(this->InnerX(10), this->RowY(1));
  EXPECT_EQ(label_clicks, 1);
  EXPECT_EQ(list.ListIndex(), 0);
}

TYPED_TEST(ListBoxElementTest, ColoursLookAndPlaceReadBack) {
  IListBoxElement& list = *this->list_;
  EXPECT_EQ(list.ForeColor(), 0x80000008u);
  EXPECT_EQ(list.BackColor(), 0x80000005u);
  EXPECT_EQ(list.Appearance(), 1);
  EXPECT_EQ(list.BorderStyle(), 1);
  list.SetForeColor(0x0000FF);
  list.SetBackColor(0xE0E0E0);
  list.SetToolTipText(u"rows");
  EXPECT_EQ(list.ForeColor(), 0x0000FFu);
  EXPECT_EQ(list.BackColor(), 0xE0E0E0u);
  EXPECT_EQ(list.ToolTipText(), u"rows");
  EXPECT_EQ(list.Left(), 300);
  EXPECT_EQ(list.Width(), 1500);
  PixelRect rect;
  ASSERT_TRUE(CurrentPlatform().Windows().GetWindowRect(list.hWnd(), rect));
  EXPECT_EQ(rect.Width(), 100);
  EXPECT_EQ(rect.Height(), 82);
}

}  // namespace
}  // namespace zk
