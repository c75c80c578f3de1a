// The whole station of a desktop: devices, model and windows.
#pragma once

#include <string>

#include "platform/desktop/DesktopPlatform.h"
#include "station/form1/Form1.h"
#include "window/Dialogs.h"
#include "window/form1/MainWindow.h"

namespace vintoral {

class Station {
 public:
  /// What must be said before the toolkit starts.
  static void PrepareToolkit();
  /// In `folder`, a path of this system; the toolkit has started.
  explicit Station(const std::string& folder);

  /// Runs the start sequence and shows the window; false when the program is to end at once.
  bool Start();

  DesktopPlatform Devices;
  Form1 Form;
  MainWindow Window;
  vintoral::Dialogs Dialogs;
};

}  // namespace vintoral
