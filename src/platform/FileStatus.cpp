#include "platform/FileStatus.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace vintoral {
namespace {

std::optional<FileStatus> Ask(int descriptor, const char* path, int flags) {
  constexpr unsigned kAsked = STATX_TYPE | STATX_MODE | STATX_INO | STATX_SIZE | STATX_BLOCKS;
  struct statx answer {};
  if (statx(descriptor, path, flags, kAsked, &answer) != 0) return std::nullopt;
  return FileStatus{.mode = answer.stx_mode,
                    .inode = answer.stx_ino,
                    .device = std::uint64_t{answer.stx_dev_major} << 32 | answer.stx_dev_minor,
                    .length = answer.stx_size,
                    .blocks = answer.stx_blocks};
}

}  // namespace

bool FileStatus::IsFile() const {
  return S_ISREG(mode);
}

bool FileStatus::IsFolder() const {
  return S_ISDIR(mode);
}

bool FileStatus::IsOnABlockDevice() const {
  // File systems without one get a number of their own below the major number 0.
  return device >> 32 != 0;
}

std::optional<FileStatus> StatusOf(const std::string& path) {
  return Ask(AT_FDCWD, path.c_str(), AT_STATX_FORCE_SYNC);
}

std::optional<FileStatus> StatusOf(int descriptor) {
  return Ask(descriptor, "", AT_EMPTY_PATH | AT_STATX_FORCE_SYNC);
}

std::optional<FileStatus> RememberedStatusOf(int descriptor) {
  return Ask(descriptor, "", AT_EMPTY_PATH | AT_STATX_DONT_SYNC);
}

std::optional<FileMark> MarkOf(const std::string& path) {
  return MarkOf(AT_FDCWD, path);
}

std::optional<FileMark> MarkOf(int folder, const std::string& path) {
  struct statx answer {};
  constexpr unsigned kAsked = STATX_TYPE | STATX_SIZE | STATX_MTIME;
  if (statx(folder, path.c_str(), AT_STATX_FORCE_SYNC, kAsked, &answer) != 0) return std::nullopt;
  if (!S_ISREG(answer.stx_mode)) {
    errno = EISDIR;
    return std::nullopt;
  }
  return FileMark{answer.stx_size,
                  answer.stx_mtime.tv_sec * std::int64_t{1'000'000'000} + answer.stx_mtime.tv_nsec};
}

bool IsOnExt4(int descriptor) {
  struct statfs system {};
  return fstatfs(descriptor, &system) == 0 && system.f_type == EXT4_SUPER_MAGIC;
}

bool IsOnAServer(int descriptor) {
  constexpr std::array<__fsword_t, 5> kMounts = {NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
                                                 SMB2_SUPER_MAGIC, FUSE_SUPER_MAGIC};
  struct statfs system {};
  if (fstatfs(descriptor, &system) != 0) return true;
  return std::find(kMounts.begin(), kMounts.end(), system.f_type) != kMounts.end();
}

}  // namespace vintoral
