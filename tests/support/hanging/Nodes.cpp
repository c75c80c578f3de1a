#include "Nodes.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <stdexcept>

namespace hanging {
namespace {

std::string Target(const std::string& link) {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = readlink(link.c_str(), target.data(), target.size());
  return length < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

}  // namespace

Nodes::Nodes(const std::string& source) {
  root_.place = open(source.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  if (root_.place < 0) throw std::runtime_error("no folder " + source);
  struct stat status {};
  fstat(root_.place, &status);
  root_.device = status.st_dev;
  root_.number = status.st_ino;
  source_ = Target(Link(root_));
}

Node& Nodes::At(fuse_ino_t number) {
  return number == FUSE_ROOT_ID ? root_ : *reinterpret_cast<Node*>(number);
}

int Nodes::Find(fuse_ino_t folder, const char* name, fuse_entry_param& entry) {
  const int place = openat(At(folder).place, name, O_PATH | O_NOFOLLOW | O_CLOEXEC);
  if (place < 0) return errno;
  // What the kernel remembered would be answered without asking here, past every rule.
  entry = {};
  if (fstat(place, &entry.attr) != 0) {
    const int error = errno;
    close(place);
    return error;
  }
  entry.ino = reinterpret_cast<fuse_ino_t>(&Known(place, entry.attr));
  return 0;
}

Node& Nodes::Known(int place, const struct stat& status) {
  const std::scoped_lock guard(mutex_);
  std::unique_ptr<Node>& node = nodes_[{status.st_dev, status.st_ino}];
  if (node)
    close(place);
  else
    node = std::make_unique<Node>(Node{place, status.st_dev, status.st_ino, 0});
  ++node->known;
  return *node;
}

void Nodes::Forget(fuse_ino_t number, std::uint64_t times) {
  if (number == FUSE_ROOT_ID) return;
  const std::scoped_lock guard(mutex_);
  Node& node = At(number);
  node.known -= times;
  if (node.known > 0) return;
  close(node.place);
  nodes_.erase({node.device, node.number});
}

std::string Nodes::Link(const Node& node) {
  return "/proc/self/fd/" + std::to_string(node.place);
}

std::string Nodes::PathOf(fuse_ino_t number) {
  const std::string path = Target(Link(At(number)));
  return path.starts_with(source_ + "/") ? path.substr(source_.size() + 1) : "";
}

std::string Nodes::PathOf(fuse_ino_t folder, const char* name) {
  const std::string path = PathOf(folder);
  return path.empty() ? name : path + "/" + name;
}

}  // namespace hanging
