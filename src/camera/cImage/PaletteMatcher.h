#pragma once

#include <algorithm>
#include <span>
#include <unordered_map>

#include "camera/cImage/Pixels.h"

namespace vintoral {

// Finds the place of a palette that is nearest to a colour: by lightness in a palette of greys, by the sum of
// the squared differences of red, green and blue in others. Of equals the first. Remembers what it has found.
class PaletteMatcher {
 public:
  explicit PaletteMatcher(std::span<const Rgb> palette);

  unsigned Nearest(Rgb colour);

 private:
  unsigned Search(Rgb colour) const;

  std::span<const Rgb> palette_;
  bool grey_;
  std::unordered_map<unsigned, unsigned> found_;
};

}  // namespace vintoral
