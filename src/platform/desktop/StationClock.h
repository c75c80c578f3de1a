// The station's time. It stands while the station works, and goes on from there: however long the folder
// hangs, timers and stamps are as if it had not. What was typed meanwhile is served at the time at which it
// was typed.
#pragma once

#include <algorithm>

#include "platform/Clock.h"

namespace vintoral {

/// Of the station's thread alone.
class StationClock final : public Clock {
 public:
  /// `machine` may be read by any thread, and outlives this.
  explicit StationClock(const Clock& machine)
      : machine_(machine), behind_(0), at_(machine.Ticks()), stands_(true) {}

  /// What the wall showed when its time was this one's.
  Moment Now() const override { return machine_.Now().Plus(Ticks() - Latest()); }
  std::int64_t Ticks() const override { return stands_ ? at_ : Latest(); }

  void Stand() {
    at_ = Ticks();
    stands_ = true;
  }
  void Run() {
    if (stands_) behind_ = machine_.Ticks() - at_;
    stands_ = false;
  }
  /// While it stands: neither back, nor beyond what the machine's has come to.
  void MoveTo(std::int64_t ticks) { at_ = std::max(at_, std::min(ticks, Latest())); }
  /// Where it would be if it had never stood since it ran last.
  std::int64_t Latest() const { return OfMachine(machine_.Ticks()); }
  /// A time of the machine's clock since this one ran last.
  std::int64_t OfMachine(std::int64_t ticks) const { return ticks - behind_; }

 private:
  const Clock& machine_;
  std::int64_t behind_;
  std::int64_t at_;
  bool stands_;
};

}  // namespace vintoral
