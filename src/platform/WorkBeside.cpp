#include "platform/WorkBeside.h"

#include <system_error>

#include "platform/SignalsElsewhere.h"

namespace vintoral {

WorkBeside::~WorkBeside() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
  }
  added_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void WorkBeside::Add(std::function<void()> work) {
  std::unique_lock lock(mutex_);
  if (!HasThread()) {
    lock.unlock();
    return work();
  }
  waiting_.push_back(std::move(work));
  lock.unlock();
  added_.notify_one();
}

void WorkBeside::Await() {
  std::unique_lock lock(mutex_);
  done_.wait(lock, [this] { return waiting_.empty() && !busy_; });
}

bool WorkBeside::HasThread() {
  if (thread_.joinable()) return true;
  try {
    const SignalsElsewhere masked;
    thread_ = std::thread([this] { Run(); });
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

void WorkBeside::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    added_.wait(lock, [this] { return over_ || !waiting_.empty(); });
    if (waiting_.empty()) return;
    std::function<void()> work = std::move(waiting_.front());
    waiting_.pop_front();
    busy_ = true;
    lock.unlock();
    work();
    work = nullptr;
    lock.lock();
    busy_ = false;
    if (waiting_.empty()) done_.notify_all();
  }
}

}  // namespace vintoral
