// Files that are made while the station goes on.
#pragma once

#include <functional>
#include <mutex>
#include <string_view>
#include <vector>

#include "common/String.h"
#include "platform/WorkBeside.h"

namespace vintoral {

/// Which files are still to be made, and the thread that makes them, in the order in which they were given.
/// Files are told apart by their last name alone: one more wait in a thousand does no harm, a file that is
/// looked for by another path and missed would.
class FilesBehind {
 public:
  /// `work` makes the files of `paths`.
  void Add(std::vector<String> paths, std::function<void()> work);
  /// Returns when no file of that name is left to be made.
  void Await(std::string_view path);
  void AwaitAll();
  bool Nothing();

 private:
  bool Waits(std::string_view path);

  std::mutex mutex_;
  std::vector<std::vector<String>> names_;  ///< of each work that is left, the oldest first
  WorkBeside beside_;
};

}  // namespace vintoral
