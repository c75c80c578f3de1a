#include "unit/camera/MadePictures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

namespace vintoral::made {

namespace {

std::uint8_t ToByte(double value) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

// A whole number that looks random, the same for the same place.
unsigned Hash(int x, int y, unsigned seed) {
  unsigned h = seed + static_cast<unsigned>(x) * 374761393U + static_cast<unsigned>(y) * 668265263U;
  h = (h ^ (h >> 13)) * 1274126177U;
  return h ^ (h >> 16);
}

double HashUnit(int x, int y, unsigned seed) {
  return Hash(x, y, seed) / 4294967296.0 - 0.5;
}

// Smooth random values, one for each whole place.
double SmoothNoise(double x, double y, unsigned seed) {
  const int left = static_cast<int>(std::floor(x)), top = static_cast<int>(std::floor(y));
  const auto ease = [](double t) { return t * t * (3 - 2 * t); };
  const double across = ease(x - left), down = ease(y - top);
  const double upper = std::lerp(HashUnit(left, top, seed), HashUnit(left + 1, top, seed), across);
  const double lower = std::lerp(HashUnit(left, top + 1, seed), HashUnit(left + 1, top + 1, seed), across);
  return std::lerp(upper, lower, down);
}

// Rough on every scale, as surfaces are.
double Surface(double x, double y, unsigned seed) {
  double sum = 0;
  double size = 1;
  for (unsigned octave = 0; octave < 7; ++octave, size *= 0.55) {
    const double scale = 4 << octave;
    sum += size * SmoothNoise(x * scale, y * scale, seed + octave);
  }
  return sum;
}

// The lightness of the scene before the sensor, x and y from 0 to 1: ground, a vehicle, its plate with print.
double Scene(double x, double y) {
  double light = 150 - 60 * y + 90 * Surface(x, y, 1);
  if (std::abs(x - 0.5) < 0.3 && std::abs(y - 0.55) < 0.25)
    light = 70 + 40 * (y - 0.3) + 25 * Surface(x, y, 2);
  if (std::hypot(x - 0.3, (y - 0.8) * 0.75) < 0.08 || std::hypot(x - 0.7, (y - 0.8) * 0.75) < 0.08)
    light = 25;
  if (std::abs(x - 0.5) < 0.1 && std::abs(y - 0.65) < 0.05) {
    const bool ink = Hash(static_cast<int>(x * 160), static_cast<int>(y * 120), 3) % 3 == 0;
    light = ink ? 20 : 225;
  }
  return light;
}

// The figures of plates, five dots wide and seven high, a byte a row with the leftmost dot in bit 4.
constexpr std::uint8_t kGlyphs[16][7] = {
    {0x0E, 0x11, 0x13, 0x15, 0x19, 0x11, 0x0E}, {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E},
    {0x0E, 0x11, 0x01, 0x02, 0x04, 0x08, 0x1F}, {0x1F, 0x02, 0x04, 0x02, 0x01, 0x11, 0x0E},
    {0x02, 0x06, 0x0A, 0x12, 0x1F, 0x02, 0x02}, {0x1F, 0x10, 0x1E, 0x01, 0x01, 0x11, 0x0E},
    {0x06, 0x08, 0x10, 0x1E, 0x11, 0x11, 0x0E}, {0x1F, 0x01, 0x02, 0x04, 0x08, 0x08, 0x08},
    {0x0E, 0x11, 0x11, 0x0E, 0x11, 0x11, 0x0E}, {0x0E, 0x11, 0x11, 0x0F, 0x01, 0x02, 0x0C},
    {0x0E, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}, {0x1E, 0x11, 0x11, 0x1E, 0x11, 0x11, 0x1E},
    {0x0E, 0x11, 0x10, 0x10, 0x10, 0x11, 0x0E}, {0x1C, 0x12, 0x11, 0x11, 0x11, 0x12, 0x1C},
    {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x1F}, {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x10}};

constexpr int kDot = 2, kCellWidth = 6 * kDot, kCellHeight = 11 * kDot, kMargin = 20;

// Whether ink lies at a place of a page: words of six figures or so, every seventh line left empty.
bool IsInk(int x, int y, unsigned seed) {
  const int column = x / kCellWidth, line = y / kCellHeight;
  if (line % 7 == 6 || Hash(column, line, seed) % 6 == 0) return false;
  const int dot = x % kCellWidth / kDot, row = y % kCellHeight / kDot;
  if (dot >= 5 || row >= 7) return false;
  return (kGlyphs[Hash(column, line, seed + 1) % 16][row] >> (4 - dot) & 1) != 0;
}

}  // namespace

MadePicture::MadePicture(int pictureWidth, int pictureHeight)
    : width(pictureWidth),
      height(pictureHeight),
      rowSize(RowSize(width, 24)),
      pixels(rowSize * static_cast<std::size_t>(height)) {}

PixelView MadePicture::View() const {
  return {width, height, 24, pixels.data(), static_cast<std::ptrdiff_t>(rowSize)};
}

std::uint8_t* MadePicture::At(int x, int y) {
  return pixels.data() + static_cast<std::size_t>(y) * rowSize + 3 * static_cast<std::size_t>(x);
}

const std::uint8_t* MadePicture::At(int x, int y) const {
  return pixels.data() + static_cast<std::size_t>(y) * rowSize + 3 * static_cast<std::size_t>(x);
}

Rgb MadePicture::Colour(int x, int y) const {
  return {At(x, y)[2], At(x, y)[1], At(x, y)[0]};
}

void MadePicture::Set(int x, int y, Rgb colour) {
  At(x, y)[0] = colour.blue;
  At(x, y)[1] = colour.green;
  At(x, y)[2] = colour.red;
}

MadePicture Flat(int width, int height, Rgb colour) {
  MadePicture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      picture.Set(x, y, colour);
  }
  return picture;
}

