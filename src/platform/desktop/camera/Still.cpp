#include "platform/desktop/camera/Still.h"

#include <libyuv.h>

#include <atomic>
#include <vector>

namespace vintoral {

namespace {

constexpr int kBits = 24;

const libyuv::YuvConstants* ColoursOf(const GstVideoInfo& info) {
  const bool full = info.colorimetry.range == GST_VIDEO_COLOR_RANGE_0_255;
  switch (info.colorimetry.matrix) {
    case GST_VIDEO_COLOR_MATRIX_BT709:
    case GST_VIDEO_COLOR_MATRIX_SMPTE240M:
      return full ? &libyuv::kYuvF709Constants : &libyuv::kYuvH709Constants;
    case GST_VIDEO_COLOR_MATRIX_BT2020:
      return full ? &libyuv::kYuvV2020Constants : &libyuv::kYuv2020Constants;
    default:
      return full ? &libyuv::kYuvJPEGConstants : &libyuv::kYuvI601Constants;
  }
}

/// One plane of a frame, as the library takes it.
struct Plane {
  Plane(const GstVideoFrame& frame, guint number)
      : bytes(static_cast<const std::uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(&frame, number))),
        stride(GST_VIDEO_FRAME_PLANE_STRIDE(&frame, number)) {}
  const std::uint8_t* bytes;
  int stride;
};

/// Into the rows of `image`, which lie bottom to top: the negative height says so.
bool ThreePlanes(decltype(libyuv::I420ToRGB24Matrix)* convert, const GstVideoFrame& frame, cImage& image) {
  const Plane y(frame, 0), u(frame, 1), v(frame, 2);
  return convert(y.bytes, y.stride, u.bytes, u.stride, v.bytes, v.stride, image.DIBitsPtr(),
                 static_cast<int>(image.BytesPerScanLine()), ColoursOf(frame.info), image.Width(),
                 -image.Height()) == 0;
}

bool TwoPlanes(const GstVideoFrame& frame, cImage& image) {
  const Plane y(frame, 0), uv(frame, 1);
  return libyuv::NV12ToRGB24Matrix(y.bytes, y.stride, uv.bytes, uv.stride, image.DIBitsPtr(),
                                   static_cast<int>(image.BytesPerScanLine()), ColoursOf(frame.info),
                                   image.Width(), -image.Height()) == 0;
}

}  // namespace

std::shared_ptr<const cImage> StillMaker::Make(GstSample* sample) {
  MappedFrame mapped(sample);
  if (!mapped.Good()) return nullptr;
  const GstVideoInfo& info = mapped.Info();
  const std::shared_ptr<cImage> image = Blank(GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info));
  if (!image) return nullptr;
  const bool colourApart = GST_VIDEO_INFO_IS_YUV(&info);
  const bool made =
      colourApart ? FromPlanes(info, mapped.Frame(), *image) : FromAny(info, mapped.Frame(), *image);
  return made ? image : nullptr;
}

std::shared_ptr<cImage> StillMaker::Blank(int width, int height) {
  const bool fits = last_ && last_->Width() == width && last_->Height() == height;
  if (!fits || last_.use_count() > 1) {
    last_ = std::make_shared<cImage>();
    if (!last_->Create(width, height, kBits)) last_.reset();
  }
  // What its last reader read of it has been read before it is written over.
  std::atomic_thread_fence(std::memory_order_acquire);
  return last_;
}

bool StillMaker::FromPlanes(const GstVideoInfo& info, const GstVideoFrame& frame, cImage& image) {
  switch (GST_VIDEO_INFO_FORMAT(&info)) {
    case GST_VIDEO_FORMAT_I420:
      return ThreePlanes(libyuv::I420ToRGB24Matrix, frame, image);
    case GST_VIDEO_FORMAT_Y42B:
      return ThreePlanes(libyuv::I422ToRGB24Matrix, frame, image);
    case GST_VIDEO_FORMAT_NV12:
      return TwoPlanes(frame, image);
    default:
      break;
  }
  const GstVideoInfo planes = PlanesLike(info, image.Width(), image.Height());
  std::vector<std::uint8_t> memory(planes.size);
  GstVideoFrame source = FrameAt(planes, memory.data());
  return toPlanes_.Convert(info, frame, planes, source) &&
         ThreePlanes(libyuv::I420ToRGB24Matrix, source, image);
}

bool StillMaker::FromAny(const GstVideoInfo& info, const GstVideoFrame& frame, cImage& image) {
  const GstVideoInfo rowsInfo = InfoOf(GST_VIDEO_FORMAT_BGRx, image.Width(), image.Height());
  std::vector<std::uint8_t> rows(rowsInfo.size);
  GstVideoFrame to = FrameAt(rowsInfo, rows.data());
  if (!direct_.Convert(info, frame, rowsInfo, to)) return false;
  const Plane pixels(to, 0);
  return libyuv::ARGBToRGB24(pixels.bytes, pixels.stride, image.DIBitsPtr(),
                             static_cast<int>(image.BytesPerScanLine()), image.Width(), -image.Height()) == 0;
}

}  // namespace vintoral
