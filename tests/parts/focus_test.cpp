#include <string>
#include <vector>

#include "framework/constituent.h"
#include "parts_fixture.h"

namespace zk {
namespace {

template <typename Host>
using PartFocusTest = PartsTest<Host>;
TYPED_TEST_SUITE(PartFocusTest, Hosts, HostNames);

using Lines = std::vector<std::u16string>;

TYPED_TEST(PartFocusTest, PressesReachThePartUnderThem) {
  struct Row {
    float x;
    float y;
    std::u16string_view clicked;
    std::u16string_view focused_part;
  };
  // The upper half holds the parts; the lower half is the control's own label, where a press
  // leaves the focus inside the control where it was. (Points lie at least half a pixel off
  // the edges: Qt places a press on whole pixels.)
  const Row rows[] = {
      {10, 10, u"PartClick(cmdLeft)", u"cmdLeft"},
      {712, 487, u"PartClick(cmdLeft)", u"cmdLeft"},
      {720, 100, u"PartClick(tedValue)", u"tedValue"},
      {2152, 100, u"PartClick(tedValue)", u"tedValue"},
      {2160, 100, u"PartClick(cmdRight)", u"cmdRight"},
      {2870, 480, u"PartClick(cmdRight)", u"cmdRight"},
      {100, 495, u"Click", u"cmdRight"},
      {2870, 980, u"Click", u"cmdRight"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.x);
    SCOPED_TRACE(row.y);
    this->Events();
    this->Click(u"C", row.x, row.y);
    const Lines events = this->Events();
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.back(), row.clicked);
    EXPECT_EQ(this->composite_->FocusedPart(), row.focused_part);
    EXPECT_EQ(this->Focused(), u"C");
  }
}

TYPED_TEST(PartFocusTest, TheFormsFocusStaysOnTheOwnerWhileTheFocusMovesInsideIt) {
  auto& form = this->host_.form;
  ISurface& owner = this->host_.Site(u"C").Surface();
  ZKTestComposite& composite = *this->composite_;
  ASSERT_TRUE(form.Focus(u"C"));
  // A new control's focus goes to its own window until a part is given it.
  EXPECT_EQ(this->Events(), (Lines{u"GotFocus"}));
  EXPECT_TRUE(owner.HasFocus());
  ASSERT_TRUE(composite.FocusPart(u"tedValue"));
  ASSERT_TRUE(composite.FocusPart(u"cmdLeft"));
  EXPECT_EQ(this->Events(), (Lines{u"PartGotFocus(tedValue)", u"PartLostFocus(tedValue)",
                                   u"PartGotFocus(cmdLeft)"}));
  EXPECT_EQ(this->Focused(), u"C");
  EXPECT_TRUE(owner.HasFocus());
  EXPECT_TRUE(composite.PartSurface(u"cmdLeft")->HasFocus());
  EXPECT_FALSE(composite.PartSurface(u"tedValue")->HasFocus());
  // Keys go to the part that has the focus.
  form.TypeKeys(u"a");
  EXPECT_EQ(this->Events(), (Lines{u"PartKeyPress(cmdLeft)"}));
  // The form's focus leaves the whole control: the part first, then the control.
  ASSERT_TRUE(form.Focus(u"After"));
  EXPECT_EQ(this->Events(), (Lines{u"PartLostFocus(cmdLeft)", u"LostFocus"}));
  EXPECT_FALSE(owner.HasFocus());
  // Without the form's focus, a part given the focus is remembered, and nothing is raised.
  ASSERT_TRUE(composite.FocusPart(u"tedValue"));
  EXPECT_TRUE(this->Events().empty());
  EXPECT_EQ(this->Focused(), u"After");
  ASSERT_TRUE(form.Focus(u"C"));
  EXPECT_EQ(this->Events(), (Lines{u"GotFocus", u"PartGotFocus(tedValue)"}));
  form.TypeKeys(u"42");
  EXPECT_EQ(composite.Text(), u"42");
}

TYPED_TEST(PartFocusTest, TabMovesInsideAControlThatTakesItAndLeavesAfterItsLastPart) {
  auto& form = this->host_.form;
  ZKTestComposite& composite = *this->composite_;
  ISurface& owner = this->host_.Site(u"C").Surface();
  struct Row {
    bool takes_tab;
    std::u16string_view start;
    std::u16string_view keys;
    std::u16string_view focused;
    std::u16string_view focused_part;
  };
  const Row rows[] = {
      {true, u"cmdLeft", u"{TAB}", u"C", u"tedValue"},
      {true, u"tedValue", u"{TAB}", u"C", u"cmdRight"},
      {true, u"cmdRight", u"{TAB}", u"After", u""},
      {true, u"cmdRight", u"+{TAB}", u"C", u"tedValue"},
      {true, u"cmdLeft", u"+{TAB}", u"Before", u""},
      {true, u"", u"{TAB}", u"C", u"cmdLeft"},
      {true, u"", u"+{TAB}", u"C", u"cmdRight"},
      // A control that does not take Tab hears nothing of it: the form moves on at once.
      {false, u"cmdLeft", u"{TAB}", u"After", u""},
      {false, u"cmdRight", u"+{TAB}", u"Before", u""},
      // Ctrl+Tab is never the form's: it goes to the part as a key.
      {true, u"cmdLeft", u"^{TAB}", u"C", u"cmdLeft"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.start.begin(), row.start.end()) + " " +
                 std::string(row.keys.begin(), row.keys.end()));
    owner.SetTakesTab(row.takes_tab);
    ASSERT_TRUE(form.Focus(u"C"));
    ASSERT_TRUE(composite.FocusPart(row.start));
    this->Events();
    form.TypeKeys(row.keys);
    EXPECT_EQ(this->Focused(), row.focused);
    if (row.focused == u"C") {
      EXPECT_EQ(composite.FocusedPart(), row.focused_part);
    }
    const Lines events = this->Events();
    const bool offered = !events.empty() && events.front().starts_with(u"KeyDown");
    EXPECT_EQ(offered, row.takes_tab && row.keys != u"^{TAB}");
  }
}

