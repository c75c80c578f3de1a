// What the toolkit tells of a key, as the station's commands know it.
#pragma once

#include "common/String.h"

class QKeyEvent;

namespace vintoral {

struct StationKey {
  int code = 0;  ///< virtual key code, 0 for a key that no command and no field knows
  int mask = 0;  ///< 1 shift, 2 control, 4 alt
};

StationKey StationKeyOf(const QKeyEvent& event);

/// The characters that the key types: a control character for control and a letter, 13 for Enter, 8 for
/// Backspace, 27 for Esc, none with alt.
String CharactersOf(const QKeyEvent& event);

}  // namespace vintoral
