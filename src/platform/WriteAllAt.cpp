#include "platform/WriteAllAt.h"

#include <unistd.h>

#include <cerrno>

namespace vintoral {

int WriteAllAt(int descriptor, std::uint64_t offset, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) return errno;
    if (put == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(put));
    offset += static_cast<std::uint64_t>(put);
  }
  return 0;
}

}  // namespace vintoral