TYPED_TEST(PartFocusTest, APartThatRefusesToLetTheFocusGoKeepsItForTheWholeControl) {
  auto& form = this->host_.form;
  ZKTestComposite& composite = *this->composite_;
  composite.SetValueDataType(zktTDInteger);
  composite.SetText(u"4x");
  ASSERT_TRUE(form.Focus(u"C"));
  ASSERT_TRUE(composite.FocusPart(u"tedValue"));
  int validations = 0;
  bool part_refuses = true;
  auto connection = this->host_.Site(u"C").Surface().Validate().Connect([&](bool& cancel) {
    ++validations;
    EXPECT_EQ(cancel, part_refuses);  // the part has spoken before the control's own handlers
  });
  EXPECT_FALSE(composite.FocusPart(u"cmdRight"));
  form.Focus(u"After");
  EXPECT_EQ(this->Focused(), u"C");
  EXPECT_EQ(composite.FocusedPart(), u"tedValue");
  EXPECT_EQ(validations, 1);  // only the form's move asks the control itself
  composite.SetText(u"42");
  part_refuses = false;
  EXPECT_TRUE(form.Focus(u"After"));
  EXPECT_EQ(this->Focused(), u"After");
  EXPECT_EQ(validations, 2);
}

TYPED_TEST(PartFocusTest, PartsOfPartsFollowTheSameRules) {
  auto& form = this->host_.form;
  ZKTestComposite& composite = *this->composite_;
  // A second test control as a part of the first one, across its lower half.
  Constituent<ZKTestComposite> nested(this->host_.Site(u"C"), u"Nested");
  nested.Move(0, 495, 2880, 495);
  Lines nested_events;
  auto connection =
      nested->EventRaised().Connect([&](std::u16string_view event, std::span<const Variant> args) {
        nested_events.push_back(std::u16string(event) +
                                (args.empty() ? u"" : u"(" + args[0].ToText() + u")"));
      });
  // A press on the inner control's text edit: both controls' events, outermost first.
  this->Click(u"C", 1000, 600);
  EXPECT_EQ(this->Events(), (Lines{u"GotFocus"}));
  EXPECT_EQ(nested_events, (Lines{u"GotFocus", u"PartGotFocus(tedValue)", u"PartClick(tedValue)"}));
  EXPECT_TRUE(nested.Surface().HasFocus());
  EXPECT_EQ(composite.FocusedPart(), u"");
  form.TypeKeys(u"7");
  EXPECT_EQ(nested->Text(), u"7");
  EXPECT_EQ(composite.Text(), u"");
  // To a part of the outer control: the innermost loses first.
  nested_events.clear();
  this->Click(u"C", 100, 100);
  EXPECT_EQ(nested_events, (Lines{u"PartLostFocus(tedValue)", u"LostFocus"}));
  EXPECT_EQ(this->Events(), (Lines{u"PartGotFocus(cmdLeft)", u"PartClick(cmdLeft)"}));
  // Back to the inner control through its own area: it hands the focus to the part it
  // remembers.
  nested_events.clear();
  this->Click(u"C", 1400, 900);
  EXPECT_EQ(nested_events, (Lines{u"GotFocus", u"PartGotFocus(tedValue)", u"Click"}));
  EXPECT_EQ(this->Events(), (Lines{u"PartLostFocus(cmdLeft)"}));
  // Tab is offered to the control that has the form's focus, whose parts are its own
  // business: the outer control moves the focus to its first part.
  nested_events.clear();
  form.TypeKeys(u"{TAB}");
  EXPECT_EQ(nested_events, (Lines{u"PartLostFocus(tedValue)", u"LostFocus"}));
  EXPECT_EQ(this->Events(), (Lines{u"KeyDown(9)", u"PartGotFocus(cmdLeft)"}));
  EXPECT_FALSE(nested.Surface().HasFocus());
  EXPECT_EQ(composite.FocusedPart(), u"cmdLeft");
}

