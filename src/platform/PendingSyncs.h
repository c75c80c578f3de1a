// Syncs that are waited for together.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "common/Outcome.h"
#include "platform/Descriptor.h"
#include "platform/SyncCalls.h"

namespace vintoral {

/// The files of one fact, synced together. A flush empties the disk's write cache of all files, so a register
/// that is known to be written in place has its data sent to the disk and leaves the flush to the last file.
class PendingSyncs {
 public:
  explicit PendingSyncs(SyncCalls& calls = SyncCalls::System()) : calls_(calls) {}
  PendingSyncs(const PendingSyncs&) = delete;
  PendingSyncs& operator=(const PendingSyncs&) = delete;
  ~PendingSyncs() { Wait().PassOver(); }

  void Begin() { ++depth_; }
  bool Waiting() const { return depth_ > 0; }
  /// Notes a file, which stays open until End, and begins to write its data.
  void Add(SharedDescriptor file, const std::string& path);
  /// Returns when all that were added since the outermost Begin would survive a power cut; the first failure
  /// where there is one.
  Outcome End();
  /// The same for one file, at once.
  Outcome SyncNow(const Descriptor& file, const std::string& path);

 private:
  struct File {
    SharedDescriptor open;
    std::string path;
  };
  /// Device and inode.
  using Identity = std::pair<std::uint64_t, std::uint64_t>;
  struct Seen {
    FileStatus status;
    bool inPlace = false;  ///< it is written in place as long as it stays like this
  };
  static Identity IdentityOf(const FileStatus& status) { return {status.device, status.inode}; }

  Outcome Wait();
  /// A file that needs a flush of its own comes last, so that its flush is the others' too.
  void PutFlushLast(std::vector<File>& files) const;
  bool WrittenInPlace(const FileStatus& status) const;
  /// Whether `file` would survive a power cut once its data have arrived and `last` has been synced.
  bool LeavesFlushTo(const File& last, const File& file) const;
  /// The file that `status` was asked of, as it was when it was last synced whole; nothing when it has
  /// changed.
  const Seen* Unchanged(const FileStatus& status) const;
  Outcome Sync(const File& file) { return SyncNow(*file.open, file.path); }

  SyncCalls& calls_;
  std::vector<File> files_;
  Outcome started_ = Outcome::Done();  ///< the first failure to begin
  std::map<Identity, Seen> seen_;      ///< how each file was when it was last synced whole
  int depth_ = 0;
};

}  // namespace vintoral
