#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "camera/cImage/cImage.h"

namespace vintoral {

// A packed device-independent bitmap: a header of 40 bytes (longer ones are read too), the palette, and the
// bits, in rows padded to 32 bits, bottom to top, or top to bottom if the header's height is negative. A .bmp
// file is the same behind a file header of 14 bytes. Numbers have their low byte first.
//
// Read are 1, 4, 8, 16, 24 and 32 bits without compression, and 16 and 32 bits with bit fields; 16 and 32
// become 24. Anything else, and bits that are not all there, give no picture.
std::optional<cImage> ReadPackedBitmap(std::span<const std::uint8_t> bytes);
std::optional<cImage> ReadBitmapFile(std::span<const std::uint8_t> bytes);

// Empty if the picture is.
std::vector<std::uint8_t> WritePackedBitmap(const cImage& picture);
std::vector<std::uint8_t> WriteBitmapFile(const cImage& picture);

}  // namespace vintoral
