// A frame of a camera as a picture of 24 bits at its own size.
#pragma once

#include <gst/gst.h>

#include <memory>

#include "camera/cImage/cImage.h"
#include "platform/desktop/camera/VideoConverter.h"

namespace vintoral {

class StillMaker {
 public:
  /// Null for a frame that can't be read, or without memory.
  std::shared_ptr<const cImage> Make(GstSample* sample);
  /// Keeps nothing of the last picture.
  void Forget() { last_.reset(); }

 private:
  /// The last picture, when nobody has it any more: memory that is asked for anew takes longer than the
  /// picture.
  std::shared_ptr<cImage> Blank(int width, int height);
  bool FromPlanes(const GstVideoInfo& info, const GstVideoFrame& frame, cImage& image);
  bool FromAny(const GstVideoInfo& info, const GstVideoFrame& frame, cImage& image);
  std::shared_ptr<cImage> last_;
  VideoConverter toPlanes_, direct_;
};

}  // namespace vintoral
