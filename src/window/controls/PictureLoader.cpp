#include "window/controls/PictureLoader.h"

#include <algorithm>
#include <cstdint>

namespace vintoral {
namespace {

/// A station has other work for its processors, and a share answers two readers as fast as many.
constexpr std::size_t kReaders = 2;
/// Milliseconds. The pictures of a row come in bundles: painting each by itself would take as long as reading
/// them.
constexpr int kBundle = 5;

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

PictureLoader::PictureLoader(const Pictures& pictures, Disk& disk)
    : pictures_(pictures), disk_(disk), hears_(bell_.Number(), QSocketNotifier::Read), readers_(kReaders) {
  QObject::connect(&hears_, &QSocketNotifier::activated, &hears_, [this] { Hear(); });
  bundle_.setSingleShot(true);
  bundle_.setTimerType(Qt::PreciseTimer);
  bundle_.setInterval(kBundle);
  QObject::connect(&bundle_, &QTimer::timeout, &bundle_, [this] { Deliver(); });
}

PictureLoader::Reading PictureLoader::Load(const Picture& picture, const PicturePlace& place, Turn turn,
                                           Arrive arrive) {
  Reading reading = std::make_shared<char>();
  ++unread_;
  readers_.Add([this, order = Order{picture, place, turn, std::move(arrive), reading}] { Read(order); },
               turn);
  return reading;
}

void PictureLoader::Read(const Order& order) {
  Arrival arrival{order, QImage(), PictureFault::kNotRead};
  if (!order.wanted.expired()) {
    const DecodedPicture decoded = pictures_.Load(disk_, order.picture.Path(), order.place);
    arrival.fault = decoded.fault;
    if (decoded.pixels) arrival.image = ImageIn(order.place, *decoded.pixels);
  }
  const bool last = --unread_ == 0;
  Bring(std::move(arrival), last || order.turn == Turn::kFirst);
}

void PictureLoader::Bring(Arrival arrival, bool atOnce) {
  const std::lock_guard lock(mutex_);
  arrivals_.push_back(std::move(arrival));
  if (!atOnce && arrivals_.size() > 1) return;
  atOnce_ |= atOnce;
  bell_.Ring();
}

void PictureLoader::Hear() {
  bell_.Hear();
  std::unique_lock lock(mutex_);
  const bool atOnce = std::exchange(atOnce_, false);
  lock.unlock();
  if (atOnce) return Deliver();
  if (!bundle_.isActive()) bundle_.start();
}

void PictureLoader::Deliver() {
  std::vector<Arrival> arrivals;
  {
    const std::lock_guard lock(mutex_);
    arrivals.swap(arrivals_);
  }
  for (const Arrival& each : arrivals) {
    if (each.order.wanted.expired()) continue;
    each.order.arrive(each.image, each.fault);
    const bool damaged = each.fault == PictureFault::kNoPicture && each.order.picture.Mark() != FileMark{};
    if (damaged && OnDamaged) OnDamaged(each.order.picture);
  }
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
        &bundle_, [this] { letGo_.clear(); }, Qt::QueuedConnection);
  letGo_.emplace_back(picture, pixmap);
}

QImage ImageIn(const PicturePlace& place, const cImage& pixels) {
  const QImage image = ToImage(pixels);
  const auto mode = place.fills ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
  return image.scaled(place.width, place.height, mode, Qt::SmoothTransformation);
}

}  // namespace vintoral
