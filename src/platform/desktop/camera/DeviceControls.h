// What can be turned up and down at a device of the kernel's.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Camera.h"

namespace vintoral {

/// A device's file, opened for a moment beside whoever films with it. May wait for the device.
class DeviceControls {
 public:
  /// As ioctl of the open device: 0, or -1.
  using Call = std::function<int(unsigned long request, void* argument)>;

  /// Of the device of this file; nothing to turn when it can't be opened.
  explicit DeviceControls(const std::string& file);
  /// Of the tests.
  explicit DeviceControls(Call call) : call_(std::move(call)) {}
  ~DeviceControls();
  DeviceControls(const DeviceControls&) = delete;
  DeviceControls& operator=(const DeviceControls&) = delete;

  /// Those that the device has and does not regulate by itself, as they stand.
  std::vector<CameraControl> Read() const;
  /// Values beyond a control's ends become its ends; what the device lacks is passed over.
  void Write(const std::map<std::string, int>& values) const;

 private:
  int file_ = -1;
  Call call_;
};

}  // namespace vintoral
