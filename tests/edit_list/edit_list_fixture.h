#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/lists/edit_list.h"
#include "foundation/text_encoding.h"
#include "hosting/headless_form.h"
#include "platform/platform.h"
#include "platform/window_messages.h"

namespace zk {

inline std::string Utf8(std::u16string_view text) {
  return Utf16ToUtf8(text);
}

// A place in twips.
struct Box {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool operator==(const Box&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Box& box) {
  return out << "{" << box.left << ", " << box.top << ", " << box.width << ", " << box.height
             << "}";
}

inline Box BoxOf(const IElement& element) {
  return {element.Left(), element.Top(), element.Width(), element.Height()};
}

// A headless form (en-US, 15 twips a pixel, rows of 13 pixels in the default font) with edit
// lists placed on it; their events, notifications and traces are recorded.
class EditListTest : public testing::Test {
 protected:
  static constexpr double kRow = 195;  // 13 pixels

  EditListTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {}

  // A new edit list of that name at (0, 0), 3000 x 1500 twips unless told otherwise.
  ZKEditList& Place(std::u16string_view name, double width = 3000, double height = 1500) {
    auto& list = static_cast<ZKEditList&>(form_.AddControl(u"ZKEditList", name));
    form_.MoveControl(name, 0, 0, width, height);
    Record(list);
    form_.TakePropertyChanges();
    platform_.Recorder().Clear();
    return list;
  }

  void Record(ZKEditList& list) {
    observers_.push_back(list.EventRaised().Connect(
        [this](std::u16string_view event, std::span<const Variant> args) {
          std::u16string line(event);
          if (!args.empty()) {
            line += u"(";
            for (size_t i = 0; i < args.size(); ++i) {
              if (i > 0) line += u", ";
              line += args[i].ToText();
            }
            line += u")";
          }
          events_.push_back(std::move(line));
        }));
  }

  static void Fill(ZKEditList& list, int count) {
    for (int row = 0; row < count; ++row) {
      const std::string text = "Row " + std::to_string(row);
      list.AddItem(Utf8ToUtf16(text), Variant(), Utf8ToUtf16("T" + std::to_string(row)));
    }
  }

  // The events raised since the last call, as "Name(arguments)".
  std::vector<std::string> Events() {
    std::vector<std::string> lines;
    for (const std::u16string& line : std::exchange(events_, {}))
      lines.push_back(Utf8(line));
    return lines;
  }
  // The traced procedures since the last call.
  std::vector<std::string> Traces() {
    std::vector<std::string> lines;
    for (const auto& record : platform_.Recorder().traces)
      lines.push_back(Utf8(record.procedure));
    platform_.Recorder().traces.clear();
    return lines;
  }

  void Mouse(std::u16string_view name, MouseAction action, float x, float y, int16_t button = 1) {
    form_.DeliverMouse(name, action, button, 0, x, y);
  }
  // A left click at (x, y) of the control.
  void ClickAt(std::u16string_view name, float x, float y) {
    Mouse(name, MouseAction::kDown, x, y);
    Mouse(name, MouseAction::kUp, x, y);
  }
  // The middle of visible row `row` (0 the top one) inside a list box whose top is at `top`.
  static float RowY(int row, double top = 0) {
    return static_cast<float>(top + 15 + row * kRow + 90);
  }
  // The vertical scroll bar's width in twips.
  static double ScrollBarTwips() {
    return CurrentPlatform().Screen().SystemMetric(system_metric::kVerticalScrollWidth) * 15.0;
  }

  // The mouse wheel turned over a list box: the wheel message to its window.
  void Wheel(const IListBoxElement& box, int delta) {
    const auto wparam =
        static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint16_t>(delta)) << 16);
    platform_.Windows().SendMessage(box.hWnd(), window_message::kMouseWheel, wparam, 0);
  }
  // The user's scroll bar request on a list box.
  void ScrollBar(const IListBoxElement& box, int32_t request, int32_t position = 0) {
    platform_.Windows().SendMessage(box.hWnd(), window_message::kVScroll,
                                    request | (position << 16), 0);
  }

  Box EditorBox(const ZKEditList& list) {
    DispatchObject& extender = list.EditorExtender();
    return {extender.GetProperty(u"Left").ToDouble(), extender.GetProperty(u"Top").ToDouble(),
            extender.GetProperty(u"Width").ToDouble(), extender.GetProperty(u"Height").ToDouble()};
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
  std::vector<std::u16string> events_;
  std::vector<ScopedConnection> observers_;
};

}  // namespace zk
