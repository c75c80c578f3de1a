#include "camera/cJpeg/Quantizer.h"

#include <cstddef>

namespace vintoral {

namespace {

// Coefficient k of the transform comes out at kScale[k] * sqrt(8) times its size: 1, and sqrt(2) cos(k pi /
// 16). Written out, so that no library's rounding has a say in the file.
constexpr std::array<double, 8> kScale = {1.0, 1.3870398453221475,  1.3065629648763766,  1.1758756024193588,
                                          1.0, 0.78569495838710235, 0.54119610014619701, 0.27589937928294306};

}  // namespace

Quantizer::Quantizer(const QuantizationTable& table) {
  for (std::size_t k = 0; k < kBlockSize; ++k)
    zigZagOf[kZigZag[k]] = static_cast<std::uint8_t>(k);
  for (std::size_t i = 0; i < kBlockSize; ++i) {
    factors[i] = static_cast<float>(1.0 / (8.0 * kScale[i / 8] * kScale[i % 8] * table.entries[i]));
  }
}

}  // namespace vintoral
