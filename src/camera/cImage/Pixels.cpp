#include "camera/cImage/Pixels.h"

#include <algorithm>

#include "camera/cImage/PaletteMatcher.h"
#include "camera/cImage/PixelAccess.h"

namespace vintoral {

namespace {

// 0 to 31 spread over 0 to 255.
std::uint8_t FiveBits(unsigned value) {
  return static_cast<std::uint8_t>((value & 31U) * 255U / 31U);
}

// A colour as ReadPixel gives it at 24 bits.
unsigned Packed(Rgb colour) {
  return colour.blue | static_cast<unsigned>(colour.green) << 8 | static_cast<unsigned>(colour.red) << 16;
}

Rgb ReadColour(const PixelView& picture, const std::uint8_t* row, int x) {
  if (HasPalette(picture.bitCount)) {
    const unsigned place = ReadPixel(row, picture.bitCount, x);
    return place < picture.palette.size() ? picture.palette[place] : Rgb{};
  }
  if (picture.bitCount == 16) {
    const std::uint8_t* pixel = row + 2 * std::ptrdiff_t{x};
    const unsigned packed = pixel[0] | static_cast<unsigned>(pixel[1]) << 8;
    return {FiveBits(packed >> 10), FiveBits(packed >> 5), FiveBits(packed)};
  }
  const std::uint8_t* pixel = row + std::ptrdiff_t{x} * (picture.bitCount / 8);
  return {pixel[2], pixel[1], pixel[0]};
}

// Whether a pixel can go over as it is stored.
bool SameForm(const PixelView& a, const PixelView& b) {
  return a.bitCount == b.bitCount &&
         (!HasPalette(a.bitCount) ||
          std::equal(a.palette.begin(), a.palette.end(), b.palette.begin(), b.palette.end()));
}

}  // namespace

std::size_t RowSize(int width, int bitCount) {
  const auto bits = static_cast<std::size_t>(width) * static_cast<std::size_t>(bitCount);
  return (bits + 31) / 32 * 4;
}

bool HasPalette(int bitCount) {
  return bitCount == 1 || bitCount == 4 || bitCount == 8;
}

bool HasGreyPalette(const PixelView& picture) {
  const auto isGrey = [](Rgb colour) { return colour.red == colour.green && colour.green == colour.blue; };
  return HasPalette(picture.bitCount) && std::all_of(picture.palette.begin(), picture.palette.end(), isGrey);
}

std::uint8_t Luminance(Rgb colour) {
  return static_cast<std::uint8_t>((299 * colour.red + 587 * colour.green + 114 * colour.blue + 500) / 1000);
}

void ReadColourRow(const PixelView& picture, int left, int y, int count, std::uint8_t* pixels) {
  const std::uint8_t* row = picture.Row(y);
  for (int x = left; x < left + count; ++x) {
    const Rgb colour = ReadColour(picture, row, x);
    *pixels++ = colour.blue;
    *pixels++ = colour.green;
    *pixels++ = colour.red;
  }
}

void ReadGreyRow(const PixelView& picture, int left, int y, int count, std::uint8_t* greys) {
  const std::uint8_t* row = picture.Row(y);
  for (int x = left; x < left + count; ++x)
    *greys++ = Luminance(ReadColour(picture, row, x));
}

void BlockCopy(const PixelSurface& to, std::int64_t left, std::int64_t top, const PixelView& from) {
  const auto firstX = static_cast<int>(std::clamp<std::int64_t>(-left, 0, from.width));
  const auto firstY = static_cast<int>(std::clamp<std::int64_t>(-top, 0, from.height));
  const auto endX = static_cast<int>(std::min<std::int64_t>(from.width, to.width - left));
  const auto endY = static_cast<int>(std::min<std::int64_t>(from.height, to.height - top));
  const bool sameForm = SameForm(to, from);
  PaletteMatcher matcher(to.palette);
  for (int y = firstY; y < endY; ++y) {
    const std::uint8_t* source = from.Row(y);
    std::uint8_t* target = to.Row(static_cast<int>(top + y));
    for (int x = firstX; x < endX; ++x) {
      unsigned pixel = 0;
      if (sameForm) {
        pixel = ReadPixel(source, from.bitCount, x);
      } else if (HasPalette(to.bitCount)) {
        pixel = matcher.Nearest(ReadColour(from, source, x));
      } else {
        pixel = Packed(ReadColour(from, source, x));
      }
      WritePixel(target, to.bitCount, static_cast<int>(left + x), pixel);
    }
  }
}

}  // namespace vintoral
