#include "platform/CopyBytes.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "platform/WriteAllAt.h"

namespace vintoral {
namespace {

/// Small enough that the disk is kept busy from early on.
constexpr std::size_t kPiece = std::size_t{8} << 20;

/// Failure or not, the whole is synced in the end; of a small piece the request would take as long as it
/// saves.
void BeginWriting(int file, std::uint64_t offset, std::uint64_t length) {
  constexpr std::uint64_t kWorthIt = std::uint64_t{1} << 20;
  if (length < kWorthIt) return;
  sync_file_range(file, static_cast<off64_t>(offset), static_cast<off64_t>(length), SYNC_FILE_RANGE_WRITE);
}

}  // namespace

Copied CopyByHand(int from, int into, std::uint64_t at, std::uint64_t done) {
  constexpr std::size_t kBuffer = std::size_t{1} << 20;
  // Not filled with zeros: most calls read only that there is nothing more.
  const auto buffer = std::make_unique_for_overwrite<char[]>(kBuffer);
  for (;;) {
    const ssize_t got = pread(from, buffer.get(), kBuffer, static_cast<off_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return {done, errno};
    if (got == 0) return {done, 0};
    const auto count = static_cast<std::size_t>(got);
    const int error = WriteAllAt(into, at + done, {buffer.get(), count});
    if (error != 0) return {done, error};
    BeginWriting(into, at + done, count);
    done += count;
  }
}

Copied CopyBytes(int from, int into, std::uint64_t at) {
  std::uint64_t done = 0;
  for (;;) {
    auto source = static_cast<off64_t>(done);
    auto target = static_cast<off64_t>(at + done);
    const ssize_t copied = copy_file_range(from, &source, into, &target, kPiece, 0);
    if (copied < 0 && errno == EINTR) continue;
    // Where the system refuses, and where it says that there is nothing more, reading tells for certain.
    if (copied <= 0) return CopyByHand(from, into, at, done);
    BeginWriting(into, at + done, static_cast<std::uint64_t>(copied));
    done += static_cast<std::uint64_t>(copied);
  }
}

}  // namespace vintoral
