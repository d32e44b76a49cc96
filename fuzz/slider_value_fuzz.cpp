// Drives the slider's value model with operations read from the input and compares every step
// with the plain version in tests/support/reference_slider_value: the same fields, range,
// offset and track length after each operation, the same answers, the same errors. Any number
// may come in: infinities and NaN as limits, steps and positions, quanta that round to 0,
// magnitudes whose sums overflow.
//
// Input: groups of 9 bytes, an operation and the 8 bytes of a number.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>

#include "foundation/zk_error.h"
#include "models/slider_value_model.h"
#include "tests/support/reference_slider_value.h"

namespace {

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

// The result of an operation, or the number of the error it raised.
struct Outcome {
  double result = 0;
  int32_t error = 0;
};

Outcome Attempt(const std::function<double()>& operation) {
  Outcome outcome;
  try {
    outcome.result = operation();
  } catch (const zk::ZKError& error) {
    outcome.error = error.Number();
  }
  return outcome;
}

bool SameNumber(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

bool Same(const zk::SliderValueModel& model, const zk::reference::SliderState& plain) {
  const zk::SliderValues& v = model.Values();
  return SameNumber(v.Min, plain.min) && SameNumber(v.Max, plain.max) &&
         SameNumber(v.Step, plain.step) && SameNumber(v.MinInterval, plain.min_interval) &&
         SameNumber(v.Value, plain.value) && v.Decimals == plain.decimals &&
         v.PadDecimals == plain.pad_decimals && v.DecimalSep == plain.decimal_sep &&
         v.Direction == plain.direction && SameNumber(model.Range(), plain.range) &&
         SameNumber(model.Offset(), plain.offset) &&
         SameNumber(model.TrackLength(), plain.track_length);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  zk::SliderValueModel model;
  zk::reference::SliderState plain;
  zk::SliderMeasures measures;
  zk::reference::SliderLengths lengths;
  for (size_t at = 0; at + 9 <= size; at += 9) {
    const uint8_t op = data[at];
    double number = 0;
    std::memcpy(&number, data + at + 1, sizeof number);
    // Half the numbers are small whole or half values, as hosts write them.
    if ((op & 0x80) != 0) {
      int32_t small = 0;
      std::memcpy(&small, data + at + 1, sizeof small);
      number = static_cast<double>(small % 4000) / 2;
    }
    Outcome mine;
    Outcome theirs;
    switch (op % 16) {
      case 0:
        mine = Attempt([&] { return (model.SetMin(number), 0.0); });
        theirs = Attempt([&] { return (zk::reference::SliderSetMin(plain, number), 0.0); });
        break;
      case 1:
        mine = Attempt([&] { return (model.SetMax(number), 0.0); });
        theirs = Attempt([&] { return (zk::reference::SliderSetMax(plain, number), 0.0); });
        break;
      case 2:
        mine = Attempt([&] { return (model.SetStep(number), 0.0); });
        theirs = Attempt([&] { return (zk::reference::SliderSetStep(plain, number), 0.0); });
        break;
      case 3:
        mine = Attempt([&] { return model.SetMinInterval(number) ? 1.0 : 0.0; });
        theirs =
            Attempt([&] { return zk::reference::SliderSetMinInterval(plain, number) ? 1.0 : 0.0; });
        break;
      case 4: {
        // Decimals as a 16-bit property; far counts only without zero fill on the thumb.
        const auto decimals = static_cast<int16_t>(data[at + 1] % 24 - 4);
        model.SetDecimals(decimals);
        zk::reference::SliderSetDecimals(plain, decimals);
        break;
      }
      case 5: {
        const auto direction = static_cast<int32_t>(data[at + 1] % 6) - 1;
        mine.result = model.SetDirection(static_cast<zk::zktSBDirection>(direction)) ? 1 : 0;
        theirs.result = zk::reference::SliderSetDirection(plain, direction) ? 1 : 0;
        break;
      }
      case 6:
      case 7:
        mine = Attempt([&] { return model.WriteValue(number) ? 1.0 : 0.0; });
        theirs =
            Attempt([&] { return zk::reference::SliderWriteValue(plain, number) ? 1.0 : 0.0; });
        break;
      case 8:
        mine = Attempt([&] { return model.IncrementValue() ? 1.0 : 0.0; });
        theirs = Attempt([&] { return zk::reference::SliderIncrement(plain) ? 1.0 : 0.0; });
        break;
      case 9:
        mine = Attempt([&] { return model.DecrementValue() ? 1.0 : 0.0; });
        theirs = Attempt([&] { return zk::reference::SliderDecrement(plain) ? 1.0 : 0.0; });
        break;
      case 10: {
        // A layout: every length from one byte of the number's bits.
        const auto length = [&](int k) { return static_cast<double>(data[at + 1 + k]) * 25; };
        measures = zk::SliderMeasures{length(0), length(1), length(2), length(3),
                                      length(4), length(5), length(6), length(7)};
        lengths = zk::reference::SliderLengths{length(0), length(1), length(2), length(3),
                                               length(4), length(5), length(6), length(7)};
        mine = Attempt([&] { return (model.UpdateTrackLength(measures), 0.0); });
        theirs = Attempt([&] { return (zk::reference::SliderUpdateTrack(plain, lengths), 0.0); });
        break;
      }
      case 11:
        mine = Attempt([&] { return model.ThumbPosition(measures).value_or(-1); });
        theirs = Attempt([&] { return zk::reference::SliderThumbPosition(plain, lengths); });
        break;
      case 12:
      case 13: {
        const bool write = op % 16 == 13;
        mine = Attempt([&] {
          return write ? (model.WriteValueAt(number, number, measures) ? 1.0 : 0.0)
                       : model.ValueAt(number, number, measures);
        });
        theirs = Attempt([&] {
          if (!write) return zk::reference::SliderValueAt(plain, number, number, lengths);
          const double at_mouse = zk::reference::SliderValueAt(plain, number, number, lengths);
          return zk::reference::SliderWriteValue(plain, at_mouse) ? 1.0 : 0.0;
        });
        break;
      }
      case 14:
        model.StoredValues().PadDecimals = plain.pad_decimals = (data[at + 1] & 1) != 0;
        model.StoredValues().DecimalSep = plain.decimal_sep = (data[at + 1] & 2) != 0 ? u"," : u".";
        if (std::isfinite(model.Value())) {
          Check(model.ThumbText() == zk::reference::SliderThumbText(plain));
        }
        break;
      default:
        // A property bag read stores the value as it is.
        model.StoredValues().Value = plain.value = number;
        break;
    }
    Check(mine.error == theirs.error);
    Check(SameNumber(mine.result, theirs.result));
    Check(Same(model, plain));
  }
  return 0;
}
