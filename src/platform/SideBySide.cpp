#include "platform/SideBySide.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <span>

#include "platform/WorkBeside.h"

namespace vintoral {
namespace {

/// Beside the caller's own.
constexpr std::size_t kThreads = 3;
/// To start a thread for fewer takes as long as it saves.
constexpr std::size_t kWorthAThread = 4;

}  // namespace

void SideBySide(std::size_t count, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next{0};
  const auto some = [&] {
    for (std::size_t i = next++; i < count; i = next++)
      work(i);
  };
  std::array<WorkBeside, kThreads> threads;  // their ends wait for what they are at
  for (WorkBeside& thread : std::span(threads).first(std::min(kThreads, count / kWorthAThread)))
    thread.Add(some);
  some();
}

}  // namespace vintoral
