#include "platform/qt/qt_image.h"

#include <algorithm>
#include <cstring>

namespace zk {

QImage ImageOfPicture(const Picture& picture) {
  const auto width = static_cast<size_t>(std::max(0, picture.WidthPixels()));
  const auto height = static_cast<size_t>(std::max(0, picture.HeightPixels()));
  if (width == 0 || height == 0 || picture.Pixels().size() < width * height) return {};
  QImage image(picture.WidthPixels(), picture.HeightPixels(), QImage::Format_ARGB32);
  for (size_t y = 0; y < height; ++y) {
    std::memcpy(image.scanLine(static_cast<int>(y)), picture.Pixels().data() + y * width,
                width * sizeof(uint32_t));
  }
  return image;
}

void QtImage::SetPicture(PictureRef picture) {
  picture_ = std::move(picture);
  image_ = picture_ ? ImageOfPicture(*picture_) : QImage();
  Fit();
  Changed();
}

void QtImage::Fit() {
  if (stretch_ || !picture_ || picture_->Handle() == 0) return;
  QtPaintedBase::Move(Left(), Top(), Surface().XToTwips(picture_->WidthPixels()),
                      Surface().YToTwips(picture_->HeightPixels()));
}

void QtImage::Paint(QPainter& painter, const QRectF& area) const {
  if (image_.isNull()) return;
  if (stretch_) {
    painter.drawImage(area, image_);
  } else {
    painter.drawImage(area.topLeft(), image_);
  }
}

}  // namespace zk
