// A station's surroundings without a desktop: virtual clock, recorded devices, the real disk.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "platform/PosixDisk.h"
#include "platform/headless/GivenCamera.h"
#include "platform/headless/Recording.h"
#include "platform/headless/RecordingMail.h"
#include "platform/headless/SeededRandom.h"
#include "platform/headless/VirtualClock.h"

namespace vintoral {

class HeadlessPlatform {
 public:
  /// `folder`: the station's folder, a native path. The decoder links a library, so it comes from outside.
  HeadlessPlatform(const std::string& folder, const Pictures& pictures,
                   PosixDisk::Work behind = PosixDisk::Work::kAtOnce)
      : disk_(folder, behind), pictures_(pictures) {}
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

  Platform Devices() {
    return {Clock, Screen, sound_, System, disk_, pictures_, Printer, Chance, Camera, Mail};
  }

  Recording Events;
  VirtualClock Clock;
  RecordingScreen Screen{Events, Clock};
  RecordingSystem System{Events, Screen};
  RecordingPrinter Printer{Events};
  SeededRandom Chance;
  GivenCamera Camera;
  RecordingMail Mail{Events};

 private:
  RecordingSound sound_{Events};
  PosixDisk disk_;
  const Pictures& pictures_;
};

}  // namespace vintoral
