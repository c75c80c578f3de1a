// What tells of this machine's cameras: one watch a process, which is never ended.
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/desktop/camera/Gst.h"

namespace vintoral {

/// A source of PipeWire and the watch for its devices share one connection, which the watch takes apart badly
/// while a source still has it: memory is used that was freed. So the watch goes on to the end of the
/// process, and begins anew only while no camera of this machine runs.
class SystemDevices {
 public:
  static SystemDevices& Instance();

  /// What there is. The first call waits for the system to answer, for as long as it takes.
  std::vector<std::shared_ptr<GstDevice>> Read();
  /// Begins anew, unless a source is in use or the system hangs: it may have lost its devices' service.
  void Renew();
  /// `changed` is called by any thread when a device has come or gone; it calls nothing of this.
  void Listen(std::function<void()> changed);

  /// A source is in use from here on until this goes. Waits while the watch begins anew.
  class Use {
   public:
    Use();
    ~Use();
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
  };

 private:
  SystemDevices() = default;
  bool Start();
  static GstBusSyncReply OnMessage(GstBus* bus, GstMessage* message, gpointer self);

  std::mutex watchMutex_;  ///< held while the system is asked
  GstDeviceMonitor* monitor_ = nullptr;
  bool started_ = false;

  std::mutex useMutex_;
  std::condition_variable renewed_;
  int used_ = 0;
  bool renewing_ = false;

  std::mutex newsMutex_;
  std::function<void()> changed_;
};

}  // namespace vintoral
