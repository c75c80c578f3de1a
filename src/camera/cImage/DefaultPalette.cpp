#include "camera/cImage/DefaultPalette.h"

namespace vintoral {

namespace {

std::vector<Rgb> ScreenColours() {
  return {{0, 0, 0},     {128, 0, 0},     {0, 128, 0},     {128, 128, 0},  {0, 0, 128}, {128, 0, 128},
          {0, 128, 128}, {192, 192, 192}, {128, 128, 128}, {255, 0, 0},    {0, 255, 0}, {255, 255, 0},
          {0, 0, 255},   {255, 0, 255},   {0, 255, 255},   {255, 255, 255}};
}

// Six steps of 51 for each of red, green and blue, then greys between the six that are among them.
std::vector<Rgb> ColourCube() {
  std::vector<Rgb> palette;
  for (int i = 0; i < 216; ++i) {
    const auto step = [](int n) { return static_cast<std::uint8_t>(51 * n); };
    palette.push_back({step(i / 36), step(i / 6 % 6), step(i % 6)});
  }
  for (int i = 1; i <= 40; ++i) {
    const auto light = static_cast<std::uint8_t>(i * 255 / 41);
    palette.push_back({light, light, light});
  }
  return palette;
}

}  // namespace

std::vector<Rgb> DefaultPalette(int bitCount) {
  switch (bitCount) {
    case 1:
      return {{0, 0, 0}, {255, 255, 255}};
    case 4:
      return ScreenColours();
    case 8:
      return ColourCube();
    default:
      return {};
  }
}

std::vector<Rgb> GreyPalette() {
  std::vector<Rgb> palette;
  for (int i = 0; i < 256; ++i) {
    const auto light = static_cast<std::uint8_t>(i);
    palette.push_back({light, light, light});
  }
  return palette;
}

}  // namespace vintoral
