#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/picture.h"
#include "platform/types.h"

namespace zk {

// One rectangle of a surface's persistent drawing: twips of the inner area, left and top
// inclusive, right and bottom exclusive, filled with one colour.
struct DrawnRect {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  OLE_COLOR color = 0;

  bool operator==(const DrawnRect&) const = default;
  // Whether `other` lies wholly inside this rectangle.
  bool Covers(const DrawnRect& other) const {
    return left <= other.left && top <= other.top && right >= other.right && bottom >= other.bottom;
  }
};

// What the persistent drawing of a surface is on every platform, over the platform's surface
// base `Base`: the background picture and the rectangles drawn since the last Cls, oldest
// first. A rectangle that a later one covers wholly can no longer be seen and is forgotten, so a
// control that clears and redraws keeps a short list however often it draws. A platform adds
// only the painting: back colour, picture, these rectangles in their order, then the elements.
template <typename Base>
class PersistentDrawing : public Base {
 public:
  using Base::Base;

  // The most rectangles kept; beyond it the oldest are forgotten, so that a caller that never
  // clears cannot make the list grow without end.
  static constexpr std::size_t kMaxRects = 4096;

  PictureRef Picture() const override { return picture_; }
  void SetPicture(PictureRef picture) override {
    picture_ = std::move(picture);
    DrawingChanged();
  }
  void Cls() override {
    drawn_.clear();
    DrawingChanged();
  }
  void FillRect(double x1, double y1, double x2, double y2, OLE_COLOR color) override {
    // A corner that is not a number names no place; nothing is drawn.
    if (std::isnan(x1) || std::isnan(y1) || std::isnan(x2) || std::isnan(y2)) return;
    const DrawnRect rect{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2),
                         color};
    std::erase_if(drawn_, [&rect](const DrawnRect& older) { return rect.Covers(older); });
    if (drawn_.size() >= kMaxRects) drawn_.erase(drawn_.begin());
    drawn_.push_back(rect);
    DrawingChanged();
  }

  // The rectangles of the persistent drawing, in drawing order (the last one on top).
  const std::vector<DrawnRect>& DrawnRects() const { return drawn_; }

 protected:
  // The picture or the drawing changed: a platform that paints shows it again.
  virtual void DrawingChanged() {}

 private:
  PictureRef picture_;
  std::vector<DrawnRect> drawn_;
};

}  // namespace zk
