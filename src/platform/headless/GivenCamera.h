// Cameras whose frames are given from outside; no time passes over a frame.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Camera.h"

namespace vintoral {

class GivenCamera : public Camera {
 public:
  /// What a camera of that name does from here on.
  struct Given {
    std::shared_ptr<const cImage> frame;
    bool fails = false;  ///< no frame comes
    bool gone = false;   ///< unplugged: no frame comes, and a device is not listed
    CameraOptions options = {};
  };

  std::optional<std::vector<String>> Devices() override {
    if (!Told) return std::nullopt;
    std::vector<String> devices;
    std::copy_if(Installed.begin(), Installed.end(), std::back_inserter(devices),
                 [this](const String& name) { return !Cameras[name].gone; });
    return devices;
  }
  void Start(const CameraSource& source) override {
    Running = source;
    state_ = CameraState::kRunning;
    ++Starts;
  }
  void Stop() override { state_ = CameraState::kStopped; }
  CameraState State() const override { return state_; }
  bool Pause() override { return Become(CameraState::kPaused); }
  bool Resume() override { return Become(CameraState::kRunning); }
  std::shared_ptr<const cImage> Snap() override {
    const Given& camera = Cameras[Running.name];
    const bool films = state_ == CameraState::kRunning && !camera.fails && !camera.gone;
    return films ? camera.frame : nullptr;
  }
  CameraOptions Options() override {
    if (state_ == CameraState::kStopped) return {};
    CameraOptions options = Cameras[Running.name].options;
    if (Running.format.mode) options.mode = Running.format.mode;
    for (CameraControl& control : options.controls) {
      const auto set = Running.format.controls.find(control.id);
      if (set != Running.format.controls.end()) control.value = set->second;
    }
    return options;
  }
  void Set(const CameraFormat& format) override { Running.format = format; }

  std::vector<String> Installed;  ///< the machine's devices
  bool Told = true;               ///< the system has told of them
  std::map<String, Given> Cameras;
  CameraSource Running;  ///< what was started last
  int Starts = 0;

 private:
  bool Become(CameraState state) {
    if (state_ == CameraState::kStopped) return false;
    state_ = state;
    return true;
  }
  CameraState state_ = CameraState::kStopped;
};

}  // namespace vintoral
