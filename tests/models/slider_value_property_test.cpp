// Long random sequences of property writes, value writes, steps, layouts, thumb placements and
// mouse positions, applied to the slider's value model and to the plain step-by-step version in
// tests/support. After every operation both must hold the same fields, range, offset and track
// length, and have given the same answer or failed with the same error.
//
// Ten thousand operations in the normal suite; ZK_LONG_PROPERTY_TESTS=1 runs a million, and
// ZK_PROPERTY_SEED=N another random sequence.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

#include "foundation/zk_error.h"
#include "models/slider_value_model.h"
#include "tests/support/reference_slider_value.h"

namespace zk {
namespace {

int64_t OperationCount() {
  const char* value = std::getenv("ZK_LONG_PROPERTY_TESTS");
  return value != nullptr && std::string(value) == "1" ? 1000000 : 10000;
}

uint32_t Seed() {
  const char* value = std::getenv("ZK_PROPERTY_SEED");
  return value != nullptr ? static_cast<uint32_t>(std::strtoul(value, nullptr, 10)) : 7102;
}

// What an operation gave: a number, or the error it raised.
struct Outcome {
  double result = 0;
  int32_t error = 0;
  bool operator==(const Outcome&) const = default;
};

template <typename Operation>
Outcome Attempt(Operation&& operation) {
  Outcome outcome;
  try {
    outcome.result = operation();
  } catch (const ZKError& error) {
    outcome.error = error.Number();
  }
  return outcome;
}

std::string Describe(const SliderValueModel& model) {
  const SliderValues& v = model.Values();
  return "min " + std::to_string(v.Min) + " max " + std::to_string(v.Max) + " step " +
         std::to_string(v.Step) + " quantum " + std::to_string(v.MinInterval) + " value " +
         std::to_string(v.Value) + " decimals " + std::to_string(v.Decimals) + " direction " +
         std::to_string(v.Direction) + " track " + std::to_string(model.TrackLength());
}

bool Same(const SliderValueModel& model, const reference::SliderState& plain) {
  const SliderValues& v = model.Values();
  return v.Min == plain.min && v.Max == plain.max && v.Step == plain.step &&
         v.MinInterval == plain.min_interval && v.Value == plain.value &&
         v.Decimals == plain.decimals && v.PadDecimals == plain.pad_decimals &&
         v.DecimalSep == plain.decimal_sep && v.Direction == plain.direction &&
         model.Range() == plain.range && model.Offset() == plain.offset &&
         model.TrackLength() == plain.track_length;
}

// Numbers that hosts write, and the ones at the edges: halves that round to even, quanta that
// round to 0, values just past the 32-bit integers, and magnitudes whose sums overflow.
constexpr double kNumbers[] = {0,    1,    -1,    2.5,      3.5,       0.3,    0.5,
                               0.6,  5,    10,    12,       17.6,      -3,     33.3333,
                               100,  150,  -0.5,  1E-3,     1E+15,     -1E+15, 2147483647.5,
                               1E+9, 3E+9, -3E+9, 1.7E+308, -1.7E+308, 0.25,   7.6};

double Pick(std::mt19937& random) {
  if (random() % 4 == 0) {
    // Any value between -1000 and 1000 in hundredths.
    return static_cast<double>(static_cast<int32_t>(random() % 200001) - 100000) / 100;
  }
  return kNumbers[random() % std::size(kNumbers)];
}

TEST(SliderValueProperty, ModelAndPlainStepsAgreeAfterEveryOperation) {
  std::mt19937 random(Seed());
  SliderValueModel model;
  reference::SliderState plain;
  SliderMeasures measures;
  reference::SliderLengths lengths;
  int64_t stored = 0;
  int64_t failed = 0;
  for (int64_t op = 0; op < OperationCount(); ++op) {
    const auto pick = static_cast<uint32_t>(random() % 100);
    Outcome mine;
    Outcome theirs;
    if (pick < 6) {
      const double value = Pick(random);
      mine = Attempt([&] { return (model.SetMin(value), 0.0); });
      theirs = Attempt([&] { return (reference::SliderSetMin(plain, value), 0.0); });
    } else if (pick < 12) {
      const double value = Pick(random);
      mine = Attempt([&] { return (model.SetMax(value), 0.0); });
      theirs = Attempt([&] { return (reference::SliderSetMax(plain, value), 0.0); });
    } else if (pick < 17) {
      const double value = Pick(random);
      mine = Attempt([&] { return (model.SetStep(value), 0.0); });
      theirs = Attempt([&] { return (reference::SliderSetStep(plain, value), 0.0); });
    } else if (pick < 22) {
      const double value = Pick(random);
      mine = Attempt([&] { return model.SetMinInterval(value) ? 1.0 : 0.0; });
      theirs = Attempt([&] { return reference::SliderSetMinInterval(plain, value) ? 1.0 : 0.0; });
    } else if (pick < 25) {
      const auto value = static_cast<int16_t>(static_cast<int32_t>(random() % 14) - 5);
      model.SetDecimals(value);
      reference::SliderSetDecimals(plain, value);
    } else if (pick < 28) {
      const auto value = static_cast<int32_t>(random() % 6) - 1;
      mine.result = model.SetDirection(static_cast<zktSBDirection>(value)) ? 1 : 0;
      theirs.result = reference::SliderSetDirection(plain, value) ? 1 : 0;
    } else if (pick < 30) {
      const bool pad = random() % 2 == 0;
      const std::u16string separator = random() % 2 == 0 ? u"." : u",";
      model.StoredValues().PadDecimals = plain.pad_decimals = pad;
      model.StoredValues().DecimalSep = plain.decimal_sep = separator;
    } else if (pick < 48) {
      const double value = Pick(random);
      mine = Attempt([&] { return model.WriteValue(value) ? 1.0 : 0.0; });
      theirs = Attempt([&] { return reference::SliderWriteValue(plain, value) ? 1.0 : 0.0; });
    } else if (pick < 58) {
      const bool up = random() % 2 == 0;
      mine = Attempt(
          [&] { return (up ? model.IncrementValue() : model.DecrementValue()) ? 1.0 : 0.0; });
      theirs = Attempt([&] {
        return (up ? reference::SliderIncrement(plain) : reference::SliderDecrement(plain)) ? 1.0
                                                                                            : 0.0;
      });
    } else if (pick < 64) {
      // The control is laid out: its inner area, jogs and thumb, now and then too small for
      // any track.
      const double inner_width = static_cast<double>(random() % 6000);
      const double inner_height = static_cast<double>(random() % 3000);
      const double jog = static_cast<double>(random() % 400);
      const double thumb = static_cast<double>(random() % 600);
      measures = SliderMeasures{inner_width, inner_height, jog, jog, jog, thumb, thumb, thumb};
      lengths =
          reference::SliderLengths{inner_width, inner_height, jog, jog, jog, thumb, thumb, thumb};
      mine = Attempt([&] { return (model.UpdateTrackLength(measures), 0.0); });
      theirs = Attempt([&] { return (reference::SliderUpdateTrack(plain, lengths), 0.0); });
    } else if (pick < 72) {
      mine = Attempt([&] { return model.ThumbPosition(measures).value_or(-1); });
      theirs = Attempt([&] { return reference::SliderThumbPosition(plain, lengths); });
    } else if (pick < 86) {
      // The mouse, inside the control or beyond either end.
      const double x = static_cast<double>(static_cast<int32_t>(random() % 8000) - 1000);
      const double y = static_cast<double>(static_cast<int32_t>(random() % 5000) - 1000);
      const bool write = random() % 2 == 0;
      mine = Attempt([&] {
        return write ? (model.WriteValueAt(x, y, measures) ? 1.0 : 0.0)
                     : model.ValueAt(x, y, measures);
      });
      theirs = Attempt([&] {
        return write ? (reference::SliderWriteValue(plain,
                                                    reference::SliderValueAt(plain, x, y, lengths))
                            ? 1.0
                            : 0.0)
                     : reference::SliderValueAt(plain, x, y, lengths);
      });
    } else if (pick < 94) {
      ASSERT_EQ(model.ThumbText(), reference::SliderThumbText(plain))
          << "operation " << op << ": " << Describe(model);
    } else {
      // A property bag read stores the value as it is, even outside the limits.
      const double value = Pick(random);
      model.StoredValues().Value = plain.value = value;
    }
    ASSERT_EQ(mine, theirs) << "operation " << op << " (" << pick << "): " << Describe(model)
                            << " result " << mine.result << " / " << theirs.result << " error "
                            << mine.error << " / " << theirs.error;
    ASSERT_TRUE(Same(model, plain)) << "operation " << op << ": " << Describe(model);
    if (mine.result == 1 && pick >= 30 && pick < 58) ++stored;
    if (mine.error != 0) ++failed;
  }
  // A run that never stored a value, or never met a failure, compared little of interest.
  EXPECT_GT(stored, OperationCount() / 20);
  EXPECT_GT(failed, 0);
}

}  // namespace
}  // namespace zk
