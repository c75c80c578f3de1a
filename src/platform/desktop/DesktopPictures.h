#pragma once

#include "platform/pictures/PictureDecoder.h"

namespace vintoral {

/// The desktop reads its pictures beside the station, which therefore waits for none of them.
class DesktopPictures final : public Pictures {
 public:
  DecodedPicture Decode(std::span<const std::uint8_t> bytes, const PicturePlace& place) const override {
    return decoder_.Decode(bytes, place);
  }
  PictureFault Judge(Disk& /*disk*/, std::string_view /*path*/) const override { return PictureFault::kNone; }

 private:
  PictureDecoder decoder_;
};

}  // namespace vintoral
