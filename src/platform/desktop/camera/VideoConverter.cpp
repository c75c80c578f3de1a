#include "platform/desktop/camera/VideoConverter.h"

#include <algorithm>
#include <cstddef>

namespace vintoral {

namespace {

/// A plane's bytes up to the end of its last row, as far as they are pixels.
std::size_t BytesOfPlane(const GstVideoFrame& frame, guint plane) {
  std::size_t bytes = 0;
  for (guint part = 0; part < GST_VIDEO_FRAME_N_COMPONENTS(&frame); ++part) {
    if (GST_VIDEO_FRAME_COMP_PLANE(&frame, part) != plane) continue;
    const auto number = [](auto value) { return static_cast<std::size_t>(value); };
    const std::size_t deep = (number(GST_VIDEO_FRAME_COMP_DEPTH(&frame, part)) + 7) / 8;
    const std::size_t row = (number(GST_VIDEO_FRAME_COMP_WIDTH(&frame, part)) - 1) *
                                number(GST_VIDEO_FRAME_COMP_PSTRIDE(&frame, part)) +
                            number(GST_VIDEO_FRAME_COMP_POFFSET(&frame, part)) + deep;
    const std::size_t above = (number(GST_VIDEO_FRAME_COMP_HEIGHT(&frame, part)) - 1) *
                              number(GST_VIDEO_FRAME_PLANE_STRIDE(&frame, plane));
    bytes = std::max(bytes, above + row);
  }
  return bytes;
}

/// A buffer that describes itself is believed by the mapping: whether there is as much memory is looked at
/// here.
bool HoldsItsPlanes(const GstVideoFrame& frame) {
  for (guint plane = 0; plane < GST_VIDEO_FRAME_N_PLANES(&frame); ++plane) {
    const GstMapInfo& memory = frame.meta != nullptr ? frame.map[plane] : frame.map[0];
    const auto begin = static_cast<const guint8*>(frame.data[plane]) - memory.data;
    if (GST_VIDEO_FRAME_PLANE_STRIDE(&frame, plane) <= 0 || begin < 0) return false;
    if (static_cast<std::size_t>(begin) + BytesOfPlane(frame, plane) > memory.size) return false;
  }
  return true;
}

}  // namespace

MappedFrame::MappedFrame(GstSample* sample) {
  GstCaps* const caps = gst_sample_get_caps(sample);
  GstBuffer* const buffer = gst_sample_get_buffer(sample);
  if (caps == nullptr || buffer == nullptr || !gst_video_info_from_caps(&info_, caps)) return;
  mapped_ = gst_video_frame_map(&frame_, &info_, buffer, GST_MAP_READ);
  good_ = mapped_ && GST_VIDEO_FRAME_FORMAT(&frame_) == GST_VIDEO_INFO_FORMAT(&info_) &&
          GST_VIDEO_FRAME_WIDTH(&frame_) == GST_VIDEO_INFO_WIDTH(&info_) &&
          GST_VIDEO_FRAME_HEIGHT(&frame_) == GST_VIDEO_INFO_HEIGHT(&info_) && HoldsItsPlanes(frame_);
}

MappedFrame::~MappedFrame() {
  if (mapped_) gst_video_frame_unmap(&frame_);
}

GstVideoInfo InfoOf(GstVideoFormat format, int width, int height) {
  GstVideoInfo info;
  gst_video_info_set_format(&info, format, static_cast<guint>(width), static_cast<guint>(height));
  return info;
}

GstVideoInfo PlanesLike(const GstVideoInfo& like, int width, int height) {
  GstVideoInfo planes = InfoOf(GST_VIDEO_FORMAT_I420, width, height);
  planes.colorimetry = like.colorimetry;
  planes.chroma_site = like.chroma_site;
  return planes;
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
    // Likewise of pictures that come in two halves: both lie in one frame.
    in.interlace_mode = out.interlace_mode = GST_VIDEO_INTERLACE_MODE_PROGRESSIVE;
    converter_.reset(gst_video_converter_new(&in, &out, options));
    from_ = fromInfo;
    to_ = toInfo;
  }
  if (converter_) gst_video_converter_frame(converter_.get(), &from, &to);
  return converter_ != nullptr;
}

}  // namespace vintoral
