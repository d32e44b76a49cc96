// A slider under a real X server's pointer: the thumb dragged by the mouse and the wheel turned
// over each of its parts, through Qt's xcb platform as a user's input goes.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <optional>
#include <string>

#include "controls/slider/slider.h"
#include "hosting/qt_form.h"
#include "platform/qt/qt_surface.h"
#include "x11/x_server.h"

namespace zk {
namespace {

class SliderRealInputTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string reason;
    const std::optional<std::string> display = x11::XvfbServer::Display(reason);
    if (!display) GTEST_SKIP() << "no X server for real input: " << reason;
    ASSERT_EQ(std::system("command -v xdotool >/dev/null 2>&1"), 0)
        << "xdotool is needed (./run installs it)";
    setenv("DISPLAY", display->c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    platform_.emplace(QtOptions{false, std::u16string(u"en-US")});
    scope_.emplace(*platform_);
    form_.emplace(*platform_);
    // 200 x 20 pixels: 20-pixel jogs, a 24-pixel thumb (360 twips) and a 136-pixel track.
    slider_ = &static_cast<ZKSlider&>(form_->AddControl(u"ZKSlider", u"S"));
    form_->MoveControl(u"S", 300, 300, 3000, 300);
    slider_->SetSliderWidth(360);
    QWidget* window = form_->Widget();
    window->move(0, 0);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window, 10000));
  }
  void TearDown() override {
    form_.reset();
    scope_.reset();
    platform_.reset();
  }

  // The middle of a part on the screen.
  QPoint Middle(std::u16string_view part) {
    const QWidget* widget = static_cast<QtSurface*>(slider_->PartSurface(part))->Widget();
    return widget->mapToGlobal(widget->rect().center());
  }
  static std::string At(QPoint point) {
    return std::to_string(point.x()) + " " + std::to_string(point.y());
  }
  // Waits until the slider holds `value`; false after five seconds.
  bool ValueBecomes(double value) {
    return QTest::qWaitFor([&] { return slider_->Value() == value; }, 5000);
  }

  std::optional<QtPlatform> platform_;
  std::optional<PlatformScope> scope_;
  std::optional<QtForm> form_;
  ZKSlider* slider_ = nullptr;
};

TEST_F(SliderRealInputTest, TheThumbFollowsARealDrag) {
  slider_->SetValue(0);
  QApplication::processEvents();
  const QPoint start = Middle(u"cmdSlider");
  const int right = start.x() + 180;
  std::string moves;
  for (int x = start.x() + 10; x <= right; x += 10)
    moves += " mousemove " + std::to_string(x) + " " + std::to_string(start.y());
  ASSERT_TRUE(x11::XDoTool("mousemove " + At(start) + " mousedown 1" + moves + " mouseup 1"));
  EXPECT_TRUE(ValueBecomes(100)) << slider_->Value();
  // Released: moving the pointer back leaves the thumb where it is.
  ASSERT_TRUE(x11::XDoTool("mousemove " + At(start)));
  QTest::qWait(200);
  EXPECT_EQ(slider_->Value(), 100);
}

TEST_F(SliderRealInputTest, TheWheelOverAnyPartStepsTheSlider) {
  slider_->SetValue(50);
  QApplication::processEvents();
  double expected = 50;
  // Button 4 turns the wheel away from the user: a step toward the increment end.
  for (std::u16string_view part : {u"cmdSlider", u"cmdDecrement", u"cmdIncrement"}) {
    ASSERT_TRUE(x11::XDoTool("mousemove " + At(Middle(part)) + " click 4"));
    expected += 1;
    EXPECT_TRUE(ValueBecomes(expected)) << slider_->Value();
  }
  ASSERT_TRUE(x11::XDoTool("click 5"));
  EXPECT_TRUE(ValueBecomes(expected - 1)) << slider_->Value();
}

}  // namespace
}  // namespace zk
