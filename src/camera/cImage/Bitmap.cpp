#include "camera/cImage/Bitmap.h"

#include <bit>

#include "camera/cImage/BitmapHeader.h"
#include "camera/cImage/LittleEndian.h"
#include "camera/cImage/PixelAccess.h"

namespace vintoral {

namespace {

using Span = std::span<const std::uint8_t>;

// The part of a pixel under the mask, spread over 0 to 255.
unsigned Field(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) return 0;
  const int shift = std::countr_zero(mask);
  return static_cast<unsigned>(std::uint64_t{(pixel & mask) >> shift} * 255 / (mask >> shift));
}

void CopyFields(cImage& picture, const BitmapHeader& header, const PixelView& source) {
  const auto size = static_cast<std::size_t>(header.bitCount / 8);
  for (int y = 0; y < header.height; ++y) {
    for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); ++x) {
      const Span bytes(source.Row(y) + x * size, size);
      const std::uint32_t pixel = size == 2 ? ReadWord16(bytes, 0) : ReadWord32(bytes, 0);
      const BitFields& fields = header.fields;
      WritePixel(
          picture.hDC().Row(y), 24, static_cast<int>(x),
          Field(pixel, fields.blue) | Field(pixel, fields.green) << 8 | Field(pixel, fields.red) << 16);
    }
  }
}

std::optional<cImage> ReadBits(const BitmapHeader& header, Span bits) {
  const std::size_t row = RowSize(header.width, header.bitCount);
  if (bits.size() / row < static_cast<std::size_t>(header.height)) return std::nullopt;
  const auto step = static_cast<std::ptrdiff_t>(row);
  const std::uint8_t* last = bits.data() + row * static_cast<std::size_t>(header.height - 1);
  PixelView source{header.width, header.height, header.bitCount, bits.data(), step, header.palette};
  if (!header.topToBottom) {
    source.topRow = last;
    source.rowStep = -step;
  }
  cImage picture;
  if (header.bitCount == 16 || header.bitCount == 32) {
    if (!picture.Create(header.width, header.height, 24)) return std::nullopt;
    CopyFields(picture, header, source);
  } else if (!picture.CopyStdPicture(source)) {
    return std::nullopt;
  }
  return picture;
}

}  // namespace

std::optional<cImage> ReadPackedBitmap(Span bytes) {
  const std::optional<BitmapHeader> header = ReadBitmapHeader(bytes);
  return header ? ReadBits(*header, bytes.subspan(header->size)) : std::nullopt;
}

std::optional<cImage> ReadBitmapFile(Span bytes) {
  if (bytes.size() < kBitmapFileHeaderSize || bytes[0] != 'B' || bytes[1] != 'M') return std::nullopt;
  const std::optional<BitmapHeader> header = ReadBitmapHeader(bytes.subspan(kBitmapFileHeaderSize));
  if (!header) return std::nullopt;
  // The file header says where the bits are: behind what describes them, or else the place behind it counts.
  const std::size_t behind = kBitmapFileHeaderSize + header->size;
  const std::size_t told = ReadWord32(bytes, 10);
  return ReadBits(*header, bytes.subspan(told >= behind && told <= bytes.size() ? told : behind));
}

std::vector<std::uint8_t> WritePackedBitmap(const cImage& picture) {
  std::vector<std::uint8_t> bytes;
  if (picture.Width() == 0) return bytes;
  const std::size_t size = picture.BytesPerScanLine() * static_cast<std::size_t>(picture.Height());
  bytes.reserve(kBitmapHeaderSize + 4 * picture.Palette().size() + size);
  AppendWord32(bytes, kBitmapHeaderSize);
  AppendWord32(bytes, static_cast<std::uint32_t>(picture.Width()));
  AppendWord32(bytes, static_cast<std::uint32_t>(picture.Height()));
  AppendWord16(bytes, 1);  // planes
  AppendWord16(bytes, static_cast<std::uint32_t>(picture.BitCount()));
  AppendWord32(bytes, 0);  // no compression
  AppendWord32(bytes, static_cast<std::uint32_t>(size));
  AppendWord32(bytes, 0);  // pixels in a metre, across
  AppendWord32(bytes, 0);  // and down
  AppendWord32(bytes, static_cast<std::uint32_t>(picture.Palette().size()));
  AppendWord32(bytes, 0);  // all colours are needed
  for (const Rgb colour : picture.Palette())
    bytes.insert(bytes.end(), {colour.blue, colour.green, colour.red, 0});
  bytes.insert(bytes.end(), picture.DIBitsPtr(), picture.DIBitsPtr() + size);
  return bytes;
}

std::vector<std::uint8_t> WriteBitmapFile(const cImage& picture) {
  const std::vector<std::uint8_t> packed = WritePackedBitmap(picture);
  if (packed.empty()) return {};
  std::vector<std::uint8_t> bytes = {'B', 'M'};
  AppendWord32(bytes, static_cast<std::uint32_t>(kBitmapFileHeaderSize + packed.size()));
  AppendWord32(bytes, 0);
  AppendWord32(bytes, static_cast<std::uint32_t>(kBitmapFileHeaderSize + kBitmapHeaderSize +
                                                 4 * picture.Palette().size()));
  bytes.insert(bytes.end(), packed.begin(), packed.end());
  return bytes;
}

}  // namespace vintoral
