#include "camera/cJpeg/CodeLengths.h"

#include <algorithm>
#include <cstddef>

namespace vintoral {

namespace {

// One list of the algorithm in rising order of weight: leaves (one for each symbol, lightest first) merged
// with packages (pairs from the list before). Which leaf or pair it is follows from the order, so a flag
// suffices.
struct Level {
  std::vector<std::uint64_t> weight;
  std::vector<bool> isPackage;
};

Level MergeLevel(std::span<const std::uint64_t> weights, const std::vector<std::uint64_t>& below) {
  Level level;
  std::size_t leaf = weights.size();
  std::size_t pair = 0;
  while (leaf > 0 || pair + 1 < below.size()) {
    const bool havePair = pair + 1 < below.size();
    const std::uint64_t packed = havePair ? below[pair] + below[pair + 1] : 0;
    const bool takePair = havePair && (leaf == 0 || packed < weights[leaf - 1]);
    level.weight.push_back(takePair ? packed : weights[leaf - 1]);
    level.isPackage.push_back(takePair);
    takePair ? pair += 2 : --leaf;
  }
  return level;
}

}  // namespace

std::vector<int> LimitedCodeLengths(std::span<const std::uint64_t> weights, int maxLength) {
  std::vector<Level> levels;
  std::vector<std::uint64_t> below;
  for (int depth = 0; depth < maxLength; ++depth) {
    levels.push_back(MergeLevel(weights, below));
    below = levels.back().weight;
  }
  // Take the 2n - 2 lightest of the last list; each leaf taken, there or inside a package, is one bit of its
  // symbol. The leaves taken from a list are always its lightest ones.
  std::vector<int> lengths(weights.size(), 0);
  std::size_t taken = 2 * weights.size() - 2;
  for (auto level = levels.rbegin(); level != levels.rend() && taken > 0; ++level) {
    const auto end = level->isPackage.begin() + static_cast<std::ptrdiff_t>(taken);
    const auto packages = static_cast<std::size_t>(std::count(level->isPackage.begin(), end, true));
    for (std::size_t leaf = 0; leaf < taken - packages; ++leaf)
      ++lengths[weights.size() - 1 - leaf];
    taken = 2 * packages;
  }
  return lengths;
}

}  // namespace vintoral
