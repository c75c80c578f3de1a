// Between the station's text and the toolkit's.
#pragma once

#include <QString>

#include "common/String.h"

namespace vintoral {

/// Windows-1252 to Unicode.
QString ToQString(std::string_view text);
/// What Windows-1252 lacks becomes "?".
String FromQString(const QString& text);

}  // namespace vintoral
