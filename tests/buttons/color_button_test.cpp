#include "controls/buttons/color_button.h"

#include <gtest/gtest.h>

#include "button_events.h"
#include "controls/form_fixture.h"
#include "platform/common/memory_property_bag.h"

namespace zk {
namespace {

using Lines = std::vector<std::u16string>;

// The new button is 1215 x 495 twips; headless text is 6 x 13 pixels a character, so the
// caption "Button" is 540 x 195 twips. Margins are (BorderWidth + 5) pixels of 15 twips.
class ColorButtonTest : public FormTest {
 protected:
  ZKColorButton& button_ = Add<ZKColorButton>(u"ZKColorButton", u"B");
  DispatchObject& extender_ = *form_.FindExtender(u"B");

  void Mouse(MouseAction action, float x = 30, float y = 30) {
    form_.DeliverMouse(u"B", action, 1, 0, x, y);
  }
  OLE_COLOR Face() const { return button_.FaceElement().FillColor(); }
};

TEST_F(ColorButtonTest, PushAndToggleRaiseTheirEventsWithTheValueOfThatMoment) {
  // Inputs: v press, ^ release (a click after a press), 2 the second press of a double click,
  // E and X the form's Enter and Escape.
  struct Row {
    zktButBehavior behavior;
    bool design_mode;
    std::string_view inputs;
    Lines events;
  };
  const std::u16string down = u"MouseDown 1 0 30 30", up = u"MouseUp 1 0 30 30";
  const Row rows[] = {
      {zktButton, false, "v", {down + u" [-1]"}},
      {zktButton,
       false,
       "v^2^",
       {down + u" [-1]", up + u" [0]", u"Click [0]", u"DblClick [0]", up + u" [0]"}},
      {zktButton, false, "EX", {u"Click [0]", u"Click [0]"}},
      {zktToggle, false, "v", {down + u" [0]"}},
      {zktToggle,
       false,
       "v^2^",
       {down + u" [0]", up + u" [0]", u"Click [-1]", u"DblClick [-1]", up + u" [-1]"}},
      {zktToggle, false, "EX", {u"Click [-1]", u"Click [0]"}},
      {zktButton, true, "v^", {down + u" [0]", up + u" [0]", u"Click [0]"}},
      {zktToggle, true, "v^E", {down + u" [0]", up + u" [0]", u"Click [0]", u"Click [0]"}},
  };
  extender_.SetProperty(u"Default", Variant(true));
  extender_.SetProperty(u"Cancel", Variant(true));
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "behaviour " << row.behavior << " design " << row.design_mode
                                    << " inputs " << row.inputs);
    button_.SetValue(zktToggleUnselected);
    button_.SetBehavior(row.behavior);
    button_.SetDesignMode(row.design_mode);
    ButtonEventLog log(button_);
    for (char input : row.inputs) {
      if (input == 'E' || input == 'X') {
        form_.TypeKeys(input == 'E' ? u"{ENTER}" : u"{ESC}");
      } else {
        Mouse(input == 'v'   ? MouseAction::kDown
              : input == '2' ? MouseAction::kDoubleDown
                             : MouseAction::kUp);
      }
    }
    EXPECT_EQ(log.Take(), row.events);
    Mouse(MouseAction::kUp);  // nothing stays held for the next row
  }
}

TEST_F(ColorButtonTest, PressOnTheCaptionIsThePressOfTheControlInControlCoordinates) {
  ButtonEventLog log(button_);
  extender_.SetProperty(u"ToolTipText", Variant(u"Save the form"));
  const ILabelElement& caption = button_.CaptionElement();
  const auto x = static_cast<float>(caption.Left() + 15);
  const auto y = static_cast<float>(caption.Top() + 15);
  Mouse(MouseAction::kMove, x, y);
  Mouse(MouseAction::kDown, x, y);
  EXPECT_EQ(button_.Value(), zktToggleSelected);
  Mouse(MouseAction::kUp, x, y);
  EXPECT_EQ(log.Take(), (Lines{u"MouseMove 1 0 352.5 165 [0]", u"MouseDown 1 0 352.5 165 [-1]",
                               u"MouseUp 1 0 352.5 165 [0]", u"Click [0]"}));
  EXPECT_EQ(caption.ToolTipText(), u"Save the form");
}

