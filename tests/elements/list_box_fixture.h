#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QWheelEvent>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "parts/parts_fixture.h"
#include "platform/window_messages.h"

namespace zk {

// A form with a colour button and the test control "C" (made of parts across its upper half),
// and a list box on C's own surface in its lower half, on the platform `Host`. The box is 100 x
// 82 pixels with rows of 13 pixels: inside its 3-D border six rows show. Its events are
// recorded.
template <typename Host>
class ListBoxTest : public testing::Test {
 protected:
  static constexpr float kLeft = 300;
  static constexpr float kTop = 2550;
  static constexpr int kRowHeight = 13;
  static constexpr int kBorder = 2;

  ListBoxTest() {
    RegisterTestControlKinds();
    host_.form.AddControl(u"ZKColorButton", u"Before");
    composite_ = &static_cast<ZKTestComposite&>(host_.form.AddControl(u"ZKTestComposite", u"C"));
    host_.form.MoveControl(u"C", 0, 600, 6000, 4800);
    surface_ = &host_.Site(u"C").Surface();
    list_ = MakeList(u"");
  }

  // A list box on C's surface at the fixture's place, with its events recorded under `name`.
  std::unique_ptr<IListBoxElement> MakeList(std::u16string name) {
    std::unique_ptr<IListBoxElement> list = surface_->CreateListBox();
    list->Move(kLeft, kTop, 1500, 1230);
    list->SetRowHeight(kRowHeight);
    Record(*list, std::move(name));
    return list;
  }

  void Record(IListBoxElement& list, std::u16string name) {
    auto log = [this, name](std::u16string line) { events_.push_back(name + line); };
    auto number = [](int value) {
      const std::string digits = std::to_string(value);
      return std::u16string(digits.begin(), digits.end());
    };
    connections_.push_back(list.Click().Connect([log] { log(u"Click"); }));
    connections_.push_back(list.DblClick().Connect([log] { log(u"DblClick"); }));
    connections_.push_back(list.Scroll().Connect([log] { log(u"Scroll"); }));
    connections_.push_back(list.GotFocus().Connect([log] { log(u"GotFocus"); }));
    connections_.push_back(list.LostFocus().Connect([log] { log(u"LostFocus"); }));
    connections_.push_back(list.KeyDown().Connect(
        [log, number](int16_t& code, int16_t&) { log(u"KeyDown(" + number(code) + u")"); }));
    connections_.push_back(list.KeyPress().Connect(
        [log, number](int16_t& character) { log(u"KeyPress(" + number(character) + u")"); }));
    connections_.push_back(list.KeyUp().Connect(
        [log, number](int16_t& code, int16_t&) { log(u"KeyUp(" + number(code) + u")"); }));
    for (auto [signal, event] :
         {std::pair{&list.MouseDown(), u"MouseDown"}, std::pair{&list.MouseUp(), u"MouseUp"}}) {
      connections_.push_back(
          signal->Connect([log, number, event](int16_t button, int16_t, float x, float y) {
            log(std::u16string(event) + u"(" + number(button) + u"," + number(static_cast<int>(x)) +
                u"," + number(static_cast<int>(y)) + u")");
          }));
    }
  }

  // The name of the control that has the form's focus.
  std::u16string Focused() {
    ZKControl* focused = host_.form.FocusedControl();
    return focused ? focused->Name() : u"(none)";
  }

  // The events since the last call.
  std::vector<std::u16string> Events() { return std::exchange(events_, {}); }

  void Fill(IListBoxElement& list, int count) {
    for (int row = 0; row < count; ++row) {
      const std::string text = "Row " + std::to_string(row);
      list.AddItem(std::u16string(text.begin(), text.end()), -1);
    }
  }

  // A point in the middle of the visible row `visible_row` (0 the top one), in C's twips,
  // `right` pixels from the box's inner left edge.
  float RowY(int visible_row) const {
    return kTop + static_cast<float>((kBorder + visible_row * kRowHeight + kRowHeight / 2) * 15);
  }
  static float InnerX(int right) { return kLeft + static_cast<float>((kBorder + right) * 15); }

  void Mouse(MouseAction action, int16_t button, float x, float y) {
    host_.form.DeliverMouse(u"C", action, button, 0, x, y);
  }
  void ClickAt(float x, float y) {
    Mouse(MouseAction::kDown, 1, x, y);
    Mouse(MouseAction::kUp, 1, x, y);
  }

  // The mouse wheel turned over the box: a wheel message to its window, as the platform's own
  // input makes one (on Qt, a wheel event to the view's viewport, where Qt delivers it).
  void Wheel(IListBoxElement& list, int delta) {
    if constexpr (std::is_same_v<Host, QtHost>) {
      auto* view = static_cast<QAbstractScrollArea*>(host_.platform.Windows().Widget(list.hWnd()));
      ASSERT_NE(view, nullptr);
      const QPointF centre(view->viewport()->width() / 2.0, view->viewport()->height() / 2.0);
      QWheelEvent event(centre, view->viewport()->mapToGlobal(centre), QPoint(), QPoint(0, delta),
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(view->viewport(), &event);
    } else {
      const auto wparam =
          static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint16_t>(delta)) << 16);
      host_.platform.Windows().SendMessage(list.hWnd(), window_message::kMouseWheel, wparam, 0);
    }
  }

  Host host_;
  ZKTestComposite* composite_ = nullptr;
  ISurface* surface_ = nullptr;
  std::unique_ptr<IListBoxElement> list_;
  std::vector<std::u16string> events_;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
