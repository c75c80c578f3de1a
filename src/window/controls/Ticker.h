// Wakes the station when one of its timers is due, inside boxes too.
#pragma once

#include <QTimer>
#include <functional>

#include "platform/Clock.h"

namespace vintoral {

class Forms;

class Ticker {
 public:
  /// `afterwards` runs after each round of ticks.
  Ticker(Forms& forms, const Clock& clock, std::function<void()> afterwards);

  /// Waits for the next tick that is due; to be called whenever something may have changed the timers.
  void Arm();
  /// Runs what is due by now.
  void Tick();

 private:
  Forms& forms_;
  const Clock& clock_;
  std::function<void()> afterwards_;
  QTimer timer_;
  std::int64_t due_ = -1;
};

}  // namespace vintoral
