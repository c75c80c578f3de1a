// A clock that moves only when it is told to, and that any thread may read.
#pragma once

#include <atomic>

#include "platform/Clock.h"

namespace vintoral::test {

class LockedClock : public Clock {
 public:
  explicit LockedClock(std::int64_t ticks) : ticks_(ticks) {}
  /// The wall clock runs with the ticks: at 0 it was midnight of the first day.
  Moment Now() const override { return Moment::FromMilliseconds(ticks_); }
  std::int64_t Ticks() const override { return ticks_; }
  void Set(std::int64_t ticks) { ticks_ = ticks; }

 private:
  std::atomic<std::int64_t> ticks_;
};

}  // namespace vintoral::test
