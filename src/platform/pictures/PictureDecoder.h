// The one decoder of both faces.
#pragma once

#include <cstddef>

#include "platform/Pictures.h"

namespace vintoral {

/// Beyond these a file is not decoded.
struct PictureLimits {
  std::size_t pixels = 50'000'000;              ///< that the file says it has
  std::size_t memory = std::size_t{384} << 20;  ///< bytes, for all that decoding it takes at one time
  int scans =
      100;  ///< passes over the picture: a photo has ten or so, and a made-up file could ask for thousands
};

/// JPEG: baseline and progressive; grey, colour and the four inks of printing; turned as the camera says that
/// it was held.
class PictureDecoder : public Pictures {
 public:
  explicit PictureDecoder(const PictureLimits& limits = {}) : limits_(limits) {}
  DecodedPicture Decode(std::span<const std::uint8_t> bytes, const PicturePlace& place) const override;

 private:
  PictureLimits limits_;
};

}  // namespace vintoral
