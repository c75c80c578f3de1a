#include "platform/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "platform/CopyBytes.h"
#include "platform/FileRights.h"
#include "platform/WriteAllAt.h"

namespace vintoral {
namespace {

/// A network file system may tell of a failed write only now.
int CloseBehind(int file, int error) {
  const int closed = close(file) == 0 ? 0 : errno;
  return error != 0 ? error : closed;
}

std::filesystem::path FolderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path();
}

/// A file beside `path` that has its name when it is whole. Each station writes under its own name.
class Hidden {
 public:
  explicit Hidden(const std::string& path)
      : name_(FolderOf(path) / ("." + std::filesystem::path(path).filename().string() + "." +
                                std::to_string(getpid()) + ".nuevo")),
        file_(open(name_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, RightsOf(path))) {}
  const std::string& Name() const { return name_; }
  /// -1, with errno set, where it can't be made.
  int File() const { return file_; }
  /// Takes it away where it did not get its name; gives `error` back.
  int Leave(int error) const {
    if (error != 0) unlink(name_.c_str());
    return error;
  }

 private:
  std::string name_;
  int file_;
};

}  // namespace

int WriteNewFile(const std::string& path, std::string_view bytes) {
  const int error = WriteUnnamed(path, bytes);
  // File systems without unnamed files say so in many ways, so whatever went wrong is tried the other way.
  return error == 0 || error == EEXIST ? error : WriteHidden(path, bytes);
}

int WriteUnnamed(const std::string& path, std::string_view bytes) {
  const int file = open(FolderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, RightsOf(path));
  if (file < 0) return errno;
  int error = WriteAllAt(file, 0, bytes);
  const std::string unnamed = "/proc/self/fd/" + std::to_string(file);
  if (error == 0 && linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0)
    error = errno;
  close(file);
  return error;
}

int WriteHidden(const std::string& path, std::string_view bytes) {
  const Hidden hidden(path);
  if (hidden.File() < 0) return errno;
  int error = CloseBehind(hidden.File(), WriteAllAt(hidden.File(), 0, bytes));
  if (error == 0) error = MoveFile(hidden.Name(), path);
  return hidden.Leave(error);
}

int WriteCopy(const std::string& path, int source) {
  const Hidden hidden(path);
  if (hidden.File() < 0) return errno;
  int error = CloseBehind(hidden.File(), CopyBytes(source, hidden.File(), 0).error);
  if (error == 0 && rename(hidden.Name().c_str(), path.c_str()) != 0) error = errno;
  return hidden.Leave(error);
}

int MoveFile(const std::string& from, const std::string& to) {
  const int result = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
  if (result == 0) return 0;
  return errno == EEXIST ? EEXIST : RenameUnlessTaken(from, to);
}

int RenameUnlessTaken(const std::string& from, const std::string& to) {
  struct stat status {};
  if (lstat(to.c_str(), &status) == 0) return EEXIST;
  if (errno != ENOENT) return errno;  // what can't be looked at may be there
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace vintoral
