#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zk {

// Ends a signal connection when it is destroyed (or on Disconnect()); move-only.
class ScopedConnection {
 public:
  ScopedConnection() = default;
  explicit ScopedConnection(std::function<void()> disconnect)
      : disconnect_(std::move(disconnect)) {}
  ScopedConnection(const ScopedConnection&) = delete;
  ScopedConnection& operator=(const ScopedConnection&) = delete;
  ScopedConnection(ScopedConnection&& other) noexcept : disconnect_(std::move(other.disconnect_)) {
    other.disconnect_ = nullptr;
  }
  ScopedConnection& operator=(ScopedConnection&& other) noexcept {
    if (this != &other) {
      Disconnect();
      disconnect_ = std::move(other.disconnect_);
      other.disconnect_ = nullptr;
    }
    return *this;
  }
  ~ScopedConnection() { Disconnect(); }

  void Disconnect() {
    if (disconnect_) {
      auto disconnect = std::move(disconnect_);
      disconnect_ = nullptr;
      disconnect();
    }
  }

 private:
  std::function<void()> disconnect_;
};

// A list of handlers called in connection order. Arguments declared as references reach the
// handlers as references, so a handler can change them and the emitter sees the change.
// Handlers may connect or disconnect handlers (themselves included) while the signal runs;
// a handler connected during an emission is first called by the next emission.
template <typename... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  Signal() : state_(std::make_shared<State>()) {}
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  // Adds a handler; it stays connected until the returned connection ends.
  [[nodiscard]] ScopedConnection Connect(Handler handler) {
    const size_t id = ++state_->next_id;
    state_->entries.push_back(Slot{id, std::make_shared<Handler>(std::move(handler))});
    std::weak_ptr<State> weak = state_;
    return ScopedConnection([weak, id] {
      if (auto state = weak.lock()) {
        // Ids grow with every connection, so the entries are sorted by id.
        auto found =
            std::lower_bound(state->entries.begin(), state->entries.end(), id,
                             [](const Slot& slot, size_t wanted) { return slot.id < wanted; });
        if (found != state->entries.end() && found->id == id && found->handler) {
          found->handler.reset();
          ++state->dead;
        }
        // Many connections end together (a form closing): compact only now and then.
        if (state->emitting == 0 && state->dead * 2 > state->entries.size()) state->Compact();
      }
    });
  }

  // Calls every connected handler with the arguments.
  void Emit(Args... args) const {
    auto state = state_;
    // Ends the emission also when a handler throws, so that disconnected entries still go.
    struct Emission {
      State& state;
      explicit Emission(State& s) : state(s) { ++state.emitting; }
      ~Emission() {
        if (--state.emitting == 0 && state.dead > 0) state.Compact();
      }
    } emission(*state);
    const size_t count = state->entries.size();
    for (size_t i = 0; i < count; ++i) {
      std::shared_ptr<Handler> handler = state->entries[i].handler;
      if (handler) (*handler)(args...);
    }
  }

  bool HasHandlers() const {
    for (const auto& slot : state_->entries) {
      if (slot.handler) return true;
    }
    return false;
  }

 private:
  struct Slot {
    size_t id;
    std::shared_ptr<Handler> handler;
  };
  struct State {
    std::vector<Slot> entries;
    size_t next_id = 0;
    size_t dead = 0;
    int emitting = 0;
    void Compact() {
      std::erase_if(entries, [](const Slot& slot) { return !slot.handler; });
      dead = 0;
    }
  };
  std::shared_ptr<State> state_;
};

}  // namespace zk
