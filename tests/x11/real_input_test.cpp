// Input from a real X server: a private Xvfb display, Qt on its xcb platform, and the pointer
// and keyboard driven by xdotool through the XTEST extension, so that every event takes the
// path that a user's does (X server, Qt's event reader, the form's window, the widget).
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWindow>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "controls/text/text_edit.h"
#include "hosting/qt_form.h"
#include "x11/x_server.h"

namespace zk {
namespace {

using x11::XDoTool;
using x11::XvfbServer;

using Names = std::vector<std::u16string>;

// Counts what reaches the form's window from the X server, ahead of every other filter.
class WindowEvents final : public QObject {
 public:
  int releases = 0;
  int key_releases = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched->isWindowType()) {
      if (event->type() == QEvent::MouseButtonRelease) ++releases;
      if (event->type() == QEvent::KeyRelease) ++key_releases;
    }
    return false;
  }
};

class RealInputTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string reason;
    const std::optional<std::string> display = XvfbServer::Display(reason);
    if (!display) GTEST_SKIP() << "no X server for real input: " << reason;
    ASSERT_EQ(std::system("command -v xdotool >/dev/null 2>&1"), 0)
        << "xdotool is needed (./run installs it)";
    setenv("DISPLAY", display->c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    platform_.emplace(QtOptions{false, std::u16string(u"en-US")});
    scope_.emplace(*platform_);
    form_.emplace(*platform_);
    QApplication::instance()->installEventFilter(&window_events_);
    date_ = static_cast<ZKTextEdit*>(&form_->AddControl(u"ZKTextEdit", u"Date"));
    date_->SetDataType(zktTDDate);
    date_->SetText(u"");
    ZKControl& ok = form_->AddControl(u"ZKColorButton", u"Ok");
    form_->FindExtender(u"Ok")->SetProperty(u"Left", Variant(3000.0));
    ok_watch_ =
        ok.EventRaised().Connect([this](std::u16string_view event, std::span<const Variant>) {
          if (event != u"MouseMove") ok_events_.emplace_back(event);
        });
    QWidget* window = form_->Widget();
    window->move(0, 0);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window, 10000));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window, 10000));
    ASSERT_TRUE(form_->Focus(u"Date"));
  }
  void TearDown() override {
    if (QCoreApplication::instance() != nullptr)
      QApplication::instance()->removeEventFilter(&window_events_);
    ok_watch_.Disconnect();
    form_.reset();
    scope_.reset();
    platform_.reset();
  }

  // Clicks the middle of a control with the X server's pointer and waits until the release
  // has come through.
  void Click(std::u16string_view name) {
    const QWidget* widget = form_->FindSite(name)->Surface().Widget();
    const QPoint at = widget->mapToGlobal(widget->rect().center());
    const int releases = window_events_.releases;
    ASSERT_TRUE(
        XDoTool("mousemove " + std::to_string(at.x()) + " " + std::to_string(at.y()) + " click 1"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return window_events_.releases > releases; }, 10000));
    QApplication::processEvents();
  }
  // Presses keys on the X server's keyboard (xdotool's key names) and waits for them.
  void Keys(const std::string& keys, int count) {
    const int releases = window_events_.key_releases;
    ASSERT_TRUE(XDoTool("key --delay 20 " + keys));
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return window_events_.key_releases >= releases + count; }, 10000));
    QApplication::processEvents();
  }
  std::u16string Focused() {
    ZKControl* focused = form_->FocusedControl();
    return focused ? focused->Name() : u"(none)";
  }

  std::optional<QtPlatform> platform_;
  std::optional<PlatformScope> scope_;
  std::optional<QtForm> form_;
  WindowEvents window_events_;
  ZKTextEdit* date_ = nullptr;
  Names ok_events_;
  ScopedConnection ok_watch_;
};

TEST_F(RealInputTest, AnInvalidValueKeepsTheFocusFromAClickAndFromTab) {
  // The user types the date on the keyboard.
  Keys("4 5 slash 1 3 slash 2 0 0 5", 10);
  ASSERT_EQ(date_->Text(), u"45/13/2005");

  platform_->Recorder().beeps = 0;
  Click(u"Ok");
  EXPECT_EQ(Focused(), u"Date");
  EXPECT_EQ(ok_events_, Names{}) << "the press and its release must not reach Ok";
  EXPECT_EQ(platform_->Recorder().beeps, 1);

  Keys("Tab", 1);
  EXPECT_EQ(Focused(), u"Date");
  EXPECT_EQ(platform_->Recorder().beeps, 2);

  // Once the value is valid, the same click moves the focus and clicks Ok.
  Keys(
      "End BackSpace BackSpace BackSpace "
      "BackSpace BackSpace BackSpace BackSpace BackSpace BackSpace BackSpace",
      11);
  Keys("1 2 slash 0 5 slash 2 0 0 5", 10);
  ASSERT_EQ(date_->Text(), u"12/05/2005");
  Click(u"Ok");
  EXPECT_EQ(Focused(), u"Ok");
  EXPECT_EQ(ok_events_, (Names{u"MouseDown", u"MouseUp", u"Click"}));
  EXPECT_EQ(platform_->Recorder().beeps, 2);
}

}  // namespace
}  // namespace zk
