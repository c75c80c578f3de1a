// Frames of one format and size turned into another; what that takes is made once and kept.
#pragma once

#include <gst/video/video.h>

#include <cstdint>
#include <memory>

namespace vintoral {

/// A frame's pixels, readable as long as this lives.
class MappedFrame {
 public:
  /// Not good when the buffer does not hold what the caps say, or says itself that it holds something else.
  explicit MappedFrame(GstSample* sample);
  ~MappedFrame();
  MappedFrame(const MappedFrame&) = delete;
  MappedFrame& operator=(const MappedFrame&) = delete;

  bool Good() const { return good_; }
  const GstVideoInfo& Info() const { return info_; }
  GstVideoFrame& Frame() { return frame_; }

 private:
  GstVideoInfo info_{};
  GstVideoFrame frame_{};
  bool mapped_ = false;
  bool good_ = false;
};

GstVideoInfo InfoOf(GstVideoFormat format, int width, int height);
/// Three planes of that size, whose colours mean what those of `like` mean.
GstVideoInfo PlanesLike(const GstVideoInfo& like, int width, int height);

/// A frame in memory of this program's own; `info` has been set by gst_video_info_set_format.
GstVideoFrame FrameAt(const GstVideoInfo& info, std::uint8_t* pixels);

class VideoConverter {
 public:
  /// False for a pair of formats that can't be converted.
  bool Convert(const GstVideoInfo& fromInfo, const GstVideoFrame& from, const GstVideoInfo& toInfo,
               GstVideoFrame& to);

 private:
  struct Free {
    void operator()(GstVideoConverter* converter) const { gst_video_converter_free(converter); }
  };
  std::unique_ptr<GstVideoConverter, Free> converter_;
  GstVideoInfo from_{}, to_{};
};

}  // namespace vintoral
