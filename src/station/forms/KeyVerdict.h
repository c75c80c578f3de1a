#pragma once

namespace vintoral {

/// What becomes of a character that was typed: it goes in, falls without a sound, or is refused with a beep.
enum class KeyVerdict { kPass, kDrop, kBeep };

}  // namespace vintoral
