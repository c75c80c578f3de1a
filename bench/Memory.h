#pragma once

#include <cstddef>

namespace vintoral::bench {

// Counts the memory that `new` gives from its making on, in one thread at a time.
class MemoryWatch {
 public:
  MemoryWatch();
  ~MemoryWatch();
  MemoryWatch(const MemoryWatch&) = delete;
  MemoryWatch& operator=(const MemoryWatch&) = delete;

  // The most that was in use at a time, in bytes.
  std::size_t Peak() const;
};

}  // namespace vintoral::bench
