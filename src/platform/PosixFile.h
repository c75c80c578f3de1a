// An open file of this system.
#pragma once

#include <optional>
#include <string>

#include "platform/Disk.h"
#include "platform/PendingSyncs.h"

namespace vintoral {

class PosixFile final : public DiskFile {
 public:
  /// Owns the file `descriptor`. `path` is for messages; `newIn` is the folder that has to be synced with the
  /// file because its name is new there, else "". `pending` takes the syncs that may wait, and outlives the
  /// file.
  PosixFile(int descriptor, std::string path, std::string newIn, PendingSyncs& pending)
      : open_(std::make_shared<Descriptor>(descriptor)),
        path_(std::move(path)),
        newIn_(std::move(newIn)),
        pending_(pending) {}
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;

  Result<std::size_t> ReadAt(std::uint64_t offset, std::span<char> into) override;
  Outcome WriteAt(std::uint64_t offset, std::span<const char> bytes) override;
  Result<std::uint64_t> Length() override;
  Outcome Sync() override;
  Outcome Reserve(std::uint64_t length) override;
  Outcome Cut(std::uint64_t length) override;
  void LockAppend() override;
  void UnlockAppend() override;

 private:
  /// Room for these bytes, whether they lie in the file, in a hole of it or behind its end.
  Outcome MakeRoom(std::uint64_t offset, std::uint64_t size);
  Outcome Failed(std::string_view what) const;

  SharedDescriptor open_;
  std::string path_;
  std::string newIn_;
  PendingSyncs& pending_;
  std::optional<std::int64_t> lockedAt_;
};

/// A descriptor of the regular file at `path`, or -1 with errno set. O_NONBLOCK: opening a pipe would wait.
int OpenRegular(const std::string& path, int flags);

/// Syncs the names in a folder. File systems that refuse it keep them by themselves, so nothing is reported.
void SyncFolder(const std::string& folder);

}  // namespace vintoral
