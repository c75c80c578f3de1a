// What a character may do in each kind of field.
#pragma once

#include "station/forms/KeyVerdict.h"

namespace vintoral {

/// The number field: digits and Backspace; the commands' control characters fall silently, all else with a
/// beep.
KeyVerdict NumberFieldKey(char character);
/// The cash field: as the number field, with comma and point.
KeyVerdict CashFieldKey(char character);
/// The text fields: everything but the commands' control characters.
KeyVerdict TextFieldKey(char character);
/// The minutes of a monitor: digits and Backspace, a beep for the rest.
KeyVerdict MinutesKey(char character);

}  // namespace vintoral
