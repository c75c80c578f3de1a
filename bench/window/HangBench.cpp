#include <sys/resource.h>

#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <future>
#include <vector>

#include "Benches.h"
#include "House.h"
#include "PaintWatch.h"
#include "app/Station.h"
#include "app/Toolkit.h"
#include "window/form1/WaitSign.h"

namespace vintoral::bench {

namespace {

using std::chrono::milliseconds;

void ServeFor(milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

/// The whole window, from its being uncovered to its pixels; in milliseconds.
double Repaint(Station& station, PaintWatch& watch) {
  watch.Take();
  const long long begun = Nanoseconds();
  station.Window.update();
  watch.Await();
  return static_cast<double>(Nanoseconds() - begun) / 1e6;
}

void MeasureRepaints(Station& station) {
  constexpr int kRepaints = 500;
  constexpr milliseconds kUntilTold{1500}, kBetween{3};
  std::promise<void> go;
  station.Devices.Thread.Tell([answer = go.get_future().share()] { answer.wait(); });
  ServeFor(kUntilTold);
  const bool told = station.Window.Waiting().isVisible();
  PaintWatch watch(station.Window);
  std::vector<double> times;
  for (int i = 0; i < kRepaints; ++i) {
    times.push_back(Repaint(station, watch));
    ServeFor(kBetween);
  }
  go.set_value();
  station.Settle();
  std::sort(times.begin(), times.end());
  std::printf(
      "repaint of an uncovered window while the folder hangs (%s): median %.2f ms, 99th percentile %.2f ms "
      "(at most 16), longest %.2f ms\n",
      told ? "the operator has been told" : "NOT TOLD", times[kRepaints / 2], times[kRepaints * 99 / 100],
      times.back());
}

/// Milliseconds that this process has taken of any processor.
double ProcessorTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto of = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return of(usage.ru_utime) + of(usage.ru_stime);
}

}  // namespace

int HangTimes(int argc, char** argv, const std::string& folder) {
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return 1;
  ShowHouse(station);
  MeasureRepaints(station);
  return 0;
}

int IdleMinute(int argc, char** argv, const std::string& folder) {
  constexpr milliseconds kUntilIdle{10'000}, kMinute{60'000};
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return 1;
  ServeFor(kUntilIdle);
  const double before = ProcessorTime();
  ServeFor(kMinute);
  std::printf("processor time of an idle minute: %.1f ms (at most 50)\n", ProcessorTime() - before);
  return 0;
}

}  // namespace vintoral::bench
