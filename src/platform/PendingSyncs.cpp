#include "platform/PendingSyncs.h"

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

void PendingSyncs::Add(SharedDescriptor file, const std::string& path) {
  const int descriptor = file->Number();
  const int started = calls_.Start(descriptor);
  files_.push_back({std::move(file), path, calls_.Facts(descriptor), started});
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::SyncNow(const Descriptor& file, const std::string& path) {
  return Sync(file.Number(), path, calls_.Facts(file.Number()));
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
    if (note(Flush(*file))) flushed.push_back(disk);
  }
  return first;
}

int PendingSyncs::Arrive(const File& file) {
  if (file.started != 0 && !UnknownRequest(file.started)) return file.started;
  return PlaceOf(file.facts) == Place::kUnknown ? ENOSYS : calls_.AwaitData(file.open->Number());
}

// By way of the folder where that is sure to flush: it has next to never anything of its own to write, while
// the sync of the file would write its time stamps as well.
Outcome PendingSyncs::Flush(const File& file) {
  if (PlaceOf(file.facts) != Place::kFixedWithoutJournal) return Sync(file);
  const int error = calls_.SyncFolderOf(file.path, file.facts.device);
  if (error == 0) return Outcome::Done();
  return UnknownRequest(error) ? Sync(file) : Outcome::Failed("flush the disk of", file.path, error);
}

// Writing over bytes that lie on the disk already changes nothing else there that matters, so once they have
// arrived only the disk's own memory stands between them and a power cut.
Place PendingSyncs::PlaceOf(const FileFacts& facts) const {
  const auto known = std::find_if(settled_.begin(), settled_.end(),
                                  [&](const Settled& settled) { return settled.facts == facts; });
  return known == settled_.end() ? Place::kUnknown : known->place;
}

Outcome PendingSyncs::Sync(int descriptor, const std::string& path, const FileFacts& facts) {
  const int error = calls_.Sync(descriptor);
  // A file system that doesn't know the request has nothing that it could lose.
  if (error != 0 && !UnknownRequest(error)) return Outcome::Failed("sync", path, error);
  Settle(descriptor, facts);
  return Outcome::Done();
}

void PendingSyncs::Settle(int descriptor, const FileFacts& facts) {
  const auto known = std::find_if(settled_.begin(), settled_.end(),
                                  [&](const Settled& settled) { return SameFile(settled.facts, facts); });
  const bool unchanged = known != settled_.end() && known->facts == facts;
  if (known != settled_.end()) settled_.erase(known);
  // Where its bytes lie is asked of a file that stays as long as it was: the history grows with each row.
  settled_.push_back({facts, unchanged ? calls_.PlaceOf(descriptor, facts) : Place::kUnknown});
  if (settled_.size() > kMostSettled) settled_.erase(settled_.begin());
}

}  // namespace vintoral
