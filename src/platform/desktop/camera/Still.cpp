#include "platform/desktop/camera/Still.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

namespace vintoral {

namespace {

constexpr int kLong = 4, kShort = 3;  // bytes of a pixel with and without the one that has no meaning
/// So many rows at a time stay in the processor's cache on their way; even, as the planes of colour want it.
constexpr int kSlice = 16;

std::uint8_t* Row(cImage& image, int fromTop) {
  return image.DIBitsPtr() +
         static_cast<std::size_t>(image.Height() - 1 - fromTop) * image.BytesPerScanLine();
}

void DropFourth(const std::uint8_t* from, std::uint8_t* to, int pixels) {
  // All but the last one with one store of four bytes, whose last byte the next pixel writes over.
  for (int i = 0; i + 1 < pixels; ++i, from += kLong, to += kShort)
    std::memcpy(to, from, kLong);
  std::memcpy(to, from, kShort);
}

/// The part of a frame of three planes that begins at row `top`.
GstVideoFrame SliceOf(const GstVideoFrame& frame, const GstVideoInfo& info, int top) {
  GstVideoFrame slice = frame;
  slice.info = info;
  for (guint plane = 0; plane < GST_VIDEO_FRAME_N_PLANES(&frame); ++plane) {
    const int stride = GST_VIDEO_FRAME_PLANE_STRIDE(&frame, plane);
    slice.info.stride[plane] = stride;
    const int row = plane == 0 ? top : top / 2;
    slice.data[plane] = static_cast<std::uint8_t*>(frame.data[plane]) + std::ptrdiff_t{row} * stride;
  }
  return slice;
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
    if (!last_->Create(width, height, 8 * kShort)) last_.reset();
  }
  // What its last reader read of it has been read before it is written over.
  std::atomic_thread_fence(std::memory_order_acquire);
  return last_;
}

bool StillMaker::FromPlanes(const GstVideoInfo& info, const GstVideoFrame& frame, cImage& image) {
  const GstVideoInfo planes = PlanesLike(info, image.Width(), image.Height());
  std::vector<std::uint8_t> memory;
  GstVideoFrame source = frame;
  if (GST_VIDEO_INFO_FORMAT(&info) != GST_VIDEO_FORMAT_I420) {
    memory.resize(planes.size);
    source = FrameAt(planes, memory.data());
    if (!toPlanes_.Convert(info, frame, planes, source)) return false;
  }
  std::vector<std::uint8_t> rows(static_cast<std::size_t>(image.Width()) * kLong * kSlice);
  for (int top = 0; top < image.Height(); top += kSlice) {
    const int height = std::min(kSlice, image.Height() - top);
    const GstVideoInfo part = PlanesLike(info, image.Width(), height);
    const GstVideoInfo rowsInfo = InfoOf(GST_VIDEO_FORMAT_BGRx, image.Width(), height);
    GstVideoFrame to = FrameAt(rowsInfo, rows.data());
    VideoConverter& converter = height == kSlice ? toRows_ : toLastRows_;
    if (!converter.Convert(part, SliceOf(source, part, top), rowsInfo, to)) return false;
    for (int y = 0; y < height; ++y)
      DropFourth(rows.data() + std::ptrdiff_t{y} * image.Width() * kLong, Row(image, top + y), image.Width());
  }
  return true;
}

bool StillMaker::FromAny(const GstVideoInfo& info, const GstVideoFrame& frame, cImage& image) {
  const GstVideoInfo rowsInfo = InfoOf(GST_VIDEO_FORMAT_BGRx, image.Width(), image.Height());
  std::vector<std::uint8_t> rows(rowsInfo.size);
  GstVideoFrame to = FrameAt(rowsInfo, rows.data());
  if (!direct_.Convert(info, frame, rowsInfo, to)) return false;
  for (int y = 0; y < image.Height(); ++y)
    DropFourth(rows.data() + std::ptrdiff_t{y} * image.Width() * kLong, Row(image, y), image.Width());
  return true;
}

}  // namespace vintoral
