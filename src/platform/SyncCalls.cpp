#include "platform/SyncCalls.h"

#include <fcntl.h>
#include <linux/fiemap.h>
#include <linux/fs.h>
#include <linux/magic.h>
#include <sys/ioctl.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <new>
#include <span>
#include <string_view>

#include "platform/FileStatus.h"

namespace vintoral {
namespace {

/// The name that the system gives to an ext4 file system in /sys/fs/ext4; "" when it can't be found.
std::string NameOf(std::uint64_t device) {
  const std::string link =
      "/sys/dev/block/" + std::to_string(device >> 32) + ":" + std::to_string(device & 0xFFFF'FFFF);
  std::array<char, 256> target;
  const ssize_t length = readlink(link.c_str(), target.data(), target.size());
  if (length <= 0) return {};
  const std::string_view path(target.data(), static_cast<std::size_t>(length));
  return std::string(path.substr(path.rfind('/') + 1));
}

/// With a journal the sync of a folder waits for the journal alone, and flushes nothing when that has nothing
/// to write.
bool HasNoJournal(std::uint64_t device) {
  const std::string path = "/sys/fs/ext4/" + NameOf(device) + "/journal_task";
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  constexpr std::string_view kNone = "<none>";
  std::array<char, kNone.size()> name;
  const ssize_t length = read(descriptor, name.data(), name.size());
  close(descriptor);
  return length == static_cast<ssize_t>(name.size()) && std::string_view(name.data(), name.size()) == kNone;
}

/// As many pieces as are asked for at once; a register lies in few.
constexpr unsigned kExtents = 64;

bool PlainlyWritten(const fiemap_extent& extent) {
  constexpr unsigned kPlain = FIEMAP_EXTENT_LAST | FIEMAP_EXTENT_MERGED;
  return (extent.fe_flags & ~kPlain) == 0;
}

/// No holes, and no room that was only set aside: filling such changes more than the data.
bool LiesWritten(int descriptor, std::uint64_t length) {
  // The system's structure ends in an array of any length.
  alignas(fiemap) std::array<std::byte, sizeof(fiemap) + kExtents * sizeof(fiemap_extent)> room{};
  fiemap& map = *std::launder(reinterpret_cast<fiemap*>(room.data()));
  map.fm_length = length;
  map.fm_extent_count = kExtents;
  if (length == 0 || ioctl(descriptor, FS_IOC_FIEMAP, &map) != 0) return false;
  std::uint64_t end = 0;
  const fiemap_extent* const first = map.fm_extents;
  for (const fiemap_extent& extent : std::span(first, std::min(map.fm_mapped_extents, kExtents))) {
    if (extent.fe_logical > end || !PlainlyWritten(extent)) return false;
    end = extent.fe_logical + extent.fe_length;
  }
  return end >= length;
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

  int SyncFolderOf(const std::string& path, std::uint64_t device) override {
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return ENOSYS;
    const std::optional<FileStatus> status = StatusOf(descriptor);
    const int error = status && status->device == device ? Sync(descriptor) : ENOSYS;
    close(descriptor);
    return error;
  }

  FileFacts Facts(int descriptor) override {
    const std::optional<FileStatus> file = StatusOf(descriptor);
    if (!file) return {};
    return {.device = file->device, .inode = file->inode, .length = file->length, .blocks = file->blocks};
  }

  Place PlaceOf(int descriptor, const FileFacts& facts) override {
    struct statfs system {};
    const bool known = fstatfs(descriptor, &system) == 0 && system.f_type == EXT4_SUPER_MAGIC;
    if (!known || !LiesWritten(descriptor, facts.length)) return Place::kUnknown;
    return HasNoJournal(facts.device) ? Place::kFixedWithoutJournal : Place::kFixed;
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
