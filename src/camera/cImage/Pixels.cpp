#include "camera/cImage/Pixels.h"

#include <algorithm>

#include "camera/cImage/PaletteMatcher.h"

namespace vintoral {

namespace {

// The place in the palette that pixel x of a row has, at 1, 4 or 8 bits.
unsigned ReadPlace(const std::uint8_t* row, int bitCount, int x) {
  switch (bitCount) {
    case 1:
      return static_cast<unsigned>(row[x / 8] >> (7 - x % 8)) & 1U;
    case 4:
      return static_cast<unsigned>(row[x / 2] >> (x % 2 == 0 ? 4 : 0)) & 15U;
    default:
      return row[x];
  }
}

void WriteBits(std::uint8_t& byte, unsigned mask, int shift, unsigned value) {
  byte = static_cast<std::uint8_t>((byte & ~(mask << shift)) | (value & mask) << shift);
}

void WritePlace(std::uint8_t* row, int bitCount, int x, unsigned place) {
  switch (bitCount) {
    case 1:
      return WriteBits(row[x / 8], 1U, 7 - x % 8, place);
    case 4:
      return WriteBits(row[x / 2], 15U, x % 2 == 0 ? 4 : 0, place);
    default:
      row[x] = static_cast<std::uint8_t>(place);
  }
}

// 0 to 31 spread over 0 to 255.
std::uint8_t FiveBits(unsigned value) {
  return static_cast<std::uint8_t>((value & 31U) * 255U / 31U);
}

Rgb ReadColour(const PixelView& picture, const std::uint8_t* row, int x) {
  if (HasPalette(picture.bitCount)) {
    const unsigned place = ReadPlace(row, picture.bitCount, x);
    return place < picture.palette.size() ? picture.palette[place] : Rgb{};
  }
  if (picture.bitCount == 16) {
    const unsigned packed = row[2 * x] | static_cast<unsigned>(row[2 * x + 1]) << 8;
    return {FiveBits(packed >> 10), FiveBits(packed >> 5), FiveBits(packed)};
  }
  const std::uint8_t* pixel = row + std::ptrdiff_t{x} * (picture.bitCount / 8);
  return {pixel[2], pixel[1], pixel[0]};
}

bool SamePalette(const PixelView& a, const PixelView& b) {
  return a.bitCount == b.bitCount &&
         std::equal(a.palette.begin(), a.palette.end(), b.palette.begin(), b.palette.end());
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

void BlockCopy(const PixelSurface& to, int left, int top, const PixelView& from) {
  const int firstX = std::max(0, -left),
            endX = static_cast<int>(std::min<long>(from.width, long{to.width} - left));
  const int firstY = std::max(0, -top),
            endY = static_cast<int>(std::min<long>(from.height, long{to.height} - top));
  const bool samePlaces = HasPalette(to.bitCount) && SamePalette(to, from);
  PaletteMatcher matcher(to.palette);
  for (int y = firstY; y < endY; ++y) {
    const std::uint8_t* source = from.Row(y);
    std::uint8_t* target = to.Row(top + y);
    for (int x = firstX; x < endX; ++x) {
      if (samePlaces) {
        WritePlace(target, to.bitCount, left + x, ReadPlace(source, from.bitCount, x));
      } else if (HasPalette(to.bitCount)) {
        WritePlace(target, to.bitCount, left + x, matcher.Nearest(ReadColour(from, source, x)));
      } else {
        const Rgb colour = ReadColour(from, source, x);
        std::uint8_t* pixel = target + 3 * std::ptrdiff_t{left + x};
        pixel[0] = colour.blue;
        pixel[1] = colour.green;
        pixel[2] = colour.red;
      }
    }
  }
}

}  // namespace vintoral
