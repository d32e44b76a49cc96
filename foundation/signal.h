#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zk {

// Ends a signal connection when it is destroyed (or on Disconnect()); move-only. It does not
// keep the signal alive: a connection may outlive its signal.
class ScopedConnection {
 public:
  using DisconnectFunction = void (*)(void* state, size_t id);

  ScopedConnection() = default;
  ScopedConnection(std::weak_ptr<void> state, size_t id, DisconnectFunction disconnect)
      : state_(std::move(state)), id_(id), disconnect_(disconnect) {}
  ScopedConnection(const ScopedConnection&) = delete;
  ScopedConnection& operator=(const ScopedConnection&) = delete;
  ScopedConnection(ScopedConnection&& other) noexcept
      : state_(std::move(other.state_)), id_(other.id_), disconnect_(other.disconnect_) {
    other.disconnect_ = nullptr;
  }
  ScopedConnection& operator=(ScopedConnection&& other) noexcept {
    if (this != &other) {
      Disconnect();
      state_ = std::move(other.state_);
      id_ = other.id_;
      disconnect_ = other.disconnect_;
      other.disconnect_ = nullptr;
    }
    return *this;
  }
  ~ScopedConnection() { Disconnect(); }

  void Disconnect() {
    if (disconnect_ == nullptr) return;
    const DisconnectFunction disconnect = disconnect_;
    disconnect_ = nullptr;
    if (std::shared_ptr<void> state = state_.lock()) disconnect(state.get(), id_);
    state_.reset();
  }

 private:
  std::weak_ptr<void> state_;
  size_t id_ = 0;
  DisconnectFunction disconnect_ = nullptr;
};

// A list of handlers called in connection order. Arguments declared as references reach the
// handlers as references, so a handler can change them and the emitter sees the change.
// Handlers may connect or disconnect handlers (themselves included) while the signal runs;
// a handler connected during an emission is first called by the next emission.
template <typename... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  // Most signals of a form are never connected, so the handler list is made on first use.
  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  // Adds a handler; it stays connected until the returned connection ends.
  [[nodiscard]] ScopedConnection Connect(Handler handler) {
    if (!state_) state_ = std::make_shared<State>();
    State& state = *state_;
    const size_t id = ++state.next_id;
    if (state.first.id == 0 && state.more.empty()) {
      // Most signals have one handler: it lives in the state itself.
      state.first = Slot{id, true, std::move(handler)};
    } else {
      state.more.push_back(std::make_unique<Slot>(Slot{id, true, std::move(handler)}));
    }
    return ScopedConnection(state_, id, &State::Disconnect);
  }

  // Calls every connected handler with the arguments.
  void Emit(Args... args) const {
    if (!state_) return;
    auto state = state_;  // a handler may destroy the signal itself
    // Ends the emission also when a handler throws, so that disconnected slots still go.
    struct Emission {
      State& state;
      explicit Emission(State& s) : state(s) { ++state.emitting; }
      ~Emission() {
        if (--state.emitting == 0 && state.dead > 0) state.Compact();
      }
    } emission(*state);
    // The first slot is only filled while no emission runs, so it cannot be new here.
    const size_t count = state->more.size();
    if (state->first.alive) state->first.handler(args...);
    for (size_t i = 0; i < count; ++i) {
      // These slots live on the heap, so a handler connected meanwhile does not move this one.
      Slot* slot = state->more[i].get();
      if (slot->alive) slot->handler(args...);
    }
  }

  bool HasHandlers() const {
    return state_ &&
           (state_->first.alive || std::any_of(state_->more.begin(), state_->more.end(),
                                               [](const auto& slot) { return slot->alive; }));
  }

 private:
  struct Slot {
    size_t id = 0;  // 0: no handler
    bool alive = false;
    Handler handler;
  };
  struct State {
    Slot first;
    std::vector<std::unique_ptr<Slot>> more;
    size_t next_id = 0;
    size_t dead = 0;
    int emitting = 0;

    void Compact() {
      if (first.id != 0 && !first.alive) first = Slot{};
      std::erase_if(more, [](const auto& slot) { return !slot->alive; });
      dead = 0;
    }

    static void Disconnect(void* raw, size_t id) {
      State& state = *static_cast<State*>(raw);
      Slot* slot = nullptr;
      if (state.first.id == id) {
        slot = &state.first;
      } else {
        // Ids grow with every connection, so the slots are sorted by id.
        auto found = std::lower_bound(
            state.more.begin(), state.more.end(), id,
            [](const std::unique_ptr<Slot>& entry, size_t wanted) { return entry->id < wanted; });
        if (found != state.more.end() && (*found)->id == id) slot = found->get();
      }
      if (slot == nullptr || !slot->alive) return;
      slot->alive = false;
      ++state.dead;
      // A slot that may be running is only marked; many connections end together (a form
      // closing), so the list is compacted now and then rather than every time.
      const size_t count = state.more.size() + (state.first.id != 0 ? 1 : 0);
      if (state.emitting == 0 && state.dead * 2 > count) state.Compact();
    }
  };
  std::shared_ptr<State> state_;
};

}  // namespace zk
