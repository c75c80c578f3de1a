#include "camera/cImage/cImage.h"

#include <algorithm>
#include <new>

#include "camera/cImage/DefaultPalette.h"
#include "camera/cImage/PixelAccess.h"
#include "camera/cImage/Resample.h"

namespace vintoral {

PixelSurface cImage::hDC() {
  if (bits_.empty()) return {};
  const std::size_t row = BytesPerScanLine();
  return {width_,  height_, bitCount_, bits_.data() + bits_.size() - row, -static_cast<std::ptrdiff_t>(row),
          palette_};
}

PixelView cImage::hDC() const {
  if (bits_.empty()) return {};
  const std::size_t row = BytesPerScanLine();
  return {width_,  height_, bitCount_, bits_.data() + bits_.size() - row, -static_cast<std::ptrdiff_t>(row),
          palette_};
}

void cImage::SetPalette(std::span<const Rgb> palette) {
  std::copy_n(palette.begin(), std::min(palette.size(), palette_.size()), palette_.begin());
}

bool cImage::Create(int width, int height, int bitCount) {
  const auto isSide = [](int side) { return side >= 1 && side <= kMaxSide; };
  if (!isSide(width) || !isSide(height) || !(HasPalette(bitCount) || bitCount == 24)) return false;
  try {
    std::vector<std::uint8_t> bits(RowSize(width, bitCount) * static_cast<std::size_t>(height));
    palette_ = DefaultPalette(bitCount);
    bits_ = std::move(bits);
  } catch (const std::bad_alloc&) {
    return false;
  }
  width_ = width;
  height_ = height;
  bitCount_ = bitCount;
  return true;
}

bool cImage::CopyStdPicture(const PixelView& picture, int bitCount) {
  int depth = bitCount == 0 ? picture.bitCount : bitCount;
  if (depth == 16 || depth == 32) depth = 24;
  cImage copy;
  if (!copy.Create(picture.width, picture.height, depth)) return false;
  PixelView source = picture;
  if (HasPalette(picture.bitCount) && picture.palette.size() <= copy.palette_.size()) {
    std::fill(copy.palette_.begin(), copy.palette_.end(), Rgb{});  // what a place beyond the end stands for
    copy.SetPalette(picture.palette);
    if (picture.bitCount == depth) source.palette = copy.palette_;  // so that pixels keep their places
  }
  copy.CopyHDC(source);
  *this = std::move(copy);
  return true;
}

void cImage::CopyHDC(const PixelView& from, int left, int top) {
  BlockCopy(hDC(), -std::int64_t{left}, -std::int64_t{top}, from);
}

std::optional<cImage> cImage::NewLikeThis(int width, int height) const {
  cImage other;
  if (bits_.empty() || !other.Create(width, height, bitCount_)) return std::nullopt;
  other.palette_ = palette_;
  return other;
}

std::optional<cImage> cImage::Greyscale() const {
  cImage grey;
  if (bits_.empty() || !grey.Create(width_, height_, 8)) return std::nullopt;
  grey.palette_ = GreyPalette();
  grey.CopyHDC(hDC());
  return grey;
}

std::optional<cImage> cImage::Resample(int width, int height) const {
  std::optional<cImage> other = NewLikeThis(width, height);
  if (!other) return std::nullopt;
  if (width == width_ && height == height_) {
    other->bits_ = bits_;
  } else if (!ResampleInto(other->hDC(), hDC())) {
    return std::nullopt;
  }
  return other;
}

std::optional<cImage> cImage::Mirror(bool topToBottom) const {
  std::optional<cImage> other = NewLikeThis(width_, height_);
  if (!other) return std::nullopt;
  const PixelView from = hDC();
  const PixelSurface to = other->hDC();
  for (int y = 0; y < height_; ++y) {
    const std::uint8_t* source = from.Row(topToBottom ? height_ - 1 - y : y);
    for (int x = 0; x < width_; ++x) {
      WritePixel(to.Row(y), bitCount_, x, ReadPixel(source, bitCount_, topToBottom ? x : width_ - 1 - x));
    }
  }
  return other;
}

std::optional<cImage> cImage::Rotate(int degrees) const {
  const int angle = (degrees % 360 + 360) % 360;
  if (angle != 90 && angle != 180 && angle != 270) return std::nullopt;
  std::optional<cImage> other = angle == 180 ? NewLikeThis(width_, height_) : NewLikeThis(height_, width_);
  if (!other) return std::nullopt;
  const PixelView from = hDC();
  const PixelSurface to = other->hDC();
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      const unsigned pixel = ReadPixel(from.Row(y), bitCount_, x);
      const int toX = angle == 90 ? height_ - 1 - y : angle == 180 ? width_ - 1 - x : y;
      const int toY = angle == 90 ? x : angle == 180 ? height_ - 1 - y : width_ - 1 - x;
      WritePixel(to.Row(toY), bitCount_, toX, pixel);
    }
  }
  return other;
}

}  // namespace vintoral
