// The thread on which the station lives: it serves what hands did and runs the ticks, one after the other,
// and nobody else touches the model.
#pragma once

#include <QSocketNotifier>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/Bell.h"
#include "platform/Seam.h"
#include "platform/desktop/BusyWatch.h"
#include "platform/desktop/StationClock.h"

namespace vintoral {

class StationThread final : public Seam {
 public:
  /// What the thread asks of the station; to be set before it starts.
  struct Station {
    std::function<std::int64_t()> nextTick;  ///< Clock::Ticks, -1 when no timer runs
    std::function<void()> runTicks;
    std::function<bool()> ended;
    /// What has changed is to be shown; and where hands did something, whatever a widget shows of itself.
    std::function<void(bool handsDid)> publish;
  };

  /// Made on the window's thread. `machine` may be read by any thread.
  explicit StationThread(const vintoral::Clock& machine);
  StationThread(const StationThread&) = delete;
  StationThread& operator=(const StationThread&) = delete;
  /// Only of a thread that has come to its end, or was never started.
  ~StationThread() override;

  vintoral::Clock& Time() { return clock_; }
  BusyWatch& Watch() { return watch_; }

  /// Runs `first`, then serves until the station has ended, then the window runs `over`.
  void Start(Station station, Step first, Step over);
  /// True when it has come to its end, which is waited for this long.
  bool EndWithin(std::int64_t milliseconds);
  /// Time has passed on a clock that does not run by itself.
  void Wake();
  /// The window runs it when the station is free again, while the window keeps something.
  Step OnFree;

  bool Free() const override;
  void Give(Step step, std::int64_t at) override;
  bool TakeBack() override;
  void Keep(std::optional<std::int64_t> oldest) override;
  void Tell(Step step) override;
  void Answer(Step step) override;
  void ToWindow(Step step) override;
  void Serve(Hands hands, std::optional<std::int64_t> milliseconds,
             const std::function<bool()>& over) override;
  void Breathe() override;

 private:
  struct Piece {
    Step step;
    std::int64_t at;
  };
  using Lock = std::unique_lock<std::mutex>;

  void Run(const Step& first);
  void Do(const Step& step, bool ofHands);
  // With the lock held.
  void Post(Step step);
  void AskForMore();
  std::optional<std::int64_t> Oldest() const;
  std::int64_t Bound() const;
  void SetTime(std::optional<std::int64_t> deadline);
  Step TickOrTold();
  struct Turn {
    Step step;  ///< null: it is over
    bool ofHands = false;
  };
  Turn Await(Lock& lock, const std::function<bool()>& over, std::optional<std::int64_t> deadline);
  void Pause(Lock& lock, std::optional<std::int64_t> deadline);

  void RunInWindow();

  const vintoral::Clock& machine_;
  StationClock clock_;
  BusyWatch watch_;
  Station station_;

  mutable std::mutex mutex_;
  std::condition_variable news_;
  std::optional<Piece> given_;
  std::optional<std::int64_t> kept_;
  std::deque<Step> told_;
  bool ticked_ = false;  ///< the last turn was a tick's
  std::deque<Piece> answers_;
  bool serves_ = false;  ///< what hands do is served now, or behind a tick
  bool over_ = false;    ///< the thread has come to its end
  std::deque<Step> toWindow_;
  Bell bell_;  ///< wakes the window's thread
  QSocketNotifier hears_;
  std::thread thread_;
};

}  // namespace vintoral
