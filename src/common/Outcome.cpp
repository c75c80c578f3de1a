#include "common/Outcome.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace vintoral {

Outcome Outcome::Failed(std::string_view what, std::string_view file, int error) {
  Outcome outcome;
  outcome.error_ = error != 0 ? error : EIO;
  outcome.what_ = what;
  outcome.file_ = file;
  return outcome;
}

bool Outcome::Missing() const {
  return error_ == ENOENT;
}

std::string Outcome::Describe() const {
  return what_ + " " + file_ + ": " + std::generic_category().message(error_);
}

void Outcome::PassOver() const {
  if (error_ != 0) std::fprintf(stderr, "vintoral: %s\n", Describe().c_str());
}

}  // namespace vintoral
