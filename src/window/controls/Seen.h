#pragma once

#include <optional>
#include <utility>

namespace vintoral {

/// What a widget was last shown, so that it is touched only when the model holds something else.
template <class T>
class Seen {
 public:
  bool Changed(const T& now) {
    if (last_ && *last_ == now) return false;
    last_ = now;
    return true;
  }

 private:
  std::optional<T> last_;
};

}  // namespace vintoral
