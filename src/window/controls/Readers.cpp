#include "window/controls/Readers.h"

#include <chrono>
#include <system_error>
#include <utility>

#include "platform/SignalsElsewhere.h"

namespace vintoral {

Readers::~Readers() {
  {
    const std::lock_guard lock(mutex_);
    first_.clear();
    row_.clear();
    over_ = true;
  }
  added_.notify_all();
  for (std::thread& thread : threads_)
    thread.join();
}

void Readers::Add(Work work, Turn turn) {
  std::unique_lock lock(mutex_);
  if (!HasThread()) {
    lock.unlock();
    return work();
  }
  (turn == Turn::kFirst ? first_ : row_).push_back(std::move(work));
  lock.unlock();
  added_.notify_one();
}

bool Readers::EndWithin(int milliseconds) {
  std::unique_lock lock(mutex_);
  first_.clear();
  row_.clear();
  return done_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return busy_ == 0; });
}

bool Readers::HasThread() {
  const bool enough = busy_ + first_.size() + row_.size() < threads_.size();
  if (enough || threads_.size() == most_) return true;
  try {
    const SignalsElsewhere masked;
    threads_.emplace_back([this] { Run(); });
  } catch (const std::system_error&) {
    return !threads_.empty();
  }
  return true;
}

void Readers::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    added_.wait(lock, [this] { return over_ || !first_.empty() || !row_.empty(); });
    if (over_) return;
    Work work = Next();
    ++busy_;
    lock.unlock();
    work();
    work = nullptr;
    lock.lock();
    if (--busy_ == 0) done_.notify_all();
  }
}

Readers::Work Readers::Next() {
  std::deque<Work>& row = first_.empty() ? row_ : first_;
  Work work = std::move(row.front());
  row.pop_front();
  return work;
}

}  // namespace vintoral
