#include "window/controls/PictureLoader.h"

#include <QCoreApplication>
#include <utility>

namespace vintoral {
namespace {

QImage ToImage(const cImage& picture) {
  QImage image(picture.Width(), picture.Height(), QImage::Format_BGR888);
  for (int y = 0; y < picture.Height(); ++y)
    ReadColourRow(picture.hDC(), 0, y, picture.Width(), image.scanLine(y));
  return image;
}

}  // namespace

void PictureLoader::Load(const String& path, const PicturePlace& place,
                         std::function<void(const QImage&)> arrive) {
  pool_.start([this, path, place, arrive = std::move(arrive)] {
    const DecodedPicture decoded = pictures_.Load(disk_, path, place);
    const QImage image = decoded.pixels ? ImageIn(place, *decoded.pixels) : QImage();
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [arrive, image] { arrive(image); }, Qt::QueuedConnection);
  });
}

QImage ImageIn(const PicturePlace& place, const cImage& pixels) {
  const QImage image = ToImage(pixels);
  const auto mode = place.fills ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
  return image.scaled(place.width, place.height, mode, Qt::SmoothTransformation);
}

}  // namespace vintoral
