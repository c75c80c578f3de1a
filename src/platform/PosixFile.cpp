#include "platform/PosixFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/FileStatus.h"
#include "platform/WriteAllAt.h"

namespace vintoral {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kLongestWait{100};
/// A server that has lost a machine keeps everybody waiting, whoever has the lock too, for its own time-out
/// of some 10 s. Whoever went on without the lock then would write where the other is about to.
constexpr milliseconds kLongestWaitForAServer{15'000};
constexpr microseconds kFirstPause{200};
constexpr microseconds kLongestPause{2000};

/// Where the append lock lies: far beyond any data. A file system that can't count as far takes the second;
/// it is the same for all stations on it.
constexpr std::array<std::int64_t, 2> kLockPositions = {std::int64_t{1} << 62, 0x7FFF'FFFE};

enum class Lock { kHeld, kBusy, kBadPosition, kUnsupported };

int SetLock(int descriptor, short type, std::int64_t position) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  range.l_start = position;
  range.l_len = 1;
  int result = 0;
  do
    result = fcntl(descriptor, F_OFD_SETLK, &range);
  while (result != 0 && errno == EINTR);
  return result;
}

Lock TryLock(int descriptor, std::int64_t position) {
  if (SetLock(descriptor, F_WRLCK, position) == 0) return Lock::kHeld;
  if (errno == EAGAIN || errno == EACCES) return Lock::kBusy;
  if (errno == EINVAL || errno == EOVERFLOW || errno == EFBIG) return Lock::kBadPosition;
  return Lock::kUnsupported;
}

/// Tries until the lock is held or the wait runs out.
Lock WaitForLock(int descriptor, std::int64_t position) {
  const auto begun = steady_clock::now();
  Lock lock = TryLock(descriptor, position);
  if (lock != Lock::kBusy) return lock;
  // Asked only where there is a wait: on a mount the question is a trip to its server.
  const auto end = begun + (IsOnAServer(descriptor) ? kLongestWaitForAServer : kLongestWait);
  for (microseconds pause = kFirstPause; lock == Lock::kBusy && steady_clock::now() < end;
       pause = std::min(pause * 2, kLongestPause)) {
    std::this_thread::sleep_for(pause);
    lock = TryLock(descriptor, position);
  }
  return lock;
}

}  // namespace

Outcome PosixFile::Failed(std::string_view what) const {
  return Outcome::Failed(what, path_, errno);
}

Result<std::size_t> PosixFile::ReadAt(std::uint64_t offset, std::span<char> into) {
  std::size_t done = 0;
  while (done < into.size()) {
    const ssize_t got =
        pread(open_->Number(), into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Failed("read");
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

Outcome PosixFile::WriteAt(std::uint64_t offset, std::span<const char> bytes) {
  // So that a full disk refuses it whole.
  if (!bytes.empty() && offset / kPage != (offset + bytes.size() - 1) / kPage) {
    Outcome room = MakeRoom(offset, bytes.size());
    if (!room) return room;
  }
  const int error = WriteAllAt(open_->Number(), offset, {bytes.data(), bytes.size()});
  return error == 0 ? Outcome::Done() : Outcome::Failed("write", path_, error);
}

Result<std::uint64_t> PosixFile::Length() {
  const std::optional<FileStatus> status = StatusOf(open_->Number());
  if (!status) return Failed("measure");
  return status->length;
}

Outcome PosixFile::Sync() {
  if (!newIn_.empty()) SyncFolder(newIn_);
  newIn_.clear();
  if (!pending_.Waiting()) return pending_.SyncNow(*open_, path_);
  pending_.Add(open_, path_);
  return Outcome::Done();
}

Outcome PosixFile::Reserve(std::uint64_t length) {
  const Result<std::uint64_t> now = Length();
  if (!now) return now.Why();
  if (*now >= length) return Outcome::Done();
  // The page that the file ends in has its room already; asking for it again would cost a sync more.
  if (*now % kPage != 0 && *now / kPage == (length - 1) / kPage) return Outcome::Done();
  return MakeRoom(*now, length - *now);
}

Outcome PosixFile::MakeRoom(std::uint64_t offset, std::uint64_t size) {
  int result = 0;
  do
    result =
        fallocate(open_->Number(), FALLOC_FL_KEEP_SIZE, static_cast<off_t>(offset), static_cast<off_t>(size));
  while (result != 0 && errno == EINTR);
  if (result != 0 && !UnknownRequest(errno)) return Failed("make room in");
  return Outcome::Done();
}

Outcome PosixFile::Cut(std::uint64_t length) {
  if (!lockedAt_) return Outcome::Failed("cut", path_, ENOLCK);
  int result = 0;
  do
    result = ftruncate(open_->Number(), static_cast<off_t>(length));
  while (result != 0 && errno == EINTR);
  return result == 0 ? Outcome::Done() : Failed("cut");
}

void PosixFile::LockAppend() {
  for (const std::int64_t position : kLockPositions) {
    const Lock lock = WaitForLock(open_->Number(), position);
    if (lock == Lock::kHeld) lockedAt_ = position;
    if (lock != Lock::kBadPosition) return;
  }
}

void PosixFile::UnlockAppend() {
  if (lockedAt_) SetLock(open_->Number(), F_UNLCK, *lockedAt_);
  lockedAt_.reset();
}

int OpenRegular(const std::string& path, int flags) {
  int descriptor = -1;
  do
    descriptor = open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
  while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) return -1;
  const std::optional<FileStatus> status = RememberedStatusOf(descriptor);
  if (status && status->IsFile()) return descriptor;
  close(descriptor);
  errno = status && status->IsFolder() ? EISDIR : EINVAL;
  return -1;
}

void SyncFolder(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace vintoral
