// What works on an open folder. Its handle is the stream that lists the folder of the source.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "Folder.h"

namespace hanging {
namespace {

DIR* StreamOf(const fuse_file_info* file) {
  return reinterpret_cast<DIR*>(file->fh);
}

void Open(fuse_req_t request, fuse_ino_t number, fuse_file_info* file) {
  if (Held(request, Kind::kDirectory, number)) return;
  const int opened = openat(Of(request).nodes.At(number).place, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return AnswerCall(request, -1);
  DIR* stream = fdopendir(opened);
  file->fh = reinterpret_cast<std::uint64_t>(stream);
  if (fuse_reply_open(request, file) == -ENOENT) closedir(stream);
}

/// As many entries from where the stream stands as go into `bytes`; how many bytes they took, or -1 with
/// errno.
ssize_t List(fuse_req_t request, DIR* stream, std::vector<char>& bytes) {
  std::size_t used = 0;
  for (;;) {
    const long before = telldir(stream);
    errno = 0;
    const dirent* entry = readdir(stream);
    if (entry == nullptr) return errno != 0 && used == 0 ? -1 : static_cast<ssize_t>(used);
    struct stat status {};
    status.st_ino = entry->d_ino;
    status.st_mode = DTTOIF(static_cast<mode_t>(entry->d_type));
    const std::size_t taken = fuse_add_direntry(request, bytes.data() + used, bytes.size() - used,
                                                entry->d_name, &status, entry->d_off);
    if (taken > bytes.size() - used) {
      seekdir(stream, before);
      return static_cast<ssize_t>(used);
    }
    used += taken;
  }
}

void Read(fuse_req_t request, fuse_ino_t number, std::size_t size, off_t offset, fuse_file_info* file) {
  if (Held(request, Kind::kDirectory, number)) return;
  if (offset == 0)
    rewinddir(StreamOf(file));  // sees what was made since the folder was opened
  else
    seekdir(StreamOf(file), offset);
  std::vector<char> bytes(size);
  const ssize_t used = List(request, StreamOf(file), bytes);
  if (used < 0) return AnswerCall(request, -1);
  fuse_reply_buf(request, bytes.data(), static_cast<std::size_t>(used));
}

void Sync(fuse_req_t request, fuse_ino_t number, int dataOnly, fuse_file_info* file) {
  if (Held(request, Kind::kSync, number)) return;
  const int folder = dirfd(StreamOf(file));
  AnswerCall(request, dataOnly != 0 ? fdatasync(folder) : fsync(folder));
}

void Release(fuse_req_t request, fuse_ino_t, fuse_file_info* file) {
  closedir(StreamOf(file));
  fuse_reply_err(request, 0);
}

}  // namespace

void FolderOperations(fuse_lowlevel_ops& operations) {
  operations.opendir = Open;
  operations.readdir = Read;
  operations.fsyncdir = Sync;
  operations.releasedir = Release;
}

}  // namespace hanging
