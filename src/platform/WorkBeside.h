// Work that the station's thread does not wait for.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace vintoral {

/// One thread that does one thing after the other. It starts with the first of them, so a station that never
/// has any runs without it; signals go to the other threads. Where the system has no thread to give, Add does
/// the work itself.
class WorkBeside {
 public:
  WorkBeside() = default;
  WorkBeside(const WorkBeside&) = delete;
  WorkBeside& operator=(const WorkBeside&) = delete;
  /// Does what is left.
  ~WorkBeside();

  /// `work` must not throw. It is destroyed on that thread too.
  void Add(std::function<void()> work);
  /// Returns when all that was added is done; what it wrote can be read then.
  void Await();

 private:
  bool HasThread();
  void Run();

  std::mutex mutex_;
  std::condition_variable added_, done_;
  std::deque<std::function<void()>> waiting_;
  bool busy_ = false;
  bool over_ = false;
  std::thread thread_;
};

}  // namespace vintoral
