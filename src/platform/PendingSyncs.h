// Syncs that are waited for together.
#pragma once

#include <string>
#include <vector>

#include "common/Outcome.h"
#include "platform/Descriptor.h"
#include "platform/SyncCalls.h"

namespace vintoral {

/// Syncs that are waited for together, and no more of each than the disk lacks: a slot that is written over
/// and the row that is appended with it cost one sync.
class PendingSyncs {
 public:
  explicit PendingSyncs(SyncCalls& calls = SyncCalls::System()) : calls_(calls) {}
  PendingSyncs(const PendingSyncs&) = delete;
  PendingSyncs& operator=(const PendingSyncs&) = delete;
  ~PendingSyncs() { Wait().PassOver(); }

  void Begin() { ++depth_; }
  bool Waiting() const { return depth_ > 0; }
  /// Notes the file, which stays open until then, and sends it on its way to the disk.
  void Add(SharedDescriptor file, const std::string& path);
  /// Returns when all that were added since the outermost Begin are on disk; the first failure where there is
  /// one.
  Outcome End();
  /// Syncs the data of one file, and the length that goes with it.
  Outcome SyncNow(const Descriptor& file, const std::string& path);

 private:
  struct File {
    SharedDescriptor open;
    std::string path;
    FileFacts facts;
    int started;  ///< what the head start answered
  };
  struct Settled {
    FileFacts facts;
    Place place;
  };
  Outcome Wait();
  /// 0 when only a flush stands between `file` and the disk; ENOSYS when it takes a whole sync.
  int Arrive(const File& file);
  Outcome Flush(const File& file);
  Place PlaceOf(const FileFacts& facts) const;
  Outcome Sync(int descriptor, const std::string& path, const FileFacts& facts);
  Outcome Sync(const File& file) { return Sync(file.open->Number(), file.path, file.facts); }
  void Settle(int descriptor, const FileFacts& facts);

  SyncCalls& calls_;
  std::vector<File> files_;
  std::vector<Settled> settled_;  ///< files that a whole sync has put on disk, the latest last
  int depth_ = 0;
};

}  // namespace vintoral
