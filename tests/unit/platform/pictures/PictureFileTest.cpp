// Picture files that the driver's cameras are given.
#include "platform/pictures/PictureFile.h"

#include <gtest/gtest.h>

#include "camera/cImage/Bitmap.h"
#include "support/Photos.h"

namespace vintoral {
namespace {

std::span<const std::uint8_t> Bytes(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// One pixel wide, two high, red above green: written by hand with Python's zlib and struct.
const std::string kPng(
    "\x89\x50\x4e\x47\x0d\x0a\x1a\x0a\x00\x00\x00\x0d\x49\x48\x44\x52\x00\x00\x00\x01"
    "\x00\x00\x00\x02\x08\x02\x00\x00\x00\x16\xe3\x21\x70\x00\x00\x00\x0e\x49\x44\x41"
    "\x54\x78\x9c\x63\xf8\xcf\x00\x04\xff\x19\x00\x08\xff\x01\xff\x40\x21\x2c\x2e\x00"
    "\x00\x00\x00\x49\x45\x4e\x44\xae\x42\x60\x82",
    71);

TEST(PictureFile, AJpegIsDecoded) {
  const auto picture = DecodePictureFile(Bytes(test::PhotoOf(test::kGreen)));
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->Width(), 320);
  EXPECT_GT(test::PixelAt(*picture, 5, 5).green, 150);
}

TEST(PictureFile, ABitmapIsDecodedAt24Bits) {
  cImage grey;
  ASSERT_TRUE(grey.Create(5, 4, 8));
  const std::vector<std::uint8_t> file = WriteBitmapFile(grey);
  const auto picture = DecodePictureFile(file);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->BitCount(), 24);
  EXPECT_EQ(picture->Width(), 5);
  EXPECT_EQ(picture->Height(), 4);
}

TEST(PictureFile, APngStandsUpright) {
  const auto picture = DecodePictureFile(Bytes(kPng));
  ASSERT_NE(picture, nullptr);
  ASSERT_EQ(picture->Height(), 2);
  EXPECT_EQ(test::PixelAt(*picture, 0, 0), (Rgb{255, 0, 0}));
  EXPECT_EQ(test::PixelAt(*picture, 0, 1), (Rgb{0, 255, 0}));
}

TEST(PictureFile, WhatIsNoneOrCutIsNone) {
  EXPECT_EQ(DecodePictureFile({}), nullptr);
  EXPECT_EQ(DecodePictureFile(Bytes("GIF89a")), nullptr);
  EXPECT_EQ(DecodePictureFile(Bytes("BM")), nullptr);
  for (std::size_t end = 0; end + 13 < kPng.size(); ++end)
    EXPECT_EQ(DecodePictureFile(Bytes(kPng.substr(0, end))), nullptr) << end;
  const std::string whole = test::PhotoOf(test::kGreen);
  EXPECT_EQ(DecodePictureFile(Bytes(whole.substr(0, whole.size() / 2))), nullptr);
}

}  // namespace
}  // namespace vintoral
