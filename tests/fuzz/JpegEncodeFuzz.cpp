// A size, settings and contents: each gives a whole file, the same from the loops of every instruction set.
#include "camera/cJpeg/EncodePlanes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vintoral;
  if (size < 12) return 0;
  const int width = 1 + data[0] + data[1] % 4 * 256, bits = data[3] % 2 == 0 ? 8 : 24, row = width * bits / 8;
  const int height = static_cast<int>(size - 10) / row;
  const auto factor = [&](int at) { return SamplingFactor{1 + data[at] % 4, 1 + data[at + 1] % 4}; };
  const SamplingFactors factors = {factor(4), factor(6), factor(8)};
  if (!IsAllowed(factors) || height == 0) return 0;
  const Rgb palette[] = {{data[4], data[5], data[6]}, {255, 255, 255}};
  const ColourPlanes planes({width, height, bits, data + 10, row, palette}, 0, 0, width, height);
  const QuantizationTable table = ScaleQuantization(kLuminanceQuantization, 1 + data[2] % 100);
  const Bytes file = EncodePlanes(planes, {table, table}, factors, "", BestKernels());
  if (file != EncodePlanes(planes, {table, table}, factors, "", kPortableKernels)) __builtin_trap();
  return 0;
}
