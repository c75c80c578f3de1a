#pragma once

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hanging {

using Clock = std::chrono::steady_clock;

/// What a rule can choose; the order is that of kKinds.
enum class Kind : std::uint8_t { kOpen, kRead, kWrite, kSync, kRename, kLock, kDirectory, kStat };
inline constexpr std::array<std::string_view, 8> kKinds = {"open",   "read", "write",     "sync",
                                                           "rename", "lock", "directory", "stat"};

struct Rule {
  enum class Does : std::uint8_t { kHang, kDelay, kFail };

  Does does = Does::kHang;
  std::array<bool, kKinds.size()> at{};
  /// A shell pattern over the path from the source on; `*` matches across folders.
  std::string path = "*";
  /// The rule begins with the `after`th operation that it matches, counted from 1.
  std::int64_t after = 1;
  std::chrono::milliseconds delay{0};
  int error = 0;
  /// How many operations fail; none: all of them.
  std::optional<std::int64_t> count;
};

struct Waiting {
  Kind kind;
  std::string path;
  Clock::time_point since;
};

/// What each operation meets before it is passed on. Any thread may call any of this.
class Rules {
 public:
  using Paths = std::vector<std::string>;

  void Add(Rule rule);
  /// Takes all rules away. The operations that wait go on, or fail with `error` where it is not 0.
  void Go(int error);
  /// Waits as the rules say. 0: the operation may go on; else the errno to answer with. `paths` is asked only
  /// where a rule is set for this kind; `gone` often while it waits, and true ends the wait with EINTR.
  int Meet(Kind kind, const std::function<Paths()>& paths, const std::function<bool()>& gone);

  std::vector<Waiting> Waits() const;
  /// How many operations of each kind have been met so far.
  std::array<std::int64_t, kKinds.size()> Counts() const;

 private:
  struct Verdict {
    bool hang = false;
    std::chrono::milliseconds delay{0};
    int error = 0;
  };

  bool Asked(Kind kind) const;
  Verdict Judge(Kind kind, const Paths& paths);
  int Wait(std::unique_lock<std::mutex>& guard, const Verdict& verdict, const std::function<bool()>& gone);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::list<Rule> rules_;
  std::list<Waiting> waits_;
  std::array<std::int64_t, kKinds.size()> counts_{};
  std::int64_t goes_ = 0;
  int goesWith_ = 0;
};

}  // namespace hanging