TEST_F(ColorButtonTest, FaceAndCaptionShowTheStateAndTheEnabledFlag) {
  struct Row {
    zktButBehavior behavior;
    zktToggleValue value;
    bool enabled;
    std::u16string caption_selected;
    OLE_COLOR face;
    std::u16string caption;
    OLE_COLOR caption_color;
  };
  const OLE_COLOR back = 0x111111, selected = 0x222222, disabled = 0x333333;
  const OLE_COLOR fore = 0x444444, selected_fore = 0x555555;
  const Row rows[] = {
      {zktButton, zktToggleUnselected, true, u"", back, u"Go", fore},
      {zktButton, zktToggleSelected, true, u"", selected, u"Go", selected_fore},
      {zktButton, zktToggleSelected, true, u"Going", selected, u"Going", selected_fore},
      {zktButton, zktToggleUnselected, false, u"", disabled, u"Go", fore},
      {zktButton, zktToggleSelected, false, u"Going", disabled, u"Going", selected_fore},
      {zktToggle, zktToggleUnselected, false, u"Going", back, u"Go", fore},
      {zktToggle, zktToggleSelected, false, u"", selected, u"Go", selected_fore},
      {zktToggle, zktToggleSelected, true, u"Going", selected, u"Going", selected_fore},
  };
  button_.SetCaption(u"Go");
  button_.SetBackColor(back);
  button_.SetSelectedColor(selected);
  button_.SetDisabledBackColor(disabled);
  button_.SetForeColor(fore);
  button_.SetSelectedForeColor(selected_fore);
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "behaviour " << row.behavior << " value " << row.value
                                    << " enabled " << row.enabled);
    button_.SetBehavior(row.behavior);
    button_.SetValue(row.value);
    button_.SetEnabled(row.enabled);
    button_.SetCaptionSelected(row.caption_selected);
    EXPECT_EQ(Face(), row.face);
    EXPECT_EQ(form_.FindSite(u"B")->Surface().BackColor(), row.face);
    EXPECT_EQ(button_.CaptionElement().Caption(), row.caption);
    EXPECT_EQ(button_.CaptionElement().ForeColor(), row.caption_color);
    EXPECT_EQ(button_.CaptionElement().Enabled(), row.enabled);
  }
  button_.SetBorderColor(0x666666);
  EXPECT_EQ(button_.FocusElement().BorderColor(), 0x666666u);
}

TEST_F(ColorButtonTest, CaptionIsPlacedByAlignmentWithMarginsFromTheBorderWidth) {
  struct Row {
    zktButTextAlignment alignment;
    int16_t border_width;
    double left;
    double top;
  };
  const Row rows[] = {
      {zktButTextAlignLeft, 1, 90, 150},         {zktButTextAlignRight, 1, 585, 150},
      {zktButTextAlignCenter, 1, 337.5, 150},    {zktButTextAlignCenterBottom, 1, 337.5, 210},
      {zktButTextAlignCenterTop, 1, 337.5, 90},  {zktButTextAlignLeft, 3, 120, 150},
      {zktButTextAlignRight, 3, 555, 150},       {zktButTextAlignCenterBottom, 3, 337.5, 180},
      {zktButTextAlignCenterTop, 8, 337.5, 195},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message()
                 << "alignment " << row.alignment << " border " << row.border_width);
    button_.SetBorderWidth(row.border_width);
    button_.SetAlignment(row.alignment);
    EXPECT_EQ(button_.CaptionElement().Left(), row.left);
    EXPECT_EQ(button_.CaptionElement().Top(), row.top);
  }
  button_.SetCaption(u"");  // nothing to place: the label keeps its place
  EXPECT_EQ(button_.CaptionElement().Left(), 337.5);
  EXPECT_EQ(button_.CaptionElement().Top(), 195);
  button_.SetCaption(u"Wide caption");
  extender_.SetProperty(u"Width", Variant(3000.4));  // a resize places it again
  EXPECT_DOUBLE_EQ(button_.CaptionElement().Left(), (3000.4 - 12 * 90) / 2);
  EXPECT_EQ(button_.FaceElement().Width(), 3000);  // the shapes take whole twips
  EXPECT_EQ(button_.FocusElement().Width(), 3000);
}

