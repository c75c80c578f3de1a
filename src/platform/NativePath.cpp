#include "platform/NativePath.h"

#include <dirent.h>

#include <algorithm>
#include <memory>

#include "common/TextoUtf8.h"
#include "platform/FileStatus.h"

namespace vintoral {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

bool Present(const std::string& path) {
  return StatusOf(path).has_value();
}

/// The name in `folder` that is `wanted` but for its case; "" when there is none.
std::string NameIn(DIR& folder, std::string_view wanted) {
  const String wantedName = StationName(wanted);
  std::string best;
  while (const dirent* entry = readdir(&folder)) {
    const std::string_view name(entry->d_name);
    if (name == wanted) return std::string(name);  // a link to nothing keeps others out of its place
    const bool fits = EqualNoCase(StationName(name), wantedName);
    if (fits && (best.empty() || name < best)) best = name;
  }
  return best;
}

using Folder = std::unique_ptr<DIR, CloseFolder>;

Folder OpenFolder(const std::string& path) {
  return Folder(opendir(path.empty() ? "/" : path.c_str()));
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

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool HasOneSpelling(std::string_view path) {
  // The photos are numbered, and their folders hold many thousands.
  const std::string_view name = path.substr(path.rfind('/') + 1);
  return !name.empty() && name.front() >= '0' && name.front() <= '9';
}

String StationName(std::string_view nativeName) {
  return IsUtf8(nativeName) ? String::FromUtf8(nativeName) : String(nativeName);
}

std::string FindIgnoringCase(const std::string& path) {
  return Present(path) ? path : FindOtherCase(path);
}

std::string FindOtherCase(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos || slash + 1 == path.size()) return path;
  const std::string_view name = std::string_view(path).substr(slash + 1);
  // From the end: the folder is nearly always there as written, so a missing file costs one look into it.
  std::string folder = path.substr(0, slash);
  if (HasOneSpelling(name)) return FindIgnoringCase(folder).append("/").append(name);
  Folder open = OpenFolder(folder);
  if (!open) {
    folder = FindIgnoringCase(folder);
    open = OpenFolder(folder);
  }
  const std::string other = open ? NameIn(*open, name) : std::string();
  return folder.append("/").append(other.empty() ? name : std::string_view(other));
}

}  // namespace vintoral
