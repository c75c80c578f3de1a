#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "camera/cImage/Pixels.h"

namespace vintoral {

// A picture that owns its pixels, laid out as a device-independent bitmap: 1, 4, 8 or 24 bits, rows padded to
// 32 bits and lying bottom to top, a palette of 2, 16 or 256 colours below 24 bits.
//
// The functions that return a picture (Greyscale, Resample, Mirror, Rotate) do not change this one, and
// return nothing when it is empty or memory runs out.
class cImage {
 public:
  static constexpr int kMaxSide = 65500;

  int Width() const { return width_; }
  int Height() const { return height_; }
  int BitCount() const { return bitCount_; }

  // The picture as a surface to draw on or to read from, rows top to bottom. It is good until the picture
  // changes size.
  PixelSurface hDC();
  PixelView hDC() const;

  // The bits, lowest row first, and the size of a row in bytes.
  std::uint8_t* DIBitsPtr() { return bits_.data(); }
  const std::uint8_t* DIBitsPtr() const { return bits_.data(); }
  std::size_t BytesPerScanLine() const { return RowSize(width_, bitCount_); }

  std::span<const Rgb> Palette() const { return palette_; }
  void SetPalette(std::span<const Rgb> palette);

  // Makes a new picture of zeros. Its palette is black and white; the sixteen colours of the first colour
  // screens; or at 8 bits six steps each of red, green and blue, and forty greys. False, with nothing
  // changed, if a side is not 1 to kMaxSide, the depth is not one of the four, or there is no memory.
  [[nodiscard]] bool Create(int width, int height, int bitCount);

  // Becomes a copy of a picture, at its own depth for a bit count of 0; a depth of 16 or 32 becomes 24. Its
  // palette comes along if it fits. False as Create.
  [[nodiscard]] bool CopyStdPicture(const PixelView& picture, int bitCount = 0);

  // Fills this picture from another, whose point (left, top) comes to the upper left corner.
  void CopyHDC(const PixelView& from, int left = 0, int top = 0);

  // Takes the palette of another, as far as it fits. The pixels keep their places in it.
  void CopyPalletHDC(const PixelView& from) { SetPalette(from.palette); }

  // Draws this picture on a surface, with its upper left corner at (left, top).
  void PaintHDC(const PixelSurface& to, int left = 0, int top = 0) const { BlockCopy(to, left, top, hDC()); }

  // The same in 256 greys, by lightness.
  std::optional<cImage> Greyscale() const;

  // Another size, at the same depth: what shrinks takes the mean of the area that it stands for, what grows
  // runs straight from pixel centre to pixel centre.
  std::optional<cImage> Resample(int width, int height) const;

  // Top to bottom when the flag is set, left to right otherwise.
  std::optional<cImage> Mirror(bool topToBottom) const;

  // Turned clockwise. None unless the angle, brought to 0 to 359, is 90, 180 or 270.
  std::optional<cImage> Rotate(int degrees) const;

 private:
  std::optional<cImage> NewLikeThis(int width, int height) const;

  int width_ = 0;
  int height_ = 0;
  int bitCount_ = 0;
  std::vector<std::uint8_t> bits_;
  std::vector<Rgb> palette_;
};

}  // namespace vintoral
