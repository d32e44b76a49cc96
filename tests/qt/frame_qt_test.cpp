// The frame and the controls inside it on the Qt platform: what the border looks like, and the
// widgets of the contained controls.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <cmath>

#include "controls/display/frame.h"
#include "platform/qt/qt_colors.h"
#include "qt_fixture.h"

namespace zk {
namespace {

constexpr OLE_COLOR kRed = 0x0000FF;

class QtFrameTest : public QtFormTest {
 protected:
  QtFrameTest() {
    form_.MoveControl(u"F", 300, 300, 3000, 1500);  // 200 by 100 pixels
    frame_.SetBorderColor(kRed);
    frame_.SetBorderWidth(2);
  }

  QWidget* WidgetOf(std::u16string_view name) { return form_.FindSite(name)->Surface().Widget(); }
  QColor Inactive() { return ToQColor(0x8000000B, WidgetOf(u"F")->palette()); }

  ZKFrame& frame_ = static_cast<ZKFrame&>(form_.AddControl(u"ZKFrame", u"F"));
};

TEST_F(QtFrameTest, TheBorderShowsTheInactiveColourOnlyWhileDisabledWithBorderDisables) {
  frame_.SetCaption(u"");
  const QRgb red = qRgb(255, 0, 0);
  struct Step {
    bool border_disables;
    bool enabled;
    bool inactive;
  };
  const Step steps[] = {
      {false, true, false}, {false, false, false}, {true, false, true},
      {true, true, false},  {true, false, true},   {false, false, false},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(testing::Message()
                 << "BorderDisables " << step.border_disables << ", Enabled " << step.enabled);
    frame_.SetBorderDisables(step.border_disables);
    frame_.SetEnabled(step.enabled);
    const QImage image = Render(u"F");
    ASSERT_EQ(image.size(), QSize(200, 100));
    const QRgb expected = step.inactive ? Inactive().rgb() : red;
    // Both pixels of the two-pixel border, on every side.
    for (const QPoint at : {QPoint(100, 0), QPoint(100, 1), QPoint(100, 98), QPoint(100, 99),
                            QPoint(0, 50), QPoint(1, 50), QPoint(198, 50), QPoint(199, 50)}) {
      EXPECT_EQ(image.pixel(at), expected) << at.x() << "," << at.y();
    }
    EXPECT_NE(image.pixel(100, 50), red);  // the inside shows the face
    EXPECT_NE(image.pixel(100, 2), red);
  }
  ASSERT_NE(Inactive().rgb(), red);
}

TEST_F(QtFrameTest, TheCaptionInterruptsTheTopLineThatRunsThroughIt) {
  frame_.SetCaption(u"Frame caption");
  frame_.SetBorderWidth(1);
  const QImage image = Render(u"F");
  const ILabelElement& caption = frame_.CaptionElement();
  const IShapeElement& border = frame_.BorderElement();
  const int line = static_cast<int>(std::lround(border.Top() / 15));
  const int caption_left = static_cast<int>(std::ceil(caption.Left() / 15));
  const int caption_right = static_cast<int>((caption.Left() + caption.Width()) / 15);
  const int caption_bottom = static_cast<int>((caption.Top() + caption.Height()) / 15);
  // The line runs through the middle of the caption's height.
  EXPECT_NEAR(line, caption_bottom / 2.0, 1.0);
  const QRgb red = qRgb(255, 0, 0);
  EXPECT_EQ(image.pixel(0, line), red);
  EXPECT_EQ(image.pixel(caption_left - 2, line), red);
  EXPECT_EQ(image.pixel(caption_right + 2, line), red);
  for (int x = caption_left + 1; x < caption_right - 1; ++x)
    EXPECT_NE(image.pixel(x, line), red) << x;
  // Above the line the frame shows its face: nothing of the border lies there.
  EXPECT_NE(image.pixel(caption_right + 2, line - 2), red);
}

TEST_F(QtFrameTest, ContainedControlsAreChildWidgetsThatMoveHideAndGoWithTheFrame) {
  form_.AddControlInside(u"ZKTextEdit", u"T", u"F");
  form_.MoveControl(u"T", 150, 450, 1200, 300);
  QWidget* frame = WidgetOf(u"F");
  QPointer<QWidget> edit = WidgetOf(u"T");
  EXPECT_EQ(edit->parentWidget(), frame);
  EXPECT_EQ(edit->geometry(), QRect(10, 30, 80, 20));
  form_.MoveControl(u"F", 1500, 600, 3000, 1500);
  EXPECT_EQ(edit->mapTo(form_.Widget(), QPoint(0, 0)), QPoint(100 + 10, 40 + 30));
  QApplication::processEvents();
  EXPECT_TRUE(edit->isVisible());
  form_.FindExtender(u"F")->SetProperty(u"Visible", Variant(false));
  EXPECT_FALSE(edit->isVisible());
  EXPECT_FALSE(form_.IsShown(u"T"));
  EXPECT_FALSE(form_.Focus(u"T"));
  form_.FindExtender(u"F")->SetProperty(u"Visible", Variant(true));
  EXPECT_TRUE(edit->isVisible());
  ASSERT_TRUE(form_.RemoveControl(u"F"));
  EXPECT_TRUE(edit.isNull());
  EXPECT_EQ(form_.FindControl(u"T"), nullptr);
}

TEST_F(QtFrameTest, APressOverAContainedControlGivesItTheFocusNotTheFrame) {
  form_.AddControl(u"ZKTextEdit", u"Outside");
  form_.AddControlInside(u"ZKTextEdit", u"T", u"F");
  form_.MoveControl(u"T", 150, 450, 1200, 300);
  form_.Widget()->activateWindow();
  ASSERT_TRUE(form_.Focus(u"Outside"));
  form_.DeliverMouse(u"F", MouseAction::kDown, 1, 0, 300, 600);
  form_.DeliverMouse(u"F", MouseAction::kUp, 1, 0, 300, 600);
  QApplication::processEvents();
  EXPECT_EQ(form_.FocusedControl(), form_.FindControl(u"T"));
  EXPECT_TRUE(form_.FindSite(u"T")->Surface().HasFocus());
  // Qt's focus widget lies inside the frame's widget, yet the focus is not the frame's.
  form_.FindSite(u"F")->Surface().RefreshFocus();
  EXPECT_FALSE(form_.FindSite(u"F")->Surface().HasFocus());
  // Disabled by the frame, the control takes no press and no focus.
  ASSERT_TRUE(form_.Focus(u"Outside"));
  frame_.SetEnabled(false);
  EXPECT_FALSE(WidgetOf(u"T")->isEnabled());
  form_.DeliverMouse(u"F", MouseAction::kDown, 1, 0, 300, 600);
  form_.DeliverMouse(u"F", MouseAction::kUp, 1, 0, 300, 600);
  QApplication::processEvents();
  EXPECT_EQ(form_.FocusedControl(), form_.FindControl(u"Outside"));
  EXPECT_FALSE(form_.Focus(u"T"));
}

}  // namespace
}  // namespace zk
