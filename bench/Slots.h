#pragma once

namespace vintoral::bench {

/// Of every house.
inline constexpr int kSlots = 1000;

}  // namespace vintoral::bench
