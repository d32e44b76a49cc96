#include <gtest/gtest.h>

#include <QColor>
#include <QRect>
#include <cmath>

#include "qt_fixture.h"

namespace zk {
namespace {

// The box of the pixels that differ from the background, or an empty rectangle.
QRect InkBox(const QImage& image, QRgb background, const QRect& area) {
  QRect box;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (image.pixel(x, y) != background) box = box.united(QRect(x, y, 1, 1));
    }
  }
  return box;
}

class LabelRenderingTest : public QtFormTest {};

TEST_F(LabelRenderingTest, BackColourFillsTheSurfaceAndTheTextLiesWhereTheLayoutPutIt) {
  ZKLabel& label = AddLabel(u"L", 3000, 600);
  label.SetBackColor(0x0000FF);  // red
  label.SetForeColor(0xFFFFFF);
  label.SetAlignment(zktTextAlignCenter);
  const QImage image = Render(u"L");
  ASSERT_EQ(image.size(), QSize(200, 40));
  const QRgb red = qRgb(255, 0, 0);
  for (const QPoint corner : {QPoint(0, 0), QPoint(199, 0), QPoint(0, 39), QPoint(199, 39)}) {
    EXPECT_EQ(image.pixel(corner), red);
  }
  const ILabelElement& text = label.TextElement();
  const QRect laid_out(static_cast<int>(std::floor(text.Left() / 15)),
                       static_cast<int>(std::floor(text.Top() / 15)),
                       static_cast<int>(std::ceil(text.Width() / 15)) + 1,
                       static_cast<int>(std::ceil(text.Height() / 15)) + 1);
  const QRect ink = InkBox(image, red, image.rect());
  ASSERT_FALSE(ink.isEmpty());
  EXPECT_TRUE(laid_out.contains(ink))
      << "ink " << ink.x() << "," << ink.y() << " " << ink.width() << "x" << ink.height();
  // Centred within a pixel: the ink's margins to the left and right edges match.
  EXPECT_LE(std::abs(ink.left() - (199 - ink.right())), 3);
}

TEST_F(LabelRenderingTest, ABorderIsDrawnOnlyWhenAsked) {
  ZKLabel& label = AddLabel(u"L", 1500, 450);
  label.SetAppearance(zktApFlat);
  label.SetBackColor(0xFFFFFF);
  label.SetCaption(u"");
  const QRgb white = qRgb(255, 255, 255);
  QImage image = Render(u"L");
  EXPECT_EQ(image.pixel(0, 15), white);
  EXPECT_EQ(image.pixel(99, 15), white);
  label.SetBorderStyle(zktBSSolid);
  image = Render(u"L");
  EXPECT_EQ(image.pixel(0, 15), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(99, 15), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(50, 0), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(50, 15), white);
}

TEST_F(LabelRenderingTest, LayoutRelationsHoldWithRealFontMetrics) {
  ZKLabel& label = AddLabel(u"L", 3000, 600);
  const ILabelElement& text = label.TextElement();
  label.SetBorderMargin(0);
  label.SetAlignment(zktTextAlignRight);
  EXPECT_DOUBLE_EQ(text.Left() + text.Width(), 3000);  // touches the right edge
  label.SetAlignment(zktTextAlignCenter);
  EXPECT_LE(std::abs((3000 - text.Width()) - 2 * text.Left()), 1.0);
  label.SetVerticalAlignment(zktTextVAlignBottom);
  label.SetBorderMargin(3);
  EXPECT_DOUBLE_EQ(text.Top() + text.Height(), 600 - 45);
  label.SetAutoSize(true);
  DispatchObject& extender = *form_.FindExtender(u"L");
  EXPECT_EQ(extender.GetProperty(u"Width").ToDouble(), text.Width());
  EXPECT_EQ(extender.GetProperty(u"Height").ToDouble(), text.Height());
  const double one_line = text.Height();
  label.SetCaption(u"A much longer caption than before");
  EXPECT_GT(extender.GetProperty(u"Width").ToDouble(), 1500);
  label.SetWordWrap(true);
  label.SetAutoSize(false);
  form_.FindExtender(u"L")->SetProperty(u"Width", Variant(900.0));
  EXPECT_GT(text.Height(), 2 * one_line);  // wrapped onto several lines
}

TEST_F(LabelRenderingTest, DisabledTextIsEngravedAndStaysReadableOnGrey) {
  ZKLabel& label = AddLabel(u"L", 3000, 600);
  label.SetBackColor(0xB4B4B4);  // the grey a disabled control puts behind its text
  label.SetForeColor(0x000000);
  label.SetCaption(u"MMMM");
  const QRgb grey = qRgb(0xB4, 0xB4, 0xB4);
  const QImage enabled = Render(u"L");
  label.SetEnabled(false);
  const QImage disabled = Render(u"L");
  // Text is smoothed, so the two colours show as ink lighter and darker than the grey.
  bool has_shadow = false;
  bool has_highlight = false;
  for (int y = 0; y < disabled.height(); ++y) {
    for (int x = 0; x < disabled.width(); ++x) {
      const int level = qGray(disabled.pixel(x, y));
      EXPECT_GT(level, 40) << "the fore colour at " << x << "," << y;
      has_shadow = has_shadow || level < qGray(grey) - 40;
      has_highlight = has_highlight || level > qGray(grey) + 40;
    }
  }
  EXPECT_TRUE(has_shadow);
  EXPECT_TRUE(has_highlight);
  // The highlight lies one pixel down and right of the shadow: the ink grows by one pixel.
  const QRect ink = InkBox(enabled, grey, enabled.rect());
  const QRect engraved = InkBox(disabled, grey, disabled.rect());
  EXPECT_EQ(engraved.topLeft(), ink.topLeft());
  EXPECT_EQ(engraved.bottomRight(), ink.bottomRight() + QPoint(1, 1));
}

}  // namespace
}  // namespace zk
