// The decoder of a face that reads its pictures beside the station.
#pragma once

#include "platform/pictures/PictureDecoder.h"

namespace vintoral {

/// The station waits for none of them: it is told later of one that is no picture.
class PicturesBeside final : public PictureDecoder {
 public:
  PictureFault Judge(Disk& /*disk*/, std::string_view /*path*/) const override { return PictureFault::kNone; }
};

}  // namespace vintoral
