#include "platform/PosixDisk.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <tuple>

#include "platform/CopyBytes.h"
#include "platform/Descriptor.h"
#include "platform/FileStatus.h"
#include "platform/NativePath.h"
#include "platform/NewFile.h"
#include "platform/PosixFile.h"

namespace vintoral {
namespace {

/// No file of the station is as large; reading one as a whole would only take the memory.
constexpr std::size_t kLargestFile = std::size_t{512} << 20;

struct FreeText {
  void operator()(char* text) const { std::free(text); }
};

/// The path without links and relative parts; as given when it can't be followed.
std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, FreeText> real(realpath(path.c_str(), nullptr));
  return real ? std::string(real.get()) : path;
}

bool IsFile(const std::string& path) {
  const std::optional<FileStatus> status = StatusOf(path);
  return status && status->IsFile();
}

/// A descriptor of the regular file at `path`, or -1 with errno set. O_NONBLOCK: opening a pipe would wait.
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

/// -1 where there is no such folder.
int OpenFolder(const std::string& path) {
  return open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

/// What a server answers for it is the server's business: a mount tells nothing of who else writes.
bool IsMountOfAServer(int descriptor) {
  constexpr std::array<__fsword_t, 5> kMounts = {NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
                                                 SMB2_SUPER_MAGIC, FUSE_SUPER_MAGIC};
  struct statfs system {};
  if (fstatfs(descriptor, &system) != 0) return true;
  return std::find(kMounts.begin(), kMounts.end(), system.f_type) != kMounts.end();
}

/// Nothing where the system can't tell.
std::optional<bool> HasWriter(int descriptor) {
  if (IsMountOfAServer(descriptor)) return std::nullopt;
  // The system gives a lease for reading only where nobody writes. Whoever opens the file before it is given
  // back makes it send a signal; this one is ignored.
  fcntl(descriptor, F_SETSIG, SIGURG);
  if (fcntl(descriptor, F_SETLEASE, F_RDLCK) == 0) return false;
  return errno == EAGAIN ? std::optional(true) : std::nullopt;
}

bool ChangedJustNow(const std::string& path) {
  constexpr std::chrono::seconds kJustNow{10};
  const std::optional<FileMark> mark = MarkOf(path);
  const std::chrono::nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
  return mark && std::chrono::abs(now - std::chrono::nanoseconds(mark->changed)) < kJustNow;
}

/// A file in `folder` that gets its name when it is whole, so that a station that is killed leaves nothing
/// behind. -1 where the file system knows no such file.
int OpenUnnamed(const std::string& folder) {
  return open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
}

bool GiveName(int descriptor, const std::string& path) {
  unlink(path.c_str());
  const std::string unnamed = "/proc/self/fd/" + std::to_string(descriptor);
  return linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

/// What a file is to hold: `before`, all of the old file where there is a descriptor of it, and `after`.
struct Content {
  std::string_view before;
  int old = -1;
  std::string_view after;
};

Outcome WriteContent(PosixFile& file, int descriptor, const Content& content) {
  Outcome written = file.WriteAt(0, {content.before.data(), content.before.size()});
  if (!written || content.old < 0) return written;
  const Copied copied = CopyBytes(content.old, descriptor, content.before.size());
  if (copied.error != 0) return Outcome::Failed("copy into", "a new file", copied.error);
  return file.WriteAt(content.before.size() + copied.bytes, {content.after.data(), content.after.size()});
}

/// Fills the file behind `descriptor`, on disk when this returns. `path` is the file that it will replace.
Outcome Fill(PosixFile& file, int descriptor, const std::string& path, const Content& content) {
  const std::optional<FileStatus> old = StatusOf(path);
  // A file system without permissions refuses; then there is nothing to keep.
  if (old) std::ignore = fchmod(descriptor, old->mode & 07777);
  Outcome written = WriteContent(file, descriptor, content);
  return written ? file.Sync() : written;
}

/// Writes `content` to a new file at `temporary` and moves it to `path`. 0, or the system's errno.
int WriteBeside(const std::string& temporary, const std::string& path, const Content& content) {
  int error = 0;
  for (const bool unnamed : {true, false}) {
    const int descriptor = unnamed ? OpenUnnamed(FolderOf(path))
                                   : OpenRegular(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    error = descriptor < 0 ? errno : 0;
    if (error != 0) continue;
    PendingSyncs none;
    PosixFile file(descriptor, temporary, "", none);
    const Outcome filled = Fill(file, descriptor, path, content);
    if (!filled) return filled.Error();
    if (unnamed && !GiveName(descriptor, temporary)) continue;
    return rename(temporary.c_str(), path.c_str()) == 0 ? 0 : errno;
  }
  return error;
}

}  // namespace

PosixDisk::PosixDisk(std::string folder) : folder_(std::move(folder)) {
  if (!folder_.starts_with('/')) folder_ = RealPath(folder_.empty() ? "." : folder_);
  while (folder_.size() > 1 && folder_.ends_with('/'))
    folder_.pop_back();
  currentFolder_ = StationName(folder_);
}

String PosixDisk::CurrentFolder() const {
  return currentFolder_;
}

std::string PosixDisk::PathOf(std::string_view path) const {
  // A text with a zero byte in it would name another file than it says.
  if (path.find('\0') != std::string_view::npos) return {};
  const std::string base = folder_ == "/" ? "" : folder_;
  const std::string_view current = currentFolder_;
  std::string_view below = path;
  bool inside = !path.starts_with('/') && !path.starts_with('\\');
  if (path.starts_with(current)) {
    below.remove_prefix(current.size());
    inside = inside || below.empty() || below.front() == '/' || below.front() == '\\';
  }
  std::string native = NativePath(inside ? below : path);
  if (!inside) return native;
  return native.starts_with('/') ? base + native : base + "/" + native;
}

bool PosixDisk::Exists(std::string_view path) const {
  const std::string native = PathOf(path);
  if (const std::optional<FileStatus> status = StatusOf(native)) return status->IsFile();
  const std::string found = FindOtherCase(native);
  return found != native && IsFile(found);
}

std::optional<FileMark> PosixDisk::Look(std::string_view path) const {
  const std::string native = PathOf(path);
  if (const std::optional<FileMark> mark = MarkOf(native); mark || errno != ENOENT) return mark;
  const std::string found = FindOtherCase(native);
  return found != native ? MarkOf(found) : std::nullopt;
}

std::vector<std::optional<FileMark>> PosixDisk::LookIn(std::string_view folder,
                                                       std::span<const String> names) const {
  std::vector<std::optional<FileMark>> marks(names.size());
  const Descriptor open(OpenFolder(FindIgnoringCase(PathOf(folder))));
  if (open.Number() < 0) return marks;
  std::transform(names.begin(), names.end(), marks.begin(),
                 [&](const String& name) { return MarkOf(open.Number(), NativePath(name)); });
  return marks;
}

bool PosixDisk::BeingWritten(std::string_view path) const {
  const std::string native = FindIgnoringCase(PathOf(path));
  const Descriptor file(open(native.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (file.Number() < 0) return false;
  return HasWriter(file.Number()).value_or(ChangedJustNow(native));
}

Result<std::unique_ptr<DiskFile>> PosixDisk::Open(std::string_view path, OpenMode mode) {
  const int flags = mode == OpenMode::kRead ? O_RDONLY : O_RDWR;
  std::string native = PathOf(path);
  std::string newIn;
  int descriptor = OpenRegular(native, flags);
  if (descriptor < 0 && errno == ENOENT) {
    const std::string found = FindOtherCase(native);
    const bool other = found != native;
    native = found;
    errno = ENOENT;
    if (other) descriptor = OpenRegular(native, flags);
    if (descriptor < 0 && errno == ENOENT && mode == OpenMode::kCreate) {
      descriptor = OpenRegular(native, flags | O_CREAT);
      newIn = FolderOf(native);
    }
  }
  if (descriptor < 0) return Outcome::Failed("open", native, errno);
  return Result<std::unique_ptr<DiskFile>>(
      std::make_unique<PosixFile>(descriptor, std::move(native), std::move(newIn), pending_));
}

Result<String> PosixDisk::ReadAll(std::string_view path) {
  Result<std::unique_ptr<DiskFile>> opened = Open(path, OpenMode::kRead);
  if (!opened) return opened.Why();
  const std::unique_ptr<DiskFile> file = opened.Take();
  const Result<std::uint64_t> length = file->Length();
  if (!length) return length.Why();
  // Some file systems tell a length that is not the file's: it is only where reading starts from.
  std::size_t chunk = static_cast<std::size_t>(*length) + 1;
  std::string bytes;
  for (std::size_t end = 0; end + chunk <= kLargestFile; chunk = std::max<std::size_t>(end, 65536)) {
    bytes.resize(end + chunk);
    const Result<std::size_t> got = file->ReadAt(end, {bytes.data() + end, chunk});
    if (!got) return got.Why();
    end += *got;
    if (*got < chunk) {
      bytes.resize(end);
      return String(std::move(bytes));
    }
  }
  return Outcome::Failed("read all of", PathOf(path), EFBIG);
}

namespace {

/// `native` is the file itself: renaming over a link would put a file in its place.
Outcome ReplaceBy(const Content& content, const std::string& native) {
  const std::string folder = FolderOf(native);
  const std::string hidden = folder + "/." + native.substr(native.rfind('/') + 1);
  // Two stations may replace one file of a shared folder at once, so each writes beside it under its own
  // name.
  const std::string temporary = hidden + "." + std::to_string(getpid()) + ".nuevo";
  int error = access(native.c_str(), F_OK) == 0 && access(native.c_str(), W_OK) != 0 ? errno : 0;
  if (error == 0 && native.empty()) error = ENOENT;
  if (error != 0) return Outcome::Failed("replace", native, error);
  error = WriteBeside(temporary, native, content);
  if (error != 0) {
    unlink(temporary.c_str());
    return Outcome::Failed("replace", native, error);
  }
  SyncFolder(folder);
  return Outcome::Done();
}

}  // namespace

Outcome PosixDisk::Replace(std::string_view path, std::string_view bytes) {
  return ReplaceBy({.before = bytes, .after = {}}, RealPath(FindIgnoringCase(PathOf(path))));
}

Outcome PosixDisk::PutAround(std::string_view path, std::string_view before, std::string_view after) {
  const std::string native = RealPath(FindIgnoringCase(PathOf(path)));
  const Descriptor old(OpenRegular(native, O_RDONLY));
  if (old.Number() < 0 && errno != ENOENT) return Outcome::Failed("open", native, errno);
  if (old.Number() < 0) return Replace(path, String(before) + String(after));
  return ReplaceBy({.before = before, .old = old.Number(), .after = after}, native);
}

Outcome PosixDisk::CreateNew(std::string_view path, std::string_view bytes) {
  const std::string native = FindIgnoringCase(PathOf(path));
  const int error = native.empty() ? ENOENT : WriteNewFile(native, bytes);
  return error == 0 ? Outcome::Done() : Outcome::Failed("make", native, error);
}

Outcome PosixDisk::Copy(std::string_view from, std::string_view to) {
  const std::string native = FindIgnoringCase(PathOf(from));
  const Descriptor source(OpenRegular(native, O_RDONLY));
  if (source.Number() < 0) return Outcome::Failed("open", native, errno);
  const std::string target = FindIgnoringCase(PathOf(to));
  const int error = target.empty() ? ENOENT : WriteCopy(target, source.Number());
  return error == 0 ? Outcome::Done() : Outcome::Failed("copy to", target, error);
}

Outcome PosixDisk::CreateFolder(std::string_view path) {
  const std::string native = FindIgnoringCase(PathOf(path));
  if (mkdir(native.c_str(), 0777) == 0) {
    SyncFolder(FolderOf(native));
    return Outcome::Done();
  }
  const int error = errno;
  const std::optional<FileStatus> there = error == EEXIST ? StatusOf(native) : std::nullopt;
  if (there && there->IsFolder()) return Outcome::Done();
  return Outcome::Failed("make folder", native, error);
}

Outcome PosixDisk::Remove(std::string_view path) {
  const std::string native = FindIgnoringCase(PathOf(path));
  return unlink(native.c_str()) == 0 ? Outcome::Done() : Outcome::Failed("remove", native, errno);
}

Outcome PosixDisk::ClearReadOnly(std::string_view path) {
  const std::string native = FindIgnoringCase(PathOf(path));
  const std::optional<FileStatus> status = StatusOf(native);
  if (!status) return errno == ENOENT ? Outcome::Done() : Outcome::Failed("look at", native, errno);
  if ((status->mode & S_IWUSR) != 0) return Outcome::Done();
  const bool cleared = chmod(native.c_str(), (status->mode & 07777) | S_IWUSR) == 0;
  return cleared ? Outcome::Done() : Outcome::Failed("clear the read-only mark of", native, errno);
}

std::vector<String> PosixDisk::List(std::string_view folder, std::string_view ending) const {
  const std::string native = FindIgnoringCase(PathOf(folder));
  std::vector<String> names;
  DIR* open = opendir(native.c_str());
  if (!open) return names;
  while (const dirent* entry = readdir(open)) {
    const String name = StationName(entry->d_name);
    const std::string_view view = name;
    const bool fits = view.size() >= ending.size() && !view.starts_with('.') &&
                      EqualNoCase(view.substr(view.size() - ending.size()), ending);
    if (fits && IsFile(native + "/" + entry->d_name)) names.push_back(name);
  }
  closedir(open);
  std::sort(names.begin(), names.end(), [](const String& left, const String& right) {
    return std::tuple(Upper(left), left) < std::tuple(Upper(right), right);
  });
  return names;
}

}  // namespace vintoral
