#include "controls/display/frame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "form_fixture.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

// Headless text measures 6 x 13 pixels per character in the default font, so at 15 twips per
// pixel "Label" is 450 twips wide and 195 high.
class FrameTest : public FormTest {
 protected:
  ZKFrame& frame_ = Add<ZKFrame>(u"ZKFrame", u"F");

  void Resize(double width, double height) {
    ASSERT_TRUE(form_.MoveControl(u"F", 0, 0, width, height));
  }
  const ILabelElement& Caption() const { return frame_.CaptionElement(); }
  const IShapeElement& Border() const { return frame_.BorderElement(); }
};

TEST_F(FrameTest, ANewFrameIsFlatInTheContainersColoursWithItsBorderAroundTheCaption) {
  EXPECT_EQ(frame_.Caption(), u"Label");
  EXPECT_EQ(frame_.Appearance(), zktApFlat);
  EXPECT_EQ(frame_.BackColor(), 0x8000000Fu);
  EXPECT_EQ(Caption().BackColor(), 0x8000000Fu);
  EXPECT_EQ(frame_.ForeColor(), 0x80000012u);
  EXPECT_TRUE(frame_.AmbientBackColor());
  EXPECT_EQ(frame_.Font()->Name(), u"MS Sans Serif");
  EXPECT_NE(frame_.Font(), form_.AmbientProperties().Font());
  EXPECT_EQ(frame_.BorderMargin(), 5);
  EXPECT_EQ(frame_.VerticalAlignment(), zktTextVAlignCenter);
  EXPECT_EQ(frame_.BorderColor(), 0u);
  EXPECT_EQ(Border().BorderColor(), 0u);
  EXPECT_FALSE(frame_.BorderDisables());
  EXPECT_EQ(frame_.BorderStyle(), zktBSSolid);
  EXPECT_EQ(frame_.BorderWidth(), 1);
  EXPECT_EQ(frame_.BorderShape(), shape_code::kRectangle);
  EXPECT_TRUE(frame_.Enabled());
  // Laid out for the size the form gave it: the top line through the caption's middle.
  EXPECT_EQ(Border().Top(), 97);
  EXPECT_FLOAT_EQ(frame_.TopBorderOffset(), 112);
}

TEST_F(FrameTest, LayoutPlacesTheCaptionAndTheBorderByAlignmentPlacementMarginAndWidth) {
  struct Row {
    const char16_t* caption;
    double width;
    zktTextAlignment align;
    zktTextVerticalAlignment valign;
    int32_t margin;
    int16_t border_pixels;
    double caption_left;
    double caption_top;
    double border_top;
    float top_border_offset;
  };
  const Row rows[] = {
      // The top line through the caption: 195 / 2 = 97, and the offset adds one pixel.
      {u"Label", 3000, zktTextAlignLeft, zktTextVAlignCenter, 5, 1, 90, 0, 97, 112},
      // Above the border: the caption's height and the margin (75 twips) lie above it.
      {u"Label", 3000, zktTextAlignLeft, zktTextVAlignTop, 5, 1, 90, 0, 270, 285},
      // Inside the border, below its top line by the margin and the border's width.
      {u"Label", 3000, zktTextAlignLeft, zktTextVAlignBottom, 5, 1, 90, 90, 0, 15},
      {u"Label", 3000, zktTextAlignRight, zktTextVAlignCenter, 5, 1, 2460, 0, 97, 112},
      {u"Label", 3000, zktTextAlignCenter, zktTextVAlignCenter, 5, 1, 1275, 0, 97, 112},
      // Odd free space: 2551 / 2 drops the half; the centre ignores margin and border.
      {u"Label", 3001, zktTextAlignCenter, zktTextVAlignTop, 5, 3, 1275, 0, 270, 315},
      {u"Two words", 3000, zktTextAlignCenter, zktTextVAlignCenter, 5, 1, 1095, 0, 97, 112},
      // Without a margin a left caption starts at the border's width.
      {u"Label", 3000, zktTextAlignLeft, zktTextVAlignCenter, 0, 1, 15, 0, 97, 112},
      {u"Label", 3000, zktTextAlignRight, zktTextVAlignBottom, 0, 1, 2535, 15, 0, 15},
      {u"Label", 3000, zktTextAlignLeft, zktTextVAlignTop, 0, 2, 30, 0, 195, 225},
      {u"Label", 3000, zktTextAlignLeft, zktTextVAlignBottom, 2, 3, 75, 75, 0, 45},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << Utf16ToUtf8(row.caption) << " width " << row.width
                                    << " align " << row.align << "/" << row.valign << " margin "
                                    << row.margin << " border " << row.border_pixels);
    Resize(row.width, 1500);
    frame_.SetCaption(row.caption);
    frame_.SetBorderMargin(row.margin);
    frame_.SetBorderWidth(row.border_pixels);
    frame_.SetAlignment(row.align);
    frame_.SetVerticalAlignment(row.valign);
    EXPECT_TRUE(Caption().Visible());
    EXPECT_EQ(Caption().Left(), row.caption_left);
    EXPECT_EQ(Caption().Top(), row.caption_top);
    EXPECT_EQ(Border().Left(), 0);
    EXPECT_EQ(Border().Top(), row.border_top);
    EXPECT_EQ(Border().Width(), row.width);
    EXPECT_EQ(Border().Height(), 1500 - row.border_top);
    EXPECT_FLOAT_EQ(frame_.TopBorderOffset(), row.top_border_offset);
  }
}

