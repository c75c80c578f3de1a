// Copying from one open file into another.
#pragma once

#include <cstdint>

namespace vintoral {

struct Copied {
  std::uint64_t bytes = 0;
  int error = 0;  ///< 0, or the system's errno
};

/// All that `from` holds (a descriptor) to `into`, which begins to be written at `at`. The disk writes while
/// the rest is copied.
Copied CopyBytes(int from, int into, std::uint64_t at);
/// The same by reading and writing, for file systems between which the system copies nothing itself. `from`
/// is read from its byte `done` on.
Copied CopyByHand(int from, int into, std::uint64_t at, std::uint64_t done);

}  // namespace vintoral
