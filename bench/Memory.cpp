#include "Memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

// Only while a watch lives, so that the other benchmarks do not pay for it.
bool watching = false;
std::ptrdiff_t inUse = 0;
std::ptrdiff_t most = 0;

void* Take(std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  if (watching) {
    inUse += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    most = std::max(most, inUse);
  }
  return memory;
}

void Give(void* memory) {
  if (watching && memory != nullptr) inUse -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
  return Take(size);
}
void* operator new[](std::size_t size) {
  return Take(size);
}
void operator delete(void* memory) noexcept {
  Give(memory);
}
void operator delete[](void* memory) noexcept {
  Give(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  Give(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  Give(memory);
}

namespace vintoral::bench {

MemoryWatch::MemoryWatch() {
  inUse = most = 0;
  watching = true;
}

MemoryWatch::~MemoryWatch() {
  watching = false;
}

std::size_t MemoryWatch::Peak() const {
  return static_cast<std::size_t>(most);
}

}  // namespace vintoral::bench
