// The result of a step that can fail. Operations do not throw: a caller either acts on a failure or passes it
// over in so many words, and a passed-over failure leaves one line on standard error for support to read.
#pragma once

#include <string>
#include <string_view>

namespace vintoral {

class [[nodiscard]] Outcome {
 public:
  static Outcome Done() { return {}; }
  /// `what` was tried on `file` (UTF-8); `error` is the system's errno.
  static Outcome Failed(std::string_view what, std::string_view file, int error);

  explicit operator bool() const { return error_ == 0; }
  /// The system's errno, 0 when done.
  int Error() const { return error_; }
  /// There is no such file, as opposed to one that the system failed to reach.
  bool Missing() const;
  /// "what file: reason".
  std::string Describe() const;
  /// Goes on all the same: a failure is written to standard error, and nobody else is told.
  void PassOver() const;

 private:
  int error_ = 0;
  std::string what_;
  std::string file_;
};

}  // namespace vintoral
