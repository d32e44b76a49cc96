#pragma once

#include <QImage>

#include "platform/qt/qt_painted_element.h"

namespace zk {

// The pixels of a picture as an image; a null image for a picture without pixels.
QImage ImageOfPicture(const Picture& picture);

// A picture painted by the control's surface; without Stretch the element takes the size of
// its picture.
class QtImage final : public QtPaintedBase<IImageElement> {
 public:
  explicit QtImage(QtSurface& surface) : QtPaintedBase(surface) {}

  PictureRef Picture() const override { return picture_; }
  void SetPicture(PictureRef picture) override;
  bool Stretch() const override { return stretch_; }
  void SetStretch(bool stretch) override {
    stretch_ = stretch;
    Fit();
  }
  void Move(double left, double top, double width, double height) override {
    QtPaintedBase::Move(left, top, width, height);
    Fit();
  }

  void Paint(QPainter& painter, const QRectF& area) const override;

 private:
  void Fit();

  PictureRef picture_;
  QImage image_;
  bool stretch_ = false;
};

}  // namespace zk
