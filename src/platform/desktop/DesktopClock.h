#pragma once

#include "platform/Clock.h"

namespace vintoral {

/// The system's clocks: local time of its zone, and the time since start, sleep included.
class DesktopClock : public Clock {
 public:
  Moment Now() const override;
  std::int64_t Ticks() const override;
};

}  // namespace vintoral
