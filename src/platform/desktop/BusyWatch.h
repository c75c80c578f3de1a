// Tells the window when the station has been busy for longer than an eye takes for at once. It costs the
// station no word to the window as long as all goes well.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

namespace vintoral {

class BusyWatch {
 public:
  /// Milliseconds of work after which it rings.
  static constexpr std::int64_t kPatience = 300;

  BusyWatch();
  BusyWatch(const BusyWatch&) = delete;
  BusyWatch& operator=(const BusyWatch&) = delete;
  ~BusyWatch();

  // Of the station's thread.
  void Begin();
  void End();

  // Of the window's thread.
  /// Becomes readable when it rings; below 0 where the system has none left.
  int Descriptor() const { return timer_; }
  /// Makes it silent again.
  void Hear();
  /// How long the work under way has taken, in milliseconds; nothing while there is none.
  std::optional<std::int64_t> Busy() const;

 private:
  int timer_;
  std::atomic<std::int64_t> since_ = 0;  ///< nanoseconds of the machine; 0 while nothing is done
};

}  // namespace vintoral
