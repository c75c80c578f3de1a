#pragma once

#include <algorithm>
#include <vector>

namespace vintoral::bench {

/// The middle one, of an even number the higher of the two; `values` is not empty.
inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace vintoral::bench