TEST_F(FrameTest, AnEmptyCaptionIsHiddenAndTheBorderCoversTheWholeFrame) {
  Resize(2400, 1200);
  for (const zktTextVerticalAlignment valign :
       {zktTextVAlignTop, zktTextVAlignCenter, zktTextVAlignBottom}) {
    for (const int16_t pixels : {int16_t{1}, int16_t{4}}) {
      SCOPED_TRACE(testing::Message() << "placement " << valign << " border " << pixels);
      frame_.SetCaption(u"Label");
      frame_.SetVerticalAlignment(valign);
      frame_.SetBorderWidth(pixels);
      frame_.SetCaption(u"");
      EXPECT_FALSE(Caption().Visible());
      EXPECT_EQ(Border().Top(), 0);
      EXPECT_EQ(Border().Width(), 2400);
      EXPECT_EQ(Border().Height(), 1200);
      EXPECT_FLOAT_EQ(frame_.TopBorderOffset(), 15 * pixels);
    }
  }
  frame_.SetCaption(u"Back");
  EXPECT_TRUE(Caption().Visible());
}

TEST_F(FrameTest, TheLayoutFollowsTheFontTheSizeAndTheScreen) {
  Resize(3000, 1500);
  frame_.Font()->SetSize(20);  // 32 pixels high
  EXPECT_EQ(Caption().Height(), 480);
  EXPECT_EQ(Border().Top(), 240);
  Resize(2000, 900);
  EXPECT_EQ(Border().Width(), 2000);
  EXPECT_EQ(Border().Height(), 660);
  frame_.SetAlignment(zktTextAlignRight);
  EXPECT_EQ(Caption().Left(), 2000 - (5 * 225 + 75 + 15));
  // At 12 twips per pixel the margin and the border's width are counted anew.
  form_.SetAmbient(u"TwipsPerPixel", Variant(12.0));
  frame_.SetVerticalAlignment(zktTextVAlignBottom);
  EXPECT_EQ(Caption().Top(), 60 + 12);
  EXPECT_FLOAT_EQ(frame_.TopBorderOffset(), 12);
}

TEST_F(FrameTest, RefusedValuesChangeNothingAndNotifyNothing) {
  struct Refused {
    const char16_t* property;
    Variant value;
  };
  const Refused refused[] = {
      {u"BorderStyle", Variant(int32_t{2})},        {u"BorderStyle", Variant(int32_t{-1})},
      {u"Alignment", Variant(int32_t{3})},          {u"Alignment", Variant(int32_t{-1})},
      {u"Appearance", Variant(int32_t{2})},         {u"VerticalAlignment", Variant(int32_t{3})},
      {u"VerticalAlignment", Variant(int32_t{-1})}, {u"BorderMargin", Variant(int32_t{-1})},
      {u"BorderWidth", Variant(int32_t{0})},        {u"BorderWidth", Variant(int32_t{8193})},
      {u"BorderWidth", Variant(int32_t{-5})},       {u"BorderShape", Variant(int32_t{6})},
      {u"BorderShape", Variant(int32_t{-1})},
  };
  for (const Refused& row : refused) {
    SCOPED_TRACE(Utf16ToUtf8(row.property));
    const Variant before = frame_.GetProperty(row.property);
    frame_.SetProperty(row.property, row.value);
    EXPECT_EQ(frame_.GetProperty(row.property), before);
    EXPECT_TRUE(Notified().empty());
  }
  // The ends of each range are taken.
  const Refused accepted[] = {
      {u"BorderStyle", Variant(int32_t{0})},  {u"Alignment", Variant(int32_t{2})},
      {u"Appearance", Variant(int32_t{1})},   {u"VerticalAlignment", Variant(int32_t{0})},
      {u"BorderMargin", Variant(int32_t{0})}, {u"BorderWidth", Variant(int32_t{8192})},
      {u"BorderWidth", Variant(int32_t{1})},  {u"BorderShape", Variant(int32_t{5})},
      {u"BorderShape", Variant(int32_t{0})},
  };
  for (const Refused& row : accepted) {
    SCOPED_TRACE(Utf16ToUtf8(row.property));
    frame_.SetProperty(row.property, row.value);
    EXPECT_EQ(frame_.GetProperty(row.property), row.value);
    const std::vector<std::u16string> notified = Notified();
    ASSERT_FALSE(notified.empty());
    EXPECT_EQ(notified.back(), row.property);
  }
  // A width beyond a 16-bit integer fails as the call does.
  try {
    frame_.SetProperty(u"BorderWidth", Variant(int32_t{40000}));
    ADD_FAILURE() << "no overflow";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), error_number::kOverflow);
  }
  EXPECT_EQ(frame_.BorderWidth(), 1);
}

