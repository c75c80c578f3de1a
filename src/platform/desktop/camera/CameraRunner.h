// Keeps the camera that is wished for running, on threads of its own.
//
// Each camera has one thread while it runs: a device that hangs holds up no other camera, and is not opened
// twice. The threads share this, so that it may outlive the station in a device that hangs.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Camera.h"
#include "platform/desktop/camera/CameraFault.h"
#include "platform/desktop/camera/DeviceList.h"
#include "platform/desktop/camera/Frames.h"

namespace vintoral {

class CameraPipeline;
struct CameraEars;

class CameraRunner : public std::enable_shared_from_this<CameraRunner> {
 public:
  CameraRunner();
  void Begin();
  /// For good; waits a moment for the threads.
  void End();
  void Start(const CameraSource& source);
  void Stop();
  void Set(const CameraFormat& format);
  CameraState State() const;
  bool Pause(bool pause);
  CameraOptions Options();

  Frames Pictures;
  /// Of the tests, before Begin.
  void AddDevice(const String& name, const std::string& description);
  std::optional<std::vector<String>> Devices() const;

 private:
  using Clock = std::chrono::steady_clock;
  using Lock = std::unique_lock<std::mutex>;
  /// What a thread remembers of its camera from one connection to the next.
  struct Memory;
  struct Connection;

  static bool Same(const CameraSource& one, const CameraSource& other);
  static std::string KeyOf(const CameraSource& source);
  void StartThread(const CameraSource& source);
  void Serve(const CameraSource& source);
  bool Wanted(Lock& lock, const CameraSource& source);
  bool IsWish(const CameraSource& source) const;
  void Connect(Lock& lock, const CameraSource& source, Memory& memory);
  CameraEars EarsOf(const std::shared_ptr<Connection>& connection);
  void Open(CameraPipeline& pipeline, const CameraSource& source,
            const std::shared_ptr<Connection>& connection, const Memory& memory);
  void Watch(Lock& lock, const CameraSource& source, Connection& connection);
  /// Gives the device the controls of the connection, and reads what it made of them.
  void Turn(Lock& lock, const CameraSource& source, const Connection& connection);
  void Recover(Lock& lock, const CameraSource& source, const Connection& connection, Memory& memory);
  void Tell(Lock& lock, const CameraSource& source, CameraFault fault, Memory& memory);

  mutable std::mutex mutex_;
  std::condition_variable news_;
  std::optional<CameraSource> wish_;
  std::optional<CameraSource> last_;  ///< the newest wish there was, whose frames are in Pictures
  Clock::time_point stoppedAt_;
  bool paused_ = false;
  bool begun_ = false, ended_ = false;
  Frames::Run run_ = 0;
  std::set<std::string> served_;  ///< the cameras that have a thread
  std::vector<CameraControl> controls_;
  std::shared_ptr<DeviceList> devices_;
};

}  // namespace vintoral
