#include "platform/PendingSyncs.h"

#include <cerrno>
#include <span>

namespace vintoral {

void PendingSyncs::Add(SharedDescriptor open, const std::string& path) {
  const int error = calls_.Start(open->Number());
  if (started_ && error != 0 && !UnknownRequest(error)) started_ = Outcome::Failed("sync", path, error);
  File file{std::move(open), path, {}};
  file.look = LookAt(*file.open);
  if (WrittenInPlace(file.look)) return inPlace_.push_back(std::move(file));
  if (whole_) SyncBeside(std::move(*whole_));
  whole_ = std::move(file);
}

void PendingSyncs::SyncBeside(File file) {
  if (!thread_) thread_.emplace();
  File& noted = beside_.emplace_back(std::move(file));
  thread_->Add([&calls = calls_, &noted] { noted.error = calls.Sync(noted.open->Number()); });
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::Wait() {
  std::vector<File> files = std::exchange(inPlace_, {});
  if (whole_) files.push_back(*std::exchange(whole_, std::nullopt));
  const Outcome started = std::exchange(started_, Outcome::Done());
  Outcome here = FlushHere(files);
  const Outcome beside = WaitBeside();
  for (const Outcome& outcome : {started, beside})
    if (!outcome) return outcome;
  return here;
}

Outcome PendingSyncs::FlushHere(const std::vector<File>& files) {
  if (files.empty()) return Outcome::Done();
  const File& last = files.back();
  Outcome first = Outcome::Done();
  const auto note = [&first](const Outcome& outcome) {
    if (first) first = outcome;
  };
  std::vector<const File*> unflushed;
  for (const File& file : std::span(files).first(files.size() - 1)) {
    const bool oneDisk = last.look && last.look->status.device == file.look->status.device;
    const int error = oneDisk ? calls_.AwaitData(file.open->Number()) : ENOSYS;
    if (error == 0) unflushed.push_back(&file);
    if (error != 0) note(UnknownRequest(error) ? Sync(file) : Outcome::Failed("sync", file.path, error));
  }
  const Outcome flushed = Sync(last);
  note(flushed);
  if (flushed) return first;
  for (const File* file : unflushed)
    note(Sync(*file));
  return first;
}

Outcome PendingSyncs::WaitBeside() {
  if (beside_.empty()) return Outcome::Done();
  thread_->Await();
  Outcome first = Outcome::Done();
  for (const File& file : std::exchange(beside_, {})) {
    const Outcome synced = Synced(file, file.error);
    if (first) first = synced;
  }
  return first;
}

std::optional<PendingSyncs::Look> PendingSyncs::LookAt(const Descriptor& file) const {
  const std::optional<FileStatus> status = calls_.Status(file.Number());
  if (!status) return std::nullopt;
  const auto seen = seen_.find(IdentityOf(*status));
  if (seen == seen_.end()) return Look{*status};
  const Look& before = seen->second;
  // What has grown inside its last block has got nothing new on the disk but its length.
  const bool sameBlocks = before.status.blocks == status->blocks && before.status.length <= status->length;
  if (sameBlocks && before.written >= status->length) return Look{*status, before.written};
  // The map is asked for of a file that has been the same at two syncs: the history, which grows each time,
  // is never written in place.
  if (before.status != *status) return Look{*status};
  return Look{*status, calls_.WrittenUpTo(file.Number(), status->length)};
}

bool PendingSyncs::WrittenInPlace(const std::optional<Look>& look) const {
  if (!look) return false;
  const auto seen = seen_.find(IdentityOf(look->status));
  return seen != seen_.end() && seen->second.status == look->status && seen->second.written > 0 &&
         seen->second.written >= look->status.length;
}

Outcome PendingSyncs::Sync(const File& file) {
  return Synced(file, calls_.Sync(file.open->Number()));
}

Outcome PendingSyncs::SyncNow(const Descriptor& file, const std::string& path) {
  // Looked at before the sync, so that what was seen is on the disk after it.
  const File noted{{}, path, LookAt(file)};
  return Synced(noted, calls_.Sync(file.Number()));
}

Outcome PendingSyncs::Synced(const File& file, int error) {
  // A file system that doesn't know the request has nothing that it could lose.
  if (error != 0 && !UnknownRequest(error)) return Outcome::Failed("sync", file.path, error);
  if (file.look) seen_[IdentityOf(file.look->status)] = *file.look;
  return Outcome::Done();
}

}  // namespace vintoral
