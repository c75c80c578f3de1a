// Syncs that are waited for together.
#pragma once

#include <string>
#include <vector>

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
  /// Sends what was written to the file behind `descriptor` on its way to the disk without waiting for it.
  /// The descriptor may be closed afterwards. False when the file must be synced at once.
  bool Add(int descriptor, const std::string& path);
  /// Returns when all that were added since the outermost Begin are on disk; the first failure where there is
  /// one.
  Outcome End();

 private:
  struct File {
    int descriptor;
    std::string path;
  };
  Outcome Wait();

  std::vector<File> files_;
  int depth_ = 0;
};

/// Syncs the data of one file, and the length that goes with it.
Outcome SyncData(int descriptor, const std::string& path);

}  // namespace vintoral
