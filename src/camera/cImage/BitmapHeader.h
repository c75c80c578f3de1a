#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "camera/cImage/Pixels.h"

namespace vintoral {

inline constexpr std::size_t kBitmapFileHeaderSize = 14;
inline constexpr std::size_t kBitmapHeaderSize = 40;

// Where in a pixel of 16 or 32 bits each colour lies.
struct BitFields {
  std::uint32_t red = 0, green = 0, blue = 0;
};

// What stands before the bits of a packed bitmap.
struct BitmapHeader {
  int width = 0;
  int height = 0;
  bool topToBottom = false;
  int bitCount = 0;
  BitFields fields;  // for 16 and 32 bits
  std::vector<Rgb> palette;
  std::size_t size = 0;  // of all of it, so that the bits follow
};

// None if it is of no kind that is read, has a side of 0 or above cImage::kMaxSide, or is cut off.
std::optional<BitmapHeader> ReadBitmapHeader(std::span<const std::uint8_t> bytes);

}  // namespace vintoral
