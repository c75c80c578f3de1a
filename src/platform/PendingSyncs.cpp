#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <tuple>

namespace vintoral {

bool PendingSyncs::Add(int descriptor, const std::string& path) {
  const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (own < 0) return false;
  // No promise, only a head start for the file before this one: the promise is the sync in Wait. The last
  // file needs none, and a file system without head starts begins there.
  if (!files_.empty()) std::ignore = sync_file_range(files_.back().descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
  files_.push_back({own, path});
  return true;
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::Wait() {
  Outcome first = Outcome::Done();
  // The last one first: the flush that it asks of the disk covers the others, which have arrived there
  // meanwhile.
  for (auto file = files_.rbegin(); file != files_.rend(); ++file) {
    const Outcome synced = SyncData(file->descriptor, file->path);
    close(file->descriptor);
    if (first && !synced) first = synced;
  }
  files_.clear();
  return first;
}

Outcome SyncData(int descriptor, const std::string& path) {
  int result = 0;
  do
    result = fdatasync(descriptor);
  while (result != 0 && errno == EINTR);
  // A file system that doesn't know the request has nothing that it could lose.
  const bool unknown = result != 0 && (errno == EOPNOTSUPP || errno == ENOSYS || errno == EINVAL);
  return result == 0 || unknown ? Outcome::Done() : Outcome::Failed("sync", path, errno);
}

}  // namespace vintoral
