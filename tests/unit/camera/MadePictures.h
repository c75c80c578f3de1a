#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "camera/cImage/Pixels.h"

namespace vintoral::made {

// A picture of 24 bits that the tests and the benchmark make themselves, its rows top to bottom.
struct MadePicture {
  MadePicture(int pictureWidth, int pictureHeight);

  PixelView View() const;
  std::uint8_t* At(int x, int y);  // blue, green, red
  const std::uint8_t* At(int x, int y) const;
  Rgb Colour(int x, int y) const;
  void Set(int x, int y, Rgb colour);

  int width, height;
  std::size_t rowSize;
  std::vector<std::uint8_t> pixels;
};

MadePicture Flat(int width, int height, Rgb colour);
MadePicture Noise(int width, int height, unsigned seed);
MadePicture Gradient(int width, int height);
// Black and white in a pattern that changes from block to block, so that every coefficient meets its
// extremes.
MadePicture Extremes(int width, int height);
// What a camera at a gate sees, more or less: soft light on rough surfaces, hard edges, small print, a noisy
// sensor.
MadePicture Photograph(int width, int height, unsigned seed);
// A printed page: black on white, with no shades between.
MadePicture Text(int width, int height, unsigned seed);

struct PictureKind {
  std::string name;
  std::function<MadePicture(int width, int height)> make;
};

const std::vector<PictureKind>& PictureKinds();

}  // namespace vintoral::made
