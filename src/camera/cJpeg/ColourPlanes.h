#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "camera/cImage/Pixels.h"

namespace vintoral {

// The samples of a picture taken apart by colour, a byte each: red, green and blue, or grey alone. They stay
// RGB until they are coded: to round Y, Cb and Cr to bytes first adds the same error as a quantiser's step
// of 1.
class ColourPlanes {
 public:
  ColourPlanes() = default;

  // Takes the rectangle, which lies within the picture; grey if all colours of its palette are.
  ColourPlanes(const PixelView& picture, int left, int top, int width, int height);

  bool IsEmpty() const { return width_ == 0; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  bool IsGrey() const { return grey_; }

  // Row y of plane 0 (red or grey), 1 (green) or 2 (blue).
  const std::uint8_t* Row(int plane, int y) const { return samples_.get() + Offset(plane, y); }

 private:
  std::size_t Offset(int plane, int y) const {
    return (static_cast<std::size_t>(plane) * static_cast<std::size_t>(height_) +
            static_cast<std::size_t>(y)) *
           static_cast<std::size_t>(width_);
  }

  int width_ = 0;
  int height_ = 0;
  bool grey_ = false;
  std::unique_ptr<std::uint8_t[]> samples_;
};

}  // namespace vintoral
