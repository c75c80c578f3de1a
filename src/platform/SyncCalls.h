// The calls of the system that syncing is made of.
#pragma once

#include <cstdint>
#include <string>

namespace vintoral {

/// What tells one file from another, and from what it was.
struct FileFacts {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t length = 0;  ///< bytes
  std::uint64_t blocks = 0;  ///< of 512 bytes on the disk

  friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

/// Where a write over a file's bytes goes.
enum class Place {
  kUnknown,
  /// To where they lie: each of them has its place on the disk and has been written there. The sync of a
  /// regular file flushes the disk's own memory.
  kFixed,
  /// The same, and so does the sync of a folder.
  kFixedWithoutJournal,
};

/// Each answers 0 or the system's errno, if not told otherwise.
class SyncCalls {
 public:
  virtual ~SyncCalls() = default;
  /// Data and length are on disk when this returns.
  virtual int Sync(int descriptor) = 0;
  /// Sends the data on their way without waiting: no promise, only a head start. Its failure is told once:
  /// the sync that follows may find nothing left to write.
  virtual int Start(int descriptor) = 0;
  /// Returns when the data have reached the disk, though perhaps only its memory.
  virtual int AwaitData(int descriptor) = 0;
  /// Syncs the folder that holds the file at `path`. ENOSYS when that can't be had, or isn't on the disk
  /// `device`.
  virtual int SyncFolderOf(const std::string& path, std::uint64_t device) = 0;
  /// All zero where the system can't say.
  virtual FileFacts Facts(int descriptor) = 0;
  virtual Place PlaceOf(int descriptor, const FileFacts& facts) = 0;

  /// This system's own.
  static SyncCalls& System();
};

/// What a system answers that doesn't know the request, as opposed to one that failed in it.
bool UnknownRequest(int error);

}  // namespace vintoral
