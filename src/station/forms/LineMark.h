#pragma once

#include <cstddef>

#include "common/String.h"

namespace vintoral {

/// A remark at the margin of one line.
struct LineMark {
  std::size_t line = 0;  ///< from 0
  String reason;

  friend bool operator==(const LineMark&, const LineMark&) = default;
};

}  // namespace vintoral
