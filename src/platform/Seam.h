// What lies between the station and the window that shows it, which live on two threads: what hands do goes
// down, what is to be shown comes up, and the station waits where it waits.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace vintoral {

class Seam {
 public:
  using Step = std::function<void()>;
  virtual ~Seam() = default;

  // Of the window's thread; none of these waits.

  /// Would the station take a piece of what hands did? Not while it is in the middle of one, nor while a box
  /// holds it.
  virtual bool Free() const = 0;
  /// A piece of what hands did at that time (Ticks of the machine's clock), for a station that is free.
  virtual void Give(Step step, std::int64_t at) = 0;
  /// The piece that was given last comes back if the station has not begun it, as when a tick brought up a
  /// box.
  virtual bool TakeBack() = 0;
  /// The time of the oldest piece that the window keeps for later. To the station it is not yet later than
  /// that, so that its timers tick before and behind each piece as they would have.
  virtual void Keep(std::optional<std::int64_t> oldest) = 0;
  /// Anything else that is to be done as soon as the station waits for something, in a box too.
  virtual void Tell(Step step) = 0;
  /// What hands did to a box, for the station that waits in it. They do it now or, while what the window
  /// keeps goes to the box, at the time of the oldest piece of that.
  virtual void Answer(Step step) = 0;

  // Of the station's thread.

  /// The window runs `step` soon, behind all that it was asked before.
  virtual void ToWindow(Step step) = 0;
  enum class Hands { kServed, kHeld };
  /// Stays until `over`, or that many milliseconds, or the end of the program; timers tick, and what is told
  /// is done. What hands do is served in here, or kept.
  virtual void Serve(Hands hands, std::optional<std::int64_t> milliseconds,
                     const std::function<bool()>& over) = 0;
  /// One look, in the middle of long work: runs the ticks that are due, and what was told.
  virtual void Breathe() = 0;
};

}  // namespace vintoral
