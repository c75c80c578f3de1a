#include "Rules.h"

#include <fnmatch.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace hanging {
namespace {

/// A process that was killed is gone for whoever watches it; it must not seem to live on for longer.
constexpr std::chrono::milliseconds kLook{20};

std::size_t Index(Kind kind) {
  return static_cast<std::size_t>(kind);
}

bool Matches(const Rule& rule, Kind kind, const Rules::Paths& paths) {
  return rule.at[Index(kind)] && std::ranges::any_of(paths, [&](const std::string& path) {
           return fnmatch(rule.path.c_str(), path.c_str(), 0) == 0;
         });
}

}  // namespace

void Rules::Add(Rule rule) {
  const std::scoped_lock guard(mutex_);
  rules_.push_back(std::move(rule));
}

void Rules::Go(int error) {
  const std::scoped_lock guard(mutex_);
  rules_.clear();
  ++goes_;
  goesWith_ = error;
  changed_.notify_all();
}

int Rules::Meet(Kind kind, const std::function<Paths()>& paths, const std::function<bool()>& gone) {
  std::unique_lock guard(mutex_);
  ++counts_[Index(kind)];
  if (!Asked(kind)) return 0;
  const Paths named = paths();
  const Verdict verdict = Judge(kind, named);
  if (!verdict.hang && verdict.delay.count() == 0) return verdict.error;
  const auto entry = waits_.insert(waits_.end(), {kind, named.empty() ? "" : named.front(), Clock::now()});
  const int error = Wait(guard, verdict, gone);
  waits_.erase(entry);
  return error;
}

bool Rules::Asked(Kind kind) const {
  return std::ranges::any_of(rules_, [&](const Rule& rule) { return rule.at[Index(kind)]; });
}

Rules::Verdict Rules::Judge(Kind kind, const Paths& paths) {
  Verdict verdict;
  for (Rule& rule : rules_) {
    if (!Matches(rule, kind, paths) || --rule.after > 0) continue;
    if (rule.does == Rule::Does::kHang) verdict.hang = true;
    if (rule.does == Rule::Does::kDelay) verdict.delay += rule.delay;
    if (rule.does == Rule::Does::kFail && (!rule.count || (*rule.count)-- > 0)) verdict.error = rule.error;
  }
  return verdict;
}

int Rules::Wait(std::unique_lock<std::mutex>& guard, const Verdict& verdict,
                const std::function<bool()>& gone) {
  const std::int64_t before = goes_;
  const auto end = Clock::now() + verdict.delay;
  while (goes_ == before && (verdict.hang || Clock::now() < end)) {
    if (gone()) return EINTR;
    changed_.wait_until(guard, verdict.hang ? Clock::now() + kLook : std::min(end, Clock::now() + kLook));
  }
  return goes_ == before ? verdict.error : goesWith_;
}

std::vector<Waiting> Rules::Waits() const {
  const std::scoped_lock guard(mutex_);
  return {waits_.begin(), waits_.end()};
}

std::array<std::int64_t, kKinds.size()> Rules::Counts() const {
  const std::scoped_lock guard(mutex_);
  return counts_;
}

}  // namespace hanging
