#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <unordered_map>

#include "camera/cImage/Pixels.h"

namespace vintoral {

// Finds the place of a palette that is nearest to a colour: by lightness in a palette of greys, by the sum of
// the squared differences of red, green and blue in others. Of equals the first; 0 in an empty palette.
class PaletteMatcher {
 public:
  explicit PaletteMatcher(std::span<const Rgb> palette);

  unsigned Nearest(Rgb colour);

 private:
  unsigned Search(Rgb colour) const;

  std::span<const Rgb> palette_;
  bool grey_;
  std::array<std::uint8_t, 256> placeOfGrey_{};   // in a palette of greys
  std::unordered_map<unsigned, unsigned> known_;  // in others: what has been found already
};

}  // namespace vintoral
