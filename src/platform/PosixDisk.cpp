#include "platform/PosixDisk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <tuple>

#include "platform/Descriptor.h"
#include "platform/FileStatus.h"
#include "platform/NativePath.h"
#include "platform/NewBeside.h"
#include "platform/NewFile.h"
#include "platform/PosixFile.h"
#include "platform/SideBySide.h"

namespace vintoral {
namespace {

/// No file of the station is as large; reading one as a whole would only take the memory.
constexpr std::size_t kLargestFile = std::size_t{512} << 20;

bool LeadsElsewhere(const std::string& path) {
  char first = 0;
  return readlink(path.c_str(), &first, 1) >= 0;
}

bool IsFile(const std::string& path) {
  const std::optional<FileStatus> status = StatusOf(path);
  return status && status->IsFile();
}

/// -1 where there is no such folder.
int OpenFolder(const std::string& path) {
  return open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

/// The same whatever the case of its name, which is nearly always as written: to look for it first would be
/// trips to a server.
int OpenFolderIgnoringCase(const std::string& path) {
  const int folder = OpenFolder(path);
  return folder >= 0 ? folder : OpenFolder(FindOtherCase(path));
}

/// A folder that lies on no disk of this machine: each look into it may be a trip to a server.
bool HasNoDisk(int folder) {
  const std::optional<FileStatus> status = RememberedStatusOf(folder);
  return status && !status->IsOnABlockDevice();
}

/// Nothing where the system can't tell.
std::optional<bool> HasWriter(int descriptor) {
  // What a server answers for it is the server's business: a mount tells nothing of who else writes.
  if (IsOnAServer(descriptor)) return std::nullopt;
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

}  // namespace

PosixDisk::PosixDisk(std::string folder, Work work)
    : folder_(std::move(folder)), behind_(work == Work::kBeside ? std::make_unique<FilesBehind>() : nullptr) {
  if (!folder_.starts_with('/')) folder_ = RealPath(folder_.empty() ? "." : folder_);
  while (folder_.size() > 1 && folder_.ends_with('/'))
    folder_.pop_back();
  currentFolder_ = StationName(folder_);
}

void PosixDisk::Behind(std::vector<String> paths, const std::function<void(Disk&)>& work) {
  if (behind_ == nullptr) return work(*this);
  // A disk of its own: this one waits for the files.
  behind_->Add(std::move(paths), [work, folder = folder_] {
    PosixDisk disk(folder);
    work(disk);
  });
}

bool PosixDisk::NothingBehind() const {
  return behind_ == nullptr || behind_->Nothing();
}

void PosixDisk::BeginTogether() {
  if (behind_ != nullptr) behind_->Hold();
  pending_.Begin();
}

Outcome PosixDisk::EndTogether() {
  Outcome ended = pending_.End();
  if (behind_ != nullptr) behind_->Release();
  return ended;
}

void PosixDisk::AwaitFile(std::string_view path) const {
  if (behind_ != nullptr) behind_->Await(path);
}

void PosixDisk::AwaitAllFiles() const {
  if (behind_ != nullptr) behind_->AwaitAll();
}

void PosixDisk::Settle() {
  AwaitAllFiles();
  beside_.Await();
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

std::string PosixDisk::FileItself(std::string_view path) const {
  const std::string native = FindIgnoringCase(PathOf(path));
  return LeadsElsewhere(native) ? RealPath(native) : native;
}

bool PosixDisk::Exists(std::string_view path) const {
  const std::string native = PathOf(path);
  if (HasOneSpelling(native)) return Look(path).has_value();
  AwaitFile(path);
  if (const std::optional<FileStatus> status = StatusOf(native)) return status->IsFile();
  const std::string found = FindOtherCase(native);
  return found != native && IsFile(found);
}

std::optional<FileMark> PosixDisk::Look(std::string_view path) const {
  AwaitFile(path);
  const std::string native = PathOf(path);
  // By way of its folder: where that is there as written, a photo that is missing is not looked for again.
  const Descriptor folder(HasOneSpelling(native) ? OpenFolder(FolderOf(native)) : -1);
  if (folder.Number() >= 0) return MarkOf(folder.Number(), native.substr(native.rfind('/') + 1));
  if (const std::optional<FileMark> mark = MarkOf(native); mark || errno != ENOENT) return mark;
  const std::string found = FindOtherCase(native);
  return found != native ? MarkOf(found) : std::nullopt;
}

std::vector<std::optional<FileMark>> PosixDisk::LookIn(std::string_view folder,
                                                       std::span<const String> names) const {
  std::vector<std::optional<FileMark>> marks(names.size());
  const Descriptor open(OpenFolderIgnoringCase(PathOf(folder)));
  if (open.Number() < 0) return marks;
  const auto look = [&](std::size_t i) { marks[i] = MarkOf(open.Number(), NativePath(names[i])); };
  if (HasNoDisk(open.Number())) {
    SideBySide(names.size(), look);
  } else {
    for (std::size_t i = 0; i < names.size(); ++i)
      look(i);
  }
  return marks;
}

bool PosixDisk::BeingWritten(std::string_view path) const {
  AwaitFile(path);
  const std::string native = FindIgnoringCase(PathOf(path));
  const Descriptor file(open(native.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (file.Number() < 0) return false;
  return HasWriter(file.Number()).value_or(ChangedJustNow(native));
}

Result<std::unique_ptr<DiskFile>> PosixDisk::Open(std::string_view path, OpenMode mode) {
  AwaitFile(path);
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

Outcome PosixDisk::Replace(std::string_view path, std::string_view bytes) {
  AwaitFile(path);
  NewBeside file(FileItself(path), NewBeside::Old::kDropped);
  const Outcome opened = file.Open();
  const Outcome written = opened ? file.Write(bytes, {}) : opened;
  Outcome replaced = written ? file.TakePlace() : written;
  if (replaced) file.SyncName();
  return replaced;
}

Outcome PosixDisk::ReplaceUnsynced(std::string_view path, std::string_view bytes) {
  AwaitFile(path);
  NewBeside file(FileItself(path), NewBeside::Old::kDropped, NewBeside::Sync::kNever);
  const Outcome opened = file.Open();
  const Outcome written = opened ? file.Write(bytes, {}) : opened;
  return written ? file.TakePlace() : written;
}

bool PosixDisk::LeavesOldOrNew(std::string_view path) const {
  const Descriptor folder(OpenFolder(FolderOf(FileItself(path))));
  return folder.Number() >= 0 && IsOnExt4(folder.Number());
}

String PosixDisk::BootId() const {
  const Descriptor file(open("/proc/sys/kernel/random/boot_id", O_RDONLY | O_CLOEXEC));
  std::array<char, 64> text{};
  const ssize_t got = file.Number() < 0 ? 0 : read(file.Number(), text.data(), text.size());
  return Trim(std::string_view(text.data(), static_cast<std::size_t>(std::max<ssize_t>(got, 0))));
}

namespace {

/// The disk's own thread opens and writes the file, and does what is left behind a Commit.
class ReplacementBeside final : public Replacement {
 public:
  /// `find` gives the native path of the file itself.
  ReplacementBeside(WorkBeside& beside, std::function<std::string()> find)
      : beside_(beside), work_(std::make_shared<Work>()) {
    beside_.Add([work = work_, find = std::move(find)] {
      work->file.emplace(find(), NewBeside::Old::kKept);
      work->opened = work->file->Open();
    });
  }
  void PutAround(std::string_view before, std::string_view after) override {
    beside_.Add([work = work_, ahead = std::string(before), behind = std::string(after)]() mutable {
      work->before = std::move(ahead);
      work->after = std::move(behind);
      work->written = work->opened ? work->file->Write(work->before, work->after) : work->opened;
    });
  }
  Outcome Commit() override {
    beside_.Await();
    // The last owner closes the files, by which the room of the old one is freed, or takes away a new one
    // that could not be moved to its place.
    std::shared_ptr<Work> work = std::move(work_);
    Outcome replaced = work->written ? work->file->TakePlace() : work->written;
    if (replaced) beside_.Add([work = std::move(work)] { work->file->SyncName(); });
    return replaced;
  }

 private:
  struct Work {
    std::string before, after;
    std::optional<NewBeside> file;
    Outcome opened = Outcome::Done(), written = NothingPut();
  };
  WorkBeside& beside_;
  std::shared_ptr<Work> work_;
};

}  // namespace

std::unique_ptr<Replacement> PosixDisk::BeginReplacement(std::string_view path) {
  return std::make_unique<ReplacementBeside>(beside_,
                                             [this, name = std::string(path)] { return FileItself(name); });
}

Outcome PosixDisk::CreateNew(std::string_view path, std::string_view bytes) {
  AwaitFile(path);
  const std::string native = FindIgnoringCase(PathOf(path));
  const int error = native.empty() ? ENOENT : WriteNewFile(native, bytes);
  return error == 0 ? Outcome::Done() : Outcome::Failed("make", native, error);
}

Outcome PosixDisk::Copy(std::string_view from, std::string_view to) {
  AwaitFile(from);
  AwaitFile(to);
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

bool PosixDisk::FolderExists(std::string_view path) const {
  const std::optional<FileStatus> status = StatusOf(FindIgnoringCase(PathOf(path)));
  return status && status->IsFolder();
}

bool PosixDisk::IsLink(std::string_view path) const {
  return LeadsElsewhere(FindIgnoringCase(PathOf(path)));
}

Outcome PosixDisk::Move(std::string_view from, std::string_view to) {
  AwaitAllFiles();
  const std::string source = FindIgnoringCase(PathOf(from));
  const std::string target = FindIgnoringCase(PathOf(to));
  int error = MoveFile(source, target);
  if (error == EXDEV && IsFile(source) && !LeadsElsewhere(source) && !StatusOf(target)) {
    if (Outcome copied = Copy(from, to); !copied) return copied;
    error = unlink(source.c_str()) == 0 ? 0 : errno;
  }
  return error == 0 ? Outcome::Done() : Outcome::Failed("move to", target, error);
}

Outcome PosixDisk::CopyFolder(std::string_view from, std::string_view to) {
  AwaitAllFiles();
  const std::string source = FindIgnoringCase(PathOf(from));
  const std::string target = FindIgnoringCase(PathOf(to));
  if (mkdir(target.c_str(), 0777) != 0) return Outcome::Failed("make folder", target, errno);
  std::error_code error;
  constexpr auto kHow =
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::skip_symlinks;
  std::filesystem::copy(source, target, kHow, error);
  return error ? Outcome::Failed("copy to", target, error.value()) : Outcome::Done();
}

Outcome PosixDisk::RemoveFolder(std::string_view path) {
  AwaitAllFiles();
  const std::string native = FindIgnoringCase(PathOf(path));
  std::error_code error;
  std::filesystem::remove_all(native, error);
  return error ? Outcome::Failed("remove folder", native, error.value()) : Outcome::Done();
}

Outcome PosixDisk::Remove(std::string_view path) {
  AwaitFile(path);
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

namespace {

/// Calls `visit` with each name of a folder that is not hidden, as this system and as the station writes it,
/// and with what the system says of its kind, DT_UNKNOWN where it says nothing.
template <class Visit>
void ForEachName(const std::string& folder, Visit visit) {
  DIR* const open = opendir(folder.c_str());
  if (open == nullptr) return;
  while (const dirent* entry = readdir(open)) {
    // A name that holds the station's separator would mean another place.
    const bool named = std::strchr(entry->d_name, '\\') == nullptr;
    if (entry->d_name[0] != '.' && named) visit(std::string(entry->d_name), entry->d_type);
  }
  closedir(open);
}

}  // namespace

std::vector<String> PosixDisk::List(std::string_view folder, std::string_view ending) const {
  AwaitAllFiles();
  const std::string native = FindIgnoringCase(PathOf(folder));
  std::vector<String> names;
  ForEachName(native, [&](const std::string& entry, unsigned char kind) {
    const String name = StationName(entry);
    const std::string_view view = name;
    const bool fits =
        view.size() >= ending.size() && EqualNoCase(view.substr(view.size() - ending.size()), ending);
    if (fits && (kind == DT_REG || IsFile(native + "/" + entry))) names.push_back(name);
  });
  std::sort(names.begin(), names.end(), [](const String& left, const String& right) {
    return std::tuple(Upper(left), left) < std::tuple(Upper(right), right);
  });
  return names;
}

std::vector<String> PosixDisk::ListFolders(std::string_view folder) const {
  const std::string native = FindIgnoringCase(PathOf(folder));
  std::vector<String> names;
  ForEachName(native, [&](const std::string& entry, unsigned char kind) {
    const std::string path = native + "/" + entry;
    const std::optional<FileStatus> status =
        kind == DT_UNKNOWN && !LeadsElsewhere(path) ? StatusOf(path) : std::nullopt;
    if (kind == DT_DIR || (status && status->IsFolder())) names.push_back(StationName(entry));
  });
  return names;
}

}  // namespace vintoral
