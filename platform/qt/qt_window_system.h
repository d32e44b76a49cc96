#pragma once

#include <QObject>
#include <QWidget>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common/procedure_window_system.h"

class QWheelEvent;
class QWindow;

namespace zk {

// Windows of the Qt platform: widgets given a 32-bit handle and a window procedure. The
// messages that the controls observe flow through the procedure of the widget: the mouse wheel
// (522) before Qt handles it, and the destruction messages (2 and 130) when the widget goes. A
// message that no procedure passes on to the widget's own procedure is not handled by Qt.
class QtWindowSystem final : public ProcedureWindowSystem {
 public:
  QtWindowSystem();
  ~QtWindowSystem() override;

  // Who tells the window system about a widget's wheel and destruction: a widget class of the
  // library calls RouteWheel() and Destroyed() itself, which spares an event filter and a
  // connection per widget; any other widget is watched for them.
  enum class Reporting { kWatched, kSelf };
  // Gives the widget a handle (until it is destroyed) and its own procedure. The class name
  // must outlive the window (the library passes literals).
  WindowHandle Register(QWidget* widget, std::u16string_view class_name, int32_t style = 0,
                        Reporting reporting = Reporting::kWatched);
  // A wheel event that Qt is about to give to the window's widget becomes the wheel message;
  // true when the widget must not handle it (no procedure passed it on).
  bool RouteWheel(WindowHandle window, const QWheelEvent& wheel);
  // The widget of the handle is being destroyed: its last messages go through its procedure and
  // the handle ends.
  void Destroyed(WindowHandle window);
  QWidget* Widget(WindowHandle window) const;
  WindowHandle HandleOf(const QWidget* widget) const;

  bool IsWindow(WindowHandle window) const override;
  bool GetWindowRect(WindowHandle window, PixelRect& rect) const override;
  bool ScreenToClient(WindowHandle window, PixelPoint& point) const override;
  bool ReleaseCapture() override;

 private:
  class MessageRouter;
  struct Window : WindowState {
    QWidget* widget = nullptr;       // null from the start of its destruction
    const QObject* key = nullptr;    // the widget's address, valid for lookups while it goes
    std::u16string_view class_name;  // a name the library spells out (a literal)
    QMetaObject::Connection destroyed;
  };

  // A window that is being destroyed keeps its procedure for its last messages, but no longer
  // offers its window longs.
  WindowState* FindState(WindowHandle window, bool for_longs) override;
  // The widget's own handling is Qt's: the event goes on to the widget.
  void OnClassProcedure(WindowHandle window, uint32_t message, int32_t wparam,
                        int32_t lparam) override;
  void RequestActivation(WindowHandle window) override;
  // Qt reports that `focus` (a top-level window, or none) has the focus now.
  void FocusWindowChanged(QWindow* focus);
  // Sends a message that Qt is about to handle; true when the widget's own procedure ran.
  bool Route(WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam);

  std::map<WindowHandle, Window> windows_;
  // One event filter for every window, and the handles of the widgets it watches.
  std::unique_ptr<MessageRouter> router_;
  std::map<const QObject*, WindowHandle> handles_;
  WindowHandle next_handle_ = 0x00020010;
  bool class_procedure_ran_ = false;
  // The top-level windows whose activation was asked of Qt and that Qt has not reported yet,
  // oldest first.
  std::deque<WindowHandle> requested_activations_;
};

}  // namespace zk
