#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace zk {

namespace signal_detail {

class Core;

// One connected handler. It lives on the heap from Connect until both the signal's list and
// the connection have let go of it, and never while its handler runs.
struct Node {
  virtual ~Node() = default;

  Node* next = nullptr;
  Core* core = nullptr;  // the signal's list; null once the signal has gone
  int32_t running = 0;   // emissions inside this handler right now
  bool alive = true;     // false once the connection ended
  bool held = true;      // a ScopedConnection still refers to it
};

// The emission that runs innermost on a signal, linked to the ones it runs inside of; the
// signal tells them when it is destroyed under them.
struct Emission {
  Emission* outer = nullptr;
  bool signal_gone = false;
};

// The handler list of a signal, kept in the signal itself: connecting costs one heap block (the
// node) and no reference counting.
class Core {
 public:
  Core() = default;
  Core(const Core&) = delete;
  Core& operator=(const Core&) = delete;
  ~Core();

  void Append(Node* node);
  bool HasHandlers() const { return live_ > 0; }
  Node* Head() const { return head_; }
  Node* Tail() const { return tail_; }

  // Emissions register while they run, innermost first.
  void Enter(Emission& emission);
  void Leave(Emission& emission);

  // A connection ended: the node is marked, and unlinked when no emission runs.
  void Ended(Node& node);

 private:
  void Compact();

  Node* head_ = nullptr;
  Node* tail_ = nullptr;
  Emission* emissions_ = nullptr;
  uint32_t live_ = 0;
  uint32_t dead_ = 0;
};

// Ends the node's connection (ScopedConnection's side).
void Release(Node* node);
// After the handler of `node` returned from an emission whose signal has gone.
void AfterOrphanedCall(Node* node);

}  // namespace signal_detail

// Ends a signal connection when it is destroyed (or on Disconnect()); move-only. It does not
// keep the signal alive: a connection may outlive its signal.
class ScopedConnection {
 public:
  ScopedConnection() = default;
  explicit ScopedConnection(signal_detail::Node* node) : node_(node) {}
  ScopedConnection(const ScopedConnection&) = delete;
  ScopedConnection& operator=(const ScopedConnection&) = delete;
  ScopedConnection(ScopedConnection&& other) noexcept
      : node_(std::exchange(other.node_, nullptr)) {}
  ScopedConnection& operator=(ScopedConnection&& other) noexcept {
    if (this != &other) {
      Disconnect();
      node_ = std::exchange(other.node_, nullptr);
    }
    return *this;
  }
  ~ScopedConnection() { Disconnect(); }

  void Disconnect() {
    if (node_ != nullptr) signal_detail::Release(std::exchange(node_, nullptr));
  }

 private:
  signal_detail::Node* node_ = nullptr;
};

// A list of handlers called in connection order. Arguments declared as references reach the
// handlers as references, so a handler can change them and the emitter sees the change.
// Handlers may connect or disconnect handlers (themselves included) while the signal runs;
// a handler connected during an emission is first called by the next emission. A handler may
// also destroy the signal itself: the emission then ends after it.
template <typename... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  // Adds a handler; it stays connected until the returned connection ends.
  [[nodiscard]] ScopedConnection Connect(Handler handler) {
    auto* node = new HandlerNode(std::move(handler));
    core_.Append(node);
    return ScopedConnection(node);
  }

  // Calls every connected handler with the arguments.
  void Emit(Args... args) const {
    signal_detail::Node* node = core_.Head();
    if (node == nullptr) return;
    // Handlers connected from now on are appended after this one and wait for the next time.
    signal_detail::Node* const last = core_.Tail();
    signal_detail::Emission emission;
    core_.Enter(emission);
    // Leaves the emission also when a handler throws, so that ended connections still go.
    struct Leave {
      signal_detail::Core& core;
      signal_detail::Emission& emission;
      ~Leave() {
        if (!emission.signal_gone) core.Leave(emission);
      }
    } leave{core_, emission};
    for (;;) {
      if (node->alive) {
        // A running node stays in the list (and on the heap) until its handler returns.
        struct Running {
          signal_detail::Node* node;
          signal_detail::Emission& emission;
          ~Running() {
            --node->running;
            if (emission.signal_gone) signal_detail::AfterOrphanedCall(node);
          }
        } running{node, emission};
        ++node->running;
        static_cast<HandlerNode*>(node)->handler(args...);
      }
      if (emission.signal_gone || node == last) return;
      node = node->next;
    }
  }

  bool HasHandlers() const { return core_.HasHandlers(); }

 private:
  struct HandlerNode final : signal_detail::Node {
    explicit HandlerNode(Handler h) : handler(std::move(h)) {}
    Handler handler;
  };
  mutable signal_detail::Core core_;
};

}  // namespace zk
