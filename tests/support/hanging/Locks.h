#pragma once

#include <fcntl.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <tuple>

#include "Nodes.h"

namespace hanging {

/// Record locks, taken on the files of the source, so that they exclude whoever locks there by another way.
///
/// The kernel names an owner with each lock: a process, or one open file where the lock belongs to that. Each
/// owner has an open file of its own on the source, which is what a lock belongs to there.
class Locks {
 public:
  /// 0 or errno; EAGAIN where another owner holds it. `handle` is the open file by which the owner came.
  int Set(const Node& node, std::uint64_t handle, std::uint64_t owner, struct flock lock);
  /// Puts into `lock` what stands in its way, or F_UNLCK.
  int Get(const Node& node, std::uint64_t owner, struct flock& lock);
  /// A process closed the file: all its locks there go.
  void Drop(const Node& node, std::uint64_t owner);
  /// The last user of an open file closed it: the locks that belong to it go.
  void Released(std::uint64_t handle);

 private:
  using Key = std::tuple<dev_t, ino_t, std::uint64_t>;
  struct Holder {
    int file;
    std::uint64_t handle;
  };

  static Key KeyOf(const Node& node, std::uint64_t owner);

  std::mutex mutex_;
  std::map<Key, Holder> holders_;
};

}  // namespace hanging
