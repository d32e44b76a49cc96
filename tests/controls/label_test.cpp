#include "controls/display/label.h"

#include <gtest/gtest.h>

#include "form_fixture.h"
#include "foundation/zk_error.h"
#include "platform/common/memory_property_bag.h"

namespace zk {
namespace {

// Headless text measures 6 x 13 pixels per character in the default font, so at 15 twips per
// pixel "Label" is 450 twips wide and 195 high.
class LabelTest : public FormTest {
 protected:
  ZKLabel& label_ = Add<ZKLabel>(u"ZKLabel", u"Label1");
  DispatchObject& extender_ = *form_.FindExtender(u"Label1");

  void Resize(double width, double height) {
    extender_.SetProperty(u"Width", Variant(width));
    extender_.SetProperty(u"Height", Variant(height));
  }
  std::pair<double, double> TextPlace() const {
    return {label_.TextElement().Left(), label_.TextElement().Top()};
  }
};

TEST_F(LabelTest, NewLabelTakesTheContainersColoursAndFont) {
  EXPECT_EQ(label_.Caption(), u"Label");
  EXPECT_EQ(label_.BackColor(), 0x8000000Fu);
  EXPECT_EQ(label_.ForeColor(), 0x80000012u);
  EXPECT_TRUE(label_.AmbientBackColor());
  EXPECT_EQ(label_.Font()->Name(), u"MS Sans Serif");
  EXPECT_NE(label_.Font(), form_.AmbientProperties().Font());
  EXPECT_EQ(label_.BorderMargin(), 2);
  EXPECT_EQ(label_.VerticalAlignment(), zktTextVAlignCenter);
}

TEST_F(LabelTest, LayoutPlacesTheTextByAlignmentAndMargin) {
  struct Row {
    double width;
    double height;
    zktTextAlignment align;
    zktTextVerticalAlignment valign;
    int32_t margin;
    double left;
    double top;
  };
  const Row rows[] = {
      {1935, 375, zktTextAlignLeft, zktTextVAlignCenter, 2, 30, 90},
      {1935, 375, zktTextAlignLeft, zktTextVAlignTop, 2, 30, 30},
      {1935, 375, zktTextAlignLeft, zktTextVAlignBottom, 2, 30, 150},  // 375 - (195 + 30)
      {1935, 375, zktTextAlignRight, zktTextVAlignTop, 0, 1485, 0},    // touches the right edge
      {1935, 375, zktTextAlignRight, zktTextVAlignTop, 3, 1440, 45},
      {551, 376, zktTextAlignCenter, zktTextVAlignCenter, 2, 50, 90},    // 101 / 2 and 181 / 2
      {400, 100, zktTextAlignCenter, zktTextVAlignCenter, 2, -25, -47},  // text larger than it
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.width << "x" << row.height << " align " << row.align
                                    << "/" << row.valign << " margin " << row.margin);
    Resize(row.width, row.height);
    label_.SetBorderMargin(row.margin);
    label_.SetAlignment(row.align);
    label_.SetVerticalAlignment(row.valign);
    EXPECT_EQ(TextPlace(), std::make_pair(row.left, row.top));
    EXPECT_EQ(label_.TextElement().Width(), 450);
  }
}

TEST_F(LabelTest, AFormMovesALabelInOneStepAndRefusesNegativeSizes) {
  ASSERT_TRUE(form_.MoveControl(u"label1", 120, 240, 1935, 375));
  const double place[] = {
      extender_.GetProperty(u"Left").ToDouble(), extender_.GetProperty(u"Top").ToDouble(),
      extender_.GetProperty(u"Width").ToDouble(), extender_.GetProperty(u"Height").ToDouble()};
  EXPECT_EQ(std::vector<double>(std::begin(place), std::end(place)),
            (std::vector<double>{120, 240, 1935, 375}));
  EXPECT_EQ(TextPlace(), (std::pair<double, double>{30, 90}));  // laid out for the new size
  EXPECT_THROW(form_.MoveControl(u"Label1", 0, 0, -1, 375), ZKError);
  EXPECT_EQ(extender_.GetProperty(u"Width").ToDouble(), 1935);
  EXPECT_EQ(extender_.GetProperty(u"Left").ToDouble(), 120);
  EXPECT_FALSE(form_.MoveControl(u"Nobody", 0, 0, 10, 10));
}

TEST_F(LabelTest, AutoSizeGivesTheControlTheSizeOfItsTextWithoutMargins) {
  label_.SetAutoSize(true);
  EXPECT_EQ(extender_.GetProperty(u"Width"), Variant(450.0));
  EXPECT_EQ(extender_.GetProperty(u"Height"), Variant(195.0));
  EXPECT_EQ(TextPlace(), std::make_pair(0.0, 0.0));
  label_.SetCaption(u"A longer caption");
  EXPECT_EQ(extender_.GetProperty(u"Width"), Variant(16 * 90.0));
  label_.Font()->SetSize(20);  // 15 x 32 pixels per character
  EXPECT_EQ(extender_.GetProperty(u"Width"), Variant(16 * 225.0));
  EXPECT_EQ(extender_.GetProperty(u"Height"), Variant(480.0));
  label_.SetBorderMargin(10);
  EXPECT_EQ(extender_.GetProperty(u"Width"), Variant(16 * 225.0));
}

TEST_F(LabelTest, WordWrapKeepsTheInnerWidthAndStacksTheLines) {
  label_.SetCaption(u"aa bb cc");
  label_.SetWordWrap(true);
  Resize(30 * 15 + 60, 1000);  // 30 pixels inside the margins: "aa bb" fits, "cc" wraps
  EXPECT_EQ(label_.TextElement().Width(), 450);
  EXPECT_EQ(label_.TextElement().Height(), 390);
  Resize(50, 1000);  // narrower than both margins: width 0, every word on its own line
  EXPECT_EQ(label_.TextElement().Width(), 0);
  EXPECT_EQ(label_.TextElement().Height(), 3 * 195);
}

TEST_F(LabelTest, RefusedValuesChangeNothingAndNotifyNothing) {
  Notified();
  label_.SetAlignment(static_cast<zktTextAlignment>(3));
  label_.SetAlignment(static_cast<zktTextAlignment>(-1));
  label_.SetVerticalAlignment(static_cast<zktTextVerticalAlignment>(3));
  label_.SetAppearance(static_cast<zktAppearance>(2));
  label_.SetBorderStyle(static_cast<zktCmdBorderStyle>(2));
  label_.SetBorderMargin(-1);
  label_.SetProperty(u"Alignment", Variant(int32_t{7}));
  EXPECT_TRUE(Notified().empty());
  EXPECT_EQ(label_.Alignment(), zktTextAlignLeft);
  EXPECT_EQ(label_.VerticalAlignment(), zktTextVAlignCenter);
  EXPECT_EQ(label_.Appearance(), zktAp3d);
  EXPECT_EQ(label_.BorderStyle(), zktBSNone);
  EXPECT_EQ(label_.BorderMargin(), 2);
  for (int32_t value : {0, 1, 2}) {
    label_.SetProperty(u"VerticalAlignment", Variant(value));
    EXPECT_EQ(label_.VerticalAlignment(), value);
  }
  EXPECT_EQ(Notified().size(), 3u);
}

TEST_F(LabelTest, BackColorFollowsTheContainerUntilTheHostSetsOne) {
  Notified();
  form_.SetAmbient(u"BackColor", Variant(int32_t{0x123456}));
  EXPECT_EQ(label_.BackColor(), 0x123456u);
  label_.SetAppearance(zktApFlat);  // the surface resets its colour; the label takes it back
  EXPECT_EQ(label_.BackColor(), 0x123456u);
  Notified();
  label_.SetBackColor(0xFF);
  EXPECT_FALSE(label_.AmbientBackColor());
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"AmbientBackColor", u"BackColor"}));
  form_.SetAmbient(u"BackColor", Variant(int32_t{0x654321}));
  form_.SetAmbient(u"ForeColor", Variant(int32_t{0x654321}));
  EXPECT_EQ(label_.BackColor(), 0xFFu);
  label_.SetAmbientBackColor(true);
  EXPECT_EQ(label_.BackColor(), 0x654321u);
  EXPECT_TRUE(label_.AmbientBackColor());
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"BackColor", u"AmbientBackColor"}));
  label_.SetAmbientBackColor(false);
  label_.SetAppearance(zktAp3d);  // not following: the surface's own reset shows
  EXPECT_EQ(label_.BackColor(), 0x8000000Fu);
}

