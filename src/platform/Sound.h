#pragma once

#include <string_view>

namespace vintoral {

class Sound {
 public:
  virtual ~Sound() = default;
  /// Plays a sound file (a station path, as it was asked for) and returns at once; a new sound ends the one
  /// before. `found` is false when the file is missing: nothing plays then, and a recording device can note
  /// it.
  virtual void Play(std::string_view file, bool found) = 0;
};

}  // namespace vintoral
