#include "platform/pictures/Orientation.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace vintoral {
namespace {

constexpr std::string_view kExif("Exif\0\0", 6);
constexpr std::size_t kEntrySize = 12;
constexpr unsigned kOrientationTag = 0x0112;
constexpr unsigned kShort = 3;  ///< the type of a 16-bit number

/// The values 1 to 8 of the tag, in order.
constexpr std::array<Orientation, 8> kOrientations = {
    {{false, 0}, {true, 0}, {false, 180}, {true, 180}, {true, 270}, {false, 90}, {true, 90}, {false, 270}}};

/// Numbers in the byte order of the file; a number beyond its end is 0.
class Tiff {
 public:
  explicit Tiff(std::span<const std::uint8_t> bytes) : bytes_(bytes), lowFirst_(Byte(0) == 'I') {}

  std::size_t Word(std::size_t at) const {
    return lowFirst_ ? Byte(at) | Byte(at + 1) << 8 : Byte(at) << 8 | Byte(at + 1);
  }
  std::size_t Long(std::size_t at) const {
    return lowFirst_ ? Word(at) | Word(at + 2) << 16 : Word(at) << 16 | Word(at + 2);
  }

 private:
  std::size_t Byte(std::size_t at) const { return at < bytes_.size() ? bytes_[at] : 0; }

  std::span<const std::uint8_t> bytes_;
  bool lowFirst_;
};

/// 1 to 8, or what the file says instead; 0 where it says nothing.
std::size_t OrientationTag(const Tiff& tiff) {
  const std::size_t folder = tiff.Long(4);
  const std::size_t entries = tiff.Word(folder);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t entry = folder + 2 + i * kEntrySize;
    if (tiff.Word(entry) == kOrientationTag && tiff.Word(entry + 2) == kShort) return tiff.Word(entry + 8);
  }
  return 0;
}

}  // namespace

Orientation OrientationOf(std::span<const std::uint8_t> exif) {
  const std::string_view text(reinterpret_cast<const char*>(exif.data()), exif.size());
  if (!text.starts_with(kExif)) return {};
  const std::size_t tag = OrientationTag(Tiff(exif.subspan(kExif.size())));
  return tag >= 1 && tag <= kOrientations.size() ? kOrientations[tag - 1] : Orientation{};
}

bool SwapsSides(const Orientation& held) {
  return held.degrees % 180 != 0;
}

std::optional<cImage> Upright(cImage picture, const Orientation& held) {
  std::optional<cImage> upright = held.mirrored ? picture.Mirror(false) : std::move(picture);
  return upright && held.degrees != 0 ? upright->Rotate(held.degrees) : std::move(upright);
}

}  // namespace vintoral
