// Frames of a camera as a view paints them.
#pragma once

#include <gst/gst.h>

#include <memory>
#include <vector>

#include "platform/Camera.h"
#include "platform/desktop/camera/VideoConverter.h"

namespace vintoral {

class LiveScaler {
 public:
  /// As large as fits into `width` by `height`, with the frame's proportions; null for a frame that can't be
  /// read.
  std::shared_ptr<const LivePicture> Make(GstSample* sample, int width, int height);

 private:
  bool FromPlanes(const GstVideoInfo& info, const GstVideoFrame& frame, LivePicture& picture);
  std::shared_ptr<LivePicture> Blank(int width, int height);
  VideoConverter toPlanes_, scale_, colours_, direct_;
  std::vector<std::uint8_t> planes_, scaled_;
  std::vector<std::shared_ptr<LivePicture>> made_;  ///< painted from in turn, so that none is made anew
};

}  // namespace vintoral
