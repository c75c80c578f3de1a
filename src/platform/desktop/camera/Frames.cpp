#include "platform/desktop/camera/Frames.h"

#include <gst/video/video.h>

#include <algorithm>
#include <utility>

namespace vintoral {

namespace {

/// Less than a first frame may be waited for: nothing of a camera costs a key more than a tenth of a second.
constexpr std::chrono::milliseconds kFirstFrame{90};
static_assert(kFirstFrame.count() <= Camera::kFirstFrame);
constexpr std::chrono::milliseconds kStale{Camera::kStale};
/// More pictures than that nobody tells apart, and each takes the time of painting it.
constexpr std::chrono::microseconds kLivePeriod{1'000'000 / 15};

}  // namespace

Frames::Run Frames::Renew() {
  {
    const std::lock_guard lock(stillMutex_);
    still_.Forget();
  }
  const std::lock_guard lock(mutex_);
  newest_ = {};
  live_.reset();
  expected_ = waited_ = paused_ = false;
  return ++run_;
}

void Frames::Expect(Run run) {
  const std::lock_guard lock(mutex_);
  if (run == run_) expected_ = true;
}

void Frames::Pause(bool pause) {
  const std::lock_guard lock(mutex_);
  paused_ = pause;
}

void Frames::Deliver(Run run, GstOwned<GstSample> sample) {
  const Clock::time_point now = Clock::now();
  const std::shared_ptr<GstSample> shared = std::move(sample);
  {
    const std::lock_guard lock(mutex_);
    if (run != run_ || paused_) return;
    newest_ = {shared, now};
    came_.notify_all();
  }
  Scale(run, shared.get(), now);
}

Frames::Newest Frames::Fresh() {
  const bool fresh = newest_.sample && Clock::now() - newest_.at <= kStale;
  return fresh && !paused_ ? newest_ : Newest{};
}

std::shared_ptr<const cImage> Frames::Snap() {
  Newest newest;
  {
    std::unique_lock lock(mutex_);
    const Run run = run_;
    if (!newest_.sample && expected_ && !std::exchange(waited_, true))
      came_.wait_for(lock, kFirstFrame, [&] { return newest_.sample || run != run_; });
    newest = Fresh();
  }
  const std::lock_guard lock(stillMutex_);
  return newest.sample ? still_.Make(newest.sample.get()) : nullptr;
}

std::optional<Frames::Clock::time_point> Frames::Last(Run run) {
  const std::lock_guard lock(mutex_);
  if (run != run_ || !newest_.sample) return std::nullopt;
  return newest_.at;
}

std::optional<CameraMode> Frames::Mode() {
  std::shared_ptr<GstSample> sample;
  {
    const std::lock_guard lock(mutex_);
    sample = newest_.sample;
  }
  GstVideoInfo info;
  if (!sample || !gst_video_info_from_caps(&info, gst_sample_get_caps(sample.get()))) return std::nullopt;
  const int rate =
      GST_VIDEO_INFO_FPS_D(&info) > 0
          ? (GST_VIDEO_INFO_FPS_N(&info) + GST_VIDEO_INFO_FPS_D(&info) / 2) / GST_VIDEO_INFO_FPS_D(&info)
          : 0;
  return CameraMode{GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info), rate};
}

void Frames::Show(int width, int height, std::function<void()> news) {
  {
    // Whoever is called has been called when this returns: the view may go.
    const std::lock_guard lock(newsMutex_);
    news_ = std::move(news);
  }
  const std::lock_guard lock(mutex_);
  const bool same = width == width_ && height == height_;
  width_ = width;
  height_ = height;
  if (!same) due_ = {};
}

bool Frames::ViewIsDue(Clock::time_point now, int& width, int& height) {
  const std::lock_guard lock(mutex_);
  width = width_;
  height = height_;
  if (width <= 0 || height <= 0 || now < due_) return false;
  // A frame that comes late takes nothing from the next one's time: 30 a second are every other one.
  due_ = std::max(due_, now - kLivePeriod) + kLivePeriod;
  return true;
}

void Frames::Scale(Run run, GstSample* sample, Clock::time_point now) {
  int width = 0, height = 0;
  if (!ViewIsDue(now, width, height)) return;
  std::shared_ptr<const LivePicture> live;
  {
    const std::lock_guard lock(scalerMutex_);
    live = scaler_.Make(sample, width, height);
  }
  {
    const std::lock_guard lock(mutex_);
    if (!live || run != run_) return;
    live_ = std::move(live);
    liveAt_ = now;
  }
  const std::lock_guard lock(newsMutex_);
  if (news_) news_();
}

std::shared_ptr<const LivePicture> Frames::Live() {
  const std::lock_guard lock(mutex_);
  return live_ && Clock::now() - liveAt_ <= kStale ? live_ : nullptr;
}

}  // namespace vintoral