MadePicture Noise(int width, int height, unsigned seed) {
  MadePicture picture(width, height);
  std::mt19937 random(seed);
  for (std::uint8_t& byte : picture.pixels)
    byte = static_cast<std::uint8_t>(random() >> 24);
  return picture;
}

MadePicture Gradient(int width, int height) {
  MadePicture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double across = (x + 0.5) / width, down = (y + 0.5) / height;
      picture.Set(x, y, {ToByte(255 * across), ToByte(255 * down), ToByte(255 * (1 - (across + down) / 2))});
    }
  }
  return picture;
}

MadePicture Extremes(int width, int height) {
  MadePicture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int block = static_cast<int>(Hash(x / 8, y / 8, 7) % 512);
      const double across = std::cos((2 * (x % 8) + 1) * (block % 8) * 0.19634954084936207);
      const double down = std::cos((2 * (y % 8) + 1) * (block / 8 % 8) * 0.19634954084936207);
      const bool light = (across * down > 0) == (block / 64 % 2 == 0);
      picture.Set(x, y,
                  {light ? ToByte(255) : ToByte(0), light == (block / 128 % 2 == 0) ? ToByte(255) : ToByte(0),
                   light == (block / 256 % 2 == 0) ? ToByte(255) : ToByte(0)});
    }
  }
  return picture;
}

MadePicture Photograph(int width, int height, unsigned seed) {
  MadePicture picture(width, height);
  std::mt19937 random(seed);
  const auto sensor = [&random] {  // close to a normal distribution of deviation 2
    int sum = 0;
    for (int i = 0; i < 4; ++i)
      sum += static_cast<int>(random() >> 24) - 128;
    return sum / 74.0;
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      double light = 0;  // four places in each pixel, as a lens has no hard edges
      for (int part = 0; part < 4; ++part) {
        light += Scene((x + 0.25 + part % 2 * 0.5) / width, (y + 0.25 + part / 2 * 0.5) / height) / 4;
      }
      const double tint = 40 * Surface(double(x) / width, double(y) / height, 9);
      picture.Set(
          x, y, {ToByte(light + tint + sensor()), ToByte(light + sensor()), ToByte(light - tint + sensor())});
    }
  }
  return picture;
}

MadePicture Text(int width, int height, unsigned seed) {
  MadePicture picture = Flat(width, height, {255, 255, 255});
  for (int y = kMargin; y < height - kMargin; ++y) {
    for (int x = kMargin; x < width - kMargin; ++x) {
      if (IsInk(x - kMargin, y - kMargin, seed)) picture.Set(x, y, {0, 0, 0});
    }
  }
  return picture;
}

const std::vector<PictureKind>& PictureKinds() {
  static const std::vector<PictureKind> kinds = {
      {"flat",
       [](int w, int h) {
         return Flat(w, h, {200, 30, 90});
       }},
      {"noise", [](int w, int h) { return Noise(w, h, 5); }},
      {"gradient", Gradient},
      {"extremes", Extremes},
      {"photograph", [](int w, int h) { return Photograph(w, h, 11); }},
      {"text", [](int w, int h) { return Text(w, h, 11); }},
  };
  return kinds;
}

}  // namespace vintoral::made
