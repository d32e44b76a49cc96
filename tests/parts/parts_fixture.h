#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "hosting/headless_form.h"
#include "hosting/qt_form.h"
#include "support/test_composite.h"
#include "support/test_kinds.h"

namespace zk {

// A headless form (en-US) installed as the current platform.
struct HeadlessHost {
  HeadlessHost() : platform(HeadlessOptions{u"en-US"}), scope(platform), form(platform) {}

  IControlSite& Site(std::u16string_view name) { return *form.FindSite(name); }
  WindowHandle FormWindow() { return form.hWnd(); }
  WindowHandle ParentWindow(WindowHandle window) { return platform.Windows().Parent(window); }
  // A window's children from the bottom of the stack to its top.
  std::vector<WindowHandle> Stack(WindowHandle window) {
    return platform.Windows().Children(window);
  }

  HeadlessPlatform platform;
  PlatformScope scope;
  HeadlessForm form;
};

// A shown Qt form on the offscreen platform (en-US) installed as the current platform.
struct QtHost {
  QtHost() : platform(QtOptions{true, std::u16string(u"en-US")}), scope(platform), form(platform) {
    platform.Recorder().keep_property_changes = true;
    form.Widget()->show();
  }

  IControlSite& Site(std::u16string_view name) { return *form.FindSite(name); }
  WindowHandle FormWindow() { return platform.Windows().HandleOf(form.Widget()); }
  WindowHandle ParentWindow(WindowHandle window) {
    QWidget* widget = platform.Windows().Widget(window);
    return widget ? platform.Windows().HandleOf(widget->parentWidget()) : 0;
  }
  std::vector<WindowHandle> Stack(WindowHandle window) {
    std::vector<WindowHandle> children;
    QWidget* widget = platform.Windows().Widget(window);
    if (widget == nullptr) return children;
    for (QObject* child : widget->children()) {
      auto* child_widget = qobject_cast<QWidget*>(child);
      const WindowHandle handle = child_widget ? platform.Windows().HandleOf(child_widget) : 0;
      if (handle != 0) children.push_back(handle);
    }
    return children;
  }

  QtPlatform platform;
  PlatformScope scope;
  QtForm form;
};

// A form with a colour button, the test control "C" made of parts, and another colour button,
// on the platform `Host`, with every event of the test control recorded.
template <typename Host>
class PartsTest : public testing::Test {
 protected:
  PartsTest() {
    RegisterTestControlKinds();
    host_.form.AddControl(u"ZKColorButton", u"Before");
    composite_ = &static_cast<ZKTestComposite&>(host_.form.AddControl(u"ZKTestComposite", u"C"));
    host_.form.AddControl(u"ZKColorButton", u"After");
    connection_ = composite_->EventRaised().Connect(
        [this](std::u16string_view event, std::span<const Variant> args) {
          std::u16string line(event);
          if (!args.empty()) line += u"(" + args[0].ToText() + u")";
          events_.push_back(std::move(line));
        });
  }

  // The events of the test control since the last call.
  std::vector<std::u16string> Events() { return std::exchange(events_, {}); }

  std::u16string Focused() {
    ZKControl* focused = host_.form.FocusedControl();
    return focused ? focused->Name() : u"(none)";
  }

  void Click(std::u16string_view name, float x, float y) {
    host_.form.DeliverMouse(name, MouseAction::kDown, 1, 0, x, y);
    host_.form.DeliverMouse(name, MouseAction::kUp, 1, 0, x, y);
  }

  Host host_;
  ZKTestComposite* composite_ = nullptr;
  std::vector<std::u16string> events_;
  ScopedConnection connection_;
};

using Hosts = testing::Types<HeadlessHost, QtHost>;

// Names the typed tests by their platform.
struct HostNames {
  template <typename Host>
  static std::string GetName(int) {
    return std::is_same_v<Host, HeadlessHost> ? "Headless" : "Qt";
  }
};

}  // namespace zk
