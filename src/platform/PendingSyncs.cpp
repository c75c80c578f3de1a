#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <tuple>
#include <utility>

#include "platform/FileStatus.h"

namespace vintoral {
namespace {

/// More files than one operation writes.
constexpr std::size_t kMostSettled = 8;

class LinuxCalls final : public SyncCalls {
 public:
  int Sync(int descriptor) override {
    int result = 0;
    do
      result = fdatasync(descriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 ? 0 : errno;
  }
  void Start(int descriptor) override {
    std::ignore = sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
  }
  int AwaitData(int descriptor) override {
    constexpr unsigned kAll =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return sync_file_range(descriptor, 0, 0, kAll) == 0 ? 0 : errno;
  }
  // By way of the folder: it has next to never anything of its own to write, while a sync of the file would
  // write its time stamps as well.
  int Flush(const std::string& path, std::uint64_t device) override {
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return errno;
    const std::optional<FileStatus> status = StatusOf(descriptor);
    const int error = status && status->device == device ? Sync(descriptor) : ENOSYS;
    close(descriptor);
    return error;
  }
  FileFacts Facts(int descriptor) override {
    const std::optional<FileStatus> file = StatusOf(descriptor);
    struct statfs system {};
    if (!file || fstatfs(descriptor, &system) != 0) return {};
    return {.device = file->device,
            .inode = file->inode,
            .length = file->length,
            .blocks = file->blocks,
            .inPlace = system.f_type == EXT4_SUPER_MAGIC};
  }
};

/// What a system answers that doesn't know the request, as opposed to one that failed in it.
bool Unknown(int error) {
  return error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

bool SameFile(const FileFacts& one, const FileFacts& other) {
  return one.device == other.device && one.inode == other.inode;
}

}  // namespace

SyncCalls& SyncCalls::System() {
  static LinuxCalls calls;
  return calls;
}

bool PendingSyncs::Add(int descriptor, const std::string& path) {
  const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (own < 0) return false;
  calls_.Start(own);
  files_.push_back({own, path, calls_.Facts(own)});
  return true;
}

Outcome PendingSyncs::End() {
  return depth_ == 0 || --depth_ > 0 ? Outcome::Done() : Wait();
}

Outcome PendingSyncs::SyncNow(int descriptor, const std::string& path) {
  return Sync({descriptor, path, calls_.Facts(descriptor)});
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
    const int error = WrittenInPlace(file) ? calls_.AwaitData(file.descriptor) : ENOSYS;
    (error == 0 ? arrived : whole).push_back(&file);
    // A failed write is told once, and the next sync would call it done.
    if (error != 0 && !Unknown(error)) note(Outcome::Failed("sync", file.path, error));
  }
  std::vector<std::uint64_t> flushed;
  // The last one first: by then the others have reached the disk, and its flush leaves little to do for them.
  for (auto file = whole.rbegin(); file != whole.rend(); ++file)
    if (note(Sync(**file))) flushed.push_back((*file)->facts.device);
  for (const File* file : arrived) {
    const std::uint64_t disk = file->facts.device;
    if (std::find(flushed.begin(), flushed.end(), disk) != flushed.end()) continue;
    if (calls_.Flush(file->path, disk) == 0 || note(Sync(*file))) flushed.push_back(disk);
  }
  for (const File& file : files)
    close(file.descriptor);
  return first;
}

// Writing over bytes that lie on the disk already changes nothing else there that matters, so once they have
// arrived only the disk's own memory stands between them and a power cut. That they lie there is known of a
// file that was synced whole as long and as large as it is now.
bool PendingSyncs::WrittenInPlace(const File& file) const {
  return file.facts.inPlace && std::find(settled_.begin(), settled_.end(), file.facts) != settled_.end();
}

Outcome PendingSyncs::Sync(const File& file) {
  const int error = calls_.Sync(file.descriptor);
  // A file system that doesn't know the request has nothing that it could lose.
  if (error != 0 && !Unknown(error)) return Outcome::Failed("sync", file.path, error);
  std::erase_if(settled_, [&](const FileFacts& known) { return SameFile(known, file.facts); });
  settled_.push_back(file.facts);
  if (settled_.size() > kMostSettled) settled_.erase(settled_.begin());
  return Outcome::Done();
}

}  // namespace vintoral
