// Days at a gate beside the same days in its reference, each command with its vehicle: back to back, and
// apart as at a gate.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <numeric>
#include <span>
#include <thread>
#include <vector>

#include "Timed.h"

namespace vintoral::bench {

/// Before each command. Apart, the processor has slept and the disk has been left alone.
inline constexpr std::chrono::milliseconds kApart{5}, kBackToBack{0};

/// What a command takes behind the pause, in microseconds.
template <class Command>
double TimedAfter(std::chrono::milliseconds pause, Command command) {
  std::this_thread::sleep_for(pause);
  return Timed(command);
}

/// What the vehicles of a day took at the gate and in its reference, in microseconds.
struct Times {
  std::vector<double> ours, theirs;

  static double Mean(std::span<const double> values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
  }
  /// Of the vehicles from `first` up to `end`.
  double Ratio(std::size_t first, std::size_t end) const {
    const auto mean = [&](std::span<const double> times) { return Mean(times.subspan(first, end - first)); };
    return mean(ours) / mean(theirs);
  }
};

/// The last of the days that `day(times)` fills in; it is false when something is missing in the evening.
/// Means, not medians: a day is over when all of it is done, the moments included when SQLite folds its log
/// into the database.
template <class Day>
Times MeasureDays(benchmark::State& state, Day day) {
  Times times;
  for ([[maybe_unused]] auto iteration : state) {
    times = {};
    if (!day(times)) {
      state.SkipWithError("something is missing");
      break;
    }
    state.SetIterationTime(Times::Mean(times.ours) / 1e6);
  }
  state.counters["ours_us"] = Times::Mean(times.ours);
  state.counters["sqlite_us"] = Times::Mean(times.theirs);
  state.counters["ratio"] = times.Ratio(0, times.ours.size());
  return times;
}

/// How days are repeated.
inline void FiveDays(benchmark::internal::Benchmark* days) {
  days->UseManualTime()->Iterations(1)->Repetitions(5)->Unit(benchmark::kMicrosecond);
}

}  // namespace vintoral::bench
