#include "platform/desktop/BusyWatch.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <chrono>
#include <tuple>

namespace vintoral {
namespace {

std::int64_t Nanoseconds() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// 0: never.
void RingIn(int timer, std::int64_t milliseconds) {
  itimerspec time{};
  time.it_value.tv_nsec = milliseconds * 1'000'000;
  timerfd_settime(timer, 0, &time, nullptr);
}

}  // namespace

BusyWatch::BusyWatch() : timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {}

BusyWatch::~BusyWatch() {
  if (timer_ >= 0) close(timer_);
}

void BusyWatch::Begin() {
  since_ = Nanoseconds();
  RingIn(timer_, kPatience);
}

void BusyWatch::End() {
  since_ = 0;
  RingIn(timer_, 0);
}

void BusyWatch::Hear() {
  std::uint64_t rings = 0;
  std::ignore = read(timer_, &rings, sizeof rings);
}

std::optional<std::int64_t> BusyWatch::Busy() const {
  const std::int64_t since = since_;
  if (since == 0) return std::nullopt;
  constexpr std::int64_t kMillisecond = 1'000'000;
  return (Nanoseconds() - since) / kMillisecond;
}

}  // namespace vintoral
