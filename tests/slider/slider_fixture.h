#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "controls/slider/slider.h"
#include "foundation/text_encoding.h"
#include "hosting/headless_form.h"

namespace zk {

// A text for test messages.
inline std::string Utf8(std::u16string_view text) {
  return Utf16ToUtf8(text);
}

// A part's place in twips of the slider's inner area.
struct PartBox {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool operator==(const PartBox&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PartBox& box) {
  return out << "{" << box.left << ", " << box.top << ", " << box.width << ", " << box.height
             << "}";
}

// A headless form (en-US, 15 twips a pixel) installed as the current platform, with sliders
// placed on it and everything they raise, notify and trace recorded.
class SliderTest : public testing::Test {
 protected:
  SliderTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {}

  // A new slider of that name at (0, 0) with the given size; its events are recorded from now
  // on, and what placing it notified or traced is forgotten.
  ZKSlider& Place(std::u16string_view name, double width = 3000, double height = 300) {
    auto& slider = static_cast<ZKSlider&>(form_.AddControl(u"ZKSlider", name));
    form_.MoveControl(name, 0, 0, width, height);
    Record(slider);
    form_.TakePropertyChanges();
    platform_.Recorder().Clear();
    return slider;
  }

  void Record(ZKSlider& slider) {
    observers_.push_back(slider.EventRaised().Connect(
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

  // The events raised since the last call, as "Name(arguments)".
  std::vector<std::u16string> Events() { return std::exchange(events_, {}); }
  // How many Change events were raised since the last call to Events() or Changes().
  int Changes() {
    int changes = 0;
    for (const std::u16string& event : Events())
      changes += event == u"Change";
    return changes;
  }
  // The property names notified since the last call.
  std::vector<std::u16string> Notified() {
    std::vector<std::u16string> names;
    for (const auto& [control, property] : form_.TakePropertyChanges())
      names.push_back(property);
    return names;
  }
  // The traced "procedure | number" since the last call.
  std::vector<std::u16string> Traces() {
    std::vector<std::u16string> lines;
    for (const auto& record : platform_.Recorder().traces) {
      lines.push_back(record.procedure + u" | " + Variant(record.number).ToText());
    }
    platform_.Recorder().traces.clear();
    return lines;
  }

  static PartBox Box(const ZKSlider& slider, std::u16string_view part) {
    DispatchObject& extender = *slider.PartExtender(part);
    return {extender.GetProperty(u"Left").ToDouble(), extender.GetProperty(u"Top").ToDouble(),
            extender.GetProperty(u"Width").ToDouble(), extender.GetProperty(u"Height").ToDouble()};
  }

  void Press(std::u16string_view name, float x, float y, int16_t button = 1) {
    form_.DeliverMouse(name, MouseAction::kDown, button, 0, x, y);
  }
  void Drag(std::u16string_view name, float x, float y, int16_t button = 1) {
    form_.DeliverMouse(name, MouseAction::kMove, button, 0, x, y);
  }
  void Release(std::u16string_view name, float x, float y, int16_t button = 1) {
    form_.DeliverMouse(name, MouseAction::kUp, button, 0, x, y);
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
  std::vector<std::u16string> events_;
  std::vector<ScopedConnection> observers_;
};

}  // namespace zk
