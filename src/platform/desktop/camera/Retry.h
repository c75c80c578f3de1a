// How long to leave a camera alone that does not answer.
#pragma once

#include <algorithm>
#include <chrono>

namespace vintoral {

class Retry {
 public:
  static constexpr std::chrono::seconds kFirst{1}, kMost{30};

  /// Twice as long each time, up to kMost.
  std::chrono::seconds Next() {
    const std::chrono::seconds now = next_;
    next_ = std::min(2 * next_, kMost);
    return now;
  }
  void Reset() { next_ = kFirst; }

 private:
  std::chrono::seconds next_ = kFirst;
};

}  // namespace vintoral
