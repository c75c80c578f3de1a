#include "platform/pictures/PictureFile.h"

#include <png.h>

#include <algorithm>
#include <array>

#include "camera/cImage/Bitmap.h"
#include "platform/pictures/PictureDecoder.h"

namespace vintoral {
namespace {

template <std::size_t size>
bool BeginsWith(std::span<const std::uint8_t> bytes, const std::array<std::uint8_t, size>& signature) {
  return bytes.size() >= size && std::equal(signature.begin(), signature.end(), bytes.begin());
}

std::shared_ptr<const cImage> DecodePng(std::span<const std::uint8_t> bytes) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()) == 0) return nullptr;
  png.format = PNG_FORMAT_BGR;
  auto picture = std::make_shared<cImage>();
  const std::size_t pixels = std::size_t{png.width} * png.height;
  const bool fits = pixels <= PictureLimits{}.pixels && png.width <= cImage::kMaxSide &&
                    png.height <= cImage::kMaxSide &&
                    picture->Create(static_cast<int>(png.width), static_cast<int>(png.height), 24);
  const png_color black{};
  // The rows of the picture lie bottom to top.
  const auto step = -static_cast<png_int_32>(picture->BytesPerScanLine());
  const bool read = fits && png_image_finish_read(&png, &black, picture->DIBitsPtr(), step, nullptr) != 0;
  png_image_free(&png);
  return read ? picture : nullptr;
}

std::shared_ptr<const cImage> DecodeBitmap(std::span<const std::uint8_t> bytes) {
  const std::optional<cImage> bitmap = ReadBitmapFile(bytes);
  auto picture = std::make_shared<cImage>();
  const bool made = bitmap && picture->CopyStdPicture(bitmap->hDC(), 24);
  return made ? picture : nullptr;
}

}  // namespace

std::shared_ptr<const cImage> DecodePictureFile(std::span<const std::uint8_t> bytes) {
  constexpr std::array<std::uint8_t, 4> kPng = {0x89, 'P', 'N', 'G'};
  constexpr std::array<std::uint8_t, 2> kBmp = {'B', 'M'};
  if (BeginsWith(bytes, kPng)) return DecodePng(bytes);
  if (BeginsWith(bytes, kBmp)) return DecodeBitmap(bytes);
  return PictureDecoder().Decode(bytes, {}).pixels;
}

}  // namespace vintoral
