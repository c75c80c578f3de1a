#include "Locks.h"

#include <unistd.h>

#include <cerrno>

namespace hanging {
namespace {

int OpenFor(const Node& node) {
  const std::string link = Nodes::Link(node);
  const int both = open(link.c_str(), O_RDWR | O_CLOEXEC);
  return both >= 0 ? both : open(link.c_str(), O_RDONLY | O_CLOEXEC);
}

}  // namespace

Locks::Key Locks::KeyOf(const Node& node, std::uint64_t owner) {
  return {node.device, node.number, owner};
}

int Locks::Set(const Node& node, std::uint64_t handle, std::uint64_t owner, struct flock lock) {
  const std::scoped_lock guard(mutex_);
  auto found = holders_.find(KeyOf(node, owner));
  if (found == holders_.end()) {
    if (lock.l_type == F_UNLCK) return 0;
    const int file = OpenFor(node);
    if (file < 0) return errno;
    found = holders_.emplace(KeyOf(node, owner), Holder{file, handle}).first;
  }
  lock.l_pid = 0;
  return fcntl(found->second.file, F_OFD_SETLK, &lock) == 0 ? 0 : errno;
}

int Locks::Get(const Node& node, std::uint64_t owner, struct flock& lock) {
  const std::scoped_lock guard(mutex_);
  const auto found = holders_.find(KeyOf(node, owner));
  const int file = found == holders_.end() ? OpenFor(node) : found->second.file;
  if (file < 0) return errno;
  lock.l_pid = 0;
  const int error = fcntl(file, F_OFD_GETLK, &lock) == 0 ? 0 : errno;
  // The kernel takes no owner that is not a process for an answer.
  if (lock.l_pid < 0) lock.l_pid = 0;
  if (found == holders_.end()) close(file);
  return error;
}

void Locks::Drop(const Node& node, std::uint64_t owner) {
  const std::scoped_lock guard(mutex_);
  const auto found = holders_.find(KeyOf(node, owner));
  if (found == holders_.end()) return;
  close(found->second.file);
  holders_.erase(found);
}

void Locks::Released(std::uint64_t handle) {
  const std::scoped_lock guard(mutex_);
  for (auto holder = holders_.begin(); holder != holders_.end();) {
    if (holder->second.handle != handle) {
      ++holder;
      continue;
    }
    close(holder->second.file);
    holder = holders_.erase(holder);
  }
}

}  // namespace hanging
