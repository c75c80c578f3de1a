#include "platform/DesktopEntry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

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
  const std::string file = DesktopEntryFile(desktop, entry.name);
  const std::string text = DesktopEntryText(entry);
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0755);
  if (descriptor < 0) return Outcome::Failed("create", file, errno);
  const ssize_t written = write(descriptor, text.data(), text.size());
  const int error = written == static_cast<ssize_t>(text.size()) ? 0 : errno;
  if (close(descriptor) == 0 && error == 0) return Outcome::Done();
  unlink(file.c_str());
  return Outcome::Failed("write", file, error);
}

}  // namespace vintoral
