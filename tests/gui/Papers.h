// Papers and documents that the tests of printing share.
#pragma once

#include "platform/desktop/SlipDrawing.h"
#include "platform/desktop/SlipLayout.h"

namespace vintoral::test {

constexpr double Millimetres(double millimetres) {
  return millimetres / 25.4 * 72;
}

/// A roll that is cut where a slip ends.
inline QueuePaper Roll(double width, double blankAtSides) {
  const double side = Millimetres(blankAtSides);
  return {.standard = {Millimetres(width), Millimetres(200)},
          .margins = {.left = side, .right = side},
          .sizes = {},
          .shortest = 36,
          .longest = Millimetres(3000)};
}

inline QueuePaper A4() {
  return {.standard = {595.28, 841.89},
          .margins = {.left = 18, .right = 18, .top = 36, .bottom = 36},
          .sizes = {}};
}

inline PrintDocument Lines(int count, double size = 10.5, std::size_t columns = 31) {
  PrintDocument document;
  document.FontSize = size;
  for (int i = 0; i < count; ++i)
    document.Print(String(columns, 'x'));
  return document;
}

/// Of documents that need none.
inline SlipFiles NoFiles() {
  return {[](std::string_view path) { return std::string(path); },
          [](std::string_view, const PicturePlace&) {
            return DecodedPicture{.pixels = nullptr, .fault = PictureFault::kNotRead};
          }};
}

}  // namespace vintoral::test
