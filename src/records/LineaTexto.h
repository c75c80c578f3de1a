// Text files of one line: written with CR LF, read with either line end.
#pragma once

#include <string_view>

#include "common/String.h"

namespace vintoral {

/// The text before the first line end: CR LF, LF or CR.
String PrimeraLinea(std::string_view text);
/// The line with CR LF behind it.
String ConFinDeLinea(std::string_view line);

}  // namespace vintoral
