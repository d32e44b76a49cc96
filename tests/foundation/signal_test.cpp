#include "foundation/signal.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace zk {
namespace {

TEST(SignalTest, HandlersSeeAndChangeReferenceArguments) {
  Signal<int16_t&> key_press;
  std::vector<int> seen;
  auto first = key_press.Connect([&](int16_t& key) {
    seen.push_back(key);
    key = 0;
  });
  auto second = key_press.Connect([&](int16_t& key) { seen.push_back(key); });
  int16_t key = 65;
  key_press.Emit(key);
  EXPECT_EQ(key, 0);
  EXPECT_EQ(seen, (std::vector<int>{65, 0}));
}

TEST(SignalTest, ConnectionsEndWithTheirScopeAndMayEndDuringEmission) {
  Signal<> changed;
  int calls = 0;
  std::optional<ScopedConnection> self;
  self = changed.Connect([&] {
    ++calls;
    self.reset();  // a handler that disconnects itself while running
  });
  {
    auto scoped = changed.Connect([&] { calls += 10; });
    changed.Emit();
  }
  changed.Emit();
  EXPECT_EQ(calls, 11);
  EXPECT_FALSE(changed.HasHandlers());

  // A connection may outlive its signal (a control's font outlives nothing it listens to).
  ScopedConnection late;
  {
    Signal<std::u16string_view> font_changed;
    late = font_changed.Connect([](std::u16string_view) {});
    EXPECT_TRUE(font_changed.HasHandlers());
  }
  late.Disconnect();
}

TEST(SignalTest, HandlersKeepConnectionOrderWhileConnectionsComeAndGo) {
  Signal<> changed;
  std::string calls;
  std::optional<ScopedConnection> a = changed.Connect([&] { calls += 'a'; });
  std::optional<ScopedConnection> b = changed.Connect([&] { calls += 'b'; });
  a.reset();  // the oldest handler goes; the list is compacted
  auto c = changed.Connect([&] { calls += 'c'; });
  changed.Emit();
  EXPECT_EQ(calls, "bc");

  // A handler connected while the first one is running and just ended itself runs next time.
  calls.clear();
  b.reset();
  c.Disconnect();
  std::optional<ScopedConnection> d;
  std::optional<ScopedConnection> e;
  d = changed.Connect([&] {
    calls += 'd';
    d.reset();
    e = changed.Connect([&] { calls += 'e'; });
  });
  changed.Emit();
  changed.Emit();
  EXPECT_EQ(calls, "de");
  EXPECT_TRUE(changed.HasHandlers());
  e.reset();
  EXPECT_FALSE(changed.HasHandlers());
}

TEST(SignalTest, AHandlerMayDestroyTheSignalThatRunsIt) {
  auto signal = std::make_unique<Signal<int>>();
  std::vector<int> calls;
  std::optional<ScopedConnection> own;
  own = signal->Connect([&](int value) {
    calls.push_back(value);
    signal.reset();  // a handler closing the form that raised the event
    own.reset();     // and ending its own connection after the signal went
  });
  ScopedConnection later = signal->Connect([&](int value) { calls.push_back(value * 10); });
  signal->Emit(1);
  EXPECT_EQ(calls, (std::vector<int>{1}));  // the emission ended with the signal
  later.Disconnect();
}

TEST(SignalTest, EmissionsNestAndDeferTheEndOfConnections) {
  Signal<int> changed;
  std::string calls;
  std::optional<ScopedConnection> second;
  auto first = changed.Connect([&](int depth) {
    calls += 'a' + static_cast<char>(depth);
    if (depth == 0) {
      changed.Emit(1);  // the same signal again, from inside its handler
      second.reset();
    }
  });
  second = changed.Connect([&](int depth) { calls += 'A' + static_cast<char>(depth); });
  changed.Emit(0);
  changed.Emit(2);
  EXPECT_EQ(calls, "abBc");  // the outer call of `second` had ended before it came
}

}  // namespace
}  // namespace zk
