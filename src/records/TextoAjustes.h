// Settings that belong to no screen stand in text files of a line each, "name = value", for hands to edit. A
// line that begins with ";" is a remark.
#pragma once

#include <optional>
#include <string_view>

#include "common/String.h"

namespace vintoral {

/// The trimmed value behind the first line of that name (case ignored), whatever line ends and of UTF-8 and
/// Windows-1252 the editor has saved; nothing when there is no such line.
std::optional<String> Ajuste(std::string_view text, std::string_view name);

}  // namespace vintoral
