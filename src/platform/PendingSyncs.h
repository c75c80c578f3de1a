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
  /// Notes the file behind `descriptor`, which may be closed afterwards; the one noted before is sent on its
  /// way to the disk. False when the file must be synced at once.
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
