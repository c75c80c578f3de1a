#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace vintoral {
namespace {

/// More files than one operation writes.
constexpr std::size_t kMostSettled = 8;

bool SameFile(const FileFacts& one, const FileFacts& other) {
  return one.device == other.device && one.inode == other.inode;
}

}  // namespace

bool PendingSyncs::Add(int descriptor, const std::string& path) {
  const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (own < 0) return false;
  const int started = calls_.Start(own);
  files_.push_back({own, path, calls_.Facts(own), started});
  return true;
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::SyncNow(int descriptor, const std::string& path) {
  return Sync({descriptor, path, calls_.Facts(descriptor), 0});
}

Outcome PendingSyncs::Wait() {
  const std::vector<File> files = std::exchange(files_, {});
  Outcome first = Outcome::Done();
  const auto note = [&first](const Outcome& outcome) {
    if (first && !outcome) first = outcome;
    return static_cast<bool>(outcome);
  };
  std::vector<const File*> arrived, whole;
  for (const File& file : files) {
    const int error = Arrive(file);
    (error == 0 ? arrived : whole).push_back(&file);
    // A failed write is told once, and the next sync would call it done.
    if (error != 0 && !UnknownRequest(error)) note(Outcome::Failed("sync", file.path, error));
  }
  std::vector<std::uint64_t> flushed;
  // The last one first: by then the others have reached the disk, and its flush leaves little to do for them.
  for (auto file = whole.rbegin(); file != whole.rend(); ++file)
    if (note(Sync(**file))) flushed.push_back((*file)->facts.device);
  for (const File* file : arrived) {
    const std::uint64_t disk = file->facts.device;
    if (std::find(flushed.begin(), flushed.end(), disk) != flushed.end()) continue;
    const int error = calls_.Flush(file->path, disk);
    const Outcome outcome = UnknownRequest(error) ? Sync(*file)
                            : error == 0          ? Outcome::Done()
                                                  : Outcome::Failed("flush the disk of", file->path, error);
    if (note(outcome)) flushed.push_back(disk);
  }
  for (const File& file : files)
    close(file.descriptor);
  return first;
}

int PendingSyncs::Arrive(const File& file) {
  if (file.started != 0 && !UnknownRequest(file.started)) return file.started;
  return WrittenInPlace(file) ? calls_.AwaitData(file.descriptor) : ENOSYS;
}

// Writing over bytes that lie on the disk already changes nothing else there that matters, so once they have
// arrived only the disk's own memory stands between them and a power cut.
bool PendingSyncs::WrittenInPlace(const File& file) const {
  return file.facts.inPlace && std::any_of(settled_.begin(), settled_.end(), [&](const Settled& known) {
           return known.facts == file.facts && known.written;
         });
}

Outcome PendingSyncs::Sync(const File& file) {
  const int error = calls_.Sync(file.descriptor);
  // A file system that doesn't know the request has nothing that it could lose.
  if (error != 0 && !UnknownRequest(error)) return Outcome::Failed("sync", file.path, error);
  Settle(file);
  return Outcome::Done();
}

void PendingSyncs::Settle(const File& file) {
  const auto known = std::find_if(settled_.begin(), settled_.end(),
                                  [&](const Settled& other) { return SameFile(other.facts, file.facts); });
  const bool unchanged = known != settled_.end() && known->facts == file.facts;
  if (known != settled_.end()) settled_.erase(known);
  // Where its bytes lie is asked of a file that stays as long as it was: the history grows with each row.
  const bool written =
      unchanged && file.facts.inPlace && calls_.LiesWritten(file.descriptor, file.facts.length);
  settled_.push_back({file.facts, written});
  if (settled_.size() > kMostSettled) settled_.erase(settled_.begin());
}

}  // namespace vintoral
