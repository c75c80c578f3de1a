#include "camera/cJpeg/QuantizationTable.h"

#include <algorithm>

#include "camera/cJpeg/cJpegError.h"

namespace vintoral {

const std::array<std::uint8_t, kBlockSize> kZigZag = {
    0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
    41, 34, 27, 20, 13, 6,  7,  14, 21, 28, 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23,
    30, 37, 44, 51, 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

// clang-format off
// ITU-T T.81, table K.1.
const QuantizationTable kLuminanceQuantization = {0, {
    16, 11, 10, 16,  24,  40,  51,  61,
    12, 12, 14, 19,  26,  58,  60,  55,
    14, 13, 16, 24,  40,  57,  69,  56,
    14, 17, 22, 29,  51,  87,  80,  62,
    18, 22, 37, 56,  68, 109, 103,  77,
    24, 35, 55, 64,  81, 104, 113,  92,
    49, 64, 78, 87, 103, 121, 120, 101,
    72, 92, 95, 98, 112, 100, 103,  99}};

// ITU-T T.81, table K.2.
const QuantizationTable kChrominanceQuantization = {0, {
    17, 18, 24, 47, 99, 99, 99, 99,
    18, 21, 26, 66, 99, 99, 99, 99,
    24, 26, 56, 99, 99, 99, 99, 99,
    47, 66, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99}};
// clang-format on

QuantizationTable ScaleQuantization(const QuantizationTable& base, int quality) {
  const int scale = quality >= 50 ? 200 - 2 * quality : 5000 / quality;
  QuantizationTable scaled;
  std::transform(base.entries.begin(), base.entries.end(), scaled.entries.begin(), [scale](int entry) {
    return static_cast<std::uint16_t>(std::clamp((entry * scale + 50) / 100, 1, 255));
  });
  return scaled;
}

void CheckQuantization(const QuantizationTable& table) {
  if (table.precision != 0) throw cJpegError("Illegal precission in Quantization Table");
  const auto bad = [](int entry) { return entry < 1 || entry > 255; };
  if (std::any_of(table.entries.begin(), table.entries.end(), bad)) {
    throw cJpegError("Bad Quantization Table");
  }
}

}  // namespace vintoral
