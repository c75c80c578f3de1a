#include "platform/NativePath.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

#include "records/TextoUtf8.h"

namespace vintoral {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

bool Present(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0;
}

/// The name in `folder` that is `wanted` but for its case; "" when there is none.
std::string NameIn(const std::string& folder, std::string_view wanted) {
  const std::unique_ptr<DIR, CloseFolder> open(opendir(folder.empty() ? "/" : folder.c_str()));
  if (!open) return {};
  const String wantedName = StationName(wanted);
  std::string best;
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name(entry->d_name);
    const bool fits = EqualNoCase(StationName(name), wantedName);
    if (fits && (best.empty() || name < best)) best = name;
  }
  return best;
}

}  // namespace

std::string NativePath(std::string_view stationPath) {
  if (stationPath.find('\0') != std::string_view::npos) return {};
  std::string path;
  for (const char character : String(stationPath).ToUtf8()) {
    const char native = character == '\\' ? '/' : character;
    if (native != '/' || !path.ends_with('/')) path += native;
  }
  if (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

String StationName(std::string_view nativeName) {
  return IsUtf8(nativeName) ? String::FromUtf8(nativeName) : String(nativeName);
}

std::string FindIgnoringCase(const std::string& path) {
  if (Present(path)) return path;
  std::string found;
  for (std::size_t at = path.starts_with('/') ? 1 : 0; at < path.size();) {
    const std::size_t end = std::min(path.find('/', at), path.size());
    const std::string_view name = std::string_view(path).substr(at, end - at);
    std::string next = found + "/" + std::string(name);
    if (!Present(next)) {
      const std::string other = NameIn(found, name);
      if (other.empty()) return found + path.substr(at - 1);
      next = found + "/" + other;
    }
    found = std::move(next);
    at = end + 1;
  }
  return found;
}

}  // namespace vintoral
