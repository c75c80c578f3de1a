// What is stamped on photos, in letters of the program's own.
#pragma once

#include <string_view>

#include "camera/cImage/cImage.h"

namespace vintoral {

/// Writes `text` into a picture of 24 bits, its upper left corner at pixel (x, y): light letters with a thin
/// dark edge, to be read on any ground, 11 pixels high in all. Letters that there are none of (small ones,
/// accents) leave their place blank; what sticks out is cut off.
void Sellar(cImage& foto, int x, int y, std::string_view text);

}  // namespace vintoral
