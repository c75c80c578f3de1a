// The log of functions as the text that is opened in an editor.
#pragma once

#include <string_view>

#include "common/String.h"

namespace vintoral {

/// All of it, lines ending in CR LF. `porteria`: "01". `diario`: the bytes of the log, any of them, null
/// where there is no such file.
String TextoHorario(std::string_view porteria, const String* diario);

}  // namespace vintoral
