// Picture files of any of the kinds that people have, for the faces that are given one.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "camera/cImage/cImage.h"

namespace vintoral {

/// The kinds that DecodePictureFile knows, for messages.
inline constexpr const char* kPictureKinds = "JPEG, PNG, BMP";

/// 24 bits, as large as the picture is, see-through parts on black; null for anything else, for a damaged
/// file and for one beyond the limits of PictureLimits.
std::shared_ptr<const cImage> DecodePictureFile(std::span<const std::uint8_t> bytes);

}  // namespace vintoral
