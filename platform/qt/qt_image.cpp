#include "platform/qt/qt_image.h"

#include <cstring>

namespace zk {

void QtImage::SetPicture(PictureRef picture) {
  picture_ = std::move(picture);
  image_ = QImage();
  if (picture_ && !picture_->Pixels().empty()) {
    image_ = QImage(picture_->WidthPixels(), picture_->HeightPixels(), QImage::Format_ARGB32);
    for (int y = 0; y < image_.height(); ++y) {
      std::memcpy(
          image_.scanLine(y),
          picture_->Pixels().data() + static_cast<size_t>(y) * static_cast<size_t>(image_.width()),
          static_cast<size_t>(image_.width()) * sizeof(uint32_t));
    }
  }
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
