#pragma once

#include <stdexcept>

namespace vintoral {

// What the encoder raises to its caller; what() is the text that the caller knows it by.
class cJpegError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vintoral
