// A widget that knows keys of its own while it has the keyboard.
#pragma once

class QKeyEvent;

namespace vintoral {

class OwnKeys {
 public:
  virtual ~OwnKeys() = default;
  /// Sees each key before the station does; one that it takes goes no further.
  virtual bool TakeKey(const QKeyEvent& event) = 0;
};

}  // namespace vintoral
