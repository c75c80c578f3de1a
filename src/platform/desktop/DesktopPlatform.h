// The station's surroundings on a desktop.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "platform/PosixDisk.h"
#include "platform/desktop/DesktopCamera.h"
#include "platform/desktop/DesktopClock.h"
#include "platform/desktop/DesktopMail.h"
#include "platform/desktop/DesktopPrinter.h"
#include "platform/desktop/DesktopScreen.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/DesktopSystem.h"
#include "platform/desktop/StationThread.h"
#include "platform/desktop/SystemRandom.h"
#include "platform/pictures/PicturesBeside.h"

namespace vintoral {

class DesktopPlatform {
 public:
  /// `folder`: the station's folder, a path of this system; `clock` in place of the machine's, and longer.
  explicit DesktopPlatform(const std::string& folder, const vintoral::Clock* clock = nullptr);

  /// As the station's thread has them.
  Platform Devices() {
    return {Thread.Time(), Screen, Sound, System, Disk, Pictures, Printer, chance_, Camera, Mail};
  }
  /// The file of this system that a station path means, whatever the case of its name.
  std::string FileOf(std::string_view path) const;

  /// The first one, so the last to go: it may wait for a mail, and the next station need not wait for that.
  DesktopMail Mail;
  PosixDisk Disk;
  PicturesBeside Pictures;
  DesktopClock Clock;
  StationThread Thread;
  DesktopScreen Screen;
  DesktopSound Sound;
  DesktopSystem System;
  DesktopPrinter Printer;
  DesktopCamera Camera;

 private:
  SystemRandom chance_;
};

}  // namespace vintoral
