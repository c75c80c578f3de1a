// Syncs that are waited for together.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/Outcome.h"
#include "platform/Descriptor.h"
#include "platform/SyncCalls.h"
#include "platform/WorkBeside.h"

namespace vintoral {

/// The files of one fact, synced together. A flush empties the disk's write cache of all files, so a register
/// that is known to be written in place has its data sent to the disk and leaves the flush to the last file.
/// Of those that need a flush of their own, the last one noted is synced by whoever waits, and each before it
/// by a thread, while the station goes on.
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
  /// Device and inode.
  using Identity = std::pair<std::uint64_t, std::uint64_t>;
  /// A file between its last write and its sync; once that is done, what is known of it on the disk.
  struct Look {
    FileStatus status;
    std::uint64_t written = 0;  ///< SyncCalls::WrittenUpTo; 0 where that was not asked
  };
  struct File {
    SharedDescriptor open;
    std::string path;
    std::optional<Look> look;  ///< nothing where the system can't say
    int error = 0;             ///< of a sync beside
  };
  static Identity IdentityOf(const FileStatus& status) { return {status.device, status.inode}; }

  Outcome Wait();
  Outcome FlushHere(const std::vector<File>& files);
  void SyncBeside(File file);
  Outcome WaitBeside();
  std::optional<Look> LookAt(const Descriptor& file) const;
  /// Whether what was written over it changes nothing on the disk but its data.
  bool WrittenInPlace(const std::optional<Look>& look) const;
  Outcome Sync(const File& file);
  /// Keeps what is known behind a sync that was answered with `error`.
  Outcome Synced(const File& file, int error);

  SyncCalls& calls_;
  std::vector<File> inPlace_;          ///< those that leave the flush to another one
  std::optional<File> whole_;          ///< the last one that is to be synced whole
  std::deque<File> beside_;            ///< those before it, in the hands of the thread
  Outcome started_ = Outcome::Done();  ///< the first failure to begin
  std::map<Identity, Look> seen_;      ///< each file as it was when it was last synced whole
  int depth_ = 0;
  std::optional<WorkBeside> thread_;  ///< from the first one on that it syncs; its work uses the others
};

}  // namespace vintoral
