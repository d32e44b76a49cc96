#include "models/slider_value_model.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "foundation/zk_error.h"

namespace zk {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The limits and quantum a row starts from, and the value already held.
struct Start {
  double min = 0;
  double max = 100;
  double min_interval = 0;
  double value = 0;
};

SliderValueModel ModelWith(const Start& setup) {
  SliderValueModel model;
  model.SetMin(setup.min);
  model.SetMax(setup.max);
  model.SetMinInterval(setup.min_interval);
  SliderValues& stored = model.StoredValues();
  stored.Value = setup.value;
  return model;
}

// The error number an operation raised, 0 when it raised none.
template <typename Operation>
int32_t ErrorOf(Operation&& operation) {
  try {
    operation();
  } catch (const ZKError& error) {
    return error.Number();
  }
  return 0;
}

bool SameValues(const SliderValues& a, const SliderValues& b) {
  return a.Min == b.Min && a.Max == b.Max && a.Step == b.Step && a.MinInterval == b.MinInterval &&
         a.Value == b.Value && a.Decimals == b.Decimals && a.PadDecimals == b.PadDecimals &&
         a.DecimalSep == b.DecimalSep && a.ShowValue == b.ShowValue && a.Direction == b.Direction;
}

TEST(SliderValueModelTest, ANewModelHasTheDefaultsAndTheirRange) {
  SliderValueModel model;
  EXPECT_EQ(model.Min(), 0);
  EXPECT_EQ(model.Max(), 100);
  EXPECT_EQ(model.Step(), 1);
  EXPECT_EQ(model.MinInterval(), 0);
  EXPECT_EQ(model.Value(), 0);
  EXPECT_EQ(model.Decimals(), 0);
  EXPECT_EQ(model.Values().DecimalSep, u".");
  EXPECT_FALSE(model.Values().PadDecimals);
  EXPECT_FALSE(model.Values().ShowValue);
  EXPECT_EQ(model.Direction(), zktSBLeftToRight);
  EXPECT_EQ(model.Range(), 100);
  EXPECT_EQ(model.Offset(), 0);
  EXPECT_EQ(model.TrackLength(), 0);
}

TEST(SliderValueModelTest, ValueWrites) {
  struct Row {
    const char* what;
    Start setup;
    double written;
    double stored;
    bool changed;
  };
  const std::vector<Row> rows = {
      {"above Max stores Max", {}, 150, 100, true},
      {"Max again changes nothing", {0, 100, 0, 100}, 100, 100, false},
      {"below Min stores Min", {0, 100, 0, 50}, -3, 0, true},
      {"below Min when at Min changes nothing", {}, -3, 0, false},
      {"a value inside the limits", {0, 100, 0, 10}, 42.125, 42.125, true},
      {"quantised down", {0, 100, 5, 0}, 12, 10, true},
      {"integer quotient", {0, 100, 5, 0}, 14, 10, true},
      {"rounded before the division", {0, 100, 5, 0}, 17.6, 15, true},
      {"quantised value not clamped again (3)", {0, 10, 3, 0}, 10, 9, true},
      {"quantum rounds to its even neighbour", {0, 100, 2.5, 0}, 7.6, 10, true},
      {"quantised beyond Max stays there", {0, 9, 2.5, 0}, 8.9, 10, true},
      {"quantum 3.5 divides by 4", {0, 100, 3.5, 0}, 9, 7, true},
      {"value rounds halves to even (down)", {0, 100, 1, 0}, 2.5, 2, true},
      {"value rounds halves to even (up)", {0, 100, 1, 0}, 3.5, 4, true},
      {"quantising back to the current value still changes", {0, 100, 5, 10}, 12, 10, true},
      {"negative quotient truncates toward zero", {-100, 100, 5, 0}, -12, -10, true},
      {"negative value rounds first", {-100, 100, 5, 0}, -17.6, -15, true},
      {"Min above Max: a low value ends as Max", {10, 0, 0, 5}, -5, 0, true},
      {"Min above Max: a high value ends as Max", {10, 0, 0, 5}, 50, 0, true},
      {"Min above Max: inside ends as Max", {10, 0, 0, 5}, 5, 0, true},
      {"quantum of 0.51 rounds to 1", {0, 100, 0.51, 0}, 7, 7 * 0.51, true},
  };
  for (const Row& row : rows) {
    SliderValueModel model = ModelWith(row.setup);
    EXPECT_EQ(model.WriteValue(row.written), row.changed) << row.what;
    EXPECT_DOUBLE_EQ(model.Value(), row.stored) << row.what;
  }
}

TEST(SliderValueModelTest, FailingValueWritesChangeNothing) {
  struct Row {
    const char* what;
    Start setup;
    double written;
    int32_t error;
  };
  const std::vector<Row> rows = {
      {"quantum 0.5 rounds to 0", {0, 100, 0.5, 20}, 7, 11},
      {"quantum 0.3 rounds to 0", {0, 100, 0.3, 20}, 7, 11},
      {"value beyond 32 bits", {0, 1e10, 1, 20}, 3e9, 6},
      {"quantum beyond 32 bits", {0, 1e12, 3e9, 20}, 100, 6},
      {"infinity", {0, 100, 0, 20}, kInf, 6},
      {"not a number", {0, 100, 0, 20}, kNaN, 6},
  };
  for (const Row& row : rows) {
    SliderValueModel model = ModelWith(row.setup);
    const SliderValues before = model.Values();
    EXPECT_EQ(ErrorOf([&] { model.WriteValue(row.written); }), row.error) << row.what;
    EXPECT_TRUE(SameValues(model.Values(), before)) << row.what;
  }
  // A write that meets the current value ends before the quantum is ever divided by.
  SliderValueModel at_value = ModelWith({0, 100, 0.5, 20});
  EXPECT_FALSE(at_value.WriteValue(20));
}

TEST(SliderValueModelTest, RangeAndOffsetFollowTheLimits) {
  struct Row {
    double min;
    double max;
    double range;
    double offset;
  };
  const std::vector<Row> rows = {
      {0, 100, 100, 0}, {10, 10, 1, -10}, {0, 0.5, 1, 0},      {-50, 50, 100, 50},
      {10, 0, 10, -10}, {0, 1, 1, 0},     {2.5, 4, 1.5, -2.5}, {-1, -0.25, 1, 1},
  };
  for (const Row& row : rows) {
    SliderValueModel model;
    model.SetMin(row.min);
    model.SetMax(row.max);
    EXPECT_DOUBLE_EQ(model.Range(), row.range) << row.min << " " << row.max;
    EXPECT_DOUBLE_EQ(model.Offset(), row.offset) << row.min << " " << row.max;
  }
}

TEST(SliderValueModelTest, LimitsThatLeaveTheFloatsOverflow) {
  SliderValueModel model;
  EXPECT_EQ(ErrorOf([&] { model.SetMin(kInf); }), 6);
  EXPECT_EQ(ErrorOf([&] { model.SetMax(kNaN); }), 6);
  EXPECT_EQ(model.Min(), 0);
  EXPECT_EQ(model.Max(), 100);
  model.SetMin(-1e308);
  EXPECT_DOUBLE_EQ(model.Range(), 1e308 + 100);
  // The limit is stored before the range is computed; the range stays as it was.
  EXPECT_EQ(ErrorOf([&] { model.SetMax(1e308); }), 6);
  EXPECT_EQ(model.Max(), 1e308);
  EXPECT_DOUBLE_EQ(model.Range(), 1e308 + 100);
  EXPECT_EQ(model.Offset(), 1e308);
}

TEST(SliderValueModelTest, StepIsNeverBelowTheQuantum) {
  struct Row {
    const char* what;
    double step_before;
    double min_interval_before;
    // What is written: a step, or else a quantum.
    std::optional<double> step;
    std::optional<double> min_interval;
    double step_after;
    double min_interval_after;
    bool taken;
  };
  const std::vector<Row> rows = {
      {"step below the quantum", 1, 1, 0.5, std::nullopt, 1, 1, true},
      {"step above the quantum", 1, 1, 2.5, std::nullopt, 2.5, 1, true},
      {"negative step without a quantum", 1, 0, -5, std::nullopt, 0, 0, true},
      {"quantum above the step raises it", 1, 0, std::nullopt, 2, 2, 2, true},
      {"quantum below the step leaves it", 5, 0, std::nullopt, 2, 5, 2, true},
      {"negative quantum is ignored", 1, 0.25, std::nullopt, -1, 1, 0.25, false},
      {"quantum of 0 is taken", 1, 0.25, std::nullopt, 0, 1, 0, true},
  };
  for (const Row& row : rows) {
    SliderValueModel model;
    model.SetMinInterval(row.min_interval_before);
    model.SetStep(row.step_before);
    bool taken = true;
    if (row.step) model.SetStep(*row.step);
    if (row.min_interval) taken = model.SetMinInterval(*row.min_interval);
    EXPECT_EQ(taken, row.taken) << row.what;
    EXPECT_DOUBLE_EQ(model.Step(), row.step_after) << row.what;
    EXPECT_DOUBLE_EQ(model.MinInterval(), row.min_interval_after) << row.what;
  }
}

TEST(SliderValueModelTest, DecimalsAndDirectionChecks) {
  const std::vector<std::pair<int16_t, int16_t>> decimals = {
      {-5, -1}, {-1, -1}, {0, 0}, {3, 3}, {-32768, -1}, {32767, 32767}};
  for (const auto& [written, read] : decimals) {
    SliderValueModel model;
    model.SetDecimals(written);
    EXPECT_EQ(model.Decimals(), read) << written;
  }
  for (int32_t direction = -2; direction <= 5; ++direction) {
    SliderValueModel model;
    model.SetDirection(zktSBBottomtoTop);
    const bool valid = direction >= 0 && direction <= 3;
    EXPECT_EQ(model.SetDirection(static_cast<zktSBDirection>(direction)), valid) << direction;
    EXPECT_EQ(model.Direction(), valid ? direction : zktSBBottomtoTop) << direction;
  }
}

TEST(SliderValueModelTest, IncrementAndDecrementByDirection) {
  struct Row {
    int32_t direction;
    double incremented;
    double decremented;
  };
  // Value 50, Step 1; increment moves toward the increment jog whatever the direction.
  const std::vector<Row> rows = {
      {0, 51, 49}, {1, 51, 49}, {2, 49, 51}, {3, 49, 51}, {4, 50, 50}, {-1, 50, 50},
  };
  for (const Row& row : rows) {
    for (bool increment : {true, false}) {
      SliderValueModel model = ModelWith({0, 100, 0, 50});
      model.StoredValues().Direction = static_cast<zktSBDirection>(row.direction);
      const bool changed = increment ? model.IncrementValue() : model.DecrementValue();
      const double expected = increment ? row.incremented : row.decremented;
      EXPECT_EQ(model.Value(), expected) << row.direction << " " << increment;
      EXPECT_EQ(changed, expected != 50) << row.direction << " " << increment;
    }
  }
  // At a limit the step is clamped away and nothing changes.
  SliderValueModel at_max = ModelWith({0, 100, 0, 100});
  EXPECT_FALSE(at_max.IncrementValue());
  EXPECT_EQ(at_max.Value(), 100);
  // A step that leaves the floats is an overflow, and the value stays.
  SliderValueModel huge = ModelWith({0, 1e308, 0, 1e308});
  huge.SetMin(-1e307);
  huge.StoredValues().Step = 1.7e308;
  EXPECT_EQ(ErrorOf([&] { huge.IncrementValue(); }), 6);
  EXPECT_EQ(huge.Value(), 1e308);
}

// A horizontal slider 3000 x 300 twips with 300-twip jogs and a 350-twip thumb, or the same
// turned upright.
SliderMeasures Horizontal() {
  return {3000, 300, 300, 300, 300, 350, 300, 350};
}
SliderMeasures Vertical() {
  return {300, 3000, 300, 300, 300, 300, 350, 350};
}

TEST(SliderValueModelTest, TrackLength) {
  struct Row {
    int32_t direction;
    SliderMeasures measures;
    double length;
  };
  const std::vector<Row> rows = {
      {0, Horizontal(), 2050},
      {2, Horizontal(), 2050},
      {1, Vertical(), 2050},
      {3, Vertical(), 2050},
      // The other side's length does not count.
      {0, Vertical(), 0},
      {1, Horizontal(), 0},
      {0, {951, 300, 300, 300, 300, 350, 300, 350}, 1},
      {0, {950.5, 300, 300, 300, 300, 350, 300, 350}, 0},
      {0, {900, 300, 300, 300, 300, 350, 300, 350}, 0},
      {0, {3000, 300, 300, 300, 300, 350, 300, 1000}, 1400},
      {5, Horizontal(), 0},
  };
  for (const Row& row : rows) {
    SliderValueModel model;
    model.StoredValues().Direction = static_cast<zktSBDirection>(row.direction);
    model.UpdateTrackLength(row.measures);
    EXPECT_DOUBLE_EQ(model.TrackLength(), row.length) << row.direction;
  }
}

TEST(SliderValueModelTest, ThumbPositionInEachDirection) {
  struct Row {
    const char* what;
    int32_t direction;
    Start setup;
    std::optional<double> position;
    double value_after;
  };
  const std::vector<Row> rows = {
      {"left to right", 0, {0, 100, 0, 20}, 300 + 410, 20},
      {"top to bottom", 1, {0, 100, 0, 20}, 300 + 410, 20},
      {"right to left", 2, {0, 100, 0, 20}, 3000 - (350 + 300) - 410, 20},
      {"bottom to top", 3, {0, 100, 0, 20}, 3000 - (350 + 300) - 410, 20},
      {"at Min", 0, {0, 100, 0, 0}, 300, 0},
      {"at Max", 0, {0, 100, 0, 100}, 300 + 2050, 100},
      {"at Max, right to left", 2, {0, 100, 0, 100}, 300, 100},
      {"offset limits", 0, {-50, 50, 0, 0}, 300 + 1025, 0},
      {"Min equals Max: start of the track", 0, {10, 10, 0, 10}, 300, 10},
      {"range below 1 counts as 1: half the track", 0, {0, 0.5, 0, 0.5}, 300 + 1025, 0.5},
      {"a value above Max is brought back", 0, {0, 100, 0, 150}, 300 + 2050, 100},
      {"a value below Min is brought back", 3, {10, 100, 0, 5}, 3000 - 650, 10},
      {"no such direction", 6, {0, 100, 0, 20}, std::nullopt, 20},
  };
  for (const Row& row : rows) {
    SliderValueModel model = ModelWith(row.setup);
    model.StoredValues().Direction = static_cast<zktSBDirection>(row.direction);
    const SliderMeasures measures = row.direction % 2 == 1 ? Vertical() : Horizontal();
    model.UpdateTrackLength(measures);
    const std::optional<double> position = model.ThumbPosition(measures);
    ASSERT_EQ(position.has_value(), row.position.has_value()) << row.what;
    if (position) {
      EXPECT_DOUBLE_EQ(*position, *row.position) << row.what;
    }
    EXPECT_EQ(model.Value(), row.value_after) << row.what;
  }
}

TEST(SliderValueModelTest, ValueFromTheMousePosition) {
  struct Row {
    const char* what;
    int32_t direction;
    int16_t decimals;
    double along;  // the mouse's x (horizontal) or y (vertical)
    double value;
  };
  // The thumb's centre follows the mouse: the track's start is at 300 + 350 / 2 = 475 from the
  // decrement end, and it is 2050 long for a range of 100.
  const double third = 475 + 2050.0 / 3;
  const std::vector<Row> rows = {
      {"start of the track", 0, 0, 475, 0},
      {"end of the track", 0, 0, 2525, 100},
      {"two decimals are kept", 0, 2, third, 33.33},
      {"no decimals", 0, 0, third, 33},
      {"all decimals", 0, -1, third, 100.0 / 3},
      {"before the track", 0, 0, 0, -23},
      {"beyond the track", 0, 0, 3000, 123},
      {"top to bottom", 1, 0, 475 + 410, 20},
      {"right to left measures from the right", 2, 0, 3000 - 475 - 410, 20},
      {"bottom to top measures from the bottom", 3, 0, 3000 - 475 - 410, 20},
      {"right to left at the left end", 2, 0, 475, 100},
  };
  for (const Row& row : rows) {
    SliderValueModel model;
    model.StoredValues().Direction = static_cast<zktSBDirection>(row.direction);
    model.SetDecimals(row.decimals);
    const bool vertical = row.direction % 2 == 1;
    const SliderMeasures measures = vertical ? Vertical() : Horizontal();
    model.UpdateTrackLength(measures);
    const double x = vertical ? 150 : row.along;
    const double y = vertical ? row.along : 150;
    EXPECT_DOUBLE_EQ(model.ValueAt(x, y, measures), row.value) << row.what;
  }
}

TEST(SliderValueModelTest, ValueFromPositionRoundsHalvesToEven) {
  struct Row {
    int16_t decimals;
    double raw;
    double value;
  };
  const std::vector<Row> rows = {
      {0, 2.5, 2},    {0, 3.5, 4},    {0, -2.5, -2},    {-1, 2.5, 2.5},
      {1, 2.25, 2.2}, {1, 2.75, 2.8}, {2, 0.125, 0.12}, {0, 0.4375, 0},
  };
  // A 2048-twip track for a range of 128: 16 twips a unit, so every raw value here is exact.
  const SliderMeasures measures{2998, 300, 300, 300, 300, 350, 300, 350};
  for (const Row& row : rows) {
    SliderValueModel model;
    model.SetMin(-128);
    model.SetMax(0);
    model.SetDecimals(row.decimals);
    model.UpdateTrackLength(measures);
    ASSERT_EQ(model.TrackLength(), 2048);
    EXPECT_DOUBLE_EQ(model.ValueAt(475 + 16 * (row.raw + 128), 150, measures), row.value)
        << row.raw << " " << row.decimals;
  }
}

TEST(SliderValueModelTest, ValueFromPositionWritesThroughTheClamp) {
  SliderValueModel model = ModelWith({10, 60, 0, 30});
  model.UpdateTrackLength(Horizontal());
  EXPECT_TRUE(model.WriteValueAt(0, 150, Horizontal()));
  EXPECT_EQ(model.Value(), 10);
  EXPECT_TRUE(model.WriteValueAt(2999, 150, Horizontal()));
  EXPECT_EQ(model.Value(), 60);
  EXPECT_FALSE(model.WriteValueAt(2999, 150, Horizontal()));
  // With an offset the track starts at Min.
  EXPECT_TRUE(model.WriteValueAt(475 + 1025, 150, Horizontal()));
  EXPECT_EQ(model.Value(), 35);
}

TEST(SliderValueModelTest, ValueFromPositionFailures) {
  // Too short for any track: the division fails and the value stays.
  SliderValueModel no_track = ModelWith({0, 100, 0, 30});
  const SliderMeasures cramped{700, 300, 300, 300, 300, 350, 300, 350};
  no_track.UpdateTrackLength(cramped);
  EXPECT_EQ(ErrorOf([&] { no_track.WriteValueAt(500, 150, cramped); }), 11);
  EXPECT_EQ(no_track.Value(), 30);
  // More decimals than a 32-bit integer holds.
  SliderValueModel many_decimals = ModelWith({0, 100, 0, 30});
  many_decimals.UpdateTrackLength(Horizontal());
  many_decimals.SetDecimals(12);
  EXPECT_EQ(ErrorOf([&] { many_decimals.WriteValueAt(1000, 150, Horizontal()); }), 6);
  many_decimals.SetDecimals(400);
  EXPECT_EQ(ErrorOf([&] { many_decimals.WriteValueAt(1000, 150, Horizontal()); }), 6);
  EXPECT_EQ(many_decimals.Value(), 30);
  // The quantum's error reaches the mouse too.
  SliderValueModel bad_quantum = ModelWith({0, 100, 0.4, 30});
  bad_quantum.UpdateTrackLength(Horizontal());
  EXPECT_EQ(ErrorOf([&] { bad_quantum.WriteValueAt(1000, 150, Horizontal()); }), 11);
  EXPECT_EQ(bad_quantum.Value(), 30);
}

TEST(SliderValueModelTest, ThumbText) {
  struct Row {
    double value;
    std::u16string sep;
    int16_t decimals;
    bool pad;
    std::u16string text;
  };
  const std::vector<Row> rows = {
      {33.333, u",", 2, false, u"33,33"},
      {2.678, u".", 2, false, u"2.67"},
      {12, u".", 2, true, u"12.00"},
      {12, u".", 2, false, u"12"},
      {0.5, u",", -1, false, u"0,5"},
      {-0.5, u",", -1, false, u"-0,5"},
      {2.9, u".", 0, false, u"2"},
      {2.5, u".", 3, true, u"2.500"},
      {-12.75, u" dec ", 1, true, u"-12 dec 7"},
  };
  for (const Row& row : rows) {
    SliderValueModel model = ModelWith({-100, 100, 0, row.value});
    model.StoredValues().DecimalSep = row.sep;
    model.StoredValues().PadDecimals = row.pad;
    model.SetDecimals(row.decimals);
    EXPECT_EQ(model.ThumbText(), row.text) << row.value;
  }
}

}  // namespace
}  // namespace zk
