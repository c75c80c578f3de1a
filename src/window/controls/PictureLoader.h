// Picture files are read beside the event loop: a photo of many megapixels, or one on a slow share, delays no
// key.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QSocketNotifier>
#include <QTimer>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/Bell.h"
#include "platform/Picture.h"
#include "platform/Pictures.h"
#include "window/controls/Readers.h"

namespace vintoral {

class PictureLoader {
 public:
  /// Both outlive it; its end waits for the files that are being read, and reads no more.
  PictureLoader(const Pictures& pictures, Disk& disk);
  /// True when nothing is being read any more, which is waited for this long; no other file is begun.
  bool EndWithin(int milliseconds) { return readers_.EndWithin(milliseconds); }
  PictureLoader(const PictureLoader&) = delete;
  PictureLoader& operator=(const PictureLoader&) = delete;

  using Turn = Readers::Turn;
  /// Whoever lets go of it wants the picture no more: it is not read any further than it has been, and
  /// doesn't arrive.
  using Reading = std::shared_ptr<void>;
  /// Gets the image, as large as its place asks; a null image when there is a fault.
  using Arrive = std::function<void(const QImage&, PictureFault)>;
  /// `arrive` is called in the event loop.
  [[nodiscard]] Reading Load(const Picture& picture, const PicturePlace& place, Turn turn, Arrive arrive);

  /// A file that was read whole is no picture. Told only of files that somebody had looked at, since then it
  /// can be said which file it was.
  std::function<void(const Picture&)> OnDamaged;

  /// What is already shown of a picture somewhere, at whatever size; null when it is nowhere.
  std::function<QPixmap(const Picture&)> OnScreen;
  /// The same, and what a view has let go of in this round of events: pictures change places.
  QPixmap Find(const Picture& picture) const;
  void LetGo(const Picture& picture, const QPixmap& pixmap);

 private:
  struct Order {
    Picture picture;
    PicturePlace place;
    Turn turn;
    Arrive arrive;
    std::weak_ptr<void> wanted;
  };
  struct Arrival {
    Order order;
    QImage image;
    PictureFault fault;
  };
  void Read(const Order& order);
  void Bring(Arrival arrival, bool atOnce);
  void Hear();
  void Deliver();

  const Pictures& pictures_;
  Disk& disk_;
  std::vector<std::pair<Picture, QPixmap>> letGo_;
  std::atomic<int> unread_ = 0;
  std::mutex mutex_;
  std::vector<Arrival> arrivals_;
  bool atOnce_ = false;  ///< one of them is waited for
  Bell bell_;
  QSocketNotifier hears_;
  QTimer bundle_;
  Readers readers_;  ///< the last one: what is being read uses all others
};

/// The pixels, scaled to lie inside their place or to cover it.
QImage ImageIn(const PicturePlace& place, const cImage& pixels);

}  // namespace vintoral
