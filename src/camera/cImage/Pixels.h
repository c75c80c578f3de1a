#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vintoral {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Rgb&) const = default;
};

// Pixels that lie anywhere in memory, owned by somebody else: what a device context is elsewhere.
//
// A row is packed as in a device-independent bitmap: 1 and 4 bits with the leftmost pixel in the high bits, 8
// bits, 16 bits as 5-5-5 with blue lowest, 24 bits as blue, green, red bytes, 32 bits as those and a byte
// without meaning. At 1, 4 and 8 bits pixels are places in the palette; a place beyond its end is black.
template <class Byte>
struct Pixels {
  int width = 0;
  int height = 0;
  int bitCount = 0;
  Byte* topRow = nullptr;
  std::ptrdiff_t rowStep = 0;  // bytes from a row to the one below it; negative if rows lie bottom to top
  std::span<const Rgb> palette{};

  Byte* Row(int y) const { return topRow + y * rowStep; }

  operator Pixels<const Byte>() const { return {width, height, bitCount, topRow, rowStep, palette}; }
};

using PixelView = Pixels<const std::uint8_t>;
using PixelSurface = Pixels<std::uint8_t>;

// Bytes in a row of a device-independent bitmap: whole groups of 32 bits.
std::size_t RowSize(int width, int bitCount);

bool HasPalette(int bitCount);

// Whether the depth has a palette, all colours of which are greys.
bool HasGreyPalette(const PixelView& picture);

// How light a colour is, 0 to 255 (ITU-R BT.601).
std::uint8_t Luminance(Rgb colour);

// Reads `count` pixels of a row as blue, green, red bytes, or as a byte of luminance each.
void ReadColourRow(const PixelView& picture, int left, int y, int count, std::uint8_t* pixels);
void ReadGreyRow(const PixelView& picture, int left, int y, int count, std::uint8_t* greys);

// Draws `from` into `to`, its upper left corner at (left, top), which may lie outside; what sticks out is cut
// off. Where depths or palettes differ, a pixel takes the colour of the palette that is nearest to its own;
// nearest in lightness, in a palette of greys. `to` has 1, 4, 8 or 24 bits. The two must not share memory.
void BlockCopy(const PixelSurface& to, std::int64_t left, std::int64_t top, const PixelView& from);

}  // namespace vintoral
