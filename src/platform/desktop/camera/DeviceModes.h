// The sizes and rates that a device offers, as GStreamer tells of them.
#pragma once

#include <gst/gst.h>

#include <vector>

#include "platform/Camera.h"

namespace vintoral {

/// No list of a dialog is longer.
inline constexpr int kMostModes = 40;

/// Each once, by size and then by rate. Of more than kMostModes the slower ones of each size are left out
/// first. What comes in ranges, as no camera does, is none.
std::vector<CameraMode> ModesOf(const GstCaps* caps);

/// What asks a device for this mode, in whatever format; for the caller to free.
GstCaps* CapsOf(const CameraMode& mode);

}  // namespace vintoral
