// Single instance, desktop and other programs the freedesktop way.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/System.h"

namespace vintoral {

/// The file that the one station of this user on this machine holds locked. A session's environment has no
/// say in it: a station started from another one is still a second station.
std::string StationLock();

class DesktopSystem : public System {
 public:
  using FileOf = std::function<std::string(std::string_view)>;
  /// `fileOf` turns a station path into a path of this system (UTF-8).
  explicit DesktopSystem(FileOf fileOf, std::string lockFile = StationLock());
  DesktopSystem(const DesktopSystem&) = delete;
  DesktopSystem& operator=(const DesktopSystem&) = delete;
  ~DesktopSystem() override;

  /// 1 for the station that holds the lock, 2 for any other.
  int CountInstances() override;
  bool HasShortcut(std::string_view name) override;
  Outcome CreateShortcut(const Shortcut& shortcut) override;
  /// A folder whose name Windows-1252 can't hold is none.
  String PicturesFolder() override;
  void Launch(std::string_view command) override;
  /// Nothing: the station's thread ends with its model, and the event loop with the thread.
  void End() override {}

  /// Starts `program` and does not wait; false when there is no such program. The tests put their own in its
  /// place.
  std::function<bool(const std::string& program, const std::vector<std::string>& arguments)> Start;

 private:
  FileOf fileOf_;
  std::string lockFile_;
  int lock_ = -1;
};

/// What a command of the station opens: the file or folder behind the program's name, "Notepad.exe F" or
/// "Explorer.exe P"; empty for any other text.
std::string_view OpenedBy(std::string_view command);

}  // namespace vintoral
