// What a slider draws on Qt: the thumb where its value puts it, the jogs with their glyphs, the
// guide line, the border and the disabled background; and a thumb dragged by real widget
// events.
#include <gtest/gtest.h>

#include <QApplication>
#include <QColor>
#include <QRect>
#include <cstdlib>

#include "controls/slider/slider.h"
#include "platform/qt/qt_colors.h"
#include "qt_fixture.h"

namespace zk {
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kGreen = qRgb(0, 255, 0);
constexpr QRgb kBlue = qRgb(0, 0, 255);
constexpr QRgb kWhite = qRgb(255, 255, 255);
constexpr QRgb kBlack = qRgb(0, 0, 0);

// The box of the pixels in `area` that differ from `background`.
QRect InkBox(const QImage& image, QRgb background, const QRect& area) {
  QRect box;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (image.pixel(x, y) != background) box = box.united(QRect(x, y, 1, 1));
    }
  }
  return box;
}

// 164 x 20 pixels (2460 x 300 twips) with a 24-pixel thumb: 20-pixel jogs and a 100-pixel
// track, one pixel for each unit of the range.
class SliderQtTest : public QtFormTest {
 protected:
  ZKSlider& AddSlider(std::u16string_view name, double width = 2460, double height = 300) {
    auto& slider = static_cast<ZKSlider&>(form_.AddControl(u"ZKSlider", name));
    form_.FindExtender(name)->SetProperty(u"Width", Variant(width));
    form_.FindExtender(name)->SetProperty(u"Height", Variant(height));
    slider.SetSliderWidth(360);
    slider.SetSliderBackColor(0x0000FF);
    slider.SetJogsBackColor(0x00FF00);
    slider.SetShowFocus(0);  // the thumb's border is as wide with the focus as without it
    return slider;
  }
};

