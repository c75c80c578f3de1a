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

/// Lets `milliseconds` pass for a station: its timers tick at their moments, in order of time.
template <class Station>
void AdvanceTime(VirtualClock& clock, Station& station, std::int64_t milliseconds) {
  const std::int64_t end = clock.Ticks() + milliseconds;
  while (!station.Terminado()) {
    const std::int64_t next = station.SiguienteTick();
    if (next < 0 || next > end) break;
    clock.Advance(std::max<std::int64_t>(next - clock.Ticks(), 0));
    station.EjecutarTicks();
  }
  // A tick that waited in a box may have let more time pass than was asked for here.
  clock.Advance(std::max<std::int64_t>(end - clock.Ticks(), 0));
}

}  // namespace vintoral
