#pragma once

#include <cstdint>
#include <string>

// The slider's value rules written out plainly, one numbered step after another, for checking
// the library's model: every field is public, every operation is a free function over them, and
// every arithmetic result is checked where it is made. Failures raise ZKError as the model's
// do: 6 for a number that leaves the 64-bit floats or the 32-bit integers, 11 for a division by
// zero; the fields assigned before the failing step stay assigned.
namespace zk::reference {

struct SliderState {
  double min = 0;
  double max = 100;
  double step = 1;
  double min_interval = 0;
  double value = 0;
  int32_t decimals = 0;
  bool pad_decimals = false;
  std::u16string decimal_sep = u".";
  int32_t direction = 0;
  double range = 100;
  double offset = 0;
  double track_length = 0;
};

// The lengths the control measures (twips).
struct SliderLengths {
  double inner_width = 0;
  double inner_height = 0;
  double decrement_jog_width = 0;
  double decrement_jog_height = 0;
  double increment_jog_width = 0;
  double thumb_width = 0;
  double thumb_height = 0;
  double slider_width = 0;
};

// Range and offset from Min and Max.
void SliderRecompute(SliderState& state);
void SliderSetMin(SliderState& state, double value);
void SliderSetMax(SliderState& state, double value);
void SliderSetStep(SliderState& state, double value);
// False when a negative value was ignored.
bool SliderSetMinInterval(SliderState& state, double value);
void SliderSetDecimals(SliderState& state, int32_t value);
// False when the direction is not one of the four.
bool SliderSetDirection(SliderState& state, int32_t value);
// True when the value was stored (the control then raises Change).
bool SliderWriteValue(SliderState& state, double value);
bool SliderIncrement(SliderState& state);
bool SliderDecrement(SliderState& state);
void SliderUpdateTrack(SliderState& state, const SliderLengths& lengths);
// The thumb's leading edge; clamps the value first.
double SliderThumbPosition(SliderState& state, const SliderLengths& lengths);
// The value a mouse at (x, y) points at.
double SliderValueAt(const SliderState& state, double x, double y, const SliderLengths& lengths);
std::u16string SliderThumbText(const SliderState& state);

}  // namespace zk::reference
