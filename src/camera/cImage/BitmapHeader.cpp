#include "camera/cImage/BitmapHeader.h"

#include <algorithm>

#include "camera/cImage/LittleEndian.h"
#include "camera/cImage/cImage.h"

namespace vintoral {

namespace {

using Span = std::span<const std::uint8_t>;

enum Compression : std::uint32_t { kNone = 0, kBitFields = 3 };

// Places in the header.
constexpr std::size_t kSize = 0, kWidth = 4, kHeight = 8, kPlanes = 12, kBitCount = 14, kCompression = 16,
                      kColoursUsed = 32;
constexpr std::size_t kMasksSize = 12;

bool ReadSize(Span bytes, BitmapHeader& header) {
  const std::int64_t width = static_cast<std::int32_t>(ReadWord32(bytes, kWidth));
  const std::int64_t height = static_cast<std::int32_t>(ReadWord32(bytes, kHeight));
  header.topToBottom = height < 0;
  const std::int64_t rows = std::abs(height);
  if (width < 1 || width > cImage::kMaxSide || rows < 1 || rows > cImage::kMaxSide) return false;
  header.width = static_cast<int>(width);
  header.height = static_cast<int>(rows);
  return true;
}

bool ReadDepth(Span bytes, BitmapHeader& header) {
  header.bitCount = ReadWord16(bytes, kBitCount);
  const bool wide = header.bitCount == 16 || header.bitCount == 32;
  const bool known = HasPalette(header.bitCount) || header.bitCount == 24 || wide;
  const std::uint32_t compression = ReadWord32(bytes, kCompression);
  return known && ReadWord16(bytes, kPlanes) == 1 &&
         (compression == kNone || (compression == kBitFields && wide));
}

// Bit fields stand behind a header of 40 bytes, and at the same place within a longer one.
bool ReadFields(Span bytes, BitmapHeader& header) {
  if (ReadWord32(bytes, kCompression) != kBitFields) {
    header.fields =
        header.bitCount == 16 ? BitFields{0x7C00, 0x03E0, 0x001F} : BitFields{0xFF0000, 0xFF00, 0xFF};
    return true;
  }
  if (bytes.size() < kBitmapHeaderSize + kMasksSize) return false;
  header.fields = {ReadWord32(bytes, kBitmapHeaderSize), ReadWord32(bytes, kBitmapHeaderSize + 4),
                   ReadWord32(bytes, kBitmapHeaderSize + 8)};
  header.size = std::max(header.size, kBitmapHeaderSize + kMasksSize);
  return true;
}

// A header may say that it has fewer colours than the depth allows, or none, which stands for all. Above 8
// bits the colours are advice to old screens, and passed over.
bool ReadPalette(Span bytes, BitmapHeader& header) {
  const std::size_t all = HasPalette(header.bitCount) ? std::size_t{1} << header.bitCount : 0;
  std::size_t count = ReadWord32(bytes, kColoursUsed);
  if (count == 0) count = all;
  if (count > (bytes.size() - header.size) / 4) return false;
  for (std::size_t i = 0; i < std::min(count, all); ++i) {
    const Span colour = bytes.subspan(header.size + 4 * i, 4);
    header.palette.push_back({colour[2], colour[1], colour[0]});
  }
  header.size += 4 * count;
  return true;
}

}  // namespace

std::optional<BitmapHeader> ReadBitmapHeader(Span bytes) {
  BitmapHeader header;
  if (bytes.size() < kBitmapHeaderSize) return std::nullopt;
  header.size = ReadWord32(bytes, kSize);
  if (header.size < kBitmapHeaderSize || header.size > bytes.size()) return std::nullopt;
  if (!ReadSize(bytes, header) || !ReadDepth(bytes, header)) return std::nullopt;
  if (!ReadFields(bytes, header) || !ReadPalette(bytes, header)) return std::nullopt;
  return header;
}

}  // namespace vintoral