TEST_F(FrameTest, BorderStyleShapeAndColourGoToTheBorder) {
  frame_.SetBorderStyle(zktBSNone);
  EXPECT_FALSE(Border().Visible());
  EXPECT_EQ(frame_.BorderStyle(), zktBSNone);
  frame_.SetBorderStyle(zktBSSolid);
  EXPECT_TRUE(Border().Visible());
  frame_.SetBorderShape(shape_code::kRoundedRectangle);
  EXPECT_EQ(Border().Shape(), shape_code::kRoundedRectangle);
  frame_.SetBorderColor(0x0000C0);
  EXPECT_EQ(Border().BorderColor(), 0x0000C0u);
  frame_.SetBorderWidth(6);
  EXPECT_EQ(Border().BorderWidth(), 6);
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"BorderStyle", u"BorderStyle", u"BorderShape",
                                                     u"BorderColor", u"BorderWidth"}));
}

TEST_F(FrameTest, BackColorChangesTheColoursOnlyWhileTheFrameIsFlat) {
  frame_.SetBackColor(0x00FF00);
  EXPECT_EQ(frame_.BackColor(), 0x00FF00u);
  EXPECT_EQ(Caption().BackColor(), 0x00FF00u);
  EXPECT_FALSE(frame_.AmbientBackColor());
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"AmbientBackColor", u"BackColor"}));

  // A 3-D frame takes the button face on its surface and its caption.
  frame_.SetAppearance(zktAp3d);
  EXPECT_EQ(frame_.BackColor(), 0x8000000Fu);
  EXPECT_EQ(Caption().BackColor(), 0x8000000Fu);
  Notified();
  frame_.SetBackColor(0x0000FF);
  EXPECT_EQ(frame_.BackColor(), 0x8000000Fu);
  EXPECT_EQ(Caption().BackColor(), 0x8000000Fu);
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"AmbientBackColor", u"BackColor"}));

  // Back to flat: the surface's own colour for that appearance, on the caption too.
  frame_.SetAppearance(zktApFlat);
  EXPECT_EQ(frame_.BackColor(), 0x80000005u);
  EXPECT_EQ(Caption().BackColor(), 0x80000005u);
}

TEST_F(FrameTest, AFrameThatFollowsTheContainerLosesItOnAnyBackColorWrite) {
  frame_.SetAppearance(zktAp3d);
  ASSERT_TRUE(frame_.AmbientBackColor());
  frame_.SetBackColor(0x0000FF);  // changes no colour, but it is an explicit write
  EXPECT_FALSE(frame_.AmbientBackColor());
  EXPECT_EQ(frame_.BackColor(), 0x8000000Fu);

  frame_.SetAppearance(zktApFlat);
  frame_.SetAmbientBackColor(true);
  EXPECT_EQ(frame_.BackColor(), 0x8000000Fu);  // the container's colour at once
  form_.SetAmbient(u"BackColor", Variant(int32_t{0xC0FFC0}));
  EXPECT_EQ(frame_.BackColor(), 0xC0FFC0u);
  EXPECT_EQ(Caption().BackColor(), 0xC0FFC0u);
  EXPECT_TRUE(frame_.AmbientBackColor());
  // A flat frame that follows the container keeps its colour through an appearance change.
  frame_.SetAppearance(zktApFlat);
  EXPECT_EQ(frame_.BackColor(), 0xC0FFC0u);
  EXPECT_EQ(Caption().BackColor(), 0xC0FFC0u);
}

