// A clock that moves only when it is told to.
#pragma once

#include <algorithm>

#include "platform/Clock.h"

namespace vintoral {

class VirtualClock : public Clock {
 public:
  Moment Now() const override { return now_; }
  std::int64_t Ticks() const override { return ticks_; }

  /// Sets the wall clock without letting time pass.
  void Set(Moment now) { now_ = now; }
  /// Lets time pass: timers and wall clock alike.
  void Advance(std::int64_t milliseconds) {
    ticks_ += milliseconds;
    now_ = now_.Plus(milliseconds);
  }

 private:
  Moment now_;
  std::int64_t ticks_ = 0;
};

/// Lets time pass until `end` (Ticks) for whoever has timers: they tick at their moments, in order of time. A
/// tick that waits by itself may let more time pass than that.
template <class Timers>
void AdvanceUntil(VirtualClock& clock, Timers& timers, std::int64_t end) {
  while (!timers.Ended()) {
    const std::int64_t next = timers.NextTick();
    if (next < 0 || next > end) break;
    clock.Advance(std::max<std::int64_t>(next - clock.Ticks(), 0));
    timers.RunTicks();
  }
  clock.Advance(std::max<std::int64_t>(end - clock.Ticks(), 0));
}

template <class Timers>
void AdvanceTime(VirtualClock& clock, Timers& timers, std::int64_t milliseconds) {
  AdvanceUntil(clock, timers, clock.Ticks() + milliseconds);
}

}  // namespace vintoral
