// Chance: what codes are drawn from.
#pragma once

namespace vintoral {

class Random {
 public:
  virtual ~Random() = default;
  /// The next number in [0, 1), all equally likely.
  virtual double Draw() = 0;
};

}  // namespace vintoral
