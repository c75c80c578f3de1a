#include "camera/cJpeg/ColourPlanes.h"

#include <vector>

#include "camera/cJpeg/Kernels.h"

namespace vintoral {

ColourPlanes::ColourPlanes(const PixelView& picture, int left, int top, int width, int height)
    : width_(width), height_(height), grey_(HasGreyPalette(picture)) {
  samples_ = std::make_unique_for_overwrite<std::uint8_t[]>(Offset(grey_ ? 1 : 3, 0));
  std::vector<std::uint8_t> row;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* red = samples_.get() + Offset(0, y);
    if (grey_) {
      ReadGreyRow(picture, left, top + y, width, red);
      continue;
    }
    const std::uint8_t* pixels = picture.Row(top + y) + 3 * std::ptrdiff_t{left};
    if (picture.bitCount != 24) {
      row.resize(3 * static_cast<std::size_t>(width));
      ReadColourRow(picture, left, top + y, width, row.data());
      pixels = row.data();
    }
    BestKernels().split(pixels, width, red, samples_.get() + Offset(1, y), samples_.get() + Offset(2, y));
  }
}

}  // namespace vintoral
