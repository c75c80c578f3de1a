#pragma once

#include "platform/Camera.h"
#include "platform/Clock.h"
#include "platform/Disk.h"
#include "platform/Mail.h"
#include "platform/Pictures.h"
#include "platform/Printer.h"
#include "platform/Random.h"
#include "platform/Screen.h"
#include "platform/Sound.h"
#include "platform/System.h"

namespace vintoral {

/// All that a station needs of its surroundings. The devices outlive the station.
struct Platform {
  Clock& clock;
  Screen& screen;
  Sound& sound;
  System& system;
  Disk& disk;
  const Pictures& pictures;
  Printer& printer;
  Random& random;
  Camera& camera;
  Mail& mail;
};

}  // namespace vintoral
