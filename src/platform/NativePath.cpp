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

/// The photos are numbered, and their folders hold many thousands: a missing one is not looked for in all of
/// them.
bool OneSpelling(std::string_view name) {
  return name.front() >= '0' && name.front() <= '9';
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
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos || slash + 1 == path.size()) return path;
  // From the end: the folder is nearly always there as written, and a missing file costs two looks.
  const std::string folder = FindIgnoringCase(path.substr(0, slash));
  const std::string_view name = std::string_view(path).substr(slash + 1);
  const std::string other = OneSpelling(name) ? std::string() : NameIn(folder, name);
  return folder + "/" + (other.empty() ? std::string(name) : other);
}

}  // namespace vintoral
