// What tells of this machine's cameras: one watch a process, which is never ended.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/desktop/camera/Gst.h"

namespace vintoral {

/// Neither ended nor begun anew: PipeWire's part of it and the sources of PipeWire share one connection,
/// which is taken apart badly once it has told of devices, and memory is used that was freed.
class SystemDevices {
 public:
  static SystemDevices& Instance();

  /// What there is. The first call waits for the system to answer, for as long as it takes.
  std::vector<std::shared_ptr<GstDevice>> Read();
  /// `changed` is called by any thread when a device has come or gone; it calls nothing of this.
  void Listen(std::function<void()> changed);

 private:
  SystemDevices() = default;
  bool Start();
  static GstBusSyncReply OnMessage(GstBus* bus, GstMessage* message, gpointer self);

  std::mutex watchMutex_;  ///< held while the system is asked
  GstDeviceMonitor* monitor_ = nullptr;
  bool started_ = false;

  std::mutex newsMutex_;
  std::function<void()> changed_;
};

}  // namespace vintoral
