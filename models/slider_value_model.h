#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "enumerations/enumerations.h"

// The number behind a slider: its limits, the rules every change of the value passes through
// (clamping, quantisation to MinInterval, stepping by Step), the text on the thumb, and the
// mapping between the value and the thumb's place along the track in each of the four
// directions. Plain values in, plain values out: the control measures its pieces and hands the
// lengths over, so that the rules run (and are tested) without any window.
//
// Lengths are twips. Failures reach the caller as ZKError: 11 (division by zero) for a
// MinInterval that rounds to 0 or a track of length 0, 6 (overflow) for a number that leaves
// the range of a 64-bit float or of the 32-bit integers that quantisation and rounding use.
// A failing operation leaves the fields as they were before the failing assignment.
namespace zk {

// The fields of a slider's value. A property bag read assigns them directly; the model's
// setters apply the checks of a property write.
struct SliderValues {
  double Min = 0;
  double Max = 100;
  double Step = 1;
  double MinInterval = 0;
  double Value = 0;
  // Decimals kept when the value comes from the mouse and shown on the thumb; -1: all.
  int16_t Decimals = 0;
  bool PadDecimals = false;
  std::u16string DecimalSep = u".";
  bool ShowValue = false;
  zktSBDirection Direction = zktSBLeftToRight;
};

// What the control measured: its inner area, its jogs and its thumb (twips).
struct SliderMeasures {
  double inner_width = 0;
  double inner_height = 0;
  double decrement_jog_width = 0;
  double decrement_jog_height = 0;
  double increment_jog_width = 0;
  double thumb_width = 0;
  double thumb_height = 0;
  // The thumb's length along the track.
  double slider_width = 0;
};

class SliderValueModel {
 public:
  // A new slider's values, with the range and offset they give and a track of length 0.
  SliderValueModel();

  const SliderValues& Values() const { return values_; }
  // The fields themselves, for stores that skip the checks (property bag reads). Call
  // RecomputeRange afterwards.
  SliderValues& StoredValues() { return values_; }

  double Min() const { return values_.Min; }
  double Max() const { return values_.Max; }
  // Store the limit, then recompute the range and offset. A limit that is not a finite number
  // raises 6 and changes nothing; a range beyond the 64-bit floats raises 6 with the limit
  // stored and the range and offset as they were.
  void SetMin(double New_Min);
  void SetMax(double New_Max);
  // |Max - Min|, or 1 when that is below 1; and -Min.
  double Range() const { return range_; }
  double Offset() const { return offset_; }
  // Derives the range and offset from Min and Max (after stores that skipped the checks).
  void RecomputeRange();

  double Step() const { return values_.Step; }
  // Never less than MinInterval: a smaller step stores MinInterval.
  void SetStep(double New_Step);
  double MinInterval() const { return values_.MinInterval; }
  // A negative quantum is ignored (false); otherwise stored, and Step raised to it if below.
  bool SetMinInterval(double New_MinInterval);

  // Values below -1 are taken as -1.
  int16_t Decimals() const { return values_.Decimals; }
  void SetDecimals(int16_t New_Decimals);
  zktSBDirection Direction() const { return values_.Direction; }
  // Only 0 to 3 are taken (true); other values are ignored.
  bool SetDirection(zktSBDirection New_Direction);

  double Value() const { return values_.Value; }
  // The value write: clamp to Min, then to Max; a result equal to the current value changes
  // nothing (false). Otherwise, with MinInterval above 0, the value and MinInterval are each
  // rounded to a 32-bit integer (halves to even), the first divided by the second with the
  // quotient truncated, and the quotient times MinInterval is stored, without clamping again.
  // True when the value was stored: the caller re-places the thumb and raises Change, even
  // when the quantised value equals the old one.
  bool WriteValue(double New_Value);
  // Step toward the increment jog (right or bottom end) or away from it, in value terms by
  // direction: + Step for directions 0 and 1, - Step for 2 and 3, nothing for any other.
  // The result of the value write.
  bool IncrementValue();
  bool DecrementValue();

  // The length along which the thumb's leading edge travels: the inner width (directions 0,
  // 2) or height (1, 3) less twice the decrement jog's and less the thumb's length, 0 when
  // that is below 1. A direction outside 0 to 3 has no track (0).
  double TrackLength() const { return track_length_; }
  void UpdateTrackLength(const SliderMeasures& measures);
  // Twips per value unit: the track length over the range.
  double Scale() const { return track_length_ / range_; }

  // The thumb's leading edge (left for horizontal directions, top for vertical ones), after
  // bringing Value itself within Min and Max (the field changes, silently). Nothing for a
  // direction outside 0 to 3.
  std::optional<double> ThumbPosition(const SliderMeasures& measures);
  // The value that a mouse at (x, y), twips of the inner area, points at: the thumb's centre
  // follows the mouse, and the result keeps Decimals decimals (rounded halves to even; all of
  // them for -1). A mouse beyond either end gives a value beyond the limits. A track of length
  // 0 raises 11.
  double ValueAt(double x, double y, const SliderMeasures& measures) const;
  // ValueAt, then the value write.
  bool WriteValueAt(double x, double y, const SliderMeasures& measures);

  // The value as the thumb shows it: Decimals decimals at most (cut, not rounded; all for
  // -1), filled with zeros with PadDecimals, DecimalSep as separator.
  std::u16string ThumbText() const;

 private:
  bool Horizontal() const;
  bool Vertical() const;

  SliderValues values_;
  double range_ = 0;
  double offset_ = 0;
  double track_length_ = 0;
};

}  // namespace zk
