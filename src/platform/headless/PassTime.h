#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"

namespace vintoral {

/// Lets time pass until `until` (Ticks), but no further than to the end of the wait for time in which the
/// station is
/// (`innermost`, null or another one for none): the operation behind it goes on at that moment. What is left
/// to pass after that, or nothing.
template <class Timers>
std::optional<std::int64_t> PassTime(VirtualClock& clock, Timers& timers, const Waiting* innermost,
                                     std::int64_t until) {
  const bool waits = innermost != nullptr && innermost->box == nullptr && innermost->form == nullptr;
  AdvanceUntil(clock, timers, waits ? std::min(until, innermost->until) : until);
  return clock.Ticks() < until && !timers.Ended() ? std::optional(until) : std::nullopt;
}

}  // namespace vintoral
