// One JPEG file on its way to pixels, by libjpeg-turbo.
//
// The library reports what it can't go on with by a call that must not return. Such a call jumps back to the
// step that was asked for, past nothing but the library's own frames, so a step is a plain function over
// JpegState and holds nothing that would have to be destroyed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "camera/cImage/Pixels.h"
#include "platform/Pictures.h"

namespace vintoral {

/// What stands for a picture at its full size.
inline constexpr int kAllEighths = 8;

struct JpegState;

/// The steps are taken in this order; after one that failed there is no other. Whatever the library complains
/// of counts as damage.
class JpegReader {
 public:
  /// `bytes` must stay until the end. A file of more than `mostScans` passes is too large.
  JpegReader(std::span<const std::uint8_t> bytes, int mostScans);
  ~JpegReader();
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;

  [[nodiscard]] bool ReadHeader();
  int Width() const;
  int Height() const;
  std::size_t Pixels() const;
  /// The content of the first APP1 segment; empty when there is none.
  std::span<const std::uint8_t> Exif() const;

  /// Decodes at so many eighths of the size, 1 to 8.
  [[nodiscard]] bool Scale(int eighths);
  int ScaledWidth() const;
  int ScaledHeight() const;
  /// What the picture takes at that size.
  std::size_t ScaledBytes() const;

  /// Into a surface of that size at 24 bits. The library may take `memory` bytes for itself.
  [[nodiscard]] bool ReadPixels(const PixelSurface& to, std::size_t memory);

  /// Why a step failed.
  PictureFault Fault() const;

 private:
  std::unique_ptr<JpegState> state_;
};

}  // namespace vintoral
