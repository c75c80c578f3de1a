// The cameras of a desktop.
#pragma once

#include "platform/Camera.h"

namespace vintoral {

/// Knows of no camera yet: every station goes over to the outside camera program.
class DesktopCamera : public Camera {
 public:
  std::optional<std::vector<String>> Devices() override { return std::vector<String>{}; }
  void Start(const CameraSource& /*source*/) override {}
  void Stop() override {}
  CameraState State() const override { return CameraState::kStopped; }
  bool Pause() override { return false; }
  bool Resume() override { return false; }
  std::shared_ptr<const cImage> Snap() override { return nullptr; }
};

}  // namespace vintoral
