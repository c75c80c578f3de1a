// The cameras of a gate: devices of this machine, and cameras on the network.
//
// Nothing of a camera holds up the gate. Starting and stopping return at once, frames arrive by themselves,
// and a camera that went away is looked for again, for as long as it is meant to run.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "camera/cImage/cImage.h"
#include "common/String.h"

namespace vintoral {

struct CameraMode {
  int width = 0, height = 0;  ///< pixels
  int framesPerSecond = 0;

  friend bool operator==(const CameraMode&, const CameraMode&) = default;
};

/// What is kept of a device's settings; what is not named stays as the device has it.
struct CameraFormat {
  std::optional<CameraMode> mode;
  std::map<std::string, int> controls;  ///< by the control's id, "brightness"

  friend bool operator==(const CameraFormat&, const CameraFormat&) = default;
};

/// Something at a device that can be turned up and down.
struct CameraControl {
  std::string id;
  String label;  ///< as the operator reads it
  int least = 0, most = 0, value = 0;
};

/// What a running device lets one choose; empty for one that offers nothing, as those on the network.
struct CameraOptions {
  std::vector<CameraMode> modes;
  std::optional<CameraMode> mode;  ///< the one that runs
  std::vector<CameraControl> controls;

  bool Empty() const { return modes.empty() && controls.empty(); }
};

struct CameraSource {
  String name;  ///< as the operator sees it
  /// Of a camera on the network; user and password may stand in it, so it is neither shown nor logged. Empty
  /// for a device of this machine, which is known by its name.
  String address;
  CameraFormat format;
};

/// A picture as a view paints it: rows of four bytes a pixel (blue, green, red and one without meaning), top
/// to bottom, without gaps.
struct LivePicture {
  int width = 0, height = 0;
  std::vector<std::uint8_t> pixels;
};

enum class CameraState { kStopped, kPaused, kRunning };

class Camera {
 public:
  /// A first frame is waited for no longer than this, in milliseconds.
  static constexpr int kFirstFrame = 200;
  /// An older frame tells nothing of who stands at the gate: it counts as none. In milliseconds.
  static constexpr int kStale = 2000;

  virtual ~Camera() = default;
  /// This machine's devices in the system's order; nothing as long as the system has not told of them.
  virtual std::optional<std::vector<String>> Devices() = 0;
  /// In place of whatever runs.
  virtual void Start(const CameraSource& source) = 0;
  virtual void Stop() = 0;
  /// Running, as soon as it has been started: whether frames come is for Snap to tell.
  virtual CameraState State() const = 0;
  /// Frames stop, or come again; false when nothing runs.
  virtual bool Pause() = 0;
  virtual bool Resume() = 0;
  /// The latest frame at the device's own size, 24 bits; null when there is none of the last kStale
  /// milliseconds and none comes within kFirstFrame.
  virtual std::shared_ptr<const cImage> Snap() = 0;
  /// Of the device that runs.
  virtual CameraOptions Options() { return {}; }
  /// The device that runs takes other settings, as far as it can; returns at once.
  virtual void Set(const CameraFormat& /*format*/) {}

  /// A view of this size, in device pixels, paints the live picture: `news` is called, by whatever thread,
  /// when there is another one, 15 times a second at most. A size of 0 takes the view away. Faces without a
  /// view paint nothing.
  virtual void Show(int /*width*/, int /*height*/, std::function<void()> /*news*/) {}  // NOLINT
  /// The latest picture for that view, as large as fits into it; null when there is none of late.
  virtual std::shared_ptr<const LivePicture> Live() { return nullptr; }
};

}  // namespace vintoral
