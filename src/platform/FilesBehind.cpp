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
  {
    const std::lock_guard lock(mutex_);
    names_.push_back(std::move(paths));
  }
  beside_.Add([this, work = std::move(work)] {
    work();
    const std::lock_guard lock(mutex_);
    names_.erase(names_.begin());
  });
}

bool FilesBehind::Waits(std::string_view path) {
  const std::string_view wanted = LastName(path);
  const std::lock_guard lock(mutex_);
  return std::any_of(names_.begin(), names_.end(), [wanted](const std::vector<String>& names) {
    return std::any_of(names.begin(), names.end(),
                       [wanted](const String& name) { return EqualNoCase(name, wanted); });
  });
}

void FilesBehind::Await(std::string_view path) {
  if (Waits(path)) beside_.Await();
}

void FilesBehind::AwaitAll() {
  beside_.Await();
}

bool FilesBehind::Nothing() {
  const std::lock_guard lock(mutex_);
  return names_.empty();
}

}  // namespace vintoral
