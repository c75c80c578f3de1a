// Photos as a gate has them, small.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "camera/cImage/cImage.h"
#include "camera/cJpeg/cJpeg.h"
#include "platform/pictures/PictureDecoder.h"

namespace vintoral::test {

/// A whole JPEG file of one shade.
inline std::string Photo(int width = 16, int height = 12) {
  cImage image;
  if (!image.Create(width, height, 24)) return {};
  cJpeg jpeg;
  if (!jpeg.SampleHDC(image.hDC(), width, height)) return {};
  const std::vector<std::uint8_t> bytes = jpeg.Encode();
  return {bytes.begin(), bytes.end()};
}

/// A frame of one colour.
inline std::shared_ptr<const cImage> Frame(Rgb colour, int width = 640, int height = 480) {
  auto frame = std::make_shared<cImage>();
  if (!frame->Create(width, height, 24)) return nullptr;
  const PixelSurface surface = frame->hDC();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* const pixel = surface.Row(y) + 3 * x;
      pixel[0] = colour.blue, pixel[1] = colour.green, pixel[2] = colour.red;
    }
  }
  return frame;
}
/// A whole JPEG file of one colour, as large as the station's photos.
inline std::string PhotoOf(Rgb colour) {
  const auto frame = Frame(colour, 320, 240);
  cJpeg jpeg;
  if (!jpeg.SampleHDC(frame->hDC(), 320, 240)) return {};
  const std::vector<std::uint8_t> bytes = jpeg.Encode();
  return {bytes.begin(), bytes.end()};
}
/// Null for what is no picture.
inline std::shared_ptr<const cImage> Decoded(const std::string& file) {
  return PictureDecoder()
      .Decode({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, {})
      .pixels;
}
inline Rgb PixelAt(const cImage& picture, int x, int y) {
  const std::uint8_t* const pixel = picture.hDC().Row(y) + 3 * x;
  return {pixel[2], pixel[1], pixel[0]};
}
/// The strongest channel in the middle of a photo: 'r', 'g', 'b'; '?' for a file that is no photo.
inline char ShadeOf(const std::string& file) {
  const auto photo = Decoded(file);
  if (photo == nullptr) return '?';
  const Rgb middle = PixelAt(*photo, photo->Width() / 2, photo->Height() / 2);
  if (middle.red > middle.green && middle.red > middle.blue) return 'r';
  return middle.green > middle.blue ? 'g' : 'b';
}
inline constexpr Rgb kRed{200, 30, 30}, kGreen{30, 200, 30}, kBlue{30, 30, 200};

}  // namespace vintoral::test
