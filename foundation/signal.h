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
    const size_t id = ++state_->next_id;
    state_->entries.push_back(std::make_unique<Slot>(Slot{id, true, std::move(handler)}));
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
    const size_t count = state->entries.size();
    for (size_t i = 0; i < count; ++i) {
      // Slots live on the heap, so a handler connected meanwhile does not move this one.
      Slot* slot = state->entries[i].get();
      if (slot->alive) slot->handler(args...);
    }
  }

  bool HasHandlers() const {
    return state_ && std::any_of(state_->entries.begin(), state_->entries.end(),
                                 [](const auto& slot) { return slot->alive; });
  }

 private:
  struct Slot {
    size_t id;
    bool alive;
    Handler handler;
  };
  struct State {
    std::vector<std::unique_ptr<Slot>> entries;
    size_t next_id = 0;
    size_t dead = 0;
    int emitting = 0;

    void Compact() {
      std::erase_if(entries, [](const auto& slot) { return !slot->alive; });
      dead = 0;
    }

    static void Disconnect(void* raw, size_t id) {
      State& state = *static_cast<State*>(raw);
      // Ids grow with every connection, so the slots are sorted by id.
      auto found = std::lower_bound(
          state.entries.begin(), state.entries.end(), id,
          [](const std::unique_ptr<Slot>& slot, size_t wanted) { return slot->id < wanted; });
      if (found == state.entries.end() || (*found)->id != id || !(*found)->alive) return;
      (*found)->alive = false;
      ++state.dead;
      // A slot that may be running is only marked; many connections end together (a form
      // closing), so the list is compacted now and then rather than every time.
      if (state.emitting == 0 && state.dead * 2 > state.entries.size()) state.Compact();
    }
  };
  std::shared_ptr<State> state_;
};

}  // namespace zk
