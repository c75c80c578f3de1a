// The encoder's way to a file.
#pragma once

#include <string_view>

#include "camera/cJpeg/cJpeg.h"
#include "platform/Disk.h"

namespace vintoral {

/// Only kSaved leaves a file behind.
enum class SaveResult {
  kSaved = 0,
  kNoPath = 1,      ///< the path is empty
  kExists = 2,      ///< there is something of that name; it is never overwritten
  kNotWritten = 3,  ///< the disk refused to make the file or to take all of it: told on standard error
  kNoPicture = 4,   ///< nothing has been sampled
  kNoMemory = 5,    ///< there is no memory to encode it
};

/// Encodes what `jpeg` has sampled and writes it to a new file at the station path `path`, whole or not at
/// all.
[[nodiscard]] SaveResult SaveFile(const cJpeg& jpeg, Disk& disk, std::string_view path);

}  // namespace vintoral
