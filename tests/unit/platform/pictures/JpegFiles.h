// JPEG files of every kind that a folder of pictures may hold, written by libjpeg-turbo.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace vintoral::test {

using Bytes = std::vector<std::uint8_t>;

struct JpegFile {
  int width = 80;
  int height = 40;
  int components = 3;  ///< 1 grey; 3 red, green, blue; 4 inks
  bool progressive = false;
  bool adobe = true;  ///< of inks: the marker that says how they are stored
  Bytes app1 = {};    ///< content of a segment APP1; none when empty
  /// What lies at a pixel, component by component.
  std::function<std::array<std::uint8_t, 4>(int x, int y)> at = {};
};

/// Quality 95, all components sampled alike.
Bytes MakeJpeg(const JpegFile& wanted);

/// Left half red, right half blue.
Bytes RedAndBlue(JpegFile wanted = {});

/// What a camera writes that was held as the value 1 to 8 of the tag Orientation says. Numbers have their low
/// byte first.
Bytes ExifOf(std::uint8_t orientation);

}  // namespace vintoral::test
