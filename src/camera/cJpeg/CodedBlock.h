#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "camera/cJpeg/QuantizationTable.h"

namespace vintoral {

// A block after the quantiser, in zig-zag order, made ready for the entropy coder (ITU-T T.81, F.1.2).
//
// A token holds a quantised value in its upper 16 bits. The lower five name its class: the sign (1 for minus)
// in bit 4, the number of magnitude bits less two, modulo 16, below. That is what the transform gets for free
// from the exponent of the value as a float, and all the coder needs to look the value up. The token of a
// zero is 0.
struct CodedBlock {
  std::array<std::int32_t, kBlockSize> tokens;
  std::uint64_t
      nonzero;  // a bit for each AC coefficient that is not zero, coefficient 1 in bit 1; bit 0 is clear

  int Value(std::size_t k) const { return tokens[k] >> 16; }
};

inline constexpr std::size_t kTokenClasses = 32;

inline std::size_t TokenClass(std::int32_t token) {
  return static_cast<unsigned>(token) % kTokenClasses;
}
inline bool IsNegative(std::size_t tokenClass) {
  return (tokenClass & 16U) != 0;
}
inline int MagnitudeBits(std::size_t tokenClass) {
  return static_cast<int>((tokenClass + 2) & 15U);
}

}  // namespace vintoral
