#include "platform/qt/qt_picture_loader.h"

#include <QFileInfo>
#include <QImage>

#include "foundation/zk_error.h"
#include "platform/qt/qt_text.h"

namespace zk {

PictureRef QtPictureLoader::LoadPicture(const std::u16string& path) {
  const QString file = ToQString(path);
  if (!QFileInfo(file).isReadable()) {
    throw ZKError(error_number::kFileNotFound, u"File not found: " + path);
  }
  QImage image(file);
  if (image.isNull()) throw ZKError(error_number::kInvalidPicture, u"Invalid picture");
  image = image.convertToFormat(QImage::Format_ARGB32);
  std::vector<uint32_t> pixels;
  pixels.reserve(static_cast<size_t>(image.width()) * static_cast<size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    pixels.insert(pixels.end(), row, row + image.width());
  }
  return std::make_shared<Picture>(NewHandle(), image.width(), image.height(), std::move(pixels));
}

}  // namespace zk
