#include "platform/DesktopEntry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/PosixFile.h"

namespace vintoral {
namespace {

/// A value of a desktop entry: backslashes, line ends, tabs and the blanks that would be taken for those
/// around the equals sign are escaped.
std::string Escaped(const std::string& value) {
  std::string result;
  const std::size_t start = value.find_first_not_of(' ');
  for (std::size_t i = 0; i < value.size(); ++i) {
    switch (value[i]) {
      case '\\':
        result += "\\\\";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      default:
        result += i < start && value[i] == ' ' ? "\\s" : std::string(1, value[i]);
    }
  }
  return result;
}

/// One argument of Exec, quoted; the quoting's backslashes are escaped once more as part of the value.
std::string Quoted(const std::string& argument) {
  std::string result = "\"";
  for (const char character : argument) {
    if (character == '"' || character == '`' || character == '$' || character == '\\') result += '\\';
    result += character;
    if (character == '%') result += '%';
  }
  return result + "\"";
}

/// Makes `folder` with the folders above it, those that are missing.
Outcome MakeFolders(const std::string& folder) {
  std::size_t end = 0;
  do {
    end = folder.find('/', end + 1);
    const std::string part = folder.substr(0, end);
    if (mkdir(part.c_str(), 0777) != 0 && errno != EEXIST) return Outcome::Failed("make folder", part, errno);
  } while (end != std::string::npos);
  return Outcome::Done();
}

std::string WithSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

}  // namespace

std::string DesktopEntryFile(const std::string& desktop, const std::string& name) {
  return desktop + "/" + name + ".desktop";
}

bool DesktopEntryExists(const std::string& desktop, const std::string& name) {
  return access(DesktopEntryFile(desktop, name).c_str(), F_OK) == 0;
}

std::string DesktopEntryText(const DesktopEntry& entry) {
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Version=1.5\n"
         "Name=" +
         Escaped(entry.name) + "\n" + "Exec=" + Escaped(Quoted(entry.executable)) + "\n" +
         "Path=" + Escaped(WithSlashes(entry.workingFolder)) + "\n" +
         "Icon=" + Escaped(WithSlashes(entry.icon)) + "\n" + "Terminal=false\n";
}

Outcome WriteDesktopEntry(const std::string& desktop, const DesktopEntry& entry) {
  Outcome made = MakeFolders(desktop);
  if (!made) return made;
  const std::string path = DesktopEntryFile(desktop, entry.name);
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0755);
  if (descriptor < 0) return Outcome::Failed("create", path, errno);
  PendingSyncs none;
  PosixFile file(descriptor, path, desktop, none);
  const Outcome written = file.WriteAt(0, DesktopEntryText(entry));
  Outcome synced = written ? file.Sync() : written;
  if (!synced) unlink(path.c_str());
  return synced;
}

}  // namespace vintoral
