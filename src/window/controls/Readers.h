// A few threads that do what takes long for the window.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vintoral {

/// Each starts when there is work and none is idle, and takes no signals.
class Readers {
 public:
  using Work = std::function<void()>;
  enum class Turn { kInRow, kFirst };  ///< behind all that wait, or before what waits in the row

  explicit Readers(std::size_t most) : most_(most) {}
  Readers(const Readers&) = delete;
  Readers& operator=(const Readers&) = delete;
  /// Begins nothing more, and waits for what has begun.
  ~Readers();

  /// `work` must not throw. Where the system has no thread to give, it is done at once.
  void Add(Work work, Turn turn);
  /// Begins nothing that was added so far. True when nothing is being done any more, which is waited for this
  /// long.
  bool EndWithin(int milliseconds);

 private:
  bool HasThread();
  void Run();
  Work Next();

  const std::size_t most_;
  std::mutex mutex_;
  std::condition_variable added_, done_;
  std::deque<Work> first_, row_;
  std::size_t busy_ = 0;
  bool over_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace vintoral
