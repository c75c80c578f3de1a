// The signals by which a system asks a program to end: the session ends, the terminal closes, Ctrl-C.
#pragma once

#include <QSocketNotifier>
#include <functional>

namespace vintoral {

/// One at a time in a process. The first of SIGTERM, SIGINT and SIGHUP calls `end` from the event loop, which
/// lets the operation under way come to its end where it can; a second one of the same kind ends the process
/// at once, should `end` hang.
class EndSignals {
 public:
  explicit EndSignals(std::function<void()> end);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  QSocketNotifier notifier_;
};

}  // namespace vintoral
