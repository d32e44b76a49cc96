// What the edit list draws on the Qt platform: the two columns in their colours, the border that
// the list boxes bring or that lies outside the control, the mask over the seam, the disabled
// look, and the editor over a cell.
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QWheelEvent>

#include "controls/lists/edit_list.h"
#include "platform/qt/qt_colors.h"
#include "qt_fixture.h"

namespace zk {
namespace {

constexpr OLE_COLOR kItemsBack = 0xFFE0C0;  // light blue
constexpr OLE_COLOR kTagsBack = 0xC0FFFF;   // light yellow
constexpr QRgb kItemsRgb = qRgb(0xC0, 0xE0, 0xFF);
constexpr QRgb kTagsRgb = qRgb(0xFF, 0xFF, 0xC0);

class QtEditListTest : public QtFormTest {
 protected:
  QtEditListTest() {
    form_.MoveControl(u"E", 300, 300, 3000, 1500);  // 200 by 100 pixels
    list_.SetBackColor(kItemsBack);
    list_.SetTagBackColor(kTagsBack);
    list_.SetTagColumnWidth(600);  // 40 pixels
    list_.SetShowTags(true);
    for (int row = 0; row < 3; ++row)
      list_.AddItem(u"row", Variant(), u"tag");
  }

  QColor Inactive() {
    return ToQColor(system_color::kInactiveBorder,
                    form_.FindSite(u"E")->Surface().Widget()->palette());
  }

  ZKEditList& list_ = static_cast<ZKEditList&>(form_.AddControl(u"ZKEditList", u"E"));
};

TEST_F(QtEditListTest, EachColumnShowsItsColourAndTheTagsLieWhereTheyAreSet) {
  struct Case {
    zktELTagsPosition position;
    int tags_x;
    int items_x;
  };
  const Case cases[] = {{zktTagPosLeft, 20, 120}, {zktTagPosRight, 180, 80}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.position);
    list_.SetTagColumnPosition(c.position);
    const QImage image = Render(u"E");
    ASSERT_EQ(image.size(), QSize(200, 100));
    // Below the three rows, where only the background shows.
    EXPECT_EQ(image.pixel(c.tags_x, 80), kTagsRgb);
    EXPECT_EQ(image.pixel(c.items_x, 80), kItemsRgb);
  }
}

TEST_F(QtEditListTest, WithoutABorderTheColumnsReachTheEdgesAndTheMaskCoversTheSeam) {
  list_.SetBorderStyle(zktBSNone);
  const QImage image = Render(u"E");
  // The list boxes lie one pixel outside: their own colours reach every edge.
  EXPECT_EQ(image.pixel(0, 80), kTagsRgb);
  EXPECT_EQ(image.pixel(120, 0), kItemsRgb);
  EXPECT_EQ(image.pixel(120, 99), kItemsRgb);
  EXPECT_EQ(image.pixel(199, 80), kItemsRgb);
  // The item column starts one pixel early (at 39): that pixel, its border's, is the mask in
  // the item column's colour.
  ASSERT_TRUE(list_.BorderMask().Visible());
  EXPECT_EQ(image.pixel(38, 80), kTagsRgb);
  EXPECT_EQ(image.pixel(39, 80), kItemsRgb);
  EXPECT_EQ(image.pixel(39, 0), kItemsRgb);
  EXPECT_EQ(image.pixel(40, 80), kItemsRgb);
}

TEST_F(QtEditListTest, ADisabledListShowsTheInactiveColourInBothColumns) {
  list_.SetEnabled(false);
  const QImage image = Render(u"E");
  EXPECT_EQ(image.pixel(20, 80), Inactive().rgb());
  EXPECT_EQ(image.pixel(120, 80), Inactive().rgb());
  ASSERT_NE(Inactive().rgb(), kItemsRgb);
  list_.SetEnabled(true);
  EXPECT_EQ(Render(u"E").pixel(120, 80), kItemsRgb);
}

TEST_F(QtEditListTest, AFlatBorderRunsAroundBothColumnsAndTheRowsLieInsideIt) {
  list_.SetAppearance(zktApFlat);
  list_.SetBorderStyle(zktBSSolid);
  const QImage image = Render(u"E");
  const QRgb black = qRgb(0, 0, 0);
  for (const QPoint edge : {QPoint(20, 0), QPoint(120, 0), QPoint(20, 99), QPoint(120, 99),
                            QPoint(0, 80), QPoint(199, 80)}) {
    EXPECT_EQ(image.pixel(edge), black) << edge.x() << "," << edge.y();
  }
  // Just inside the border the columns' own colours begin.
  EXPECT_EQ(image.pixel(1, 80), kTagsRgb);
  EXPECT_EQ(image.pixel(198, 80), kItemsRgb);
  EXPECT_EQ(image.pixel(120, 98), kItemsRgb);
}

TEST_F(QtEditListTest, ADisabledListWritesItsRowsInGreyThatReadsOnTheInactiveColour) {
  list_.SetEnabled(false);
  const QImage image = Render(u"E");
  const int inactive = qGray(Inactive().rgb());
  int dark_ink = 0;
  for (int y = 1; y < 40; ++y) {
    for (int x = 41; x < 199; ++x) {
      const int level = qGray(image.pixel(x, y));
      EXPECT_GT(level, 40) << "the enabled fore colour at " << x << "," << y;
      if (level < inactive - 40) ++dark_ink;
    }
  }
  EXPECT_GT(dark_ink, 10);
}

TEST_F(QtEditListTest, TheEditorLiesOverTheCellInTheColumnsColours) {
  list_.SetLocked(false);
  list_.SetTagBackColor(0x00FF00);
  list_.SetEditTags(true);
  form_.Focus(u"E");
  ASSERT_TRUE(list_.OpenEditBox(2, 1));
  QApplication::processEvents();
  const QImage image = Render(u"E");
  const int row_pixels = list_.RowHeight();
  // Row 2 of the tag column, right of the text, is the editor's face.
  EXPECT_EQ(image.pixel(36, 2 * row_pixels + row_pixels / 2 + 1), qRgb(0, 0xFF, 0));
  // The item column beside it is not covered (it shows the current row's highlight).
  EXPECT_NE(image.pixel(150, 2 * row_pixels + row_pixels / 2 + 1), qRgb(0, 0xFF, 0));
  EXPECT_NE(image.pixel(150, 2 * row_pixels + row_pixels / 2 + 1), kItemsRgb);
  // Closing it shows the cell's row again.
  form_.TypeKeys(u"{ESC}");
  EXPECT_NE(Render(u"E").pixel(36, 2 * row_pixels + row_pixels / 2 + 1), qRgb(0, 0xFF, 0));
}

}  // namespace
}  // namespace zk

namespace zk {
namespace {

// The wheel on Qt: a wheel event to the tag column's view reaches the item column through the
// window observer of the running form.
TEST_F(QtEditListTest, TheWheelOverTheTagsScrollsTheItemsToo) {
  for (int row = 0; row < 40; ++row)
    list_.AddItem(u"more");
  auto* view =
      static_cast<QAbstractScrollArea*>(platform_.Windows().Widget(list_.TagsBox().hWnd()));
  ASSERT_NE(view, nullptr);
  const QPointF centre(view->viewport()->width() / 2.0, view->viewport()->height() / 2.0);
  QWheelEvent event(centre, view->viewport()->mapToGlobal(centre), QPoint(), QPoint(0, -120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(view->viewport(), &event);
  EXPECT_EQ(list_.TagsBox().TopIndex(), 3);
  EXPECT_EQ(list_.TopIndex(), 3);
}

}  // namespace
}  // namespace zk
