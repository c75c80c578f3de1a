#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

namespace vintoral {

PendingSyncs::~PendingSyncs() {
  for (const File& file : files_)
    close(file.descriptor);
}

bool PendingSyncs::Add(int descriptor, const std::string& path) {
  const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (own < 0) return false;
  files_.push_back({own, path});
  return true;
}

Outcome PendingSyncs::End() {
  if (depth_ == 0 || --depth_ > 0) return Outcome::Done();
  const std::vector<File> files = std::exchange(files_, {});
  std::vector<Outcome> outcomes(files.size(), Outcome::Done());
  std::vector<std::thread> others;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto sync = [&outcomes, &files, i] { outcomes[i] = SyncData(files[i].descriptor, files[i].path); };
    const bool last = i + 1 == files.size();
    try {
      if (!last) others.emplace_back(sync);
    } catch (const std::system_error&) {
      sync();  // no thread to be had: one after the other is as safe
    }
    if (last) sync();
  }
  for (std::thread& other : others)
    other.join();
  Outcome first = Outcome::Done();
  for (std::size_t i = 0; i < files.size(); ++i) {
    close(files[i].descriptor);
    if (first && !outcomes[i]) first = outcomes[i];
  }
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
