// The persistent drawing that every surface keeps: what FillRect and Cls leave in it.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "headless_fixture.h"
#include "platform/common/form_ambient.h"
#include "platform/headless/headless_control_site.h"

namespace zk {
namespace {

class PersistentDrawingTest : public HeadlessTest {
 protected:
  const std::vector<DrawnRect>& Drawn() { return site_.Surface().DrawnRects(); }

  FormAmbient ambient_{platform_.NewFont()};
  WindowHandle form_ = platform_.Windows().CreateWindow(0, u"Form", {0, 0, 400, 300});
  HeadlessControlSite site_{platform_, ambient_, form_, u"Drawing1"};
  ISurface& surface_ = site_.Surface();
};

TEST_F(PersistentDrawingTest, RectanglesStayInDrawingOrderUntilCls) {
  struct Step {
    double x1, y1, x2, y2;
    OLE_COLOR color;
    std::vector<DrawnRect> after;
  };
  const std::vector<Step> steps = {
      // Corners in any order give the same rectangle.
      {300, 200, 0, 0, 1, {{0, 0, 300, 200, 1}}},
      // One that overlaps it in part keeps it; both show.
      {150, 100, 450, 300, 2, {{0, 0, 300, 200, 1}, {150, 100, 450, 300, 2}}},
      // One that lies inside an older one is drawn over it.
      {10, 10, 20, 20, 3, {{0, 0, 300, 200, 1}, {150, 100, 450, 300, 2}, {10, 10, 20, 20, 3}}},
      // One that covers older ones wholly hides them: they are forgotten.
      {-10, 0, 300, 200, 4, {{150, 100, 450, 300, 2}, {-10, 0, 300, 200, 4}}},
      // An empty rectangle is kept: a bar of no length is still a bar.
      {5, 0, 5, 200, 5, {{150, 100, 450, 300, 2}, {-10, 0, 300, 200, 4}, {5, 0, 5, 200, 5}}},
  };
  for (const Step& step : steps) {
    surface_.FillRect(step.x1, step.y1, step.x2, step.y2, step.color);
    EXPECT_EQ(Drawn(), step.after) << "after colour " << step.color;
  }
  surface_.Cls();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(PersistentDrawingTest, CornersThatAreNoNumbersDrawNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  surface_.FillRect(nan, 0, 10, 10, 1);
  surface_.FillRect(0, 0, 10, nan, 1);
  EXPECT_TRUE(Drawn().empty());
  // Far away is still a place: it is kept, and cut where the surface ends.
  surface_.FillRect(0, 0, inf, 10, 2);
  ASSERT_EQ(Drawn().size(), 1u);
  EXPECT_EQ(Drawn()[0].right, inf);
}

TEST_F(PersistentDrawingTest, ACallerThatNeverClearsCannotGrowTheDrawingWithoutEnd) {
  constexpr auto kMax = HeadlessSurface::kMaxRects;
  for (size_t i = 0; i < kMax + 10; ++i) {
    const double x = static_cast<double>(i) * 10;
    surface_.FillRect(x, 0, x + 5, 5, static_cast<OLE_COLOR>(i));
  }
  ASSERT_EQ(Drawn().size(), kMax);
  EXPECT_EQ(Drawn().front().color, 10u);  // the oldest went first
  EXPECT_EQ(Drawn().back().color, static_cast<OLE_COLOR>(kMax + 9));
}

TEST_F(PersistentDrawingTest, ThePictureIsKeptApartFromTheDrawing) {
  const PictureRef picture = platform_.Pictures().MakePicture(8, 8, {});
  surface_.SetPicture(picture);
  surface_.FillRect(0, 0, 10, 10, 1);
  surface_.Cls();
  EXPECT_EQ(surface_.Picture(), picture);
  surface_.SetPicture(nullptr);
  EXPECT_FALSE(surface_.Picture());
}

}  // namespace
}  // namespace zk
