#include "camera/cJpeg/NewFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vintoral {

namespace {

bool WriteAll(int file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

void Report(const char* what, const std::string& path, int reason) {
  std::fprintf(stderr, "%s %s: %s\n", what, path.c_str(), std::strerror(reason));
}

}  // namespace

bool IsTaken(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

NewFileResult WriteNewFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  // O_EXCL, so that of two stations that save under one name at once, one is told that it came second.
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file < 0 && errno == EEXIST) return NewFileResult::kExists;
  if (file < 0) {
    Report("cannot make", path, errno);
    return NewFileResult::kFailed;
  }
  const bool whole = WriteAll(file, bytes);
  int reason = errno;
  // Network file systems may keep a failed write to themselves until the file is closed.
  const bool closed = close(file) == 0;
  if (whole && closed) return NewFileResult::kWritten;
  if (whole) reason = errno;
  Report("cannot write", path, reason);
  if (unlink(path.c_str()) != 0) Report("cannot remove", path, errno);
  return NewFileResult::kFailed;
}

}  // namespace vintoral
