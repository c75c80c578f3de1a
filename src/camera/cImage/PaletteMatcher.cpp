#include "camera/cImage/PaletteMatcher.h"

#include <climits>
#include <cstddef>

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
    : palette_(palette), grey_(HasGreyPalette({.bitCount = 8, .palette = palette})) {
  if (!grey_) return;
  for (std::size_t i = 0; i < placeOfGrey_.size(); ++i) {
    const auto light = static_cast<std::uint8_t>(i);
    placeOfGrey_[i] = static_cast<std::uint8_t>(Search({light, light, light}));
  }
}

unsigned PaletteMatcher::Nearest(Rgb colour) {
  if (grey_) return placeOfGrey_[Luminance(colour)];
  const auto [known, isNew] = known_.try_emplace(Key(colour), 0U);
  if (isNew) known->second = Search(colour);
  return known->second;
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
