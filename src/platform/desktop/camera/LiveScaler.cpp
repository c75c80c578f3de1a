#include "platform/desktop/camera/LiveScaler.h"

#include <algorithm>
#include <atomic>
#include <cmath>

namespace vintoral {

namespace {

struct Size {
  int width, height;
};

Size Fitting(int width, int height, int ofWidth, int ofHeight) {
  const double scale = std::min(static_cast<double>(width) / ofWidth, static_cast<double>(height) / ofHeight);
  return {std::max(1, static_cast<int>(std::lround(ofWidth * scale))),
          std::max(1, static_cast<int>(std::lround(ofHeight * scale)))};
}

}  // namespace

std::shared_ptr<const LivePicture> LiveScaler::Make(GstSample* sample, int width, int height) {
  MappedFrame mapped(sample);
  if (!mapped.Good()) return nullptr;
  const GstVideoInfo& info = mapped.Info();
  const auto [toWidth, toHeight] =
      Fitting(width, height, GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info));
  const std::shared_ptr<LivePicture> picture = Blank(toWidth, toHeight);
  if (GST_VIDEO_INFO_IS_YUV(&info)) return FromPlanes(info, mapped.Frame(), *picture) ? picture : nullptr;
  const GstVideoInfo rows = InfoOf(GST_VIDEO_FORMAT_BGRx, toWidth, toHeight);
  GstVideoFrame to = FrameAt(rows, picture->pixels.data());
  return direct_.Convert(info, mapped.Frame(), rows, to) ? picture : nullptr;
}

bool LiveScaler::FromPlanes(const GstVideoInfo& info, const GstVideoFrame& frame, LivePicture& picture) {
  const GstVideoInfo planes = PlanesLike(info, GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info));
  GstVideoFrame source = frame;
  if (GST_VIDEO_INFO_FORMAT(&info) != GST_VIDEO_FORMAT_I420) {
    planes_.resize(planes.size);
    source = FrameAt(planes, planes_.data());
    if (!toPlanes_.Convert(info, frame, planes, source)) return false;
  }
  // Scaled first: fewer points are left whose colours have to be worked out.
  const GstVideoInfo small = PlanesLike(info, picture.width, picture.height);
  scaled_.resize(small.size);
  GstVideoFrame scaled = FrameAt(small, scaled_.data());
  if (!scale_.Convert(planes, source, small, scaled)) return false;
  const GstVideoInfo rows = InfoOf(GST_VIDEO_FORMAT_BGRx, picture.width, picture.height);
  GstVideoFrame to = FrameAt(rows, picture.pixels.data());
  return colours_.Convert(small, scaled, rows, to);
}

std::shared_ptr<LivePicture> LiveScaler::Blank(int width, int height) {
  std::erase_if(made_, [&](const auto& old) { return old->width != width || old->height != height; });
  const auto free =
      std::find_if(made_.begin(), made_.end(), [](const auto& old) { return old.use_count() == 1; });
  // What the view read of it has been read before it is written over.
  std::atomic_thread_fence(std::memory_order_acquire);
  if (free != made_.end()) return *free;
  constexpr std::size_t kBytes = 4;
  auto fresh = std::make_shared<LivePicture>();
  fresh->width = width;
  fresh->height = height;
  fresh->pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytes);
  constexpr std::size_t kInTurn = 3;  // one shown, one waiting, one in the making
  if (made_.size() < kInTurn) made_.push_back(fresh);
  return fresh;
}

}  // namespace vintoral
