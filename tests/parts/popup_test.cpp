#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "parts/parts_fixture.h"
#include "platform/qt/qt_popup_window.h"
#include "platform/window_messages.h"
#include "services/gui_utils.h"
#include "support/test_popup_owner.h"

namespace zk {
namespace {

// What a user does on each platform: a click on a surface, a modal window's turn, the pointer.
void ClickSurface(HeadlessHost&, ISurface& surface) {
  auto& target = static_cast<HeadlessSurface&>(surface);
  const auto x = static_cast<float>(surface.ScaleWidth() / 2);
  const auto y = static_cast<float>(surface.ScaleHeight() / 2);
  target.Deliver(MouseAction::kDown, 1, 0, x, y);
  target.Deliver(MouseAction::kUp, 1, 0, x, y);
}

void ClickSurface(QtHost&, ISurface& surface) {
  QWidget* widget = static_cast<QtSurface&>(surface).Widget();
  const QPointF centre(widget->width() / 2.0, widget->height() / 2.0);
  QMouseEvent press(QEvent::MouseButtonPress, centre, widget->mapToGlobal(centre), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, centre, widget->mapToGlobal(centre),
                      Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &release);
}

// `act` runs once the next modal show has its loop going.
void WhileModal(HeadlessHost& host, std::function<void()> act) {
  host.platform.SetModalCallback([act = std::move(act)](IPopupWindow&) { act(); });
}

void WhileModal(QtHost&, std::function<void()> act) {
  QTimer::singleShot(0, std::move(act));
}

void Wait(HeadlessHost& host, int32_t milliseconds) {
  host.platform.Advance(milliseconds);
}

void Wait(QtHost& host, int32_t milliseconds) {
  host.platform.RunEventLoop(milliseconds);
}

void MovePointer(HeadlessHost& host, int32_t x, int32_t y) {
  host.platform.Screen().SetCursorPos(x, y);
}

void MovePointer(QtHost& host, int32_t x, int32_t y) {
  host.platform.Screen().SetCursorPos(x, y);
  if (QWidget* grabber = QWidget::mouseGrabber()) {
    const QPointF global(x, y);
    QMouseEvent move(QEvent::MouseMove, grabber->mapFromGlobal(global), global, Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(grabber, &move);
  }
}

void ReleaseButton(HeadlessHost& host) {
  host.platform.Screen().ReleaseButton();
}

void ReleaseButton(QtHost&) {
  if (QWidget* grabber = QWidget::mouseGrabber()) {
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(), QPointF(), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(grabber, &release);
  }
}

// A form with the popup owner "P" at (600, 300) twips and a colour button, on `Host`, with the
// owner's events recorded.
template <typename Host>
class PopupTest : public testing::Test {
 protected:
  PopupTest() {
    RegisterTestControlKinds();
    owner_ = &static_cast<ZKTestPopupOwner&>(host_.form.AddControl(u"ZKTestPopupOwner", u"P"));
    host_.form.AddControl(u"ZKColorButton", u"Other");
    DispatchObject& extender = *host_.form.FindExtender(u"P");
    extender.SetProperty(u"Left", Variant(600.0));
    extender.SetProperty(u"Top", Variant(300.0));
    connection_ = owner_->EventRaised().Connect(
        [this](std::u16string_view event, std::span<const Variant> args) {
          std::u16string line(event);
          if (!args.empty()) {
            line += u"(" + args[0].ToText() + u")";
          }
          events_.push_back(std::move(line));
        });
  }
  ~PopupTest() override { host_.platform.SetNonModalAllowed(true); }

  std::u16string WindowName(const Variant& handle) {
    const auto window = static_cast<WindowHandle>(handle.ToDouble());
    if (window == host_.FormWindow()) return u"form";
    if (owner_ != nullptr && window == owner_->PopupWindow()) return u"popup";
    return window == 0 ? u"none" : u"other";
  }
  std::u16string Active() {
    return WindowName(Variant(static_cast<double>(host_.platform.Windows().GetActiveWindow())));
  }
  std::vector<std::u16string> Events() { return std::exchange(events_, {}); }
  PixelRect PopupRect() {
    PixelRect rect;
    host_.platform.Windows().GetWindowRect(owner_->PopupWindow(), rect);
    return rect;
  }

  Host host_;
  ZKTestPopupOwner* owner_ = nullptr;
  std::vector<std::u16string> events_;
  ScopedConnection connection_;
};

TYPED_TEST_SUITE(PopupTest, Hosts, HostNames);

using Strings = std::vector<std::u16string>;

TYPED_TEST(PopupTest, ModelessShowLiesUnderTheOwnerAndAButtonClickHidesIt) {
  ZKTestPopupOwner& owner = *this->owner_;
  this->host_.platform.Windows().ActivateWindow(this->host_.FormWindow());
  this->Events();
  ASSERT_TRUE(owner.Open(false));
  EXPECT_TRUE(owner.PopupVisible());
  EXPECT_EQ(this->Active(), u"popup");
  PixelRect owner_rect;
  this->host_.platform.Windows().GetWindowRect(owner.hWnd(), owner_rect);
  const PixelRect rect = this->PopupRect();
  EXPECT_EQ(rect.left, owner_rect.left);
  EXPECT_EQ(rect.top, owner_rect.bottom);
  EXPECT_EQ(rect.Width(), owner_rect.Width());
  EXPECT_EQ(rect.Height(), 1200 / 15);
  // The parts lie in the popup window and fill it but for a margin of 120 twips.
  EXPECT_DOUBLE_EQ(owner.Popup().Site().Surface().Width(), owner.Popup().Width());
  EXPECT_DOUBLE_EQ(owner.OkSurface().Width() * 2 + 240, owner.Popup().Width());
  ClickSurface(this->host_, owner.OkSurface());
  EXPECT_FALSE(owner.PopupVisible());
  EXPECT_EQ(this->Active(), u"form");
  // The window hides (giving the form back its activation) before its close is told.
  EXPECT_EQ(this->Events(),
            (Strings{u"WindowActivated(True)", u"WindowActivated(False)", u"PopupClosed(cmdOk)"}));
}

TYPED_TEST(PopupTest, ARefusedModelessShowShowsNothingWhileAModalShowStillRuns) {
  ZKTestPopupOwner& owner = *this->owner_;
  this->host_.platform.Windows().ActivateWindow(this->host_.FormWindow());
  this->host_.platform.SetNonModalAllowed(false);
  EXPECT_FALSE(owner.Open(false));
  EXPECT_FALSE(owner.PopupVisible());
  EXPECT_EQ(this->Active(), u"form");
  bool shown_inside = false;
  WhileModal(this->host_, [&] {
    shown_inside = owner.PopupVisible();
    ClickSurface(this->host_, owner.CancelSurface());
  });
  EXPECT_TRUE(owner.Open(true));
  EXPECT_TRUE(shown_inside);
  EXPECT_FALSE(owner.PopupVisible());
  EXPECT_EQ(this->Active(), u"form");
}

TYPED_TEST(PopupTest, TheModalLoopReturnsOnceTheWindowHides) {
  ZKTestPopupOwner& owner = *this->owner_;
  this->Events();
  std::u16string active_inside;
  WhileModal(this->host_, [&] {
    active_inside = this->Active();
    ClickSurface(this->host_, owner.CancelSurface());
  });
  EXPECT_TRUE(owner.Open(true));
  EXPECT_EQ(active_inside, u"popup");
  EXPECT_FALSE(owner.PopupVisible());
  const Strings events = this->Events();
  EXPECT_NE(std::find(events.begin(), events.end(), u"PopupClosed(cmdCancel)"), events.end());
}

TYPED_TEST(PopupTest, AnotherWindowBecomingActiveClosesTheWindowOnTheWatchsNextTick) {
  ZKTestPopupOwner& owner = *this->owner_;
  ASSERT_TRUE(owner.Open(false));
  Wait(this->host_, 500);
  EXPECT_TRUE(owner.PopupVisible()) << "the window stays while it is the active one";
  this->Events();
  this->host_.platform.Windows().ActivateWindow(this->host_.FormWindow());
  EXPECT_EQ(this->Events(), Strings{u"WindowActivated(False)"});
  EXPECT_TRUE(owner.PopupVisible());
  Wait(this->host_, 500);
  EXPECT_FALSE(owner.PopupVisible());
  EXPECT_EQ(this->Events(), Strings{u"PopupClosed(focus)"});
}

TYPED_TEST(PopupTest, DraggingByTheBodyMovesTheWindowWithThePointerUntilTheRelease) {
  ZKTestPopupOwner& owner = *this->owner_;
  ASSERT_TRUE(owner.Open(false));
  const PixelRect start = this->PopupRect();
  MovePointer(this->host_, start.left + 5, start.top + 5);
  MGuiUtils::DragWindow(owner.PopupWindow());
  MovePointer(this->host_, start.left + 45, start.top + 35);
  PixelRect moved = this->PopupRect();
  EXPECT_EQ(moved.left, start.left + 40);
  EXPECT_EQ(moved.top, start.top + 30);
  EXPECT_EQ(moved.Width(), start.Width());
  EXPECT_DOUBLE_EQ(owner.Popup().Left(), (start.left + 40) * 15.0);
  ReleaseButton(this->host_);
  MovePointer(this->host_, start.left + 100, start.top + 100);
  moved = this->PopupRect();
  EXPECT_EQ(moved.left, start.left + 40) << "the drag ended with the release";
  // Any other hit than the caption's does not start a drag.
  this->host_.platform.Windows().SendMessage(owner.PopupWindow(), window_message::kNcLeftButtonDown,
                                             1, 0);
  MovePointer(this->host_, start.left + 120, start.top + 120);
  EXPECT_EQ(this->PopupRect().left, start.left + 40);
}

TYPED_TEST(PopupTest, DestroyingTheOwnerWhileItsWindowIsShownModelessEndsTheWindow) {
  const WindowHandle popup = this->owner_->PopupWindow();
  ASSERT_TRUE(this->owner_->Open(false));
  this->owner_ = nullptr;
  EXPECT_TRUE(this->host_.form.RemoveControl(u"P"));
  EXPECT_FALSE(this->host_.platform.Windows().IsWindow(popup));
  EXPECT_NE(this->host_.platform.Windows().GetActiveWindow(), popup);
  Wait(this->host_, 250);  // the watch is gone with its control
}

TYPED_TEST(PopupTest, DestroyingTheOwnerInsideTheModalLoopEndsTheLoop) {
  ZKTestPopupOwner* owner = this->owner_;
  const WindowHandle popup = owner->PopupWindow();
  this->owner_ = nullptr;
  WhileModal(this->host_, [this] { EXPECT_TRUE(this->host_.form.RemoveControl(u"P")); });
  EXPECT_TRUE(owner->Open(true));
  EXPECT_FALSE(this->host_.platform.Windows().IsWindow(popup));
  EXPECT_EQ(this->host_.form.FindControl(u"P"), nullptr);
}

// A modal callback acts as the user inside the loop (on Qt, inside the nested event loop); a
// window it leaves shown is hidden, so that nothing waits for a user who is not there.
TYPED_TEST(PopupTest, AWindowStillShownAfterTheModalCallbackIsHidden) {
  ZKTestPopupOwner& owner = *this->owner_;
  this->host_.platform.Windows().ActivateWindow(this->host_.FormWindow());
  int calls = 0;
  this->host_.platform.SetModalCallback([&](IPopupWindow& window) {
    ++calls;
    EXPECT_EQ(window.hWnd(), owner.PopupWindow());
    EXPECT_TRUE(window.Visible());
    EXPECT_EQ(this->Active(), u"popup");
  });
  EXPECT_TRUE(owner.Open(true));
  this->host_.platform.SetModalCallback(nullptr);
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(owner.PopupVisible());
  EXPECT_EQ(this->Active(), u"form");
}

// Headless only: keys typed while the window is shown reach the part that has the focus.
TEST(HeadlessPopupTest, KeysReachTheFocusedPartOfTheShownWindow) {
  HeadlessHost host;
  RegisterTestControlKinds();
  auto& owner = static_cast<ZKTestPopupOwner&>(host.form.AddControl(u"ZKTestPopupOwner", u"P"));
  owner.ValueEdit().SetText(u"");
  host.platform.SetModalCallback([&](IPopupWindow&) {
    owner.ValueSurface().SetFocus();
    auto& surface = static_cast<HeadlessSurface&>(owner.Popup().Site().Surface());
    for (char16_t c : std::u16string(u"ab"))
      surface.DeliverKey(0, 0, static_cast<int16_t>(c));
  });
  EXPECT_TRUE(owner.Open(true));
  EXPECT_EQ(owner.PopupText(), u"ab");
  EXPECT_FALSE(owner.PopupVisible());
}

// Bad places never crash and leave the window where it was.
TEST(HeadlessPopupTest, PlacesThatAreNotNumbersOrFarAwayAreHandled) {
  HeadlessHost host;
  RegisterTestControlKinds();
  auto& owner = static_cast<ZKTestPopupOwner&>(host.form.AddControl(u"ZKTestPopupOwner", u"P"));
  IPopupWindow& popup = owner.Popup();
  popup.Move(150, 300, 1500, 750);
  popup.Move(std::nan(""), 0, 10, 10);
  EXPECT_DOUBLE_EQ(popup.Left(), 150);
  popup.Move(1e300, -1e300, -5, 1e300);
  EXPECT_DOUBLE_EQ(popup.Width(), 0);
  PixelRect rect;
  EXPECT_TRUE(host.platform.Windows().GetWindowRect(popup.hWnd(), rect));
  EXPECT_EQ(rect.left, 100000000);
}

// The window is a top-level window of its own, and the parts' windows lie inside it.
TEST(HeadlessPopupTest, TheWindowIsATopLevelWindowHoldingItsParts) {
  HeadlessHost host;
  RegisterTestControlKinds();
  auto& owner = static_cast<ZKTestPopupOwner&>(host.form.AddControl(u"ZKTestPopupOwner", u"P"));
  const WindowHandle popup = owner.PopupWindow();
  EXPECT_EQ(host.ParentWindow(popup), 0);
  EXPECT_NE(popup, host.FormWindow());
  WindowHandle top = owner.OkSurface().hWnd();
  while (host.ParentWindow(top) != 0)
    top = host.ParentWindow(top);
  EXPECT_EQ(top, popup);
  EXPECT_FALSE(owner.PopupVisible());
  const int32_t style = host.platform.Windows().GetWindowLong(popup, window_long::kStyle);
  EXPECT_EQ(style & window_style::kVisible, 0);
  ASSERT_TRUE(owner.Open(false));
  EXPECT_NE(
      host.platform.Windows().GetWindowLong(popup, window_long::kStyle) & window_style::kVisible,
      0);
}

// On Qt the window is a frameless tool window whose transient parent is the form (a Qt::Popup
// would grab the input and close itself), and the parts' widgets lie in it.
TEST(QtPopupTest, TheWindowIsAFramelessToolWindowOverTheForm) {
  QtHost host;
  RegisterTestControlKinds();
  auto& owner = static_cast<ZKTestPopupOwner&>(host.form.AddControl(u"ZKTestPopupOwner", u"P"));
  QWidget* window = host.platform.Windows().Widget(owner.PopupWindow());
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isWindow());
  EXPECT_EQ(window->windowType(), Qt::Tool);
  EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(static_cast<QtSurface&>(owner.OkSurface()).Widget()->window(), window);
  ASSERT_TRUE(owner.Open(false));
  EXPECT_TRUE(window->isVisible());
  ASSERT_NE(window->windowHandle(), nullptr);
  EXPECT_EQ(window->windowHandle()->transientParent(), host.form.Widget()->windowHandle());
  owner.ClosePopup();
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace zk
