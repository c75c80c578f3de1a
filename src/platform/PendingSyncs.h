// Syncs that are waited for together.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/Outcome.h"

namespace vintoral {

/// What tells whether a write changed more than bytes that the disk holds already.
struct FileFacts {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t length = 0;  ///< bytes
  std::uint64_t blocks = 0;  ///< of 512 bytes on the disk
  /// The file system writes over a file's bytes where they lie, and a sync of any of its files flushes the
  /// disk's own memory.
  bool inPlace = false;

  friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

/// The calls of the system that syncing is made of. Each answers 0 or the system's errno.
class SyncCalls {
 public:
  virtual ~SyncCalls() = default;
  /// Data and length are on disk when this returns.
  virtual int Sync(int descriptor) = 0;
  /// Sends the data on their way without waiting: no promise, only a head start.
  virtual void Start(int descriptor) = 0;
  /// Returns when the data have reached the disk, though perhaps only its memory.
  virtual int AwaitData(int descriptor) = 0;
  /// Flushes the memory of the disk `device`, on which the file at `path` lies.
  virtual int Flush(const std::string& path, std::uint64_t device) = 0;
  /// All zero where the system can't say.
  virtual FileFacts Facts(int descriptor) = 0;

  /// This system's own.
  static SyncCalls& System();
};

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
  /// Notes the file behind `descriptor`, which may be closed afterwards, and sends it on its way to the disk.
  /// False when the file must be synced at once.
  bool Add(int descriptor, const std::string& path);
  /// Returns when all that were added since the outermost Begin are on disk; the first failure where there is
  /// one.
  Outcome End();
  /// Syncs the data of one file, and the length that goes with it.
  Outcome SyncNow(int descriptor, const std::string& path);

 private:
  struct File {
    int descriptor;
    std::string path;
    FileFacts facts;
  };
  Outcome Wait();
  /// Once its data have arrived, only a flush stands between `file` and the disk.
  bool WrittenInPlace(const File& file) const;
  Outcome Sync(const File& file);

  SyncCalls& calls_;
  std::vector<File> files_;
  std::vector<FileFacts> settled_;  ///< files that a whole sync has put on disk, the latest last
  int depth_ = 0;
};

}  // namespace vintoral
