#include "window/controls/InputQueue.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

namespace vintoral {

namespace {

/// By itself it means nothing to the station.
bool OnlyModifies(const QKeyEvent& key) {
  constexpr std::array kModifiers = {Qt::Key_Shift, Qt::Key_Control,  Qt::Key_Alt,    Qt::Key_AltGr,
                                     Qt::Key_Meta,  Qt::Key_CapsLock, Qt::Key_NumLock};
  return std::find(kModifiers.begin(), kModifiers.end(), key.key()) != kModifiers.end();
}

}  // namespace

InputQueue::InputQueue(Seam& seam, const Clock& machine) : seam_(seam), machine_(machine) {}

void InputQueue::Press(const QKeyEvent& key, std::function<void(const QKeyEvent&)> deliver) {
  if (OnlyModifies(key)) return;
  if (key.key() == Qt::Key_Escape && Escape()) return;
  if (!HasRoom(key)) return;
  const std::shared_ptr<QKeyEvent> copy(key.clone());
  Add({machine_.Ticks(), copy, [copy, deliver = std::move(deliver)] { deliver(*copy); }, false});
}

void InputQueue::Do(Seam::Step serve) {
  // What follows from a key that is being delivered belongs to it.
  if (delivering_) return Serve(std::move(serve));
  Add({machine_.Ticks(), nullptr, [this, serve = std::move(serve)] { Serve(serve); }, false});
}

void InputQueue::Pass(Seam::Step serve) {
  if (delivering_) return Serve(std::move(serve));
  if (!kept_.empty() && kept_.back().passes) kept_.pop_back();
  Add({machine_.Ticks(), nullptr, [this, serve = std::move(serve)] { Serve(serve); }, true});
}

void InputQueue::Serve(Seam::Step serve) {
  delivering_ = false;
  seam_.Give(std::move(serve), at_);
}

/// Before the operator has been told that the station is busy, Esc is a key like any other: a quick hand's
/// must not take back what stands before it.
bool InputQueue::Escape() {
  if (BreakOff && BreakOff()) return true;
  if (!Late || !Late()) return false;
  const bool back = seam_.TakeBack();
  if (kept_.empty() && !back) return false;
  kept_.clear();
  keys_ = 0;
  TellOldest();
  Beep();
  return true;
}

/// A code that a reader types is kept whole, or not at all. A key that is held down is no code.
bool InputQueue::HasRoom(const QKeyEvent& key) {
  const std::int64_t now = machine_.Ticks();
  const bool goesOn = !key.isAutoRepeat() && burst_.Continues(now);
  if (!goesOn) burstKept_ = keys_ < kKeys;
  burst_.Add(key.text().isEmpty() ? '\0' : key.text().at(0).toLatin1(), now);
  if (!burstKept_ && !goesOn) Beep();
  return burstKept_;
}

void InputQueue::Add(Piece piece) {
  if (piece.key) ++keys_;
  kept_.push_back(std::move(piece));
  Go();
}

// What a widget tells while it is brought up to date, or while a box takes a key, comes behind what is kept:
// it must not overtake the piece that is on its way.
void InputQueue::Go() {
  if (choosing_ || delivering_) return;
  while (!kept_.empty()) {
    TellOldest();  // by which a box's answer is timed
    choosing_ = true;
    const bool toBox = ToBox && ToBox(kept_.front().key.get());
    const bool toStation = !toBox && seam_.Free();
    if (toStation && BeforeDelivery) BeforeDelivery();
    choosing_ = false;
    if (!toBox && !toStation) break;
    const Piece piece = std::move(kept_.front());
    kept_.pop_front();
    if (piece.key) --keys_;
    if (toStation) Deliver(piece);
  }
  TellOldest();
}

void InputQueue::Deliver(const Piece& piece) {
  given_ = piece;
  at_ = piece.at;
  delivering_ = true;
  piece.deliver();
  delivering_ = false;
}

void InputQueue::Reclaim() {
  if (seam_.TakeBack()) {
    if (given_.key) ++keys_;
    kept_.push_front(given_);
  }
  Go();
}

bool InputQueue::KeepsCopy() const {
  const auto copies = [](const Piece& piece) {
    return piece.key && (piece.key->matches(QKeySequence::Copy) || piece.key->matches(QKeySequence::Cut));
  };
  return std::any_of(kept_.begin(), kept_.end(), copies) || (!seam_.Free() && copies(given_));
}

void InputQueue::TellOldest() {
  seam_.Keep(kept_.empty() ? std::nullopt : std::optional(kept_.front().at));
}

}  // namespace vintoral
