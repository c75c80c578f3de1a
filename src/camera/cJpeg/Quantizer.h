#pragma once

#include <array>
#include <cstdint>

#include "camera/cJpeg/QuantizationTable.h"

namespace vintoral {

// A quantisation table made ready for the transform: what to multiply its coefficients by, row by row, and
// where each goes in zig-zag order.
struct Quantizer {
  explicit Quantizer(const QuantizationTable& table);

  std::array<float, kBlockSize> factors;
  std::array<std::uint8_t, kBlockSize> zigZagOf;
};

}  // namespace vintoral
