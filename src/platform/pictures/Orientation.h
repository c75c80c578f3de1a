// How a camera was held when it took a picture: the tag Orientation of Exif (CIPA DC-008, 4.6.4).
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "camera/cImage/cImage.h"

namespace vintoral {

/// What makes the picture upright: mirrored left to right where it says so, then turned clockwise.
struct Orientation {
  bool mirrored = false;
  int degrees = 0;  ///< 0, 90, 180 or 270

  friend bool operator==(const Orientation&, const Orientation&) = default;
};

/// From the content of the APP1 segment of a JPEG file. Upright where it says nothing that can be understood.
Orientation OrientationOf(std::span<const std::uint8_t> exif);
/// Do width and height change places?
bool SwapsSides(const Orientation& held);
/// Nothing when memory runs out.
std::optional<cImage> Upright(cImage picture, const Orientation& held);

}  // namespace vintoral
