#include "tests/support/reference_slider_value.h"

#include <cmath>

#include "foundation/zk_error.h"
#include "tests/support/reference_number_text.h"

namespace zk::reference {
namespace {

// A 64-bit float result: infinite or not a number is the overflow error.
double Checked(double value) {
  if (std::isinf(value) || std::isnan(value)) throw ZKError::Overflow();
  return value;
}

// To the nearest 32-bit integer, halves to the even neighbour, by looking at the fraction.
int32_t ToLong(double value) {
  Checked(value);
  double whole = std::floor(value);
  const double fraction = value - whole;
  if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0)) whole += 1;
  if (whole < -2147483648.0 || whole > 2147483647.0) throw ZKError::Overflow();
  return static_cast<int32_t>(whole);
}

}  // namespace

void SliderRecompute(SliderState& state) {
  const double difference = Checked(state.max - state.min);
  const double span = difference < 0 ? -difference : difference;
  state.range = span < 1 ? 1 : span;
  state.offset = state.min == 0 ? 0 : -state.min;
}

void SliderSetMin(SliderState& state, double value) {
  state.min = Checked(value);
  SliderRecompute(state);
}

void SliderSetMax(SliderState& state, double value) {
  state.max = Checked(value);
  SliderRecompute(state);
}

void SliderSetStep(SliderState& state, double value) {
  state.step = Checked(value);
  if (state.step < state.min_interval) state.step = state.min_interval;
}

bool SliderSetMinInterval(SliderState& state, double value) {
  if (Checked(value) < 0) return false;
  state.min_interval = value;
  if (state.step < state.min_interval) state.step = state.min_interval;
  return true;
}

void SliderSetDecimals(SliderState& state, int32_t value) {
  state.decimals = value < -1 ? -1 : value;
}

bool SliderSetDirection(SliderState& state, int32_t value) {
  if (value < 0 || value > 3) return false;
  state.direction = value;
  return true;
}

bool SliderWriteValue(SliderState& state, double value) {
  double wanted = Checked(value);
  // 1. and 2.
  if (wanted < state.min) wanted = state.min;
  if (wanted > state.max) wanted = state.max;
  // 3.
  if (wanted == state.value) return false;
  // 4.
  if (state.min_interval <= 0) {
    state.value = wanted;
    return true;
  }
  const int32_t dividend = ToLong(wanted);
  const int32_t divisor = ToLong(state.min_interval);
  if (divisor == 0) throw ZKError::DivisionByZero();
  // C++ integer division truncates toward zero, as the rule wants; the divisor is positive.
  const int32_t quotient = dividend / divisor;
  state.value = Checked(quotient * state.min_interval);
  return true;
}

bool SliderIncrement(SliderState& state) {
  if (state.direction == 0 || state.direction == 1) {
    return SliderWriteValue(state, Checked(state.value + state.step));
  }
  if (state.direction == 2 || state.direction == 3) {
    return SliderWriteValue(state, Checked(state.value - state.step));
  }
  return false;
}

bool SliderDecrement(SliderState& state) {
  if (state.direction == 0 || state.direction == 1) {
    return SliderWriteValue(state, Checked(state.value - state.step));
  }
  if (state.direction == 2 || state.direction == 3) {
    return SliderWriteValue(state, Checked(state.value + state.step));
  }
  return false;
}

void SliderUpdateTrack(SliderState& state, const SliderLengths& lengths) {
  double length = 0;
  if (state.direction == 0 || state.direction == 2) {
    length = Checked(lengths.inner_width - Checked(2 * lengths.decrement_jog_width));
  } else {
    length = Checked(lengths.inner_height - Checked(2 * lengths.decrement_jog_height));
  }
  length = Checked(length - lengths.slider_width);
  state.track_length = length < 1 ? 0 : length;
}

double SliderThumbPosition(SliderState& state, const SliderLengths& lengths) {
  if (state.value < state.min) state.value = state.min;
  if (state.value > state.max) state.value = state.max;
  const double scale = state.track_length / state.range;
  const double d = Checked(Checked(state.value - state.min) * scale);
  switch (state.direction) {
    case 0:
      return Checked(lengths.decrement_jog_width + d);
    case 1:
      return Checked(lengths.decrement_jog_height + d);
    case 2:
      return Checked(lengths.inner_width -
                     Checked(lengths.thumb_width + lengths.increment_jog_width) - d);
    default:
      return Checked(lengths.inner_height -
                     Checked(lengths.thumb_height + lengths.decrement_jog_height) - d);
  }
}

double SliderValueAt(const SliderState& state, double x, double y, const SliderLengths& lengths) {
  double p = 0;
  if (state.direction == 0) p = x;
  if (state.direction == 1) p = y;
  if (state.direction == 2) p = Checked(lengths.inner_width - x);
  if (state.direction == 3) p = Checked(lengths.inner_height - y);
  // 1.
  const double jog = state.direction == 0 || state.direction == 2 ? lengths.decrement_jog_width
                                                                  : lengths.decrement_jog_height;
  p = Checked(Checked(p - jog) - lengths.slider_width / 2);
  // 2.
  if (state.track_length == 0) throw ZKError::DivisionByZero();
  const double raw = Checked(Checked(Checked(p / state.track_length) * state.range) - state.offset);
  // 3.
  if (state.decimals == 0) return ToLong(raw);
  if (state.decimals == -1) return raw;
  double factor = 1;
  for (int32_t i = 0; i < state.decimals; ++i)
    factor = Checked(factor * 10);
  return ToLong(Checked(raw * factor)) / factor;
}

std::u16string SliderThumbText(const SliderState& state) {
  return FormatNumberText(state.value, state.decimal_sep, state.decimals, state.pad_decimals);
}

}  // namespace zk::reference
