#pragma once

#include <vector>

#include "camera/cImage/Pixels.h"

namespace vintoral {

// The palette of a new picture of that depth; none above 8 bits.
std::vector<Rgb> DefaultPalette(int bitCount);

// 256 greys from black to white.
std::vector<Rgb> GreyPalette();

}  // namespace vintoral
