#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"

namespace vintoral {

/// Lets time pass until `until` (Ticks), but no further than the end of the innermost wait if that is one for
/// time: the operation behind it goes on at that moment. Returns `until` while time has still to pass, else
/// nothing.
template <class Timers>
std::optional<std::int64_t> PassTime(VirtualClock& clock, Timers& timers, const Waiting* innermost,
                                     std::int64_t until) {
  const bool waits = innermost != nullptr && innermost->box == nullptr && innermost->form == nullptr;
  AdvanceUntil(clock, timers, waits ? std::min(until, innermost->until) : until);
  return clock.Ticks() < until && !timers.Ended() ? std::optional(until) : std::nullopt;
}

}  // namespace vintoral
