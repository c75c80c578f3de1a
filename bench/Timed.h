// How long a piece of work takes.
#pragma once

#include <chrono>

namespace vintoral::bench {

/// In microseconds.
template <class Work>
double Timed(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace vintoral::bench
