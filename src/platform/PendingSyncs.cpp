#include "platform/PendingSyncs.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <span>

namespace vintoral {

void PendingSyncs::Add(SharedDescriptor file, const std::string& path) {
  const int error = calls_.Start(file->Number());
  if (started_ && error != 0 && !UnknownRequest(error)) started_ = Outcome::Failed("sync", path, error);
  files_.push_back({std::move(file), path});
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::Wait() {
  std::vector<File> files = std::exchange(files_, {});
  if (files.empty()) return Outcome::Done();
  PutFlushLast(files);
  const File& last = files.back();
  Outcome first = std::exchange(started_, Outcome::Done());
  const auto note = [&first](const Outcome& outcome) {
    if (first) first = outcome;
  };
  std::vector<const File*> unflushed;
  for (const File& file : std::span(files).first(files.size() - 1)) {
    const int error = LeavesFlushTo(last, file) ? calls_.AwaitData(file.open->Number()) : ENOSYS;
    if (error == 0) {
      unflushed.push_back(&file);
    } else {
      note(UnknownRequest(error) ? Sync(file) : Outcome::Failed("sync", file.path, error));
    }
  }
  const Outcome flushed = Sync(last);
  note(flushed);
  if (flushed) return first;
  for (const File* file : unflushed)
    note(Sync(*file));
  return first;
}

void PendingSyncs::PutFlushLast(std::vector<File>& files) const {
  const auto whole = std::find_if(files.rbegin(), files.rend(), [this](const File& file) {
    const std::optional<FileStatus> status = calls_.Status(file.open->Number());
    return !status || !WrittenInPlace(*status);
  });
  if (whole != files.rend()) std::rotate(whole.base() - 1, whole.base(), files.end());
}

bool PendingSyncs::LeavesFlushTo(const File& last, const File& file) const {
  const std::optional<FileStatus> status = calls_.Status(file.open->Number());
  const std::optional<FileStatus> other = calls_.Status(last.open->Number());
  return status && other && status->device == other->device && WrittenInPlace(*status);
}

bool PendingSyncs::WrittenInPlace(const FileStatus& status) const {
  const Seen* const seen = Unchanged(status);
  return seen != nullptr && seen->inPlace;
}

const PendingSyncs::Seen* PendingSyncs::Unchanged(const FileStatus& status) const {
  const auto seen = seen_.find(IdentityOf(status));
  return seen != seen_.end() && seen->second.status == status ? &seen->second : nullptr;
}

Outcome PendingSyncs::SyncNow(const Descriptor& file, const std::string& path) {
  // Looked at before the sync, so that what was seen is on the disk after it.
  const std::optional<FileStatus> status = calls_.Status(file.Number());
  // The map is asked for once, of a file that has been the same at two syncs: one that grows each time is
  // never written in place.
  const Seen* const seen = status ? Unchanged(*status) : nullptr;
  const bool inPlace =
      seen != nullptr && (seen->inPlace || calls_.WritesInPlace(file.Number(), status->length));
  const int error = calls_.Sync(file.Number());
  // A file system that doesn't know the request has nothing that it could lose.
  if (error != 0 && !UnknownRequest(error)) return Outcome::Failed("sync", path, error);
  if (status) seen_[IdentityOf(*status)] = {*status, inPlace};
  return Outcome::Done();
}

}  // namespace vintoral
