#include "platform/desktop/DesktopMail.h"

#include <algorithm>
#include <condition_variable>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/desktop/Network.h"

namespace vintoral {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// Between the thread of one mail and whoever waits for it.
struct Attempt {
  std::atomic<bool> ended = false;
  std::atomic<bool> taken = false;  ///< of one that has ended
};

class Waiting final : public Sending {
 public:
  Waiting(std::shared_ptr<const Attempt> attempt, SteadyClock::time_point end)
      : attempt_(std::move(attempt)), end_(end) {}
  std::optional<bool> Result() override {
    if (attempt_->ended) return attempt_->taken;
    return SteadyClock::now() < end_ ? std::optional<bool>() : false;
  }

 private:
  const std::shared_ptr<const Attempt> attempt_;
  const SteadyClock::time_point end_;
};

}  // namespace

/// Shared with the threads, so that one may outlive the station that looks a name up and gets no answer.
class DesktopMail::Threads : public std::enable_shared_from_this<Threads> {
 public:
  explicit Threads(Transport transport) : transport_(std::move(transport)) {}

  std::shared_ptr<const Attempt> Begin(MailJob job) {
    JoinEnded();
    auto attempt = std::make_shared<Attempt>();
    try {
      threads_.push_back({std::thread([self = shared_from_this(), attempt, job = std::move(job)] {
                            self->Run(*attempt, job);
                          }),
                          attempt});
    } catch (const std::system_error& failure) {
      ReportLostMail(failure.what());
      attempt->ended = true;
    }
    return attempt;
  }

  void Stop(const Patience& patience) {
    std::unique_lock lock(mutex_);
    const auto allEnded = [this] {
      return std::all_of(threads_.begin(), threads_.end(),
                         [](const Thread& each) { return each.attempt->ended.load(); });
    };
    news_.wait_for(lock, patience.end, allEnded);
    over_ = true;
    news_.wait_for(lock, patience.brokenOff, allEnded);
    lock.unlock();
    JoinEnded();
    for (Thread& each : threads_)
      each.thread.detach();
    if (!threads_.empty()) ReportLostMail("the program ended");
  }

 private:
  struct Thread {
    std::thread thread;
    std::shared_ptr<Attempt> attempt;
  };

  void Run(Attempt& attempt, const MailJob& job) {
    const std::string problem = transport_(job, over_);
    if (!problem.empty()) ReportLostMail(problem);
    const std::lock_guard lock(mutex_);
    attempt.taken = problem.empty();
    attempt.ended = true;
    news_.notify_all();
  }

  void JoinEnded() {
    threads_.remove_if([](Thread& each) {
      if (!each.attempt->ended) return false;
      each.thread.join();
      return true;
    });
  }

  const Transport transport_;
  std::atomic<bool> over_ = false;
  std::list<Thread> threads_;  ///< of the station's own thread alone
  std::mutex mutex_;
  std::condition_variable news_;
};

DesktopMail::DesktopMail(FindMailFile find, Transport transport, Patience patience)
    : find_(std::move(find)),
      patience_(patience),
      threads_(std::make_shared<Threads>(std::move(transport))) {}

DesktopMail::~DesktopMail() {
  threads_->Stop(patience_);
}

bool DesktopMail::Connected(std::string_view relay) {
  return IsThisMachine(relay) || NetworkIsUp();
}

std::unique_ptr<Sending> DesktopMail::Send(const MailMessage& message) {
  return std::make_unique<Waiting>(threads_->Begin(JobNow(message, find_)),
                                   SteadyClock::now() + patience_.result);
}

}  // namespace vintoral
