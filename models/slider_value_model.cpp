#include "models/slider_value_model.h"

#include <cmath>

#include "foundation/low_level_utils.h"
#include "foundation/string_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

// Every result of the model's arithmetic passes here: a number that left the 64-bit floats
// (or was never one) is the overflow error, as the platform's float arithmetic raises it.
double Finite(double value) {
  if (!std::isfinite(value)) throw ZKError::Overflow();
  return value;
}

}  // namespace

SliderValueModel::SliderValueModel() {
  RecomputeRange();
}

bool SliderValueModel::Horizontal() const {
  return values_.Direction == zktSBLeftToRight || values_.Direction == zktSBRightToLeft;
}

bool SliderValueModel::Vertical() const {
  return values_.Direction == zktSBTopToBottom || values_.Direction == zktSBBottomtoTop;
}

void SliderValueModel::RecomputeRange() {
  const double span = std::fabs(Finite(values_.Max - values_.Min));
  range_ = span < 1 ? 1 : span;
  offset_ = values_.Min == 0 ? 0 : -values_.Min;
}

void SliderValueModel::SetMin(double New_Min) {
  values_.Min = Finite(New_Min);
  RecomputeRange();
}

void SliderValueModel::SetMax(double New_Max) {
  values_.Max = Finite(New_Max);
  RecomputeRange();
}

void SliderValueModel::SetStep(double New_Step) {
  values_.Step = Finite(New_Step);
  if (values_.Step < values_.MinInterval) values_.Step = values_.MinInterval;
}

bool SliderValueModel::SetMinInterval(double New_MinInterval) {
  if (Finite(New_MinInterval) < 0) return false;
  values_.MinInterval = New_MinInterval;
  if (values_.Step < values_.MinInterval) values_.Step = values_.MinInterval;
  return true;
}

void SliderValueModel::SetDecimals(int16_t New_Decimals) {
  values_.Decimals = New_Decimals < -1 ? int16_t{-1} : New_Decimals;
}

bool SliderValueModel::SetDirection(zktSBDirection New_Direction) {
  if (New_Direction < zktSBLeftToRight || New_Direction > zktSBBottomtoTop) return false;
  values_.Direction = New_Direction;
  return true;
}

bool SliderValueModel::WriteValue(double New_Value) {
  double value = Finite(New_Value);
  if (value < values_.Min) value = values_.Min;
  if (value > values_.Max) value = values_.Max;
  // The comparison sees the value before quantisation: a write that quantises back to the
  // current value still counts as a change.
  if (value == values_.Value) return false;
  if (values_.MinInterval > 0) {
    const int32_t dividend = MLowLevelUtils::RoundToInt32(value);
    const int32_t divisor = MLowLevelUtils::RoundToInt32(values_.MinInterval);
    if (divisor == 0) throw ZKError::DivisionByZero();
    value = static_cast<double>(dividend / divisor) * values_.MinInterval;
  }
  values_.Value = Finite(value);
  return true;
}

bool SliderValueModel::IncrementValue() {
  switch (values_.Direction) {
    case zktSBLeftToRight:
    case zktSBTopToBottom:
      return WriteValue(values_.Value + values_.Step);
    case zktSBRightToLeft:
    case zktSBBottomtoTop:
      return WriteValue(values_.Value - values_.Step);
  }
  return false;
}

bool SliderValueModel::DecrementValue() {
  switch (values_.Direction) {
    case zktSBLeftToRight:
    case zktSBTopToBottom:
      return WriteValue(values_.Value - values_.Step);
    case zktSBRightToLeft:
    case zktSBBottomtoTop:
      return WriteValue(values_.Value + values_.Step);
  }
  return false;
}

void SliderValueModel::UpdateTrackLength(const SliderMeasures& measures) {
  double length = 0;
  if (Horizontal()) {
    length = measures.inner_width - 2 * measures.decrement_jog_width;
  } else if (Vertical()) {
    length = measures.inner_height - 2 * measures.decrement_jog_height;
  }
  length = Finite(length - measures.slider_width);
  track_length_ = length < 1 ? 0 : length;
}

std::optional<double> SliderValueModel::ThumbPosition(const SliderMeasures& measures) {
  if (values_.Value < values_.Min) values_.Value = values_.Min;
  if (values_.Value > values_.Max) values_.Value = values_.Max;
  const double along = Finite((values_.Value - values_.Min) * Scale());
  switch (values_.Direction) {
    case zktSBLeftToRight:
      return measures.decrement_jog_width + along;
    case zktSBTopToBottom:
      return measures.decrement_jog_height + along;
    case zktSBRightToLeft:
      return Finite(measures.inner_width - (measures.thumb_width + measures.increment_jog_width) -
                    along);
    case zktSBBottomtoTop:
      return Finite(measures.inner_height -
                    (measures.thumb_height + measures.decrement_jog_height) - along);
  }
  return std::nullopt;
}

double SliderValueModel::ValueAt(double x, double y, const SliderMeasures& measures) const {
  double p = 0;
  switch (values_.Direction) {
    case zktSBLeftToRight:
      p = x;
      break;
    case zktSBTopToBottom:
      p = y;
      break;
    case zktSBRightToLeft:
      p = measures.inner_width - x;
      break;
    case zktSBBottomtoTop:
      p = measures.inner_height - y;
      break;
  }
  const double jog = Horizontal() ? measures.decrement_jog_width : measures.decrement_jog_height;
  // The thumb's centre follows the mouse.
  p = Finite(p - jog - measures.slider_width / 2);
  if (track_length_ == 0) throw ZKError::DivisionByZero();
  const double raw = Finite(p / track_length_ * range_ - offset_);
  if (values_.Decimals == 0) return MLowLevelUtils::RoundToInt32(raw);
  if (values_.Decimals < 0) return raw;
  const double factor = Finite(std::pow(10.0, values_.Decimals));
  return MLowLevelUtils::RoundToInt32(Finite(raw * factor)) / factor;
}

bool SliderValueModel::WriteValueAt(double x, double y, const SliderMeasures& measures) {
  return WriteValue(ValueAt(x, y, measures));
}

std::u16string SliderValueModel::ThumbText() const {
  return MStringUtils::FormatNumberText(values_.Value, values_.DecimalSep, values_.Decimals,
                                        values_.PadDecimals);
}

}  // namespace zk
