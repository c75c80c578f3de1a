// Where a caret may stand in a text whose lines end in CR LF. Positions count characters from 0; what is
// given beyond the text counts as its end.
#pragma once

#include <cstddef>

#include "common/String.h"

namespace vintoral {

/// The nearest place at or before `position`: never between CR and LF.
std::size_t CaretAt(const String& text, std::size_t position);
/// One place to the left and to the right; the ends of the text stay.
std::size_t CaretBefore(const String& text, std::size_t position);
std::size_t CaretBehind(const String& text, std::size_t position);
/// The ends of the line that `position` stands in.
std::size_t LineStart(const String& text, std::size_t position);
std::size_t LineEnd(const String& text, std::size_t position);
/// The same column `lines` lines further down, up for a negative count, in the nearest line that there is;
/// the end of a line that is shorter.
std::size_t CaretLines(const String& text, std::size_t position, int lines);
/// The line of `position`, from 0.
std::size_t LineAt(const String& text, std::size_t position);

}  // namespace vintoral
