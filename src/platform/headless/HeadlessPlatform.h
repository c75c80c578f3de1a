// A station's surroundings without a desktop: virtual clock, recorded devices, the real disk.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "platform/PosixDisk.h"
#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"

namespace vintoral {

class HeadlessPlatform {
 public:
  /// `folder`: the station's folder, a native path.
  explicit HeadlessPlatform(const std::string& folder) : disk_(folder) {}
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

  Platform Devices() { return {Clock, Screen, sound_, System, disk_}; }

  Recording Events;
  VirtualClock Clock;
  RecordingScreen Screen{Events, Clock};
  RecordingSystem System{Events, Screen};

 private:
  RecordingSound sound_{Events};
  PosixDisk disk_;
};

}  // namespace vintoral
