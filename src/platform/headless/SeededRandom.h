// The same numbers on every machine for the same seed.
#pragma once

#include <cstdint>
#include <random>

#include "platform/Random.h"

namespace vintoral {

class SeededRandom : public Random {
 public:
  void Seed(std::uint64_t seed) { engine_.seed(seed); }
  double Draw() override {
    constexpr int kMantissa = 53;
    return static_cast<double>(engine_() >> (64 - kMantissa)) * 0x1p-53;
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace vintoral