TEST_F(FrameTest, CaptionPropertiesReachTheCaption) {
  frame_.SetForeColor(0x804000);
  frame_.SetUseMnemonic(false);
  frame_.SetWordWrap(true);
  frame_.SetCaption(u"&Totals");
  EXPECT_EQ(Caption().ForeColor(), 0x804000u);
  EXPECT_FALSE(Caption().UseMnemonic());
  EXPECT_TRUE(Caption().WordWrap());
  EXPECT_EQ(Caption().Caption(), u"&Totals");
  frame_.Font()->SetBold(true);
  EXPECT_TRUE(Caption().Font().Bold());
  auto font = form_.AmbientProperties().Font()->Clone();
  font->SetName(u"Arial");
  frame_.SetFont(font);
  font->SetName(u"Courier New");  // the frame holds a copy
  EXPECT_EQ(Caption().Font().name, u"Arial");
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"ForeColor", u"UseMnemonic", u"WordWrap",
                                                     u"Caption", u"Font"}));
}

TEST_F(FrameTest, MouseOnTheCaptionIsReportedInTheFramesCoordinates) {
  Resize(3000, 1500);
  std::vector<std::u16string> events;
  auto observer =
      frame_.EventRaised().Connect([&](std::u16string_view name, std::span<const Variant> args) {
        std::u16string line(name);
        for (const Variant& arg : args)
          line += u" " + arg.ToText();
        events.push_back(line);
      });
  // The caption lies at (90, 0), 450 by 195 twips.
  form_.DeliverMouse(u"F", MouseAction::kMove, 0, 0, 150, 60);
  form_.DeliverMouse(u"F", MouseAction::kDown, 1, 1, 150, 60);
  form_.DeliverMouse(u"F", MouseAction::kUp, 1, 0, 160, 70);
  form_.DeliverMouse(u"F", MouseAction::kDown, 2, 0, 1000, 900);  // inside the border
  form_.DeliverMouse(u"F", MouseAction::kUp, 2, 0, 1000, 900);
  form_.DeliverMouse(u"F", MouseAction::kDoubleDown, 1, 0, 150, 60);
  form_.DeliverMouse(u"F", MouseAction::kUp, 1, 0, 150, 60);
  EXPECT_EQ(events, (std::vector<std::u16string>{u"MouseMove 0 0 150 60", u"MouseDown 1 1 150 60",
                                                 u"MouseUp 1 0 160 70", u"Click",
                                                 u"MouseDown 2 0 1000 900", u"MouseUp 2 0 1000 900",
                                                 u"Click", u"DblClick", u"MouseUp 1 0 150 60"}));
}

TEST_F(FrameTest, TheFrameDeclaresItsMembersInItsInterfaceOrder) {
  std::vector<std::u16string> names;
  for (const MemberInfo& member : frame_.Automation().Members())
    names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::u16string>{
                       u"ForeColor",       u"Enabled",        u"Font",
                       u"BorderStyle",     u"Refresh",        u"Alignment",
                       u"Appearance",      u"Caption",        u"hWnd",
                       u"PopupMenu",       u"UseMnemonic",    u"DesignMode",
                       u"Clone",           u"GetArchiveStr",  u"ParseArchiveStr",
                       u"BackColor",       u"ControlGroup",   u"AmbientBackColor",
                       u"WordWrap",        u"BorderMargin",   u"VerticalAlignment",
                       u"BorderColor",     u"BorderDisables", u"BorderWidth",
                       u"TopBorderOffset", u"BorderShape",    u"ExtraProp",
                       u"ExtraAction"}));
  EXPECT_EQ(frame_.Automation().Find(u"Enabled")->dispid, -514);
  EXPECT_EQ(frame_.Automation().Find(u"Caption")->dispid, -518);
  EXPECT_NE(frame_.Automation().Find(u"Font")->dispid, -512);  // an identifier of its own
  EXPECT_THROW(frame_.SetProperty(u"TopBorderOffset", Variant(1.0)), ZKError);
  std::vector<std::pair<std::u16string, int32_t>> events;
  for (const EventInfo& event : frame_.Automation().Events())
    events.emplace_back(event.name, event.dispid);
  EXPECT_EQ(
      events,
      (std::vector<std::pair<std::u16string, int32_t>>{
          {u"Click", 1}, {u"DblClick", 2}, {u"MouseMove", 3}, {u"MouseUp", 4}, {u"MouseDown", 5}}));
}

}  // namespace
}  // namespace zk
