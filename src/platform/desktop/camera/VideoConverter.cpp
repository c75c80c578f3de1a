#include "platform/desktop/camera/VideoConverter.h"

namespace vintoral {

MappedFrame::MappedFrame(GstSample* sample) {
  GstCaps* const caps = gst_sample_get_caps(sample);
  GstBuffer* const buffer = gst_sample_get_buffer(sample);
  if (caps == nullptr || buffer == nullptr || !gst_video_info_from_caps(&info_, caps)) return;
  mapped_ = gst_video_frame_map(&frame_, &info_, buffer, GST_MAP_READ);
  good_ = mapped_ && GST_VIDEO_FRAME_FORMAT(&frame_) == GST_VIDEO_INFO_FORMAT(&info_) &&
          GST_VIDEO_FRAME_WIDTH(&frame_) == GST_VIDEO_INFO_WIDTH(&info_) &&
          GST_VIDEO_FRAME_HEIGHT(&frame_) == GST_VIDEO_INFO_HEIGHT(&info_);
}

MappedFrame::~MappedFrame() {
  if (mapped_) gst_video_frame_unmap(&frame_);
}

GstVideoFrame FrameAt(const GstVideoInfo& info, std::uint8_t* pixels) {
  GstVideoFrame frame{};
  frame.info = info;
  for (guint plane = 0; plane < GST_VIDEO_INFO_N_PLANES(&info); ++plane)
    frame.data[plane] = pixels + GST_VIDEO_INFO_PLANE_OFFSET(&info, plane);
  return frame;
}

bool VideoConverter::Convert(const GstVideoInfo& fromInfo, const GstVideoFrame& from,
                             const GstVideoInfo& toInfo, GstVideoFrame& to) {
  const bool same = from_.finfo != nullptr && gst_video_info_is_equal(&from_, &fromInfo) &&
                    gst_video_info_is_equal(&to_, &toInfo);
  if (!same) {
    // Two by two points are enough for a picture that a person looks at.
    GstStructure* const options =
        gst_structure_new("options", GST_VIDEO_CONVERTER_OPT_RESAMPLER_METHOD,
                          GST_TYPE_VIDEO_RESAMPLER_METHOD, GST_VIDEO_RESAMPLER_METHOD_LINEAR, nullptr);
    GstVideoInfo in = fromInfo, out = toInfo;
    // One picture for one: it refuses two rates, which are nothing to it otherwise.
    in.fps_n = out.fps_n = 0;
    in.fps_d = out.fps_d = 1;
    converter_.reset(gst_video_converter_new(&in, &out, options));
    from_ = fromInfo;
    to_ = toInfo;
  }
  if (converter_) gst_video_converter_frame(converter_.get(), &from, &to);
  return converter_ != nullptr;
}

}  // namespace vintoral