TEST_F(ColorButtonTest, FocusShowsABorderShowFocusPixelsWiderUntilItGoes) {
  struct Row {
    int16_t border_width;
    int32_t show_focus;
    zktCmdBorderStyle style;
    bool outline_shown;
    int16_t outline_width;
    int16_t line_while_focused;
  };
  const Row rows[] = {
      {2, 1, zktBSSolid, true, 3, line_style::kTransparent},
      {1, 0, zktBSSolid, false, 1, line_style::kInsideSolid},
      {3, -2, zktBSSolid, true, 1, line_style::kTransparent},
      {3, -3, zktBSSolid, false, 1, line_style::kTransparent},
      {2, 2, zktBSNone, true, 4, line_style::kTransparent},
  };
  Add<ZKColorButton>(u"ZKColorButton", u"Other");
  button_.SetShape(shape_code::kCircle);
  EXPECT_EQ(button_.FocusElement().Shape(), shape_code::kCircle);
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.border_width << " + " << row.show_focus);
    button_.SetBorderWidth(row.border_width);
    button_.SetShowFocus(row.show_focus);
    button_.SetBorderStyle(row.style);
    ASSERT_TRUE(form_.Focus(u"B"));
    EXPECT_EQ(button_.FocusElement().Visible(), row.outline_shown);
    EXPECT_EQ(button_.FocusElement().BorderWidth(), row.outline_width);
    EXPECT_EQ(button_.FaceElement().BorderStyle(), row.line_while_focused);
    Notified();
    ASSERT_TRUE(form_.Focus(u"Other"));
    EXPECT_FALSE(button_.FocusElement().Visible());
    EXPECT_EQ(button_.FaceElement().BorderStyle(),
              row.style == zktBSSolid ? line_style::kInsideSolid : line_style::kTransparent);
    EXPECT_EQ(Notified(), Lines{u"BorderStyle"});  // the border style is written again
  }
}

TEST_F(ColorButtonTest, PropertyBagKeepsTheBorderLineAndTheBorderStyleUnderOneKey) {
  struct Row {
    zktCmdBorderStyle style;
    bool focused_while_saved;
    bool stored;
  };
  const Row rows[] = {
      {zktBSSolid, false, false}, {zktBSNone, false, true}, {zktBSSolid, true, false}};
  Add<ZKColorButton>(u"ZKColorButton", u"Other");
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message()
                 << "style " << row.style << " focused " << row.focused_while_saved);
    button_.SetBorderStyle(row.style);
    form_.Focus(row.focused_while_saved ? u"B" : u"Other");
    MemoryPropertyBag bag;
    button_.WriteProperties(bag);
    EXPECT_EQ(bag.Contains(u"BorderStyle"), row.stored);
    auto& copy = Add<ZKColorButton>(u"ZKColorButton", u"Copy");
    copy.ReadProperties(bag);
    EXPECT_EQ(copy.BorderStyle(), row.style);
    EXPECT_EQ(copy.FaceElement().BorderStyle(),
              row.style == zktBSSolid ? line_style::kInsideSolid : line_style::kTransparent);
    form_.RemoveControl(u"Copy");
  }
  // Reading is silent and goes around the checks of the writes.
  button_.SetBehavior(zktToggle);
  button_.SetValue(zktToggleSelected);
  button_.SetEnabled(false);
  MemoryPropertyBag bag;
  button_.WriteProperties(bag);
  bag.WriteProperty(u"Shape", Variant(int32_t{9}), Variant(int32_t{0}));
  auto& copy = Add<ZKColorButton>(u"ZKColorButton", u"Copy");
  copy.ReadProperties(bag);
  EXPECT_TRUE(Notified().empty());
  EXPECT_EQ(copy.Shape(), 9);
  EXPECT_FALSE(copy.CaptionElement().Enabled());
  EXPECT_EQ(copy.FaceElement().FillColor(), 0x808080u);  // a disabled toggle keeps its state
}

}  // namespace
}  // namespace zk
