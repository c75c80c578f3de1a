// Shortcuts on Linux: desktop entries.
// Source: freedesktop.org Desktop Entry Specification 1.5.
#pragma once

#include <string>

#include "common/Outcome.h"
#include "platform/System.h"

namespace vintoral {

/// The file of the shortcut `name` in the desktop folder (both UTF-8).
std::string DesktopEntryFile(const std::string& desktop, const std::string& name);
bool DesktopEntryExists(const std::string& desktop, const std::string& name);
/// The text of a desktop entry that starts `executable` (UTF-8 path) in the shortcut's working folder.
std::string DesktopEntryText(const Shortcut& shortcut, const std::string& executable);
/// Writes the entry and marks it executable, as desktops ask of a trusted one.
Outcome WriteDesktopEntry(const std::string& desktop, const Shortcut& shortcut,
                          const std::string& executable);

}  // namespace vintoral
