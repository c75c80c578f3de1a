#include "platform/Bell.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>
#include <tuple>

namespace vintoral {

Bell::Bell() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void Bell::Ring() const {
  constexpr std::uint64_t kOnce = 1;
  std::ignore = write(descriptor_.Number(), &kOnce, sizeof kOnce);
}

void Bell::Hear() const {
  std::uint64_t rings = 0;
  std::ignore = read(descriptor_.Number(), &rings, sizeof rings);
}

}  // namespace vintoral
