#include "platform/desktop/DesktopClock.h"

#include <ctime>

namespace vintoral {

namespace {

timespec Read(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return time;
}

int Milliseconds(const timespec& time) {
  return static_cast<int>(time.tv_nsec / 1'000'000);
}

}  // namespace

Moment DesktopClock::Now() const {
  const timespec time = Read(CLOCK_REALTIME);
  tm local{};
  localtime_r(&time.tv_sec, &local);
  Civil civil;
  civil.year = local.tm_year + 1900;
  civil.month = local.tm_mon + 1;
  civil.day = local.tm_mday;
  civil.hour = local.tm_hour;
  civil.minute = local.tm_min;
  civil.second = local.tm_sec < 60 ? local.tm_sec : 59;  // a leap second
  civil.millisecond = Milliseconds(time);
  return Moment::From(civil).value_or(Moment());
}

std::int64_t DesktopClock::Ticks() const {
  const timespec time = Read(CLOCK_BOOTTIME);
  return static_cast<std::int64_t>(time.tv_sec) * 1000 + Milliseconds(time);
}

}  // namespace vintoral
