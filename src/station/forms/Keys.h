// Virtual key codes and modifier masks, as all that handles keys names them. A letter or a digit is its own
// code: 'B', '7'.
#pragma once

namespace vintoral::keys {

inline constexpr int kBackspace = 8, kTab = 9, kEnter = 13, kEscape = 27, kSpace = 32, kPageUp = 33,
                     kPageDown = 34, kEnd = 35, kHome = 36, kLeft = 37, kUp = 38, kRight = 39, kDown = 40,
                     kInsert = 45, kDelete = 46, kNumpad0 = 96;
inline constexpr int kF1 = 112, kF2 = 113, kF3 = 114, kF4 = 115, kF5 = 116, kF6 = 117, kF7 = 118, kF8 = 119,
                     kF9 = 120, kF10 = 121, kF11 = 122, kF12 = 123;

/// Bits of a mask.
inline constexpr int kShift = 1, kControl = 2, kAlt = 4;
inline constexpr int kNoMask = 0, kAllMasks = kShift | kControl | kAlt;

}  // namespace vintoral::keys
