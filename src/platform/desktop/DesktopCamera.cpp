#include "platform/desktop/DesktopCamera.h"

#include <utility>

#include "platform/desktop/camera/CameraRunner.h"

namespace vintoral {

DesktopCamera::DesktopCamera() : runner_(std::make_shared<CameraRunner>()) {}

DesktopCamera::~DesktopCamera() {
  Show(0, 0, {});
  runner_->End();
}

std::optional<std::vector<String>> DesktopCamera::Devices() {
  return runner_->Devices();
}

void DesktopCamera::Start(const CameraSource& source) {
  runner_->Start(source);
}

void DesktopCamera::Stop() {
  runner_->Stop();
}

CameraState DesktopCamera::State() const {
  return runner_->State();
}

bool DesktopCamera::Pause() {
  return runner_->Pause(true);
}

bool DesktopCamera::Resume() {
  return runner_->Pause(false);
}

std::shared_ptr<const cImage> DesktopCamera::Snap() {
  return State() == CameraState::kRunning ? runner_->Pictures.Snap() : nullptr;
}

CameraOptions DesktopCamera::Options() {
  return runner_->Options();
}

void DesktopCamera::Set(const CameraFormat& format) {
  runner_->Set(format);
}

void DesktopCamera::Show(int width, int height, std::function<void()> news) {
  runner_->Pictures.Show(width, height, std::move(news));
}

std::shared_ptr<const LivePicture> DesktopCamera::Live() {
  return State() == CameraState::kStopped ? nullptr : runner_->Pictures.Live();
}

void DesktopCamera::Begin() {
  runner_->Begin();
}

void DesktopCamera::AddDevice(const String& name, const std::string& description) {
  runner_->AddDevice(name, description);
}

}  // namespace vintoral
