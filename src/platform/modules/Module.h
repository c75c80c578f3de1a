// Modules of the program: what needs libraries that take their time to load, or that a machine may lack.
#pragma once

#include <string>

namespace vintoral {

struct ModuleFunction {
  void* address = nullptr;  ///< null where there is none
  std::string problem;      ///< why, in the system's words
};

/// A function of the module of that file name, "vintoral-cups.so", which lies beside the program or where an
/// installation has it. A module is never unloaded: its libraries keep things of the threads that used them.
ModuleFunction FindInModule(const std::string& file, const char* function);

}  // namespace vintoral
