// Any bytes as a picture file, for a place that they choose: what is decoded has pixels, and all of them.
#include "platform/pictures/PictureDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const int side = data[size - 1];
  const vintoral::PictureDecoder decoder({.pixels = 1'000'000, .memory = std::size_t{16} << 20});
  const auto decoded = decoder.Decode({data, size}, {side, side, side % 2 == 0});
  if ((decoded.fault == vintoral::PictureFault::kNone) != (decoded.pixels != nullptr)) __builtin_trap();
  if (decoded.pixels && !decoded.pixels->Resample(8, 8)) __builtin_trap();
  return 0;
}
