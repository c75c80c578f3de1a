// The latest moment of the program.
#pragma once

#include <chrono>

namespace vintoral {

/// Ends the process with `result` when so much time has passed, whatever it is at by then: a printer or a
/// folder that hangs holds up nobody who wants to go home.
void LeaveWithin(std::chrono::milliseconds patience, int result);

}  // namespace vintoral
