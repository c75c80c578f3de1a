// Files that are made while the station goes on.
#pragma once

#include <cstdint>
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
  /// What is added from here on begins with Release, or when somebody waits for it: a photo that is being
  /// written would keep the disk from the registers of its sale.
  void Hold();
  void Release();
  /// `work` makes the files of `paths`.
  void Add(std::vector<String> paths, std::function<void()> work);
  /// Returns when no file of that name is left to be made.
  void Await(std::string_view path);
  void AwaitAll();
  bool Nothing();

 private:
  /// One work that is left.
  struct Left {
    std::uint64_t number;
    std::vector<String> names;
  };
  /// One that waits for Release.
  struct Held {
    std::uint64_t number;
    std::function<void()> work;
  };
  bool Waits(std::string_view path);
  void Begin(Held held);

  std::mutex mutex_;  ///< of all that follows up to the thread: pictures are read by other threads too
  std::vector<Left> left_;
  std::vector<Held> held_;
  bool holding_ = false;
  std::uint64_t last_ = 0;
  WorkBeside beside_;
};

}  // namespace vintoral
