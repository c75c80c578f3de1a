#include "unit/camera/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool failing = false;
thread_local bool failed = false;
thread_local int left = 0;

void* Take(std::size_t size) {
  failed = failed || (failing && left == 0);
  if (failing && left-- <= 0) {
    left = 0;
    throw std::bad_alloc();
  }
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) {
  return Take(size);
}
void* operator new[](std::size_t size) {
  return Take(size);
}
// What asks this way can do without; it is answered here so that what it gets is freed where all is.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}

namespace vintoral::made {

FailingMemory::FailingMemory(int allowed) {
  failing = true;
  failed = false;
  left = allowed;
}

FailingMemory::~FailingMemory() {
  failing = false;
}

bool FailingMemory::HasFailed() const {
  return failed;
}

}  // namespace vintoral::made
