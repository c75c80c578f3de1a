#include "camera/cJpeg/cJpeg.h"

#include <new>

#include "camera/cJpeg/EncodePlanes.h"
#include "camera/cJpeg/MarkerSegments.h"
#include "camera/cJpeg/cJpegError.h"

namespace vintoral {

namespace {

bool IsInside(const PixelView& picture, int width, int height, int left, int top) {
  return width >= 1 && width <= kMaxSide && height >= 1 && height <= kMaxSide && left >= 0 && top >= 0 &&
         left <= picture.width - width && top <= picture.height - height;
}

}  // namespace

void cJpeg::Quality(int quality) {
  if (quality < 1 || quality > 100) return;
  quality_ = quality;
  luminance_ = ScaleQuantization(kLuminanceQuantization, quality);
  chrominance_ = ScaleQuantization(kChrominanceQuantization, quality);
}

void cJpeg::SetSamplingFrequencies(int h1, int v1, int h2, int v2, int h3, int v3) {
  const SamplingFactors factors = {{{h1, v1}, {h2, v2}, {h3, v3}}};
  if (!IsAllowed(factors)) throw cJpegError("Invalid Sampling Value");
  factors_ = factors;
}

void cJpeg::Comment(std::string_view comment) {
  if (comment.size() > kMaxCommentLength) throw cJpegError("Illegal Comment Length");
  comment_ = comment;
}

bool cJpeg::SampleHDC(const PixelView& picture, int width, int height, int left, int top) {
  planes_ =
      {};  // a picture that could not be taken must not leave the one before it to be saved in its place
  if (!IsInside(picture, width, height, left, top)) return false;
  try {
    planes_ = ColourPlanes(picture, left, top, width, height);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

std::vector<std::uint8_t> cJpeg::Encode() const {
  if (planes_.IsEmpty()) return {};
  try {
    return EncodePlanes(planes_, {luminance_, chrominance_}, factors_, comment_, BestKernels());
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace vintoral
