#include <QAbstractItemView>
#include <QApplication>
#include <QImage>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <memory>
#include <string>
#include <vector>

#include "list_box_fixture.h"
#include "platform/qt/qt_colors.h"
#include "services/subclass.h"

namespace zk {
namespace {

using Lines = std::vector<std::u16string>;

class QtListBoxTest : public ListBoxTest<QtHost> {
 protected:
  QAbstractItemView& View(const IListBoxElement& list) {
    return *static_cast<QAbstractItemView*>(host_.platform.Windows().Widget(list.hWnd()));
  }
  // What the box's view shows now.
  QImage Render(const IListBoxElement& list) {
    QApplication::processEvents();
    return View(list).grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  // How many pixels of a row (0 the top visible one) are dark, left of `width` pixels.
  static int DarkPixels(const QImage& image, int visible_row, int width) {
    int dark = 0;
    for (int y = kBorder + visible_row * kRowHeight; y < kBorder + (visible_row + 1) * kRowHeight;
         ++y) {
      for (int x = kBorder; x < kBorder + width; ++x)
        dark += qGray(image.pixel(x, y)) < 100;
    }
    return dark;
  }
};

TEST_F(QtListBoxTest, TheRowsAreDrawnAndTheCurrentOneIsHighlighted) {
  IListBoxElement& list = *list_;
  list.SetBackColor(0xFFFFFF);
  list.SetForeColor(0x000000);
  Fill(list, 4);
  ASSERT_TRUE(list.SetListIndex(1));
  QImage image = Render(list);
  ASSERT_EQ(image.size(), QSize(100, 82));
  const QColor highlight = ToQColor(0x8000000D, QApplication::palette());
  // Near the right end of each row, where no text reaches: the background shows.
  const int x = 70;
  auto middle = [](int visible_row) { return kBorder + visible_row * kRowHeight + kRowHeight / 2; };
  EXPECT_EQ(QColor(image.pixel(x, middle(0))), QColor(Qt::white));
  EXPECT_EQ(QColor(image.pixel(x, middle(1))), highlight);
  EXPECT_EQ(QColor(image.pixel(x, middle(2))), QColor(Qt::white));
  // Each row's text is drawn in the fore colour; below the last row nothing is.
  EXPECT_GT(DarkPixels(image, 0, 40), 10);
  EXPECT_GT(DarkPixels(image, 3, 40), 10);
  EXPECT_EQ(DarkPixels(image, 4, 60), 0);
  // The highlight follows the current row, and the view shows the box's first row on top.
  list.SetListIndex(3);
  list.SetTopIndex(0);
  image = Render(list);
  EXPECT_EQ(QColor(image.pixel(x, middle(1))), QColor(Qt::white));
  EXPECT_EQ(QColor(image.pixel(x, middle(3))), highlight);
  // A 3-D border is drawn around the rows.
  EXPECT_NE(QColor(image.pixel(0, 40)), QColor(Qt::white));
  EXPECT_EQ(View(list).selectionModel()->selectedIndexes().size(), 1);
  EXPECT_EQ(View(list).selectionModel()->currentIndex().row(), 3);
}

TEST_F(QtListBoxTest, TheViewShowsTheBoxsTopRowAndItsScrollBarMovesIt) {
  IListBoxElement& list = *list_;
  Fill(list, 20);
  QAbstractItemView& view = View(list);
  QScrollBar& bar = *view.verticalScrollBar();
  list.SetTopIndex(5);
  QApplication::processEvents();
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.maximum(), 14);
  EXPECT_EQ(bar.value(), 5);
  EXPECT_EQ(view.indexAt(QPoint(5, 5)).row(), 5);
  Events();
  // The user's actions on the bar move the box's top row and raise Scroll; the program's
  // writes to the bar do not count as the user's.
  bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(list.TopIndex(), 6);
  bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(list.TopIndex(), 12);
  bar.setSliderDown(true);
  bar.setSliderPosition(2);  // a drag
  bar.setSliderDown(false);
  EXPECT_EQ(list.TopIndex(), 2);
  EXPECT_EQ(Events(), (Lines{u"Scroll", u"Scroll", u"Scroll"}));
  EXPECT_EQ(view.indexAt(QPoint(5, 5)).row(), 2);
  // Fewer rows than fit: the bar goes.
  list.Clear();
  Fill(list, 3);
  QApplication::processEvents();
  EXPECT_FALSE(bar.isVisible());
}

TEST_F(QtListBoxTest, TheWheelOverTheScrollBarIsTheBoxsWheelToo) {
  IListBoxElement& list = *list_;
  Fill(list, 20);
  ZKCSubclass observer;
  observer.SetPropagate(true);
  int wheels = 0;
  ScopedConnection after = observer.AfterEvent().Connect([&](uint32_t message, int32_t, int32_t) {
    if (message == window_message::kMouseWheel) ++wheels;
  });
  ASSERT_TRUE(observer.Hook(list.hWnd()));
  QScrollBar& bar = *View(list).verticalScrollBar();
  const QPointF centre(bar.width() / 2.0, bar.height() / 2.0);
  QWheelEvent event(centre, bar.mapToGlobal(centre), QPoint(), QPoint(0, -120), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&bar, &event);
  EXPECT_EQ(wheels, 1);
  EXPECT_EQ(list.TopIndex(), 3);
  EXPECT_EQ(bar.value(), 3);
  EXPECT_TRUE(Events().empty());
}

TEST_F(QtListBoxTest, AHundredThousandRowsAreReadThroughTheModelAndTheLastOneShows) {
  IListBoxElement& list = *list_;
  constexpr int kRows = 100000;
  Fill(list, kRows);
  QAbstractItemView& view = View(list);
  EXPECT_EQ(view.model()->rowCount(), kRows);
  ASSERT_TRUE(list.SetListIndex(kRows - 1));
  QApplication::processEvents();
  EXPECT_EQ(view.verticalScrollBar()->value(), kRows - 6);
  const QModelIndex last = view.indexAt(QPoint(5, 5 * kRowHeight + 3));
  EXPECT_EQ(last.row(), kRows - 1);
  EXPECT_EQ(last.data().toString(), QStringLiteral("Row 99999"));
  EXPECT_TRUE(view.selectionModel()->isSelected(last));
  // A row's text written later is what the view reads.
  ASSERT_TRUE(list.SetList(kRows - 1, u"Last"));
  EXPECT_EQ(last.data().toString(), QStringLiteral("Last"));
}

TEST_F(QtListBoxTest, APictureBoxPaintsItsBackColourInsideItsBorder) {
  std::unique_ptr<IPictureBoxElement> box = surface_->CreatePictureBox();
  box->Move(3000, 2550, 300, 300);
  box->SetBackColor(0x0000FF);  // red
  QWidget* widget = host_.platform.Windows().Widget(box->hWnd());
  ASSERT_NE(widget, nullptr);
  QApplication::processEvents();
  QImage image = widget->grab().toImage();
  ASSERT_EQ(image.size(), QSize(20, 20));
  EXPECT_EQ(QColor(image.pixel(10, 10)), QColor(Qt::red));
  EXPECT_NE(QColor(image.pixel(0, 0)), QColor(Qt::red));  // the 3-D border
  box->SetBorderStyle(0);
  QApplication::processEvents();
  image = widget->grab().toImage();
  EXPECT_EQ(QColor(image.pixel(0, 0)), QColor(Qt::red));
}

}  // namespace
}  // namespace zk
