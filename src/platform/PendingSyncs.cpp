#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace vintoral {

bool PendingSyncs::Add(int descriptor, const std::string& path) {
  const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (own < 0) return false;
  Running& sync = running_.emplace_back(Running{own, Outcome::Done(), {}});
  try {
    sync.thread = std::thread([&sync, path] { sync.outcome = SyncData(sync.descriptor, path); });
  } catch (const std::system_error&) {
    sync.outcome = SyncData(own, path);  // no thread to be had: waiting here is as safe
  }
  return true;
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::Wait() {
  Outcome first = Outcome::Done();
  for (Running& sync : running_) {
    if (sync.thread.joinable()) sync.thread.join();
    close(sync.descriptor);
    if (first && !sync.outcome) first = sync.outcome;
  }
  running_.clear();
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
