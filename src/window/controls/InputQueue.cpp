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

bool IsEscape(const QKeyEvent& key) {
  return key.key() == Qt::Key_Escape;
}

}  // namespace

InputQueue::InputQueue(Seam& seam, const Clock& machine) : seam_(seam), machine_(machine) {}

void InputQueue::Press(const QKeyEvent& key, std::function<void(const QKeyEvent&)> deliver) {
  if (OnlyModifies(key)) return;
  if (IsEscape(key) && Escape(key)) return;
  // A key that is held down is no code.
  const bool ofCode = !key.isAutoRepeat() && burst_.Continues(machine_.Ticks());
  if (!HasRoom(key, ofCode)) return;
  const std::shared_ptr<QKeyEvent> copy(key.clone());
  Add({machine_.Ticks(), copy, [copy, deliver = std::move(deliver)] { deliver(*copy); }, Kind::kWork,
       ofCode});
}

void InputQueue::Do(Seam::Step serve, Kind kind) {
  // What follows from a key that is being delivered belongs to it.
  if (delivering_) return Serve(std::move(serve));
  if (kind == Kind::kPointer && !kept_.empty() && kept_.back().kind == kind) kept_.pop_back();
  Add({machine_.Ticks(), nullptr, [this, serve = std::move(serve)] { Serve(serve); }, kind, false});
}

void InputQueue::Serve(Seam::Step serve) {
  delivering_ = false;
  seam_.Give(std::move(serve), at_);
}

/// Before the operator has been told that the station is busy, Esc is a key like any other: a quick hand's
/// must not take back what stands before it.
bool InputQueue::Escape(const QKeyEvent& key) {
  if (BreakOff && BreakOff()) return true;
  if (!Late || !Late()) return false;
  if (seam_.TakeBack()) PutBack();
  const bool thrown = ThrowAway([](const Piece& piece) { return piece.kind != Kind::kView; });
  if (thrown) Beep();
  // Held down it would throw away and be kept by turns.
  return thrown || key.isAutoRepeat();
}

bool InputQueue::Withdraw(Kind kind) {
  return ThrowAway([kind](const Piece& piece) { return piece.kind == kind; });
}

template <class Condition>
bool InputQueue::ThrowAway(Condition condition) {
  const bool thrown = std::erase_if(kept_, condition) > 0;
  keys_ = static_cast<std::size_t>(
      std::count_if(kept_.begin(), kept_.end(), [](const Piece& piece) { return piece.key != nullptr; }));
  TellOldest();
  return thrown;
}

/// A code that a reader types is kept whole, or not at all.
bool InputQueue::HasRoom(const QKeyEvent& key, bool ofCode) {
  if (!ofCode) burstKept_ = keys_ < kKeys;
  burst_.Add(key.text().isEmpty() ? '\0' : key.text().at(0).toLatin1(), machine_.Ticks());
  if (!burstKept_ && !ofCode) Beep();
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
    // What a reader sends behind a code is no answer to the box that the code has brought up.
    const Piece& next = kept_.front();
    const bool toBox = ToBox && ToBox(next.ofCode && !IsEscape(*next.key) ? nullptr : next.key.get());
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
  if (seam_.TakeBack()) PutBack();
  Go();
}

void InputQueue::PutBack() {
  if (given_.key) ++keys_;
  kept_.push_front(given_);
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
