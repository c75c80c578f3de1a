// What the station asks the system about a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/FileMark.h"

namespace vintoral {

/// Without its times. From Linux 6.13 on, a file whose times somebody has read gets a new one with its next
/// write, and its inode must be synced with the data; the registers are looked at before every write.
struct FileStatus {
  unsigned mode = 0;  ///< kind and permissions, as S_ISREG and chmod take them
  std::uint64_t inode = 0;
  std::uint64_t device = 0;  ///< the major number in the upper half
  std::uint64_t length = 0;  ///< bytes
  std::uint64_t blocks = 0;  ///< of 512 bytes on the disk; fewer than the length needs where there are holes

  bool IsFile() const;
  bool IsFolder() const;
  /// On a disk of this machine; false for a mount of a server, for memory, and for some local file systems
  /// that lie on several disks. ext4 always lies on one.
  bool IsOnABlockDevice() const;

  friend bool operator==(const FileStatus&, const FileStatus&) = default;
};

/// Nothing, with errno set, when the file is missing or the system failed. Links are followed. A mount asks
/// its server anew: what it remembers may have been changed by another gate since, or the server may be gone.
std::optional<FileStatus> StatusOf(const std::string& path);
std::optional<FileStatus> StatusOf(int descriptor);
/// The same, but a mount answers from memory, without a trip to its server: enough for what doesn't change of
/// an open file, its kind and its device.
std::optional<FileStatus> RememberedStatusOf(int descriptor);
/// The open file or folder lies on ext4, or on what looks like it: ext2 and ext3 have the same number.
bool IsOnExt4(int descriptor);
/// It lies on a mount behind which other machines may be at work: a share, a volume, any file system of FUSE;
/// also where the system can't tell.
bool IsOnAServer(int descriptor);
/// The mark of a file that is replaced whole, such as a photo. Nothing, with errno set, where there is no
/// file of that name.
std::optional<FileMark> MarkOf(const std::string& path);
/// The same in an open folder.
std::optional<FileMark> MarkOf(int folder, const std::string& path);

}  // namespace vintoral
