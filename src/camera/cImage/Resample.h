#pragma once

#include "camera/cImage/Pixels.h"

namespace vintoral {

// Fills a surface with a picture, made larger or smaller to fit; each direction goes by itself. Of a surface
// with a palette each pixel takes the nearest colour. False if there is no memory for the rows in between.
[[nodiscard]] bool ResampleInto(const PixelSurface& to, const PixelView& from);

}  // namespace vintoral
