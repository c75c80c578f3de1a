// Any bytes as a frame of a camera, of a format and a size that may have nothing to do with them: what
// becomes of it has the size that was said, and comes of a buffer that holds as much.
#include <gst/video/video.h>

#include <array>
#include <cstring>

#include "platform/desktop/camera/LiveScaler.h"
#include "platform/desktop/camera/Still.h"

namespace {

constexpr std::array kFormats = {GST_VIDEO_FORMAT_I420,  GST_VIDEO_FORMAT_YV12,     GST_VIDEO_FORMAT_YUY2,
                                 GST_VIDEO_FORMAT_UYVY,  GST_VIDEO_FORMAT_NV12,     GST_VIDEO_FORMAT_NV21,
                                 GST_VIDEO_FORMAT_Y42B,  GST_VIDEO_FORMAT_Y444,     GST_VIDEO_FORMAT_GRAY8,
                                 GST_VIDEO_FORMAT_BGRx,  GST_VIDEO_FORMAT_RGB,      GST_VIDEO_FORMAT_BGR,
                                 GST_VIDEO_FORMAT_RGB16, GST_VIDEO_FORMAT_P010_10LE};

struct Head {
  std::uint8_t format, width, height, viewWidth, viewHeight, metaFormat, metaWidth, metaHeight;
};

GstVideoFormat Format(std::uint8_t byte) {
  return kFormats[byte % kFormats.size()];
}

GstSample* SampleOf(const Head& head, const std::uint8_t* data, std::size_t size) {
  GstBuffer* const buffer = gst_buffer_new_memdup(data, size);
  // A device may say of a single frame what it does not say of all.
  if (head.metaFormat % 4 == 0) {
    gst_buffer_add_video_meta(buffer, GST_VIDEO_FRAME_FLAG_NONE, Format(head.metaFormat / 4),
                              head.metaWidth + 1U, head.metaHeight + 1U);
  }
  GstCaps* const caps = gst_caps_new_simple("video/x-raw", "format", G_TYPE_STRING,
                                            gst_video_format_to_string(Format(head.format)), "width",
                                            G_TYPE_INT, head.width + 1, "height", G_TYPE_INT, head.height + 1,
                                            "framerate", GST_TYPE_FRACTION, 15, 1, nullptr);
  GstSample* const sample = gst_sample_new(buffer, caps, nullptr, nullptr);
  gst_caps_unref(caps);
  gst_buffer_unref(buffer);
  return sample;
}

}  // namespace

/// GLib keeps a table from its loading on, where nobody finds it.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libglib-2.0";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  gst_init(argc, argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Head head;
  if (size <= sizeof head) return 0;
  std::memcpy(&head, data, sizeof head);
  static vintoral::StillMaker stills;  // keep what they have made from one frame to the next
  static vintoral::LiveScaler scaler;
  GstSample* const sample = SampleOf(head, data + sizeof head, size - sizeof head);
  const auto still = stills.Make(sample);
  const auto live = scaler.Make(sample, head.viewWidth + 1, head.viewHeight + 1);
  gst_sample_unref(sample);
  const auto points = static_cast<std::size_t>(head.width + 1) * (head.height + 1U);
  if (still && (still->Width() != head.width + 1 || still->Height() != head.height + 1)) __builtin_trap();
  if (still && size - sizeof head < points) __builtin_trap();
  if (live && (live->width > head.viewWidth + 1 || live->height > head.viewHeight + 1)) __builtin_trap();
  if ((still == nullptr) != (live == nullptr)) __builtin_trap();
  return 0;
}
