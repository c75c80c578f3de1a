// The calls of the system that syncing is made of.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/FileStatus.h"

namespace vintoral {

/// Each that gives an int answers 0 or the system's errno.
class SyncCalls {
 public:
  virtual ~SyncCalls() = default;
  /// Returns when data and length would survive a power cut.
  virtual int Sync(int descriptor) = 0;
  /// Begins to write the data without waiting. A failed write is reported here or by AwaitData, and not once
  /// more by the sync that follows.
  virtual int Start(int descriptor) = 0;
  /// Returns when the disk has the data, though perhaps only in its write cache.
  virtual int AwaitData(int descriptor) = 0;
  /// Nothing where the system can't say, nor of a file that lies on no disk of this machine.
  virtual std::optional<FileStatus> Status(int descriptor) = 0;
  /// How far writing over the first `length` bytes changes nothing on the disk but them, while the sync of
  /// any file flushes the disk's write cache: the end of the written extents that follow one another from the
  /// first byte on. It may lie behind `length`. 0 where that is unknown, as on all but ext4.
  virtual std::uint64_t WrittenUpTo(int descriptor, std::uint64_t length) = 0;

  /// This system's own.
  static SyncCalls& System();
};

/// What a system answers that doesn't know the request, as opposed to one that failed in it.
bool UnknownRequest(int error);

}  // namespace vintoral
