// Picture files are read beside the event loop: a photo of many megapixels, or one on a slow share, delays no
// key.
#pragma once

#include <QImage>
#include <QThreadPool>
#include <functional>

#include "platform/Pictures.h"

namespace vintoral {

class PictureLoader {
 public:
  /// Both outlive it; its end waits for the files that are being read.
  PictureLoader(const Pictures& pictures, Disk& disk) : pictures_(pictures), disk_(disk) {}

  /// `arrive` gets the image, as large as its place asks, in the event loop; a null image when there is none.
  void Load(const String& path, const PicturePlace& place, std::function<void(const QImage&)> arrive);

 private:
  const Pictures& pictures_;
  Disk& disk_;
  QThreadPool pool_;
};

/// The pixels, scaled to lie inside their place or to cover it.
QImage ImageIn(const PicturePlace& place, const cImage& pixels);

}  // namespace vintoral
