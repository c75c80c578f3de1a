#include "platform/desktop/StationThread.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/SignalsElsewhere.h"

namespace vintoral {

StationThread::StationThread(const vintoral::Clock& machine)
    : machine_(machine), clock_(machine), hears_(bell_.Number(), QSocketNotifier::Read) {
  QObject::connect(&hears_, &QSocketNotifier::activated, &hears_, [this] { RunInWindow(); });
}

StationThread::~StationThread() {
  if (thread_.joinable()) thread_.join();
}

void StationThread::Start(Station station, Step first, Step over) {
  station_ = std::move(station);
  const SignalsElsewhere masked;
  thread_ = std::thread([this, first = std::move(first), over = std::move(over)] {
    Run(first);
    ToWindow(over);
    const Lock lock(mutex_);
    over_ = true;
    news_.notify_all();
  });
}

void StationThread::Run(const Step& first) {
  Do(first, true);
  Serve(Hands::kServed, std::nullopt, [] { return false; });
}

bool StationThread::EndWithin(std::int64_t milliseconds) {
  Lock lock(mutex_);
  return !thread_.joinable() ||
         news_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return over_; });
}

void StationThread::Wake() {
  const Lock lock(mutex_);
  news_.notify_all();
}

bool StationThread::Free() const {
  const Lock lock(mutex_);
  return serves_ && !given_;
}

void StationThread::Give(Step step, std::int64_t at) {
  const Lock lock(mutex_);
  given_ = Piece{std::move(step), at};
  news_.notify_all();
}

bool StationThread::TakeBack() {
  const Lock lock(mutex_);
  return std::exchange(given_, std::nullopt).has_value();
}

void StationThread::Keep(std::optional<std::int64_t> oldest) {
  const Lock lock(mutex_);
  if (kept_ == oldest) return;
  kept_ = oldest;
  news_.notify_all();
  AskForMore();
}

void StationThread::Tell(Step step) {
  const Lock lock(mutex_);
  told_.push_back(std::move(step));
  news_.notify_all();
}

void StationThread::Answer(Step step) {
  const Lock lock(mutex_);
  answers_.push_back({std::move(step), kept_ ? *kept_ : machine_.Ticks()});
  news_.notify_all();
}

void StationThread::ToWindow(Step step) {
  const Lock lock(mutex_);
  Post(std::move(step));
}

void StationThread::Post(Step step) {
  toWindow_.push_back(std::move(step));
  if (toWindow_.size() == 1) bell_.Ring();
}

// One by one: what a step does may serve events, and run the next ones.
void StationThread::RunInWindow() {
  bell_.Hear();
  for (;;) {
    Step step;
    {
      const Lock lock(mutex_);
      if (toWindow_.empty()) return;
      step = std::move(toWindow_.front());
      toWindow_.pop_front();
    }
    step();
  }
}

void StationThread::AskForMore() {
  if (serves_ && !given_ && kept_ && OnFree) Post(OnFree);
}

void StationThread::Serve(Hands hands, std::optional<std::int64_t> milliseconds,
                          const std::function<bool()>& over) {
  station_.publish(false);
  const bool busy = watch_.Busy().has_value();
  watch_.End();
  std::optional<std::int64_t> deadline;
  if (milliseconds) deadline = clock_.Ticks() + *milliseconds;
  Lock lock(mutex_);
  const bool served = serves_;
  const auto serveAgain = [&] {
    serves_ = hands == Hands::kServed;
    AskForMore();
  };
  serveAgain();
  for (Turn turn = Await(lock, over, deadline); turn.step; turn = Await(lock, over, deadline)) {
    lock.unlock();
    Do(turn.step, turn.ofHands);
    lock.lock();
    serveAgain();
  }
  clock_.Stand();
  serves_ = served;
  lock.unlock();
  if (busy) watch_.Begin();
}

void StationThread::Do(const Step& step, bool ofHands) {
  clock_.Stand();
  watch_.Begin();
  step();
  station_.publish(ofHands);
  watch_.End();
}

void StationThread::Breathe() {
  Lock lock(mutex_);
  clock_.MoveTo(Bound());
  while (const Step step = TickOrTold()) {
    lock.unlock();
    step();
    lock.lock();
  }
  lock.unlock();
  station_.publish(false);
}

std::optional<std::int64_t> StationThread::Oldest() const {
  if (!answers_.empty()) return clock_.OfMachine(answers_.front().at);
  if (given_) return clock_.OfMachine(given_->at);
  return kept_ ? std::optional(clock_.OfMachine(*kept_)) : std::nullopt;
}

/// What time it may be: what waits to be served is not of the past.
std::int64_t StationThread::Bound() const {
  return Oldest().value_or(clock_.Latest());
}

// In turn: neither who tells one thing after the other holds up the timers, nor the ticks that are due after
// a long hang the word that the program is to end.
StationThread::Step StationThread::TickOrTold() {
  const std::int64_t due = station_.nextTick();
  const bool ticks = due >= 0 && due <= clock_.Ticks();
  ticked_ = ticks && (told_.empty() || !ticked_);
  if (ticked_) return station_.runTicks;
  if (told_.empty()) return nullptr;
  Step step = std::move(told_.front());
  told_.pop_front();
  return step;
}

/// While something waits to be served, the timers tick one by one, each at its own time.
void StationThread::SetTime(std::optional<std::int64_t> deadline) {
  if (!Oldest()) return clock_.Run();
  clock_.Stand();
  std::int64_t next = *Oldest();
  if (deadline) next = std::min(next, *deadline);
  const std::int64_t due = station_.nextTick();
  clock_.MoveTo(due < 0 ? next : std::min(next, due));
}

StationThread::Turn StationThread::Await(Lock& lock, const std::function<bool()>& over,
                                         std::optional<std::int64_t> deadline) {
  while (!station_.ended() && !over()) {
    SetTime(deadline);
    if (deadline && clock_.Ticks() >= *deadline) break;
    if (Step step = TickOrTold()) return {std::move(step)};
    if (!answers_.empty()) {
      const Piece answer = std::move(answers_.front());
      answers_.pop_front();
      return {answer.step};
    }
    if (serves_ && given_) {
      serves_ = false;
      return {std::exchange(given_, std::nullopt)->step, true};
    }
    Pause(lock, deadline);
  }
  return {};
}

void StationThread::Pause(Lock& lock, std::optional<std::int64_t> deadline) {
  std::optional<std::int64_t> until = deadline;
  const std::int64_t due = station_.nextTick();
  if (due >= 0) until = until ? std::min(*until, due) : due;
  // Time stands until what the window keeps has been served.
  if (!until || Oldest()) return news_.wait(lock);
  news_.wait_for(lock, std::chrono::milliseconds(std::max<std::int64_t>(*until - clock_.Ticks(), 0)));
}

}  // namespace vintoral
