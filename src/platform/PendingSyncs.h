// Files whose syncs wait to be done at once.
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
  ~PendingSyncs();

  void Begin() { ++depth_; }
  bool Waiting() const { return depth_ > 0; }
  /// Notes the file behind `descriptor`, which may be closed afterwards. False when it must be synced at
  /// once.
  bool Add(int descriptor, const std::string& path);
  /// Syncs all that were noted since the outermost Begin, side by side; the first failure where there is one.
  Outcome End();

 private:
  struct File {
    int descriptor;
    std::string path;
  };
  std::vector<File> files_;
  int depth_ = 0;
};

/// Syncs the data of one file, and the length that goes with it.
Outcome SyncData(int descriptor, const std::string& path);

}  // namespace vintoral