TYPED_TEST(PartFocusTest, HiddenDisabledAndDroppedPartsGiveTheFocusBack) {
  auto& form = this->host_.form;
  ZKTestComposite& composite = *this->composite_;
  ISurface& owner = this->host_.Site(u"C").Surface();
  ASSERT_TRUE(form.Focus(u"C"));
  struct Row {
    std::u16string_view part;
    std::u16string_view member;  // the extender member that takes the part away, or "" to drop
  };
  const Row rows[] = {{u"cmdLeft", u"Visible"}, {u"tedValue", u"Enabled"}, {u"cmdRight", u""}};
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.part.begin(), row.part.end()));
    ASSERT_TRUE(composite.FocusPart(row.part));
    this->Events();
    if (row.member.empty()) {
      composite.DropPart(row.part);
    } else {
      composite.PartExtender(row.part)->SetProperty(row.member, Variant(false));
      EXPECT_FALSE(composite.FocusPart(row.part));
    }
    EXPECT_EQ(this->Events(), (Lines{u"PartLostFocus(" + std::u16string(row.part) + u")"}));
    EXPECT_EQ(composite.FocusedPart(), u"");
    EXPECT_TRUE(owner.HasFocus());
    EXPECT_EQ(this->Focused(), u"C");
  }
  // With no part left to take them, presses on the parts' places are the control's own.
  this->Click(u"C", 100, 100);
  this->Click(u"C", 2500, 100);
  EXPECT_EQ(this->Events(), (Lines{u"Click", u"Click"}));
  composite.PartExtender(u"cmdLeft")->SetProperty(u"Visible", Variant(true));
  this->Click(u"C", 100, 100);
  EXPECT_EQ(this->Events(), (Lines{u"PartGotFocus(cmdLeft)", u"PartClick(cmdLeft)"}));
}

TYPED_TEST(PartFocusTest, ControlsWithPartsGoInAnyOrder) {
  auto& form = this->host_.form;
  ZKTestComposite& composite = *this->composite_;
  ASSERT_TRUE(form.Focus(u"C"));
  ASSERT_TRUE(composite.FocusPart(u"tedValue"));
  // A part held early and dropped twice, a control removed while a part has the focus, and
  // (when the fixture goes) a form going with a control inside whose part has the focus.
  composite.DropPart(u"cmdLeft");
  composite.DropPart(u"cmdLeft");
  EXPECT_EQ(composite.PartCount(), 2);
  EXPECT_TRUE(form.RemoveControl(u"C"));
  EXPECT_EQ(this->Focused(), u"(none)");
  form.TypeKeys(u"x");  // goes nowhere
  auto& second = static_cast<ZKTestComposite&>(form.AddControl(u"ZKTestComposite", u"D"));
  EXPECT_EQ(this->Focused(), u"(none)");
  ASSERT_TRUE(form.Focus(u"D"));
  ASSERT_TRUE(second.FocusPart(u"tedValue"));
  form.TypeKeys(u"x");
  EXPECT_EQ(second.Text(), u"x");
}

}  // namespace
}  // namespace zk
