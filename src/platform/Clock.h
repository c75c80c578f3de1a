// Time comes from here alone: no other code reads the system's clock.
#pragma once

#include <cstdint>

#include "common/Moment.h"

namespace vintoral {

class Clock {
 public:
  virtual ~Clock() = default;
  /// The local date and time; may jump when somebody sets the clock.
  virtual Moment Now() const = 0;
  /// Milliseconds that never jump, from an arbitrary start: what timers count.
  virtual std::int64_t Ticks() const = 0;
};

}  // namespace vintoral
