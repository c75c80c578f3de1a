#include "Memory.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> inUse;
std::size_t base;
std::atomic<std::size_t> most;

void* Take(std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  const std::size_t now = inUse += malloc_usable_size(memory);
  if (now > most) most = now;
  return memory;
}

void Give(void* memory) {
  if (memory != nullptr) inUse -= malloc_usable_size(memory);
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

void StartPeak() {
  base = inUse;
  most = base;
}

std::size_t Peak() {
  return most - base;
}

}  // namespace vintoral::bench