TEST_F(LabelTest, MouseOnTheTextIsReportedInControlCoordinatesWithTheTooltip) {
  std::vector<std::u16string> events;
  auto observer =
      label_.EventRaised().Connect([&](std::u16string_view name, std::span<const Variant> args) {
        std::u16string line(name);
        for (const Variant& arg : args)
          line += u" " + arg.ToText();
        events.push_back(line);
      });
  extender_.SetProperty(u"ToolTipText", Variant(u"Total of the month"));
  form_.DeliverMouse(u"Label1", MouseAction::kMove, 0, 0, 100, 150);  // over the text
  form_.DeliverMouse(u"Label1", MouseAction::kDown, 1, 2, 100, 150);
  // The text keeps the mouse while the button is held; released off it, it is not clicked.
  form_.DeliverMouse(u"Label1", MouseAction::kUp, 1, 0, 10, 10);
  form_.DeliverMouse(u"Label1", MouseAction::kDown, 1, 0, 10, 10);  // the free surface
  form_.DeliverMouse(u"Label1", MouseAction::kUp, 1, 0, 12, 12);
  form_.DeliverMouse(u"Label1", MouseAction::kDoubleDown, 1, 0, 100, 150);
  form_.DeliverMouse(u"Label1", MouseAction::kUp, 1, 0, 100, 150);
  EXPECT_EQ(events, (std::vector<std::u16string>{u"MouseMove 0 0 100 150", u"MouseDown 1 2 100 150",
                                                 u"MouseUp 1 0 10 10", u"MouseDown 1 0 10 10",
                                                 u"MouseUp 1 0 12 12", u"Click", u"DblClick",
                                                 u"MouseUp 1 0 100 150"}));
  EXPECT_EQ(label_.TextElement().ToolTipText(), u"Total of the month");
  // A handler may change the arguments it is given.
  auto handler = label_.MouseDown.Connect([](int16_t& button, int16_t&, float& x, float&) {
    button = 2;
    x = -1;
  });
  EXPECT_NO_THROW(form_.DeliverMouse(u"Label1", MouseAction::kDown, 1, 0, 100, 150));
}

TEST_F(LabelTest, PropertyBagRoundTripStoresOnlyWhatDiffersAndReadsSilently) {
  label_.SetCaption(u"Saved");
  label_.SetBorderMargin(4);
  label_.SetEnabled(false);
  MemoryPropertyBag bag;
  label_.WriteProperties(bag);
  EXPECT_FALSE(bag.Contains(u"Alignment"));  // equal to its default
  EXPECT_FALSE(bag.Contains(u"Font"));       // equal to the container's font
  EXPECT_TRUE(bag.Contains(u"BackColor"));   // button face differs from the bag default
  auto& copy = Add<ZKLabel>(u"ZKLabel", u"Copy");
  Notified();
  copy.ReadProperties(bag);
  EXPECT_TRUE(Notified().empty());
  EXPECT_EQ(copy.Caption(), u"Saved");
  EXPECT_EQ(copy.BorderMargin(), 4);
  EXPECT_FALSE(copy.Enabled());
  EXPECT_FALSE(copy.TextElement().Enabled());
  EXPECT_EQ(copy.BackColor(), 0x8000000Fu);
}

}  // namespace
}  // namespace zk
