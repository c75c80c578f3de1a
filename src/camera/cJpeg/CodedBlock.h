#pragma once

#include <array>
#include <cstdint>

#include "camera/cJpeg/QuantizationTable.h"

namespace vintoral {

// A block after the quantiser.
struct CodedBlock {
  alignas(8) std::array<std::int16_t, kBlockSize> values;  // in zig-zag order
  std::uint64_t nonzero;  // a bit for each AC value that is not zero, value 1 in bit 1; bit 0 is clear
};

}  // namespace vintoral
