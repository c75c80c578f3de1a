// Wakes a thread that waits for many things at once.
#pragma once

#include "platform/Descriptor.h"

namespace vintoral {

class Bell {
 public:
  Bell();
  /// Becomes readable when it rings; below 0 where the system has none left.
  int Number() const { return descriptor_.Number(); }
  /// Any thread may.
  void Ring() const;
  /// Makes it silent again, however often it has been rung.
  void Hear() const;

 private:
  Descriptor descriptor_;
};

}  // namespace vintoral
