// Locks. One that waits for another's is tried again and again, so that whoever waits can be interrupted.
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <functional>
#include <thread>

#include "Folder.h"

namespace hanging {
namespace {

constexpr std::chrono::milliseconds kPause{5};

int UntilHeld(fuse_req_t request, bool waits, const std::function<int()>& attempt) {
  int error = attempt();
  while (waits && (error == EAGAIN || error == EACCES)) {
    if (fuse_req_interrupted(request) != 0 || fuse_session_exited(Of(request).session) != 0) return EINTR;
    std::this_thread::sleep_for(kPause);
    error = attempt();
  }
  return error;
}

void Get(fuse_req_t request, fuse_ino_t number, fuse_file_info* file, struct flock* lock) {
  if (Held(request, Kind::kLock, number)) return;
  Folder& folder = Of(request);
  const int error = folder.locks.Get(folder.nodes.At(number), file->lock_owner, *lock);
  if (error != 0)
    fuse_reply_err(request, error);
  else
    fuse_reply_lock(request, lock);
}

void Set(fuse_req_t request, fuse_ino_t number, fuse_file_info* file, struct flock* lock, int waits) {
  if (Held(request, Kind::kLock, number)) return;
  Folder& folder = Of(request);
  const Node& node = folder.nodes.At(number);
  fuse_reply_err(request, UntilHeld(request, waits != 0, [&] {
                   return folder.locks.Set(node, file->fh, file->lock_owner, *lock);
                 }));
}

void LockWhole(fuse_req_t request, fuse_ino_t number, fuse_file_info* file, int operation) {
  if (Held(request, Kind::kLock, number)) return;
  const int descriptor = static_cast<int>(file->fh);
  fuse_reply_err(request, UntilHeld(request, (operation & LOCK_NB) == 0,
                                    [&] { return flock(descriptor, operation | LOCK_NB) == 0 ? 0 : errno; }));
}

}  // namespace

void LockOperations(fuse_lowlevel_ops& operations) {
  operations.getlk = Get;
  operations.setlk = Set;
  operations.flock = LockWhole;
}

}  // namespace hanging
