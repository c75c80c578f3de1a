// This machine's cameras, as the system tells of them and as they come and go.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Camera.h"
#include "platform/desktop/camera/Gst.h"

namespace vintoral {

/// Watches on a thread of its own, which keeps the list alive.
class DeviceList : public std::enable_shared_from_this<DeviceList> {
 public:
  /// `changed` is called on that thread, whenever another list may have come.
  void Begin(std::function<void()> changed);
  /// Ends soon; a system that hangs is not waited for.
  void Stop();
  /// A camera of the tests: what gst-launch takes for a source.
  void Add(const String& name, const std::string& description);

  /// Nothing as long as the system has not told. One that has not told for a while, since its devices'
  /// service hangs, is passed over: the kernel knows what is plugged in.
  std::optional<std::vector<String>> Names() const;
  bool Has(const std::string& name) const;
  std::vector<CameraMode> Modes(const std::string& name) const;
  /// The device's file, where it has one.
  std::string File(const std::string& name) const;
  /// What brings its frames; null when it is not there.
  GstOwned<GstElement> MakeSource(const std::string& name) const;

 private:
  struct Device {
    std::string name;
    std::shared_ptr<GstDevice> device;  ///< null for what the kernel or the tests tell of
    std::string file;
    std::string description;
  };
  void Run();
  void Poke();
  void ReadAnew();
  std::vector<Device> Known() const;
  std::optional<Device> Find(const std::string& name) const;

  std::function<void()> changed_;
  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::chrono::steady_clock::time_point begun_;
  bool told_ = false;
  bool stop_ = false, news_ = false;
  std::vector<Device> devices_, plugged_, added_;
};

}  // namespace vintoral
