#include "camera/cImage/PaletteMatcher.h"

#include <climits>

namespace vintoral {

namespace {

int Distance(Rgb a, Rgb b) {
  const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
  return red * red + green * green + blue * blue;
}

unsigned Key(Rgb colour) {
  return static_cast<unsigned>(colour.red << 16 | colour.green << 8 | colour.blue);
}

}  // namespace

PaletteMatcher::PaletteMatcher(std::span<const Rgb> palette)
    : palette_(palette), grey_(HasGreyPalette({.bitCount = 8, .palette = palette})) {}

unsigned PaletteMatcher::Nearest(Rgb colour) {
  if (grey_) {
    const std::uint8_t light = Luminance(colour);
    colour = {light, light, light};
  }
  const auto [at, isNew] = found_.try_emplace(Key(colour), 0U);
  if (isNew) at->second = Search(colour);
  return at->second;
}

unsigned PaletteMatcher::Search(Rgb colour) const {
  int least = INT_MAX;
  unsigned nearest = 0;
  for (unsigned place = 0; place < palette_.size(); ++place) {
    const int distance = Distance(palette_[place], colour);
    if (distance >= least) continue;
    least = distance;
    nearest = place;
  }
  return nearest;
}

}  // namespace vintoral
