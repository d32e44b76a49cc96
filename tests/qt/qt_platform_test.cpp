#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QWidget>
#include <vector>

#include "foundation/zk_error.h"
#include "platform/qt/qt_text.h"
#include "platform/window_messages.h"
#include "qt_fixture.h"

namespace zk {
namespace {

class QtPlatformTest : public QtFormTest {};

TEST_F(QtPlatformTest, ClassicFacesAreOfferedAndMissingOnesDoNotReadBack) {
  FontRef font = platform_.NewFont();
  EXPECT_EQ(font->Name(), u"MS Sans Serif");
  EXPECT_EQ(font->Size(), 8.25);
  font->SetName(u"Wingdings 3");
  EXPECT_EQ(font->Name(), u"MS Sans Serif");
  font->SetName(u"courier new");
  EXPECT_EQ(font->Name(), u"Courier New");
  const TextExtent one = platform_.Fonts().MeasureText(font->Description(), u"Label", 0);
  const TextExtent two = platform_.Fonts().MeasureText(font->Description(), u"Label\r\nLabel", 0);
  EXPECT_GT(one.width, 0);
  EXPECT_EQ(two.width, one.width);
  EXPECT_EQ(two.height, 2 * one.height);
  EXPECT_EQ(platform_.Screen().TwipsPerPixelX(), 15.0);
}

TEST_F(QtPlatformTest, WheelMessagesFlowThroughReplaceableProcedures) {
  AddLabel(u"L");
  QtWindowSystem& windows = platform_.Windows();
  const WindowHandle window = form_.FindSite(u"L")->Surface().hWnd();
  std::vector<int32_t> seen;
  bool pass_on = false;
  int32_t previous = 0;
  const int32_t hook = windows.RegisterWindowProcedure(
      [&](WindowHandle w, uint32_t message, int32_t wparam, int32_t lparam) {
        if (message == window_message::kMouseWheel) seen.push_back(wparam >> 16);
        return pass_on ? windows.CallWindowProc(previous, w, message, wparam, lparam) : 0;
      });
  previous = windows.SetWindowLong(window, window_long::kWindowProcedure, hook);
  ASSERT_NE(previous, 0);
  form_.Wheel(u"L", -120);
  pass_on = true;
  form_.Wheel(u"L", 240);
  EXPECT_EQ(seen, (std::vector<int32_t>{-120, 240}));
  EXPECT_EQ(windows.SetWindowLong(window, window_long::kWindowProcedure, previous), hook);
  // The widget's destruction sends the last message through the procedure in place.
  std::vector<uint32_t> last;
  const int32_t spy =
      windows.RegisterWindowProcedure([&](WindowHandle, uint32_t message, int32_t, int32_t) {
        last.push_back(message);
        return 0;
      });
  windows.SetWindowLong(window, window_long::kWindowProcedure, spy);
  form_.RemoveAll();
  EXPECT_EQ(last, (std::vector<uint32_t>{window_message::kDestroy, window_message::kNcDestroy}));
  EXPECT_FALSE(windows.IsWindow(window));
}

TEST_F(QtPlatformTest, TimersTickThroughTheEventLoopUntilKilled) {
  int ticks = 0;
  int32_t seen_id = 0;
  const int32_t id = platform_.Timers().SetTimer(
      10, [&](WindowHandle, uint32_t message, int32_t tick_id, int32_t) {
        EXPECT_EQ(message, window_message::kTimer);
        seen_id = tick_id;
        ++ticks;
      });
  ASSERT_NE(id, 0);
  EXPECT_EQ(platform_.Timers().SetTimer(0, [](WindowHandle, uint32_t, int32_t, int32_t) {}), 0);
  // Real timers on a loaded machine: wait for three ticks, up to a generous bound, instead of
  // counting the ticks of a fixed wait.
  for (int waited = 0; ticks < 3 && waited < 5000; waited += 20)
    form_.Wait(20);
  EXPECT_GE(ticks, 3);
  EXPECT_EQ(seen_id, id);
  EXPECT_TRUE(platform_.Timers().KillTimer(id));
  EXPECT_FALSE(platform_.Timers().KillTimer(id));
  const int after = ticks;
  form_.Wait(50);
  EXPECT_EQ(ticks, after);
}

TEST_F(QtPlatformTest, PicturesAreDecodedWithTheirPixels) {
  QTemporaryDir dir;
  QImage image(6, 4, QImage::Format_ARGB32);
  image.fill(qRgb(0, 128, 255));
  const QString path = dir.filePath(QStringLiteral("p.png"));
  ASSERT_TRUE(image.save(path));
  PictureRef picture = platform_.Pictures().LoadPicture(FromQString(path));
  EXPECT_EQ(picture->WidthPixels(), 6);
  EXPECT_EQ(picture->HeightPixels(), 4);
  ASSERT_EQ(picture->Pixels().size(), 24u);
  EXPECT_EQ(picture->Pixels()[0], 0xFF0080FFu);
  EXPECT_THROW(
      platform_.Pictures().LoadPicture(FromQString(dir.filePath(QStringLiteral("none.png")))),
      ZKError);
}

}  // namespace
}  // namespace zk
