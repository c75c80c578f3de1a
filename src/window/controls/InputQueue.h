// What hands did, in its order: to the station as soon as it is free, and kept until then. A queue of cars
// does not wait for a folder to answer before the next plate is typed.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "common/KeyBurst.h"
#include "platform/Clock.h"
#include "platform/Seam.h"

class QKeyEvent;

namespace vintoral {

class InputQueue {
 public:
  /// As many keys are kept, and all of a code of which the first one was.
  static constexpr std::size_t kKeys = 200;

  /// `machine`: the clock by which hands are timed.
  InputQueue(Seam& seam, const Clock& machine);
  InputQueue(const InputQueue&) = delete;
  InputQueue& operator=(const InputQueue&) = delete;

  /// A key. `deliver` finds out what it means when its turn has come: a dialog may have come or gone
  /// meanwhile.
  void Press(const QKeyEvent& key, std::function<void(const QKeyEvent&)> deliver);
  enum class Kind {
    kWork,
    kPointer,  ///< where the pointer is: of those that wait side by side the last one counts
    kView,     ///< which window is in front, which rows are in view: nothing that Esc could take back
    kClosing,  ///< the main window's close box
  };
  /// Anything else: `serve` is of the station.
  void Do(Seam::Step serve, Kind kind = Kind::kWork);
  /// From within `deliver`: what the key means to the station.
  void Serve(Seam::Step serve);

  /// Whatever can be delivered now is.
  void Go();
  /// A box has come up: what the station has not begun comes back, and keys go to the box.
  void Reclaim();
  bool Keeps() const { return !kept_.empty(); }
  /// Throws away what is kept of this kind: true when there was any.
  bool Withdraw(Kind kind);
  /// A piece is kept that may put something on the clipboard.
  bool KeepsCopy() const;

  /// Runs before a piece is delivered: it is meant for what the station shows by now.
  std::function<void()> BeforeDelivery;
  /// The box that is up takes a key; false when there is none. Only keys are for a box: what the pointer was
  /// on is behind it.
  std::function<bool(const QKeyEvent*)> ToBox;
  /// Work that can be broken off is under way, and Esc breaks it off.
  std::function<bool()> BreakOff;
  /// The operator has been told that the station is busy: then Esc throws away what is kept.
  std::function<bool()> Late;
  std::function<void()> Beep;

 private:
  struct Piece {
    std::int64_t at = 0;
    std::shared_ptr<QKeyEvent> key;  ///< null for all that is no key
    std::function<void()> deliver;
    Kind kind = Kind::kWork;
    bool ofCode = false;  ///< it came as fast behind another key as a reader's keys come
  };
  void Add(Piece piece);
  void Deliver(const Piece& piece);
  bool Escape(const QKeyEvent& key);
  bool HasRoom(const QKeyEvent& key, bool ofCode);
  void PutBack();
  template <class Condition>
  bool ThrowAway(Condition condition);
  void TellOldest();

  Seam& seam_;
  const Clock& machine_;
  std::deque<Piece> kept_;
  Piece given_;           ///< the last one that went to the station
  std::size_t keys_ = 0;  ///< among those that are kept
  std::int64_t at_ = 0;   ///< of the piece that is being delivered
  bool delivering_ = false;
  bool choosing_ = false;  ///< the oldest piece is about to be delivered
  KeyBurst burst_;
  bool burstKept_ = true;  ///< whether the last key found room
};

}  // namespace vintoral
