#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "unit/camera/MadePictures.h"

namespace vintoral::made {

// What libjpeg-turbo makes of a file: an independent decoder, the most widely used.
struct DecodedJpeg {
  std::vector<std::string> complaints;  // errors and warnings
  std::vector<std::uint8_t> pixels;     // rows without padding: blue, green, red; or grey
  int width = 0, height = 0, components = 0;
  std::vector<std::string> comments;
};

DecodedJpeg DecodeWithLibJpeg(const std::vector<std::uint8_t>& file);

// The quantised coefficients of each component, all its blocks one after another, row by row, in natural
// order.
std::vector<std::vector<std::int16_t>> CoefficientsByLibJpeg(const std::vector<std::uint8_t>& file);

struct LibJpegSettings {
  int quality = 95;
  int h1 = 1, v1 = 1;
};

// Encodes with optimised tables and libjpeg-turbo's most exact transform, from memory to the beginning of
// `room`, which grows if it must and keeps its size otherwise. Comes back with the size of the file.
std::size_t EncodeWithLibJpeg(const MadePicture& picture, const LibJpegSettings& settings,
                              std::vector<std::uint8_t>& room);

// The same as a file of its own.
std::vector<std::uint8_t> EncodeWithLibJpeg(const MadePicture& picture, const LibJpegSettings& settings);

// How far decoded pixels are from a picture.
struct PictureError {
  double meanSquare = 0;
  int largest = 0;
};

PictureError ErrorOf(const MadePicture& picture, const std::vector<std::uint8_t>& decoded);

}  // namespace vintoral::made
