// What the station asks the system about a file.
//
// Its times are left out on purpose. A system with fine time stamps (Linux from 6.13) remembers that somebody
// has seen them and stamps the next write apart from it, and then each sync has one block more to write. The
// registers are looked at before every write.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vintoral {

struct FileStatus {
  unsigned mode = 0;  ///< kind and permissions, as S_ISREG and chmod take them
  std::uint64_t inode = 0;
  std::uint64_t device = 0;
  std::uint64_t length = 0;  ///< bytes
  std::uint64_t blocks = 0;  ///< of 512 bytes on the disk; fewer than the length needs where there are holes

  bool IsFile() const;
  bool IsFolder() const;
};

/// Nothing, with errno set, when it is missing or the system failed. Links are followed. As the server has it
/// now: a mount may remember what another gate has changed since, or a server that is gone.
std::optional<FileStatus> StatusOf(const std::string& path);
std::optional<FileStatus> StatusOf(int descriptor);
/// The same, but from the mount's memory where it has one: enough for what doesn't change.
std::optional<FileStatus> RememberedStatusOf(int descriptor);

}  // namespace vintoral
