#include "window/controls/PictureLoader.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdint>

namespace vintoral {
namespace {

/// A station has other work for its processors, and a share answers two readers as fast as many.
constexpr int kReaders = 2;

/// A row as blue, green, red bytes; in `room` where the picture has it otherwise.
const std::uint8_t* ColourRow(const PixelView& picture, int y, std::vector<std::uint8_t>& room) {
  if (picture.bitCount == 24) return picture.Row(y);
  room.resize(static_cast<std::size_t>(picture.width) * 3);
  ReadColourRow(picture, 0, y, picture.width, room.data());
  return room.data();
}

/// As the screen has its pixels, so that nothing is left to do in the event loop.
QImage ToImage(const cImage& picture) {
  QImage image(picture.Width(), picture.Height(), QImage::Format_RGB32);
  std::vector<std::uint8_t> room;
  for (int y = 0; y < picture.Height(); ++y) {
    const std::uint8_t* from = ColourRow(picture.hDC(), y, room);
    auto* const pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < picture.Width(); ++x, from += 3)
      pixels[x] = qRgb(from[2], from[1], from[0]);
  }
  return image;
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
