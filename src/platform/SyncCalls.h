// The calls of the system that syncing is made of.
#pragma once

#include <cstdint>
#include <string>

namespace vintoral {

/// What tells whether a write changed more than bytes that the disk holds already.
struct FileFacts {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t length = 0;  ///< bytes
  std::uint64_t blocks = 0;  ///< of 512 bytes on the disk
  /// The file system writes over a file's bytes where they lie, and the sync of a regular file flushes the
  /// disk's own memory.
  bool inPlace = false;

  friend bool operator==(const FileFacts&, const FileFacts&) = default;
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
  /// Flushes the memory of the disk `device`, on which the file at `path` lies, and writes nothing of that
  /// file. ENOSYS where that can't be had alone.
  virtual int Flush(const std::string& path, std::uint64_t device) = 0;
  /// All zero where the system can't say.
  virtual FileFacts Facts(int descriptor) = 0;
  /// Every byte of the file has its place on the disk and has been written there: no holes, no room that was
  /// only set aside. False where the system can't say.
  virtual bool LiesWritten(int descriptor, std::uint64_t length) = 0;

  /// This system's own.
  static SyncCalls& System();
};

/// What a system answers that doesn't know the request, as opposed to one that failed in it.
bool UnknownRequest(int error);

}  // namespace vintoral
