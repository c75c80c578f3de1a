#include "platform/SyncCalls.h"

#include <fcntl.h>
#include <linux/fiemap.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <new>
#include <span>

namespace vintoral {
namespace {

/// As many extents as are asked for at once; a register has few.
constexpr unsigned kExtents = 64;

/// Any other flag stands for data that are not yet where they will lie.
bool PlainlyWritten(const fiemap_extent& extent) {
  constexpr unsigned kPlain = FIEMAP_EXTENT_LAST | FIEMAP_EXTENT_MERGED;
  return (extent.fe_flags & ~kPlain) == 0;
}

/// Where the written extents end that follow one another from the first byte on, of those below `length`.
std::uint64_t WrittenExtents(int descriptor, std::uint64_t length) {
  // The system's structure ends in an array of any length.
  alignas(fiemap) std::array<std::byte, sizeof(fiemap) + kExtents * sizeof(fiemap_extent)> room{};
  fiemap& map = *std::launder(reinterpret_cast<fiemap*>(room.data()));
  map.fm_length = length;
  map.fm_extent_count = kExtents;
  if (length == 0 || ioctl(descriptor, FS_IOC_FIEMAP, &map) != 0) return 0;
  std::uint64_t end = 0;
  const fiemap_extent* const first = map.fm_extents;
  for (const fiemap_extent& extent : std::span(first, std::min(map.fm_mapped_extents, kExtents))) {
    if (extent.fe_logical > end || !PlainlyWritten(extent)) break;
    end = extent.fe_logical + extent.fe_length;
  }
  return end;
}

class LinuxCalls final : public SyncCalls {
 public:
  int Sync(int descriptor) override {
    int result = 0;
    do
      result = fdatasync(descriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 ? 0 : errno;
  }

  int Start(int descriptor) override {
    return sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE) == 0 ? 0 : errno;
  }

  int AwaitData(int descriptor) override {
    constexpr unsigned kAll =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return sync_file_range(descriptor, 0, 0, kAll) == 0 ? 0 : errno;
  }

  std::optional<FileStatus> Status(int descriptor) override {
    // A mount is not asked for what could only be known of ext4: that would be a trip to its server.
    const std::optional<FileStatus> status = RememberedStatusOf(descriptor);
    return status && status->IsOnABlockDevice() ? status : std::nullopt;
  }

  std::uint64_t WrittenUpTo(int descriptor, std::uint64_t length) override {
    return IsOnExt4(descriptor) ? WrittenExtents(descriptor, length) : 0;
  }
};

}  // namespace

SyncCalls& SyncCalls::System() {
  static LinuxCalls calls;
  return calls;
}

bool UnknownRequest(int error) {
  return error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

}  // namespace vintoral
