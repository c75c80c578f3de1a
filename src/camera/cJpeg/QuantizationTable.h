#pragma once

#include <array>
#include <cstdint>

namespace vintoral {

inline constexpr int kBlockSize = 64;

// The place in an 8 x 8 block, row by row, of each coefficient in zig-zag order (ITU-T T.81, figure A.6).
extern const std::array<std::uint8_t, kBlockSize> kZigZag;

// A quantisation table as it travels in the file (ITU-T T.81, B.2.4.1), its entries row by row.
struct QuantizationTable {
  int precision = 0;  // 0: entries of 8 bits, the only one that baseline allows
  std::array<std::uint16_t, kBlockSize> entries{};
};

// The example tables of ITU-T T.81, Annex K.1, for quality 50.
extern const QuantizationTable kLuminanceQuantization;
extern const QuantizationTable kChrominanceQuantization;

// The table for a quality of 1 to 100: every entry of `base` times a scale in percent, rounded, clamped to
// 1 to 255. The scale is 200 - 2q from 50 up and 5000 / q, cut to a whole number, below.
QuantizationTable ScaleQuantization(const QuantizationTable& base, int quality);

// Throws cJpegError: "Illegal precission in Quantization Table" for a precision that baseline does not have,
// "Bad Quantization Table" for an entry that the precision can't hold or that would divide by zero.
void CheckQuantization(const QuantizationTable& table);

}  // namespace vintoral
