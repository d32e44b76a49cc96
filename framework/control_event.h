#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "foundation/signal.h"
#include "foundation/variant.h"
#include "framework/variant_conversion.h"

namespace zk {

// Where a control reports every event it raises, by name and with the arguments' values at the
// moment it raises it (the script host and tests listen here).
using EventObserver = Signal<std::u16string_view, std::span<const Variant>>;

// One event of a control. Handlers get the arguments as declared: an argument declared as a
// reference can be changed by a handler, and the control then uses the changed value.
template <typename... Args>
class ControlEvent {
 public:
  using Handler = typename Signal<Args...>::Handler;

  ControlEvent(EventObserver& observer, std::u16string_view name)
      : observer_(observer), name_(name) {}
  ControlEvent(const ControlEvent&) = delete;
  ControlEvent& operator=(const ControlEvent&) = delete;

  [[nodiscard]] ScopedConnection Connect(Handler handler) {
    return signal_.Connect(std::move(handler));
  }
  std::u16string_view Name() const { return name_; }

  void Raise(Args... args) {
    if (observer_.HasHandlers()) {
      const Variant values[] = {Variant(), variant_conversion::ToVariant(args)...};
      if (!life_) life_ = std::make_shared<const char>(0);
      const std::weak_ptr<const char> life = life_;
      observer_.Emit(name_, std::span<const Variant>(values).subspan(1));
      // A listener may have removed the control from its form, and this event went with it.
      if (life.expired()) return;
    }
    signal_.Emit(args...);
  }

 private:
  EventObserver& observer_;
  std::u16string_view name_;
  Signal<Args...> signal_;
  // Expires with the event; made the first time a listener hears it.
  std::shared_ptr<const char> life_;
};

// Connects a platform signal straight to an event of the control: every emission raises the
// event with the signal's arguments (references stay references).
template <typename... SignalArgs, typename... EventArgs>
[[nodiscard]] ScopedConnection ForwardTo(Signal<SignalArgs...>& from,
                                         ControlEvent<EventArgs...>& to) {
  return from.Connect([&to](SignalArgs... args) { to.Raise(args...); });
}

}  // namespace zk
