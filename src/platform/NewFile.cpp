#include "platform/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "platform/WriteAllAt.h"

namespace vintoral {
namespace {

/// Writes all and closes: a network file system may tell of a failed write only then.
int WriteAndClose(int file, std::string_view bytes) {
  const int error = WriteAllAt(file, 0, bytes);
  const int closed = close(file) == 0 ? 0 : errno;
  return error != 0 ? error : closed;
}

int RenameWithoutReplacing(const std::string& from, const std::string& to) {
  const int result = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
  if (result == 0) return 0;
  return errno == EEXIST ? EEXIST : RenameUnlessTaken(from, to);
}

std::filesystem::path FolderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path();
}

}  // namespace

int WriteNewFile(const std::string& path, std::string_view bytes) {
  const int error = WriteUnnamed(path, bytes);
  // File systems without unnamed files say so in many ways, so whatever went wrong is tried the other way.
  return error == 0 || error == EEXIST ? error : WriteHidden(path, bytes);
}

int WriteUnnamed(const std::string& path, std::string_view bytes) {
  const int file = open(FolderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
  if (file < 0) return errno;
  int error = WriteAllAt(file, 0, bytes);
  const std::string unnamed = "/proc/self/fd/" + std::to_string(file);
  if (error == 0 && linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0)
    error = errno;
  close(file);
  return error;
}

int WriteHidden(const std::string& path, std::string_view bytes) {
  const std::filesystem::path whole(path);
  // Each station writes under its own name.
  const std::string hidden =
      FolderOf(path) / ("." + whole.filename().string() + "." + std::to_string(getpid()) + ".nuevo");
  const int file = open(hidden.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (file < 0) return errno;
  int error = WriteAndClose(file, bytes);
  if (error == 0) error = RenameWithoutReplacing(hidden, path);
  if (error != 0) unlink(hidden.c_str());
  return error;
}

int RenameUnlessTaken(const std::string& from, const std::string& to) {
  struct stat status {};
  if (lstat(to.c_str(), &status) == 0) return EEXIST;
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace vintoral
