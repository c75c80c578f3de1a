#include "platform/pictures/PictureDecoder.h"

#include <utility>

#include "platform/pictures/JpegReader.h"
#include "platform/pictures/Orientation.h"

namespace vintoral {
namespace {

DecodedPicture Refused(PictureFault fault) {
  return {.pixels = nullptr, .fault = fault};
}

/// Rounded up, as the decoder does.
int Scaled(int side, int eighths) {
  return static_cast<int>((std::int64_t{side} * eighths + 7) / 8);
}

/// The fewest eighths of a picture that its place needs.
int EighthsFor(const PicturePlace& place, int width, int height) {
  if (place.width <= 0 || place.height <= 0) return kAllEighths;
  for (int eighths = 1; eighths < kAllEighths; ++eighths) {
    const bool wide = Scaled(width, eighths) >= place.width;
    const bool high = Scaled(height, eighths) >= place.height;
    if (place.fills ? wide && high : wide || high) return eighths;
  }
  return kAllEighths;
}

}  // namespace

DecodedPicture PictureDecoder::Decode(std::span<const std::uint8_t> bytes, const PicturePlace& place) const {
  JpegReader reader(bytes, limits_.scans);
  if (!reader.ReadHeader()) return Refused(reader.Fault());
  if (reader.Pixels() > limits_.pixels) return Refused(PictureFault::kTooLarge);
  const Orientation held = OrientationOf(reader.Exif());
  const PicturePlace lying = SwapsSides(held) ? PicturePlace{place.height, place.width, place.fills} : place;
  if (!reader.Scale(EighthsFor(lying, reader.Width(), reader.Height()))) return Refused(reader.Fault());
  // Turning needs the picture twice.
  const std::size_t taken = reader.ScaledBytes() * (held == Orientation{} ? 1 : 2);
  cImage picture;
  if (taken >= limits_.memory || !picture.Create(reader.ScaledWidth(), reader.ScaledHeight(), 24))
    return Refused(PictureFault::kTooLarge);
  if (!reader.ReadPixels(picture.hDC(), limits_.memory - taken)) return Refused(reader.Fault());
  std::optional<cImage> upright = Upright(std::move(picture), held);
  if (!upright) return Refused(PictureFault::kTooLarge);
  return {.pixels = std::make_shared<const cImage>(*std::move(upright))};
}

}  // namespace vintoral
