#include "platform/FilesBehind.h"

#include <algorithm>
#include <utility>

namespace vintoral {
namespace {

std::string_view LastName(std::string_view path) {
  const std::size_t end = path.find_last_of("/\\");
  return end == std::string_view::npos ? path : path.substr(end + 1);
}

}  // namespace

void FilesBehind::Add(std::vector<String> paths, std::function<void()> work) {
  for (String& path : paths)
    path = String(LastName(path));
  Held held{0, std::move(work)};
  {
    const std::lock_guard lock(mutex_);
    held.number = ++last_;
    left_.push_back({held.number, std::move(paths)});
    if (holding_) return held_.push_back(std::move(held));
  }
  Begin(std::move(held));
}

void FilesBehind::Hold() {
  const std::lock_guard lock(mutex_);
  holding_ = true;
}

void FilesBehind::Release() {
  std::vector<Held> all;
  {
    const std::lock_guard lock(mutex_);
    holding_ = false;
    all.swap(held_);
  }
  for (Held& each : all)
    Begin(std::move(each));
}

void FilesBehind::Begin(Held held) {
  beside_.Add([this, held = std::move(held)] {
    held.work();
    const std::lock_guard lock(mutex_);
    left_.erase(std::remove_if(left_.begin(), left_.end(),
                               [&held](const Left& each) { return each.number == held.number; }),
                left_.end());
  });
}

bool FilesBehind::Waits(std::string_view path) {
  const std::string_view wanted = LastName(path);
  const std::lock_guard lock(mutex_);
  return std::any_of(left_.begin(), left_.end(), [wanted](const Left& each) {
    return std::any_of(each.names.begin(), each.names.end(),
                       [wanted](const String& name) { return EqualNoCase(name, wanted); });
  });
}

void FilesBehind::Await(std::string_view path) {
  if (!Waits(path)) return;
  Release();
  beside_.Await();
}

void FilesBehind::AwaitAll() {
  Release();
  beside_.Await();
}

bool FilesBehind::Nothing() {
  const std::lock_guard lock(mutex_);
  return left_.empty();
}

}  // namespace vintoral
