// The photo of a ficha: 320 by 240 pixels, whatever the camera gives.
#pragma once

#include <memory>

#include "camera/cImage/cImage.h"

namespace vintoral {

inline constexpr int kAnchoFoto = 320;  ///< pixels
inline constexpr int kAltoFoto = 240;   ///< pixels

/// A frame stretched to the size of a photo, 24 bits; null where it is empty or memory runs out.
std::shared_ptr<cImage> FotoDe(const cImage& cuadro);

}  // namespace vintoral
