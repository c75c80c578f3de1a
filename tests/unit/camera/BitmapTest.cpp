#include "camera/cImage/Bitmap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stb/stb_image.h>

#include <random>

#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using Bytes = std::vector<std::uint8_t>;

// Two by two pixels at 24 bits: above red and white, below green and blue.
const Bytes kPacked24 = {
    40, 0,   0, 0,   2, 0, 0, 0, 2, 0, 0,   0,   1,   0,   24, 0, 0, 0, 0, 0,  // sizes, depth, compression
    16, 0,   0, 0,   0, 0, 0, 0, 0, 0, 0,   0,   0,   0,   0,  0, 0, 0, 0, 0,  // size of the bits, ...
    0,  255, 0, 255, 0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 0,  0};             // lower row, upper row

Bytes Join(const Bytes& first, const Bytes& second) {
  Bytes both = first;
  for (const std::uint8_t byte : second)
    both.push_back(byte);
  return both;
}

Bytes Header() {
  return {kPacked24.begin(), kPacked24.begin() + 40};
}

Bytes WithFileHeader(const Bytes& packed, std::uint8_t bitsAt) {
  const auto size = static_cast<std::uint8_t>(14 + packed.size());
  return Join({'B', 'M', size, 0, 0, 0, 0, 0, 0, 0, bitsAt, 0, 0, 0}, packed);
}

Bytes Changed(Bytes bytes, std::size_t at, std::uint8_t value) {
  bytes[at] = value;
  return bytes;
}

std::vector<Rgb> ColoursOf(const std::optional<cImage>& image) {
  std::vector<Rgb> colours;
  if (!image) return colours;
  for (int y = 0; y < image->Height(); ++y) {
    Bytes row(3 * static_cast<std::size_t>(image->Width()));
    ReadColourRow(image->hDC(), 0, y, image->Width(), row.data());
    for (std::size_t x = 0; x < row.size(); x += 3)
      colours.push_back({row[x + 2], row[x + 1], row[x]});
  }
  return colours;
}

const std::vector<Rgb> kFour = {{255, 0, 0}, {255, 255, 255}, {0, 255, 0}, {0, 0, 255}};

cImage FourPixels() {
  cImage image;
  EXPECT_TRUE(image.Create(2, 2, 24));
  std::uint8_t pixels[] = {0, 0, 255, 255, 255, 255, 0, 255, 0, 255, 0, 0};
  image.CopyHDC({2, 2, 24, pixels, 6, {}});
  return image;
}

TEST(Bitmap, WritesThePackedBytes) {
  EXPECT_THAT(WritePackedBitmap(FourPixels()), ElementsAreArray(kPacked24));
}

TEST(Bitmap, WritesTheFileHeaderBeforeThem) {
  EXPECT_THAT(WriteBitmapFile(FourPixels()), ElementsAreArray(WithFileHeader(kPacked24, 54)));
}

TEST(Bitmap, WritesThePaletteBlueFirst) {
  cImage image;
  ASSERT_TRUE(image.Create(1, 1, 1));
  const Rgb palette[] = {{1, 2, 3}, {4, 5, 6}};
  image.SetPalette(palette);
  const Bytes packed = WritePackedBitmap(image);
  EXPECT_EQ(packed[32], 2);
  EXPECT_THAT(Bytes(packed.begin() + 40, packed.end()), ElementsAre(3, 2, 1, 0, 6, 5, 4, 0, 0, 0, 0, 0));
}

TEST(Bitmap, WritesNothingOfNothing) {
  EXPECT_TRUE(WritePackedBitmap({}).empty());
  EXPECT_TRUE(WriteBitmapFile({}).empty());
}

TEST(Bitmap, ReadsBothForms) {
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(kPacked24)), kFour);
  EXPECT_EQ(ColoursOf(ReadBitmapFile(WithFileHeader(kPacked24, 54))), kFour);
}

TEST(Bitmap, ReadsRowsTopToBottom) {
  Bytes packed = Changed(kPacked24, 8, 0xFE);  // a height of -2
  for (const std::size_t at : {9U, 10U, 11U})
    packed[at] = 0xFF;
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(packed)), (std::vector<Rgb>{kFour[2], kFour[3], kFour[0], kFour[1]}));
}

TEST(Bitmap, ReadsAFileWhoseBitsLieFurtherBehind) {
  const Bytes bits(kPacked24.begin() + 40, kPacked24.end());
  const Bytes packed = Join(Join(Header(), {0xEE, 0xEE, 0xEE}), bits);
  EXPECT_EQ(ColoursOf(ReadBitmapFile(WithFileHeader(packed, 57))), kFour);
}

TEST(Bitmap, DoesNotBelieveAPlaceOfTheBitsThatCannotBe) {
  EXPECT_EQ(ColoursOf(ReadBitmapFile(WithFileHeader(kPacked24, 0))), kFour);
  EXPECT_EQ(ColoursOf(ReadBitmapFile(WithFileHeader(kPacked24, 255))), kFour);
}

