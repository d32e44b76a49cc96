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

}  // namespace
}  // namespace zk
