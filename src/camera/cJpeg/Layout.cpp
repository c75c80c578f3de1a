#include "camera/cJpeg/Layout.h"

#include <algorithm>

namespace vintoral {

Layout::Layout(int pictureWidth, int pictureHeight, bool grey, const SamplingFactors& factors)
    : width(pictureWidth), height(pictureHeight), components(grey ? 1 : kMaxComponents), factor(factors) {
  // A scan of one component is not interleaved: its unit is one block whatever its factors (A.2.2).
  if (grey) factor = {};
  maxHorizontal = maxVertical = 1;
  for (int i = 0; i < components; ++i) {
    maxHorizontal = std::max(maxHorizontal, Factor(i).horizontal);
    maxVertical = std::max(maxVertical, Factor(i).vertical);
  }
  unitsAcross = (width + 8 * maxHorizontal - 1) / (8 * maxHorizontal);
  unitsDown = (height + 8 * maxVertical - 1) / (8 * maxVertical);
}

bool IsAllowed(const SamplingFactors& factors) {
  const auto inRange = [](int factor) { return factor >= 1 && factor <= 4; };
  int blocks = 0;
  for (const SamplingFactor& factor : factors) {
    if (!inRange(factor.horizontal) || !inRange(factor.vertical)) return false;
    blocks += factor.horizontal * factor.vertical;
  }
  return blocks <= 10;
}

}  // namespace vintoral
