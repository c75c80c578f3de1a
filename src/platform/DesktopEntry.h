// Shortcuts on Linux: desktop entries.
// Source: freedesktop.org Desktop Entry Specification 1.5.
#pragma once

#include <string>

#include "common/Outcome.h"

namespace vintoral {

/// What a desktop entry says, all of it UTF-8. Folder and icon are paths of this system, whose separators may
/// still be the station's backslashes.
struct DesktopEntry {
  std::string name;
  std::string executable;
  std::string workingFolder;
  std::string icon;
};

/// The file of the shortcut `name` in the desktop folder (both UTF-8).
std::string DesktopEntryFile(const std::string& desktop, const std::string& name);
bool DesktopEntryExists(const std::string& desktop, const std::string& name);
std::string DesktopEntryText(const DesktopEntry& entry);
/// Writes the entry and marks it executable, as desktops ask of a trusted one. A user who has never had a
/// desktop gets its folder. A file that is there already is left alone.
Outcome WriteDesktopEntry(const std::string& desktop, const DesktopEntry& entry);

}  // namespace vintoral
