// Syncs that run side by side, beside the event loop. A thread does nothing but wait for the disk: the
// station itself stays on one.
#pragma once

#include <list>
#include <string>
#include <thread>

#include "common/Outcome.h"

namespace vintoral {

class PendingSyncs {
 public:
  PendingSyncs() = default;
  PendingSyncs(const PendingSyncs&) = delete;
  PendingSyncs& operator=(const PendingSyncs&) = delete;
  ~PendingSyncs() { Wait().PassOver(); }

  void Begin() { ++depth_; }
  bool Waiting() const { return depth_ > 0; }
  /// Begins to sync the file behind `descriptor`, which may be closed afterwards. False when it must be
  /// synced at once.
  bool Add(int descriptor, const std::string& path);
  /// Returns when all that were added since the outermost Begin are on disk; the first failure where there is
  /// one.
  Outcome End();

 private:
  struct Running {
    int descriptor;
    Outcome outcome;
    std::thread thread;
  };
  Outcome Wait();

  std::list<Running> running_;  // threads hold on to their element
  int depth_ = 0;
};

/// Syncs the data of one file, and the length that goes with it.
Outcome SyncData(int descriptor, const std::string& path);

}  // namespace vintoral
