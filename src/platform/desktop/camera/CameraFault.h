// Why no pictures come from a camera.
#pragma once

#include <gst/gst.h>

namespace vintoral {

enum class CameraFault {
  kNone,
  kMissing,      ///< this machine lacks what the camera speaks
  kGone,         ///< the device is not there
  kUnreachable,  ///< nobody answers, or nothing is at that address
  kRefused,      ///< another user or password is asked for
  kBusy,         ///< another program has the device
  kBroken,       ///< the connection broke
  kSilent,       ///< the camera answers, but no picture comes
  kGarbage,      ///< what comes is no picture
  kEnded,        ///< the camera ended its pictures
};

/// Of what GStreamer says went wrong; its own words may hold the address, and so a password.
CameraFault FaultOf(const GError& error);
const char* Words(CameraFault fault);

}  // namespace vintoral
