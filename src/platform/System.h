// Processes, the desktop and other programs.
#pragma once

#include <string_view>

#include "common/Outcome.h"
#include "common/String.h"

namespace vintoral {

/// A shortcut on the operator's desktop. Paths are station paths.
struct Shortcut {
  String name;
  String icon;
  String workingFolder;
};

class System {
 public:
  virtual ~System() = default;
  /// How many stations this user runs on this machine, this one included.
  virtual int CountInstances() = 0;
  /// Is there a shortcut of this name on the desktop?
  virtual bool HasShortcut(std::string_view name) = 0;
  virtual Outcome CreateShortcut(const Shortcut& shortcut) = 0;
  /// The user's own folder of pictures, as station text.
  virtual String PicturesFolder() = 0;
  /// Opens a file, a folder or a web address in the user's own program without waiting. `command` is the
  /// station's text, "Notepad.exe Objetos\Servidor.INI", "Explorer.exe Fondos" or "Explorer.exe https://…"; a
  /// missing program or file is passed over.
  virtual void Launch(std::string_view command) = 0;
  /// The program ends as soon as control is back in the event loop.
  virtual void End() = 0;
};

}  // namespace vintoral
