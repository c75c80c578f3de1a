#pragma once

namespace vintoral::made {

// While it lives, this thread gets as many more pieces of memory as are allowed, and std::bad_alloc for each
// one after them. What checks the outcome needs memory too, and comes after its end.
class FailingMemory {
 public:
  explicit FailingMemory(int allowed);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  // Whether any has been refused.
  bool HasFailed() const;
};

}  // namespace vintoral::made
