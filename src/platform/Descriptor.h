// An open file of the system, closed with its last owner.
#pragma once

#include <unistd.h>

#include <memory>

namespace vintoral {

class Descriptor {
 public:
  /// Owns `number`.
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number_; }

 private:
  int number_;
};

using SharedDescriptor = std::shared_ptr<const Descriptor>;

}  // namespace vintoral
