#include "camera/Sello.h"

#include <cstdint>

#include "camera/LetraSello.h"

namespace vintoral {
namespace {

constexpr std::uint8_t kInk = 255;
constexpr std::uint8_t kEdge = 0;
constexpr int kEdgeWidth = 1;

void Paint(const PixelSurface& surface, int x, int y, std::uint8_t value) {
  if (x < 0 || y < 0 || x >= surface.width || y >= surface.height) return;
  std::uint8_t* const pixel = surface.Row(y) + std::ptrdiff_t{3} * x;
  pixel[0] = pixel[1] = pixel[2] = value;
}

/// Calls `pixel` with the place of each that is lit, the letters' upper left corner at (0, 0).
template <class Pixel>
void ForEachLit(std::string_view text, Pixel pixel) {
  using namespace letra_sello;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t letter = kLetters.find(text[i]);
    if (letter == std::string_view::npos) continue;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        const bool lit = (kRows[letter][static_cast<std::size_t>(y)] >> (kWidth - 1 - x) & 1) != 0;
        if (lit) pixel(static_cast<int>(i) * kWidth + x, y);
      }
    }
  }
}

}  // namespace

void Sellar(cImage& foto, int x, int y, std::string_view text) {
  if (foto.BitCount() != 24) return;
  const PixelSurface surface = foto.hDC();
  // The edge of all letters first: none may lie over its neighbour's ink.
  ForEachLit(text, [&](int column, int row) {
    for (int down = 0; down <= 2 * kEdgeWidth; ++down) {
      for (int right = 0; right <= 2 * kEdgeWidth; ++right)
        Paint(surface, x + column + right, y + row + down, kEdge);
    }
  });
  ForEachLit(text, [&](int column, int row) {
    Paint(surface, x + column + kEdgeWidth, y + row + kEdgeWidth, kInk);
  });
}

}  // namespace vintoral