TEST_F(SliderQtTest, TheThumbStandsWhereTheValueSaysInEachDirection) {
  struct Row {
    zktSBDirection direction;
    double value;
    int thumb_start;  // pixels along the slider
  };
  const std::vector<Row> rows = {
      {zktSBLeftToRight, 0, 20},  {zktSBLeftToRight, 30, 50},  {zktSBLeftToRight, 100, 120},
      {zktSBRightToLeft, 0, 120}, {zktSBRightToLeft, 30, 90},  {zktSBTopToBottom, 30, 50},
      {zktSBBottomtoTop, 30, 90}, {zktSBBottomtoTop, 100, 20},
  };
  for (const Row& row : rows) {
    const bool upright = row.direction == zktSBTopToBottom || row.direction == zktSBBottomtoTop;
    ZKSlider& slider = AddSlider(u"S", upright ? 300 : 2460, upright ? 2460 : 300);
    slider.SetDirection(row.direction);
    slider.SetValue(row.value);
    const QImage image = Render(u"S");
    ASSERT_EQ(image.size(), upright ? QSize(20, 164) : QSize(164, 20));
    // Along the middle line, the thumb's red face runs over 24 pixels less its border.
    auto at = [&](int along) { return upright ? image.pixel(10, along) : image.pixel(along, 10); };
    int first_red = -1;
    int last_red = -1;
    for (int along = 0; along < 164; ++along) {
      if (at(along) != kRed) continue;
      if (first_red < 0) first_red = along;
      last_red = along;
    }
    EXPECT_EQ(first_red, row.thumb_start + 1) << row.direction << " " << row.value;
    EXPECT_EQ(last_red, row.thumb_start + 22) << row.direction << " " << row.value;
    // Green jogs at both ends, the white background between them and the thumb.
    EXPECT_EQ(at(2), kGreen);
    EXPECT_EQ(at(161), kGreen);
    const int free = row.thumb_start > 40 ? 30 : 140;
    EXPECT_EQ(at(free), kWhite) << row.direction << " " << row.value;
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderQtTest, TheFallbackGlyphsSitInTheMiddleOfTheJogs) {
  ZKSlider& slider = AddSlider(u"S", 2460, 450);  // 30-pixel jogs
  const QImage image = Render(u"S");
  for (const QRect jog : {QRect(2, 2, 26, 26), QRect(136, 2, 26, 26)}) {
    const QRect ink = InkBox(image, kGreen, jog);
    ASSERT_FALSE(ink.isEmpty());
    // Centred within two pixels, and no larger than the jog.
    EXPECT_LE(std::abs(ink.center().x() - jog.center().x()), 2) << jog.x();
    EXPECT_LE(std::abs(ink.center().y() - jog.center().y()), 2) << jog.x();
    EXPECT_GE(ink.width(), 4) << jog.x();
  }
  // The minus is a bar, the plus also has a stroke across it.
  const QRect minus = InkBox(image, kGreen, QRect(2, 2, 26, 26));
  const QRect plus = InkBox(image, kGreen, QRect(136, 2, 26, 26));
  EXPECT_LT(minus.height(), 4);
  EXPECT_GT(plus.height(), 4);
  EXPECT_EQ(slider.DecrementJog().Caption(), u"-");
}

TEST_F(SliderQtTest, GuideBorderAndTheValueOnTheThumb) {
  ZKSlider& slider = AddSlider(u"S");
  slider.SetValue(80);
  QImage image = Render(u"S");
  EXPECT_EQ(image.pixel(40, 10), kWhite);
  EXPECT_EQ(image.pixel(40, 0), kWhite);
  slider.SetGuideColor(0xFF0000);
  slider.SetGuideWidth(2);
  slider.SetShowGuide(true);
  slider.SetBorderStyle(zktBSSolid);
  image = Render(u"S");
  // The guide runs along the middle of the track, under the thumb.
  int guide_pixels = 0;
  for (int y = 0; y < 20; ++y)
    guide_pixels += image.pixel(40, y) == kBlue;
  EXPECT_EQ(guide_pixels, 2);
  EXPECT_TRUE(image.pixel(40, 9) == kBlue || image.pixel(40, 10) == kBlue);
  // The border frames the track's edges.
  EXPECT_EQ(image.pixel(40, 0), kBlack);
  EXPECT_EQ(image.pixel(40, 19), kBlack);
  EXPECT_EQ(image.pixel(40, 3), kWhite);
  // The value written on the thumb: ink on the red face, roughly in its middle.
  slider.SetSliderForeColor(0xFFFFFF);
  slider.SetShowValue(true);
  image = Render(u"S");
  const QRect thumb(100 + 2, 2, 20, 16);
  const QRect ink = InkBox(image, kRed, thumb);
  ASSERT_FALSE(ink.isEmpty());
  EXPECT_LE(std::abs(ink.center().x() - thumb.center().x()), 2);
}

TEST_F(SliderQtTest, ADisabledSliderTakesTheInactiveBorderColour) {
  ZKSlider& slider = AddSlider(u"S");
  slider.SetBackColor(0xFFFF00);  // cyan
  EXPECT_EQ(Render(u"S").pixel(100, 10), qRgb(0, 255, 255));
  slider.SetEnabled(false);
  const QRgb inactive =
      ToQColor(system_color::kInactiveBorder, form_.FindSite(u"S")->Surface().Widget()->palette())
          .rgb();
  const QImage image = Render(u"S");
  EXPECT_EQ(image.pixel(100, 10), inactive);
  EXPECT_NE(inactive, qRgb(0, 255, 255));
}

TEST_F(SliderQtTest, AThumbDraggedByWidgetEventsFollowsTheMouse) {
  ZKSlider& slider = AddSlider(u"S");
  slider.SetValue(20);
  // Pixels: the thumb covers 40 to 64, its centre at 52 is value 20 (x = 32 + value).
  form_.DeliverMouse(u"S", MouseAction::kDown, 1, 0, 50 * 15, 150);
  EXPECT_EQ(slider.Value(), 18);
  for (int x = 50; x <= 110; x += 5)
    form_.DeliverMouse(u"S", MouseAction::kMove, 1, 0, static_cast<float>(x * 15), 150);
  EXPECT_EQ(slider.Value(), 78);
  form_.DeliverMouse(u"S", MouseAction::kUp, 1, 0, 110 * 15, 150);
  const QImage image = Render(u"S");
  EXPECT_EQ(image.pixel(100, 10), kRed);
  EXPECT_EQ(image.pixel(90, 10), kWhite);
}

TEST_F(SliderQtTest, TheWheelReachesTheSliderThroughItsWindowProcedure) {
  ZKSlider& slider = AddSlider(u"S");
  slider.SetValue(50);
  EXPECT_EQ(slider.ObservedWindow(), slider.hWnd());
  form_.Wheel(u"S", 120);
  form_.Wheel(u"S", 120);
  form_.Wheel(u"S", -120);
  EXPECT_EQ(slider.Value(), 51);
  slider.SetDirection(zktSBTopToBottom);
  form_.Wheel(u"S", 120);
  EXPECT_EQ(slider.Value(), 50);
  form_.FindExtender(u"S")->SetProperty(u"Visible", Variant(false));
  EXPECT_EQ(slider.ObservedWindow(), 0);
  form_.Wheel(u"S", 120);
  EXPECT_EQ(slider.Value(), 50);
}

TEST_F(SliderQtTest, HoldingAJogRepeatsOnQtsTimers) {
  ZKSlider& slider = AddSlider(u"S");
  slider.SetValue(10);
  form_.DeliverMouse(u"S", MouseAction::kDown, 1, 0, 2300, 150);
  EXPECT_EQ(slider.Value(), 11);
  EXPECT_TRUE(slider.Repeating());
  platform_.RunEventLoop(200);
  EXPECT_EQ(slider.Value(), 11);
  platform_.RunEventLoop(700);
  form_.DeliverMouse(u"S", MouseAction::kUp, 1, 0, 2300, 150);
  EXPECT_FALSE(slider.Repeating());
  // The first repeat after about half a second, then one about every 30 ms.
  EXPECT_GT(slider.Value(), 13);
  EXPECT_LT(slider.Value(), 30);
  const double held = slider.Value();
  platform_.RunEventLoop(200);
  EXPECT_EQ(slider.Value(), held);
}

}  // namespace
}  // namespace zk
