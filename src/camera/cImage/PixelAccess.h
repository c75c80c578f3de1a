#pragma once

#include <cstddef>
#include <cstdint>

namespace vintoral {

// Pixel x of a row of 1, 4, 8 or 24 bits as it is stored: a place in the palette, or blue in the low byte.
inline unsigned ReadPixel(const std::uint8_t* row, int bitCount, int x) {
  const auto at = static_cast<std::size_t>(x);
  switch (bitCount) {
    case 1:
      return static_cast<unsigned>(row[at / 8] >> (7 - at % 8)) & 1U;
    case 4:
      return static_cast<unsigned>(row[at / 2] >> (at % 2 == 0 ? 4 : 0)) & 15U;
    case 8:
      return row[at];
    default:
      return row[3 * at] | static_cast<unsigned>(row[3 * at + 1]) << 8 |
             static_cast<unsigned>(row[3 * at + 2]) << 16;
  }
}

inline void WriteBits(std::uint8_t& byte, unsigned mask, unsigned shift, unsigned value) {
  byte = static_cast<std::uint8_t>((byte & ~(mask << shift)) | (value & mask) << shift);
}

inline void WritePixel(std::uint8_t* row, int bitCount, int x, unsigned value) {
  const auto at = static_cast<std::size_t>(x);
  switch (bitCount) {
    case 1:
      return WriteBits(row[at / 8], 1U, static_cast<unsigned>(7 - at % 8), value);
    case 4:
      return WriteBits(row[at / 2], 15U, at % 2 == 0 ? 4U : 0U, value);
    case 8:
      row[at] = static_cast<std::uint8_t>(value);
      return;
    default:
      row[3 * at] = static_cast<std::uint8_t>(value);
      row[3 * at + 1] = static_cast<std::uint8_t>(value >> 8);
      row[3 * at + 2] = static_cast<std::uint8_t>(value >> 16);
  }
}

}  // namespace vintoral
