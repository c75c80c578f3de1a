#include "camera/cJpeg/Layout.h"

#include <algorithm>

namespace vintoral {

namespace {

constexpr int kMaxBlocksInUnit = 10;

// Samples and blocks that are begun count as whole ones.
int BlocksFor(int pixels, int factor, int most) {
  const int samples = (pixels * factor + most - 1) / most;
  return (samples + 7) / 8;
}

}  // namespace

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
  for (int i = 0; i < components; ++i) {
    blocksAcross[static_cast<std::size_t>(i)] = BlocksFor(width, Factor(i).horizontal, maxHorizontal);
    blocksDown[static_cast<std::size_t>(i)] = BlocksFor(height, Factor(i).vertical, maxVertical);
  }
}

int Layout::Scans() const {
  int blocks = 0;
  for (int i = 0; i < components; ++i)
    blocks += Factor(i).horizontal * Factor(i).vertical;
  return blocks <= kMaxBlocksInUnit ? 1 : components;
}

bool IsAllowed(const SamplingFactors& factors) {
  const auto inRange = [](int factor) { return factor >= 1 && factor <= 4; };
  return std::all_of(factors.begin(), factors.end(), [&](const SamplingFactor& factor) {
    return inRange(factor.horizontal) && inRange(factor.vertical);
  });
}

}  // namespace vintoral
