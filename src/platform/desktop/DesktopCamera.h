// The cameras of a desktop through GStreamer, on threads of their own: whatever a camera does, no key waits.
#pragma once

#include <memory>
#include <string>

#include "platform/Camera.h"

namespace vintoral {

class CameraRunner;

class DesktopCamera : public Camera {
 public:
  /// Nothing runs, and no device is told of, until Begin.
  DesktopCamera();
  DesktopCamera(const DesktopCamera&) = delete;
  DesktopCamera& operator=(const DesktopCamera&) = delete;
  /// Ends what runs; a device that hangs is left behind, not waited for.
  ~DesktopCamera() override;

  std::optional<std::vector<String>> Devices() override;
  void Start(const CameraSource& source) override;
  void Stop() override;
  CameraState State() const override;
  bool Pause() override;
  bool Resume() override;
  std::shared_ptr<const cImage> Snap() override;
  CameraOptions Options() override;
  void Set(const CameraFormat& format) override;
  /// `news` is called with a lock held: it tells another thread, and asks nothing of the camera.
  void Show(int width, int height, std::function<void()> news) override;
  std::shared_ptr<const LivePicture> Live() override;

  /// From here on what was asked for runs. Until then nothing is loaded, so that a start is not slowed down.
  void Begin();
  /// A device more, made of what gst-launch takes for a source. Of the tests, before Begin.
  void AddDevice(const String& name, const std::string& description);

 private:
  std::shared_ptr<CameraRunner> runner_;
};

}  // namespace vintoral
