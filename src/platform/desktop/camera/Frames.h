// The newest frame of the camera that runs, and what is made of it. Asked and filled by any thread.
#pragma once

#include <gst/gst.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "platform/Camera.h"
#include "platform/desktop/camera/Gst.h"
#include "platform/desktop/camera/LiveScaler.h"
#include "platform/desktop/camera/Still.h"

namespace vintoral {

class Frames {
 public:
  using Clock = std::chrono::steady_clock;
  /// A run of one camera; the frames of any other are passed over.
  using Run = std::uint64_t;

  /// From here on frames come from another camera, or none: what there was is forgotten.
  Run Renew();
  /// Frames of that run are to be expected at once: the first one is worth waiting for.
  void Expect(Run run);
  /// Takes the sample. Called by the thread that the frame came on, which also scales it for the view.
  void Deliver(Run run, GstOwned<GstSample> sample);
  /// Whether frames are taken; those that come meanwhile are lost.
  void Pause(bool pause);

  std::shared_ptr<const cImage> Snap();
  /// When the last one came, and of what size and rate it is.
  std::optional<Clock::time_point> Last(Run run);
  std::optional<CameraMode> Mode();

  void Show(int width, int height, std::function<void()> news);
  std::shared_ptr<const LivePicture> Live();

 private:
  struct Newest {
    std::shared_ptr<GstSample> sample;
    Clock::time_point at;
  };
  Newest Fresh();
  void Scale(Run run, GstSample* sample, Clock::time_point now);
  bool ViewIsDue(Clock::time_point now, int& width, int& height);

  std::mutex mutex_;  ///< of all that follows up to the next one
  std::condition_variable came_;
  Run run_ = 0;
  bool expected_ = false;
  bool waited_ = false;  ///< for the first frame of this run, which is done once
  bool paused_ = false;
  Newest newest_;
  std::shared_ptr<const LivePicture> live_;
  Clock::time_point liveAt_;
  int width_ = 0, height_ = 0;
  Clock::time_point due_;

  std::mutex newsMutex_;
  std::function<void()> news_;

  std::mutex scalerMutex_;
  LiveScaler scaler_;
  std::mutex stillMutex_;
  StillMaker still_;
};

}  // namespace vintoral
