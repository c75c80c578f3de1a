#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#define FUSE_USE_VERSION 312
#include <fuse_lowlevel.h>

namespace hanging {

/// A file or folder of the source that the kernel knows. The descriptor stays on it through renames, and
/// after its last name has gone.
struct Node {
  int place = -1;
  dev_t device = 0;
  ino_t number = 0;
  std::uint64_t known = 0;
};

class Nodes {
 public:
  /// `source` is held open from here on. Throws std::runtime_error where it is no folder.
  explicit Nodes(const std::string& source);

  Node& At(fuse_ino_t number);
  /// What `name` in `folder` is, known to the kernel once more. 0 or errno.
  int Find(fuse_ino_t folder, const char* name, fuse_entry_param& entry);
  void Forget(fuse_ino_t number, std::uint64_t times);

  /// A name by which a call that follows links reaches the node itself.
  static std::string Link(const Node& node);
  /// From the source on, without a leading stroke; the source itself is "".
  std::string PathOf(fuse_ino_t number);
  std::string PathOf(fuse_ino_t folder, const char* name);

 private:
  Node& Known(int place, const struct stat& status);

  std::mutex mutex_;
  Node root_;
  std::string source_;
  std::map<std::pair<dev_t, ino_t>, std::unique_ptr<Node>> nodes_;
};

}  // namespace hanging
