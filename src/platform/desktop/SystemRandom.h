// The system's own source: two gates that start at once draw different codes.
#pragma once

#include <random>

#include "platform/Random.h"

namespace vintoral {

class SystemRandom : public Random {
 public:
  double Draw() override { return static_cast<double>(device_()) * 0x1p-32; }

 private:
  static_assert(std::random_device::min() == 0 && std::random_device::max() == 0xFFFF'FFFF);
  std::random_device device_;
};

}  // namespace vintoral
