#include <gtest/gtest.h>

#include <QColor>

#include "controls/buttons/color_button.h"
#include "qt/qt_fixture.h"

namespace zk {
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kWhite = qRgb(255, 255, 255);

bool Bluish(QRgb pixel) {
  return qBlue(pixel) > 150 && qRed(pixel) < 100 && qGreen(pixel) < 100;
}

class ButtonRenderingTest : public QtFormTest {
 protected:
  ZKColorButton& AddButton(std::u16string_view name, double width, double height) {
    auto& button = static_cast<ZKColorButton&>(form_.AddControl(u"ZKColorButton", name));
    form_.FindExtender(name)->SetProperty(u"Width", Variant(width));
    form_.FindExtender(name)->SetProperty(u"Height", Variant(height));
    button.SetCaption(u"");  // nothing drawn over the face
    return button;
  }

  // How many pixels of the border colour run in from the left edge at mid height.
  int LeftBorderPixels(std::u16string_view name) {
    const QImage image = Render(name);
    int run = 0;
    while (run < image.width() && Bluish(image.pixel(run, image.height() / 2)))
      ++run;
    return run;
  }
};

TEST_F(ButtonRenderingTest, CircleButtonDrawsARoundBorderOnItsFace) {
  ZKColorButton& button = AddButton(u"C", 900, 600);  // 60 x 40 pixels: a circle 40 across
  button.SetShape(shape_code::kCircle);
  button.SetBackColor(0x0000FF);
  button.SetBorderColor(0xFF0000);
  button.SetBorderWidth(2);
  const QImage image = Render(u"C");
  ASSERT_EQ(image.size(), QSize(60, 40));
  EXPECT_EQ(image.pixel(30, 20), kRed);
  for (const QPoint on_circle : {QPoint(30, 0), QPoint(30, 39), QPoint(10, 20), QPoint(49, 20)}) {
    EXPECT_TRUE(Bluish(image.pixel(on_circle))) << on_circle.x() << "," << on_circle.y();
  }
  // Where a square would have its corner the circle has none.
  EXPECT_EQ(image.pixel(11, 1), kRed);
  EXPECT_EQ(image.pixel(48, 38), kRed);
  button.SetValue(zktToggleSelected);
  button.SetSelectedColor(0x00FF00);
  EXPECT_EQ(Render(u"C").pixel(30, 20), qRgb(0, 255, 0));
}

TEST_F(ButtonRenderingTest, FocusedBorderIsShowFocusPixelsWider) {
  ZKColorButton& button = AddButton(u"F", 1215, 495);
  AddButton(u"Other", 1215, 495);
  button.SetBackColor(0xFFFFFF);
  button.SetBorderColor(0xFF0000);
  button.SetBorderWidth(2);
  ASSERT_TRUE(form_.Focus(u"Other"));  // a shown form may have focused the first button
  EXPECT_EQ(LeftBorderPixels(u"F"), 2);
  ASSERT_TRUE(form_.Focus(u"F"));
  EXPECT_EQ(LeftBorderPixels(u"F"), 3);
  button.SetShowFocus(4);
  EXPECT_EQ(LeftBorderPixels(u"F"), 6);
  ASSERT_TRUE(form_.Focus(u"Other"));
  EXPECT_EQ(LeftBorderPixels(u"F"), 2);
  EXPECT_EQ(Render(u"F").pixel(40, 16), kWhite);
}

}  // namespace
}  // namespace zk
