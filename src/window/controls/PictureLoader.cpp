#include "window/controls/PictureLoader.h"

#include <QCoreApplication>
#include <algorithm>

namespace vintoral {
namespace {

/// A station has other work for its processors, and a share answers two readers as fast as many.
constexpr int kReaders = 2;

/// As the screen has its pixels, so that nothing is left to do in the event loop.
QImage ToImage(const cImage& picture) {
  QImage image(picture.Width(), picture.Height(), QImage::Format_BGR888);
  for (int y = 0; y < picture.Height(); ++y)
    ReadColourRow(picture.hDC(), 0, y, picture.Width(), image.scanLine(y));
  return std::move(image).convertToFormat(QImage::Format_RGB32);
}

}  // namespace

PictureLoader::PictureLoader(const Pictures& pictures, Disk& disk) : pictures_(pictures), disk_(disk) {
  pool_.setMaxThreadCount(kReaders);
}

PictureLoader::Reading PictureLoader::Load(const Picture& picture, const PicturePlace& place, Turn turn,
                                           Arrive arrive) {
  Reading reading = std::make_shared<char>();
  const std::weak_ptr<void> wanted = reading;
  const auto read = [this, picture, place, wanted, arrive = std::move(arrive)] {
    if (wanted.expired()) return;
    const DecodedPicture decoded = pictures_.Load(disk_, picture.Path(), place);
    const QImage image = decoded.pixels ? ImageIn(place, *decoded.pixels) : QImage();
    const PictureFault fault = decoded.fault;
    const auto tell = [this, picture, wanted, arrive, image, fault] {
      if (wanted.expired()) return;
      arrive(image, fault);
      const bool damaged = fault == PictureFault::kNoPicture && picture.Mark() != FileMark{};
      if (damaged && OnDamaged) OnDamaged(picture);
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), tell, Qt::QueuedConnection);
  };
  pool_.start(read, turn == Turn::kFirst ? 1 : 0);
  return reading;
}

QPixmap PictureLoader::Find(const Picture& picture) const {
  const auto found =
      std::find_if(letGo_.begin(), letGo_.end(), [&](const auto& each) { return each.first == picture; });
  if (found != letGo_.end()) return found->second;
  return OnScreen ? OnScreen(picture) : QPixmap();
}

void PictureLoader::LetGo(const Picture& picture, const QPixmap& pixmap) {
  if (letGo_.empty())
    QMetaObject::invokeMethod(
        &pool_, [this] { letGo_.clear(); }, Qt::QueuedConnection);
  letGo_.emplace_back(picture, pixmap);
}

QImage ImageIn(const PicturePlace& place, const cImage& pixels) {
  const QImage image = ToImage(pixels);
  const auto mode = place.fills ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
  return image.scaled(place.width, place.height, mode, Qt::SmoothTransformation);
}

}  // namespace vintoral
