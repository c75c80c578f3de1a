#include "platform/desktop/camera/CameraRunner.h"

#include <thread>
#include <utility>

namespace vintoral {

namespace {

constexpr std::chrono::milliseconds kFarewell{300};

}  // namespace

bool CameraRunner::Same(const CameraSource& one, const CameraSource& other) {
  return one.name == other.name && one.address == other.address;
}

std::string CameraRunner::KeyOf(const CameraSource& source) {
  return source.name.ToUtf8() + '\n' + source.address.Bytes();
}

CameraRunner::CameraRunner() : devices_(std::make_shared<DeviceList>()) {}

void CameraRunner::Begin() {
  {
    const std::lock_guard lock(mutex_);
    begun_ = true;
    if (wish_) StartThread(*wish_);
  }
  devices_->Begin([runner = weak_from_this()] {
    const std::shared_ptr<CameraRunner> self = runner.lock();
    if (!self) return;
    const std::lock_guard lock(self->mutex_);
    self->news_.notify_all();
  });
}

void CameraRunner::End() {
  Lock lock(mutex_);
  ended_ = true;
  wish_.reset();
  if (begun_) devices_->Stop();
  news_.notify_all();
  news_.wait_for(lock, kFarewell, [this] { return served_.empty(); });
}

void CameraRunner::Start(const CameraSource& source) {
  const std::lock_guard lock(mutex_);
  const bool running = last_ && Same(*last_, source) && served_.contains(KeyOf(source));
  if (!running) {
    run_ = Pictures.Renew();
    controls_.clear();
  }
  wish_ = last_ = source;
  paused_ = false;
  Pictures.Pause(false);
  if (begun_) StartThread(source);
  news_.notify_all();
}

void CameraRunner::StartThread(const CameraSource& source) {
  if (!served_.insert(KeyOf(source)).second) return;
  std::thread([self = shared_from_this(), source] { self->Serve(source); }).detach();
}

void CameraRunner::Stop() {
  const std::lock_guard lock(mutex_);
  wish_.reset();
  stoppedAt_ = Clock::now();
  news_.notify_all();
}

void CameraRunner::Set(const CameraFormat& format) {
  const std::lock_guard lock(mutex_);
  if (wish_) wish_->format = format;
  news_.notify_all();
}

CameraState CameraRunner::State() const {
  const std::lock_guard lock(mutex_);
  if (!wish_) return CameraState::kStopped;
  return paused_ ? CameraState::kPaused : CameraState::kRunning;
}

bool CameraRunner::Pause(bool pause) {
  const std::lock_guard lock(mutex_);
  if (!wish_) return false;
  paused_ = pause;
  Pictures.Pause(pause);
  return true;
}

CameraOptions CameraRunner::Options() {
  const std::lock_guard lock(mutex_);
  if (!wish_ || !wish_->address.Empty()) return {};
  return {devices_->Modes(wish_->name.ToUtf8()), Pictures.Mode(), controls_};
}

void CameraRunner::AddDevice(const String& name, const std::string& description) {
  devices_->Add(name, description);
}

std::optional<std::vector<String>> CameraRunner::Devices() const {
  return devices_->Names();
}

}  // namespace vintoral
