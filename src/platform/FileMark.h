// What tells a file from the one that stood under its name before.
#pragma once

#include <cstdint>

namespace vintoral {

struct FileMark {
  std::uint64_t length = 0;  ///< bytes
  std::int64_t changed = 0;  ///< time of the last change, in nanoseconds of the file system's clock

  friend bool operator==(const FileMark&, const FileMark&) = default;
};

}  // namespace vintoral
