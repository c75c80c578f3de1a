// How picture files become pixels, the same for every face.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "camera/cImage/cImage.h"
#include "platform/Disk.h"

namespace vintoral {

/// The place, in pixels, that a picture is decoded for. A large photo is decoded no larger than its place
/// needs; one without a width and a height takes the picture as it is.
struct PicturePlace {
  int width = 0;
  int height = 0;
  bool fills = false;  ///< the picture is to cover its place, not to lie inside it
};

enum class PictureFault {
  kNone,
  kNotRead,    ///< the disk did not give the file: missing, forbidden, unplugged
  kNoPicture,  ///< all of it was read, and it is damaged or of a format that nobody here knows
  kTooLarge,   ///< beyond the limits, and so not looked at further: it may be whole
};

struct DecodedPicture {
  /// 24 bits, upright, at least as large as its place needs or as large as it is. Null when there is a fault.
  std::shared_ptr<const cImage> pixels;
  PictureFault fault = PictureFault::kNone;
  Outcome reading = Outcome::Done();  ///< why kNotRead
};

/// Whole to the last byte, but with the least of pixels.
inline constexpr PicturePlace kSmallest{1, 1, false};

/// No file of a picture is longer.
inline constexpr std::uint64_t kLongestPicture = std::uint64_t{64} << 20;

/// May be used by several threads at once.
class Pictures {
 public:
  virtual ~Pictures() = default;
  /// Of the bytes of a whole file. A damaged one is refused, however much of it could be shown.
  virtual DecodedPicture Decode(std::span<const std::uint8_t> bytes, const PicturePlace& place) const = 0;
  /// Of the file at a station path.
  DecodedPicture Load(Disk& disk, std::string_view path, const PicturePlace& place = {}) const;
  /// What hinders showing the file at a station path, as far as the station can wait for it. A face that
  /// reads its pictures beside the station says kNone here, and tells the station later of one that is no
  /// picture.
  virtual PictureFault Judge(Disk& disk, std::string_view path) const {
    return Load(disk, path, kSmallest).fault;
  }
};

}  // namespace vintoral
