#pragma once

#include <string>
#include <string_view>

#include "Rules.h"

namespace hanging {

/// Carries out one line of the control socket and gives the line that answers it, without its end. What can't
/// be understood changes nothing and is told in words.
std::string Answer(std::string_view line, Rules& rules);

}  // namespace hanging
