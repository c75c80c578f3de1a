// Threads beside that take no signals.
#pragma once

#include <csignal>

namespace vintoral {

/// A thread that is started while this lives takes no signals: a handler would break off its system calls.
class SignalsElsewhere {
 public:
  SignalsElsewhere() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  SignalsElsewhere(const SignalsElsewhere&) = delete;
  SignalsElsewhere& operator=(const SignalsElsewhere&) = delete;
  ~SignalsElsewhere() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

}  // namespace vintoral
