#include "platform/NewBeside.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <tuple>

#include "platform/CopyBytes.h"
#include "platform/FileStatus.h"
#include "platform/NativePath.h"

namespace vintoral {
namespace {

struct FreeText {
  void operator()(char* text) const { std::free(text); }
};

/// Two stations may replace one file of a shared folder at once, so each writes beside it under its own name.
std::string HiddenBeside(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  return FolderOf(path) + "/." + name + "." + std::to_string(getpid()) + ".nuevo";
}

/// 0 where there is no file yet.
int RefusedToWrite(const std::string& path) {
  if (path.empty()) return ENOENT;
  return access(path.c_str(), W_OK) == 0 || errno == ENOENT ? 0 : errno;
}

}  // namespace

NewBeside::NewBeside(std::string path, Old old, Sync sync)
    : path_(std::move(path)),
      folder_(FolderOf(path_)),
      temporary_(HiddenBeside(path_)),
      keeping_(old),
      syncing_(sync) {}

NewBeside::~NewBeside() {
  if (named_) unlink(temporary_.c_str());
}

Outcome NewBeside::Open() {
  int error = RefusedToWrite(path_);
  if (error == 0) error = OpenOld();
  if (error == 0) error = OpenUnnamed();
  return error == 0 ? Outcome::Done() : Outcome::Failed("replace", path_, error);
}

int NewBeside::OpenOld() {
  if (keeping_ == Old::kDropped) return 0;
  old_.emplace(OpenRegular(path_, O_RDONLY));
  return old_->Number() >= 0 || errno == ENOENT ? 0 : errno;
}

int NewBeside::OpenUnnamed() {
  // It gets its name when it is whole, so that a station that is killed leaves nothing behind.
  const int descriptor = open(folder_.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
  if (descriptor < 0) return OpenNamed();
  Take(descriptor);
  return 0;
}

int NewBeside::OpenNamed() {
  const int descriptor = OpenRegular(temporary_, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
  if (descriptor < 0) return errno;
  named_ = true;
  Take(descriptor);
  return 0;
}

void NewBeside::Take(int descriptor) {
  descriptor_ = descriptor;
  file_.emplace(descriptor, temporary_, "", none_);
  const std::optional<FileStatus> old = StatusOf(path_);
  // A file system without permissions refuses; then there is nothing to keep.
  if (old) std::ignore = fchmod(descriptor, old->mode & 07777);
}

Outcome NewBeside::Write(std::string_view before, std::string_view after) {
  before_ = before;
  after_ = after;
  const Outcome written = WriteContent();
  const int error = (written && syncing_ == Sync::kWithWrite ? file_->Sync() : written).Error();
  return error == 0 ? Outcome::Done() : Outcome::Failed("replace", path_, error);
}

Outcome NewBeside::WriteContent() {
  std::uint64_t end = before_.size();
  Outcome written = file_->WriteAt(0, before_);
  if (written && old_ && old_->Number() >= 0) {
    const Copied copied = CopyBytes(old_->Number(), descriptor_, end);
    if (copied.error != 0) return Outcome::Failed("copy into", "a new file", copied.error);
    end += copied.bytes;
  }
  return written ? file_->WriteAt(end, after_) : written;
}

Outcome NewBeside::TakePlace() {
  // A file system that has unnamed files may still not let them have a name.
  if (!named_ && !GiveName()) {
    const int error = OpenNamed();
    Outcome written = error == 0 ? Write(before_, after_) : Outcome::Failed("replace", path_, error);
    if (!written) return written;
  }
  if (rename(temporary_.c_str(), path_.c_str()) != 0) return Outcome::Failed("replace", path_, errno);
  named_ = false;
  return Outcome::Done();
}

bool NewBeside::GiveName() {
  const std::string unnamed = "/proc/self/fd/" + std::to_string(descriptor_);
  const auto link = [&] {
    return linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, temporary_.c_str(), AT_SYMLINK_FOLLOW) == 0;
  };
  named_ = link();
  // Left by a station that was killed when it had this process's number.
  if (!named_ && errno == EEXIST && unlink(temporary_.c_str()) == 0) named_ = link();
  return named_;
}

void NewBeside::SyncName() const {
  SyncFolder(folder_);
}

std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, FreeText> real(realpath(path.c_str(), nullptr));
  return real ? std::string(real.get()) : path;
}

}  // namespace vintoral
