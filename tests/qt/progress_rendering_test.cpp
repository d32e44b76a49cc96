// What a progress bar shows on Qt: the bar's colour fills exactly its rectangle, inside the
// border, over the background picture, and the caption lies where the layout put it.
#include <gtest/gtest.h>

#include <QColor>
#include <QRect>
#include <cmath>
#include <string>
#include <vector>

#include "controls/display/progress_bar.h"
#include "qt_fixture.h"

namespace zk {
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kWhite = qRgb(255, 255, 255);

class ProgressRenderingTest : public QtFormTest {
 protected:
  // A bar of 200 by 40 pixels, white, with a red bar and no caption text.
  ZKProgessBar& AddBar(std::u16string_view name) {
    auto& bar = static_cast<ZKProgessBar&>(form_.AddControl(u"ZKProgessBar", name));
    form_.FindExtender(name)->SetProperty(u"Width", Variant(3000.0));
    form_.FindExtender(name)->SetProperty(u"Height", Variant(600.0));
    bar.SetBackColor(0xFFFFFF);
    bar.SetBarColor(0x0000FF);
    bar.SetShowProgress(false);
    bar.SetCaption(u"");
    return bar;
  }

  // The pixels of `image` inside `area` that are not `color`, as text for a failure message.
  static std::string Mismatches(const QImage& image, const QRect& area, QRgb color) {
    std::string wrong;
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (image.pixel(x, y) == color) continue;
        if (++count <= 5) wrong += " (" + std::to_string(x) + "," + std::to_string(y) + ")";
      }
    }
    return count == 0 ? std::string() : std::to_string(count) + " pixels:" + wrong;
  }
};

TEST_F(ProgressRenderingTest, TheBarColourFillsExactlyTheBarsRectangleInEveryDirection) {
  struct Case {
    zktPBDirection direction;
    int32_t progress;
    QRect bar;  // pixels of the 200 by 40 widget
  };
  const Case cases[] = {
      {zktPBLeftToRight, 25, QRect(0, 0, 50, 40)},
      {zktPBRightToLeft, 25, QRect(150, 0, 50, 40)},
      {zktPBBottomToTop, 25, QRect(0, 30, 200, 10)},
      {zktPBTopToBottom, 25, QRect(0, 0, 200, 10)},
      {zktPBLeftToRight, 0, QRect()},
      {zktPBLeftToRight, 100, QRect(0, 0, 200, 40)},
      {zktPBRightToLeft, 63, QRect(74, 0, 126, 40)},
      {zktPBTopToBottom, 63, QRect(0, 0, 200, 25)},
  };
  ZKProgessBar& bar = AddBar(u"P");
  for (const Case& c : cases) {
    bar.SetDirection(c.direction);
    bar.SetProgress(c.progress);
    const QImage image = Render(u"P");
    ASSERT_EQ(image.size(), QSize(200, 40));
    EXPECT_EQ(Mismatches(image, c.bar, kRed), "")
        << "direction " << c.direction << ", progress " << c.progress;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (c.bar.contains(x, y)) continue;
        ASSERT_EQ(image.pixel(x, y), kWhite) << x << "," << y << " direction " << c.direction;
      }
    }
  }
}

TEST_F(ProgressRenderingTest, TheBarStaysInsideTheBorderAndIsCutAtTheEdge) {
  ZKProgessBar& bar = AddBar(u"P");
  bar.SetBorderStyle(zktBSSolid);
  bar.SetProgress(100);
  bar.SetScaleMax(40);  // progress 100 of 40: the bar runs far past the right edge
  const QImage image = Render(u"P");
  const QRect inner(1, 1, 198, 38);
  EXPECT_EQ(Mismatches(image, inner, kRed), "");
  for (const QPoint border : {QPoint(0, 0), QPoint(199, 20), QPoint(100, 39), QPoint(0, 20)}) {
    EXPECT_EQ(image.pixel(border), qRgb(0, 0, 0)) << border.x() << "," << border.y();
  }
}

TEST_F(ProgressRenderingTest, ThePictureLiesBelowTheBarAndTheDrawingSurvivesRepaints) {
  ZKProgessBar& bar = AddBar(u"P");
  const QRgb green = qRgb(0, 255, 0);
  bar.SetPicture(platform_.Pictures().MakePicture(
      20, 10, std::vector<uint32_t>(200, static_cast<uint32_t>(green))));
  QImage image = Render(u"P");
  EXPECT_EQ(Mismatches(image, QRect(0, 0, 20, 10), green), "");
  bar.SetProgress(5);  // 10 pixels of bar over half of the picture
  image = Render(u"P");
  EXPECT_EQ(image.pixel(5, 5), kRed);
  EXPECT_EQ(image.pixel(15, 5), green);
  EXPECT_EQ(image.pixel(5, 20), kRed);
  EXPECT_EQ(image.pixel(15, 20), kWhite);
  // Painting again (as an exposed window does) shows the same.
  form_.FindSite(u"P")->Surface().Widget()->repaint();
  EXPECT_EQ(Render(u"P"), image);
}

TEST_F(ProgressRenderingTest, TheCaptionIsDrawnOverTheBarWhereTheLayoutPutIt) {
  ZKProgessBar& bar = AddBar(u"P");
  bar.SetShowProgress(true);
  bar.SetForeColor(0xFFFFFF);
  bar.SetCaptionAnchor(zktPAnchorBelowLevel);  // inside the bar, ending at its end
  bar.SetProgress(75);
  const QImage image = Render(u"P");
  const ILabelElement& caption = bar.CaptionElement();
  EXPECT_EQ(caption.Left() + caption.Width(), 2250);
  // White ink inside the red bar: the text, within the caption's place.
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < 150; ++x) {
      if (image.pixel(x, y) != kRed) ink = ink.united(QRect(x, y, 1, 1));
    }
  }
  ASSERT_FALSE(ink.isEmpty());
  const QRect laid_out(static_cast<int>(std::floor(caption.Left() / 15)),
                       static_cast<int>(std::floor(caption.Top() / 15)),
                       static_cast<int>(std::ceil(caption.Width() / 15)) + 1,
                       static_cast<int>(std::ceil(caption.Height() / 15)) + 1);
  EXPECT_TRUE(laid_out.contains(ink))
      << "ink " << ink.x() << "," << ink.y() << " " << ink.width() << "x" << ink.height();
  EXPECT_EQ(bar.Caption(), u"75");
}

}  // namespace
}  // namespace zk
