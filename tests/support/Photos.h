// Photos as a gate has them, small.
#pragma once

#include <string>
#include <vector>

#include "camera/cImage/cImage.h"
#include "camera/cJpeg/cJpeg.h"

namespace vintoral::test {

/// A whole JPEG file of one shade.
inline std::string Photo(int width = 16, int height = 12) {
  cImage image;
  if (!image.Create(width, height, 24)) return {};
  cJpeg jpeg;
  if (!jpeg.SampleHDC(image.hDC(), width, height)) return {};
  const std::vector<std::uint8_t> bytes = jpeg.Encode();
  return {bytes.begin(), bytes.end()};
}

}  // namespace vintoral::test