// One row of two pixels of 16 or 32 bits.
Bytes Wide(std::uint8_t bitCount, std::uint8_t compression, const Bytes& rest) {
  Bytes header = Header();
  header[8] = 1;
  header[14] = bitCount;
  header[16] = compression;
  return Join(header, rest);
}

TEST(Bitmap, Reads16And32BitsAs24) {
  const std::vector<Rgb> redBlue = {{255, 0, 0}, {0, 0, 255}};
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(Wide(16, 0, {0x00, 0x7C, 0x1F, 0x00}))), redBlue);
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(Wide(32, 0, {0, 0, 255, 9, 255, 0, 0, 9}))), redBlue);
  EXPECT_EQ(ReadPackedBitmap(Wide(16, 0, {0x00, 0x7C, 0x1F, 0x00}))->BitCount(), 24);
}

TEST(Bitmap, ReadsBitFields) {
  const Bytes masks565 = {0x00, 0xF8, 0, 0, 0xE0, 0x07, 0, 0, 0x1F, 0, 0, 0};
  const Bytes rest = Join(masks565, {0xE0, 0x07, 0x00, 0xF8});  // all of green, all of red
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(Wide(16, 3, rest))), (std::vector<Rgb>{{0, 255, 0}, {255, 0, 0}}));
  // Red in the low byte, no blue at all.
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(Wide(32, 3, {255, 0,  0,  0, 0, 255, 0, 0,  0, 0, 0, 0,  //
                                                    10,  20, 30, 0, 0, 0,   0, 255}))),
            (std::vector<Rgb>{{10, 20, 0}, {0, 0, 0}}));
}

TEST(Bitmap, ReadsAPaletteThatIsShorterThanTheDepthAllows) {
  Bytes header = Header();
  header[8] = 1;
  header[14] = 4;
  header[32] = 2;
  EXPECT_EQ(ColoursOf(ReadPackedBitmap(Join(header, {0, 0, 255, 0, 0, 255, 0, 0, 0x10, 0, 0, 0}))),
            (std::vector<Rgb>{{0, 255, 0}, {255, 0, 0}}));
}

TEST(Bitmap, RefusesWhatItDoesNotKnow) {
  EXPECT_FALSE(ReadPackedBitmap({}));
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 0, 12)));    // the header of another system
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 0, 200)));   // longer than all there is
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 4, 0)));     // no width
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 7, 0x80)));  // a negative one
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 8, 0)));     // no height
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 11, 0x80)));
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 12, 2)));     // planes
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 14, 2)));     // depth
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 16, 1)));     // compression
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 16, 3)));     // bit fields at 24 bits
  EXPECT_FALSE(ReadPackedBitmap(Changed(kPacked24, 35, 0xFF)));  // colours without end
  EXPECT_FALSE(ReadBitmapFile(Changed(WithFileHeader(kPacked24, 54), 0, 'X')));
}

TEST(Bitmap, RefusesBytesThatAreNotAllThere) {
  const Bytes file = WithFileHeader(kPacked24, 54);
  for (std::size_t size = 0; size < file.size(); ++size) {
    EXPECT_FALSE(ReadBitmapFile(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size))))
        << size;
  }
}

TEST(Bitmap, ScrambledBytesNeverReachBeyondTheirEnd) {
  std::mt19937 random(1);
  const Bytes file = WithFileHeader(kPacked24, 54);
  int read = 0;
  for (int round = 0; round < 20000; ++round) {
    Bytes scrambled = file;
    for (unsigned i = 0; i <= random() % 4; ++i)
      scrambled[random() % file.size()] = static_cast<std::uint8_t>(random());
    read += ReadBitmapFile(scrambled).has_value();
  }
  EXPECT_GT(read, 0);
  EXPECT_LT(read, 20000);
}

// stb_image knows the format too.
TEST(Bitmap, AnotherReaderSeesTheSameAtEachDepth) {
  for (const int bitCount : {1, 4, 8, 24}) {
    cImage image;
    ASSERT_TRUE(image.CopyStdPicture(made::Photograph(37, 21, 5).View(), bitCount));
    const Bytes file = WriteBitmapFile(image);
    int width = 0, height = 0, components = 0;
    stbi_uc* pixels =
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &components, 3);
    ASSERT_NE(pixels, nullptr) << bitCount << ": " << stbi_failure_reason();
    std::vector<Rgb> colours;
    for (int i = 0; i < width * height; ++i)
      colours.push_back({pixels[3 * i], pixels[3 * i + 1], pixels[3 * i + 2]});
    stbi_image_free(pixels);
    EXPECT_EQ(colours, ColoursOf(image)) << bitCount;
    EXPECT_EQ(ColoursOf(ReadBitmapFile(file)), colours) << bitCount;
    EXPECT_EQ(ReadBitmapFile(file)->BitCount(), bitCount);
  }
}

}  // namespace
}  // namespace vintoral
