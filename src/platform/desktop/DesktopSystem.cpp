#include "platform/desktop/DesktopSystem.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>
#include <array>
#include <cerrno>

#include "platform/DesktopEntry.h"
#include "platform/NativePath.h"

namespace vintoral {

namespace {

std::string DesktopFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation).toStdString();
}

bool IsWebAddress(std::string_view path) {
  return path.starts_with("http://") || path.starts_with("https://");
}

bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
  QStringList list;
  for (const std::string& argument : arguments)
    list << QString::fromStdString(argument);
  return QProcess::startDetached(QString::fromStdString(program), list);
}

}  // namespace

std::string_view OpenedBy(std::string_view command) {
  constexpr std::array<std::string_view, 2> kPrograms = {"Notepad.exe ", "Explorer.exe "};
  for (const std::string_view program : kPrograms) {
    if (EqualNoCase(command.substr(0, program.size()), program))
      return TrimBlanks(command.substr(program.size()));
  }
  return {};
}

std::string StationLock() {
  return "/tmp/vintoral-" + std::to_string(getuid()) + ".lock";
}

DesktopSystem::DesktopSystem(FileOf fileOf, std::string lockFile)
    : Start(StartDetached), fileOf_(std::move(fileOf)), lockFile_(std::move(lockFile)) {}

DesktopSystem::~DesktopSystem() {
  if (lock_ >= 0) close(lock_);
}

int DesktopSystem::CountInstances() {
  if (lock_ >= 0) return 1;
  const int lock = open(lockFile_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (lock < 0) {
    Outcome::Failed("open", lockFile_, errno).PassOver();
    return 1;  // a station that can't tell must not refuse to start
  }
  if (flock(lock, LOCK_EX | LOCK_NB) == 0) {
    lock_ = lock;  // until the process ends, however it ends
    return 1;
  }
  const int error = errno;
  close(lock);
  return error == EWOULDBLOCK ? 2 : 1;
}

bool DesktopSystem::HasShortcut(std::string_view name) {
  return DesktopEntryExists(DesktopFolder(), String(name).ToUtf8());
}

Outcome DesktopSystem::CreateShortcut(const Shortcut& shortcut) {
  // By way of the disk, which knows the folder by its real name where the station's text can't spell it.
  return WriteDesktopEntry(DesktopFolder(),
                           {.name = shortcut.name.ToUtf8(),
                            .executable = QCoreApplication::applicationFilePath().toStdString(),
                            .workingFolder = fileOf_(shortcut.workingFolder),
                            .icon = fileOf_(shortcut.icon)});
}

String DesktopSystem::PicturesFolder() {
  return StationName(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation).toStdString());
}

void DesktopSystem::Launch(std::string_view command) {
  const std::string_view path = OpenedBy(command);
  if (path.empty()) return Outcome::Failed("launch", String(command).ToUtf8(), EINVAL).PassOver();
  const bool web = IsWebAddress(path);
  const std::string file = web ? String(path).ToUtf8() : fileOf_(path);
  if (!web && access(file.c_str(), F_OK) != 0) return Outcome::Failed("launch", file, errno).PassOver();
  // The description of a program is run; opened, it would be shown as text.
  const bool started =
      file.ends_with(".desktop") ? Start("gio", {"launch", file}) : Start("xdg-open", {file});
  if (!started) Outcome::Failed("start a program for", file, ENOENT).PassOver();
}

}  // namespace vintoral
