// What a character may do in each kind of field.
#pragma once

#include <cstddef>
#include <string_view>

#include "station/forms/Controls.h"
#include "station/forms/KeyVerdict.h"

namespace vintoral {

/// The number field: digits and Backspace; the commands' control characters fall silently, all else with a
/// beep.
KeyVerdict NumberFieldKey(char character);
/// The cash field: as the number field, with comma and point.
KeyVerdict CashFieldKey(char character);
/// The text fields: everything but the commands' control characters.
KeyVerdict TextFieldKey(char character);
/// A number of whole parts in a format: digits and Backspace; Enter falls silently, all else with a beep.
KeyVerdict CountFieldKey(char character);
/// A number with a decimal in a format: as the one above, with comma and point.
KeyVerdict DecimalFieldKey(char character);
/// How long such a number may be: two characters, four with a comma or a point in it.
std::size_t DecimalFieldLimit(std::string_view text);
/// Holds a text to that limit; while it has no decimal, the caret stays at its end.
void LimitDecimal(EditableText& text);
/// The minutes of a monitor: digits and Backspace, a beep for the rest.
KeyVerdict MinutesKey(char character);

}  // namespace vintoral
