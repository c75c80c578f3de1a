#include "platform/pictures/PictureDecoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <tuple>

#include "camera/cImage/Bitmap.h"
#include "camera/cJpeg/cJpeg.h"
#include "unit/platform/pictures/JpegFiles.h"

namespace vintoral {
namespace {

using test::Bytes;
using test::JpegFile;
using test::MakeJpeg;
using test::RedAndBlue;

DecodedPicture Decode(const Bytes& file, const PicturePlace& place = {}, const PictureLimits& limits = {}) {
  return PictureDecoder(limits).Decode(file, place);
}

PictureFault FaultOf(const Bytes& file, const PictureLimits& limits = {}) {
  const DecodedPicture decoded = Decode(file, {}, limits);
  EXPECT_EQ(decoded.pixels == nullptr, decoded.fault != PictureFault::kNone);
  return decoded.fault;
}

/// "80x40", or "none".
std::string SizeOf(const DecodedPicture& decoded) {
  if (!decoded.pixels) return "none";
  return std::to_string(decoded.pixels->Width()) + "x" + std::to_string(decoded.pixels->Height());
}

Rgb ColourAt(const DecodedPicture& decoded, int x, int y) {
  std::array<std::uint8_t, 3> pixel{};
  ReadColourRow(decoded.pixels->hDC(), x, y, 1, pixel.data());
  return {pixel[2], pixel[1], pixel[0]};
}

/// Is the colour there, but for what JPEG takes away?
testing::AssertionResult IsNear(Rgb is, Rgb wanted) {
  const int off = std::max(
      {std::abs(is.red - wanted.red), std::abs(is.green - wanted.green), std::abs(is.blue - wanted.blue)});
  if (off <= 6) return testing::AssertionSuccess();
  return testing::AssertionFailure() << int{is.red} << " " << int{is.green} << " " << int{is.blue};
}

constexpr Rgb kRed{255, 0, 0}, kBlue{0, 0, 255};

void ExpectRedAndBlue(const DecodedPicture& decoded) {
  ASSERT_EQ(SizeOf(decoded), "80x40");
  EXPECT_EQ(decoded.pixels->BitCount(), 24);
  for (const int y : {0, 20, 39}) {
    EXPECT_TRUE(IsNear(ColourAt(decoded, 4, y), kRed)) << y;
    EXPECT_TRUE(IsNear(ColourAt(decoded, 75, y), kBlue)) << y;
  }
}

Bytes Grey(std::uint8_t light) {
  return MakeJpeg({.components = 1, .at = [light](int, int) {
                     return std::array{light, light, light, light};
                   }});
}

Bytes Inks(std::array<std::uint8_t, 4> inks, bool adobe) {
  return MakeJpeg({.components = 4, .adobe = adobe, .at = [inks](int, int) { return inks; }});
}

/// The frame header says another size.
Bytes Declaring(Bytes file, unsigned width, unsigned height) {
  const std::array<std::uint8_t, 2> marker = {0xFF, 0xC0};
  const auto frame = std::search(file.begin(), file.end(), marker.begin(), marker.end());
  const std::array size = {height >> 8, height & 0xFF, width >> 8, width & 0xFF};
  std::transform(size.begin(), size.end(), frame + 5,
                 [](unsigned byte) { return static_cast<std::uint8_t>(byte); });
  return file;
}

Bytes Begin(const Bytes& file, std::size_t size) {
  return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)};
}

TEST(PictureDecoder, ReadsColourBaselineAndProgressive) {
  ExpectRedAndBlue(Decode(RedAndBlue()));
  ExpectRedAndBlue(Decode(RedAndBlue({.progressive = true})));
}

TEST(PictureDecoder, ReadsWhatTheStationWrites) {
  cImage picture;
  ASSERT_TRUE(picture.Create(320, 240, 24));
  picture.hDC().Row(239)[3 * 319] = 255;
  cJpeg jpeg;
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  jpeg.Quality(95);
  ASSERT_TRUE(jpeg.SampleHDC(picture.hDC(), 320, 240));
  const DecodedPicture decoded = Decode(jpeg.Encode());
  ASSERT_EQ(SizeOf(decoded), "320x240");
  EXPECT_TRUE(IsNear(ColourAt(decoded, 0, 0), {0, 0, 0}));
  EXPECT_GT(ColourAt(decoded, 319, 239).blue, 200);
}

TEST(PictureDecoder, ReadsGrey) {
  const DecodedPicture decoded = Decode(Grey(100));
  ASSERT_EQ(SizeOf(decoded), "80x40");
  EXPECT_EQ(decoded.pixels->BitCount(), 24);
  EXPECT_TRUE(IsNear(ColourAt(decoded, 40, 20), {100, 100, 100}));
}

TEST(PictureDecoder, ReadsTheInksOfPrinting) {
  // No cyan, all of magenta and yellow, no black: red. Adobe stores what light is left.
  EXPECT_TRUE(IsNear(ColourAt(Decode(Inks({255, 0, 0, 255}, true)), 40, 20), kRed));
  EXPECT_TRUE(IsNear(ColourAt(Decode(Inks({0, 255, 255, 0}, false)), 40, 20), kRed));
  // Half the light through cyan, half of that through black.
  EXPECT_TRUE(IsNear(ColourAt(Decode(Inks({128, 255, 255, 128}, true)), 79, 39), {64, 128, 128}));
}

TEST(PictureDecoder, RefusesEveryBeginningOfAFile) {
  for (const Bytes& file :
       {RedAndBlue(), RedAndBlue({.progressive = true}), Grey(100), Inks({9, 9, 9, 9}, true)}) {
    ASSERT_EQ(FaultOf(file), PictureFault::kNone);
    for (std::size_t size = 0; size < file.size(); ++size)
      ASSERT_EQ(FaultOf(Begin(file, size)), PictureFault::kNoPicture) << size << " of " << file.size();
  }
}

TEST(PictureDecoder, RefusesTheBeginningForASmallPlaceToo) {
  const Bytes file = RedAndBlue();
  ASSERT_EQ(SizeOf(Decode(file, {10, 5})), "10x5");
  EXPECT_EQ(Decode(Begin(file, file.size() - 1), {10, 5}).fault, PictureFault::kNoPicture);
}

TEST(PictureDecoder, WhatFollowsThePictureIsNotRead) {
  Bytes file = RedAndBlue();
  file.insert(file.end(), 1000, 'x');
  ExpectRedAndBlue(Decode(file));
}

TEST(PictureDecoder, RefusesNoise) {
  const Bytes file = MakeJpeg({.at = [](int x, int y) {
    return std::array{static_cast<std::uint8_t>(x * 37 + y * 91), static_cast<std::uint8_t>(x * y),
                      std::uint8_t{0}, std::uint8_t{0}};
  }});
  for (unsigned seed = 0; seed < 100; ++seed) {
    std::mt19937 random(seed);
    Bytes scrambled = file;
    for (std::size_t i = file.size() / 2; i < file.size(); ++i)
      scrambled[i] = static_cast<std::uint8_t>(random() >> 24);
    EXPECT_EQ(FaultOf(scrambled), PictureFault::kNoPicture) << seed;
  }
}

TEST(PictureDecoder, AWrongByteAnywhereGivesAPictureOrAFault) {
  for (const bool progressive : {false, true}) {
    const Bytes file = RedAndBlue({.progressive = progressive, .app1 = test::ExifOf(6)});
    for (std::size_t i = 0; i < file.size(); ++i) {
      for (const unsigned wrong : {0x01U, 0x80U, 0xFFU}) {
        Bytes scrambled = file;
        scrambled[i] = static_cast<std::uint8_t>(scrambled[i] ^ wrong);
        std::ignore = FaultOf(scrambled, {.pixels = 100'000});
      }
    }
  }
}

TEST(PictureDecoder, BytesThatBelongToNothingAreDamage) {
  Bytes file = RedAndBlue();
  ASSERT_EQ(file[20], 0xFF) << "the segment behind the JFIF header";
  file.insert(file.begin() + 20, {1, 2, 3});
  EXPECT_EQ(FaultOf(file), PictureFault::kNoPicture);
}

TEST(PictureDecoder, RefusesOtherFiles) {
  EXPECT_EQ(FaultOf({}), PictureFault::kNoPicture);
  const std::string text = "Vintoral le da la bienvenida";
  EXPECT_EQ(FaultOf({text.begin(), text.end()}), PictureFault::kNoPicture);
  cImage picture;
  ASSERT_TRUE(picture.Create(8, 8, 24));
  EXPECT_EQ(FaultOf(WriteBitmapFile(picture)), PictureFault::kNoPicture);
}

TEST(PictureDecoder, APictureOfTooManyPixelsIsNotCalledDamaged) {
  const Bytes file = RedAndBlue();
  // Fifty million pixels are let through, and then they are not there.
  EXPECT_EQ(FaultOf(Declaring(file, 10'000, 5'000)), PictureFault::kNoPicture);
  EXPECT_EQ(FaultOf(Declaring(file, 10'000, 5'001)), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(Declaring(file, 65'500, 65'500)), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(Declaring(file, 65'535, 1)), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(Declaring(file, 0, 40)), PictureFault::kNoPicture);
  EXPECT_EQ(FaultOf(file, {.pixels = 3'200}), PictureFault::kNone);
  EXPECT_EQ(FaultOf(file, {.pixels = 3'199}), PictureFault::kTooLarge);
}

TEST(PictureDecoder, IsDecodedAsLargeAsItsPlaceNeeds) {
  const Bytes file = RedAndBlue();
  const auto size = [&](const PicturePlace& place) { return SizeOf(Decode(file, place)); };
  EXPECT_EQ(size({}), "80x40");
  EXPECT_EQ(size({10, 0}), "80x40");
  EXPECT_EQ(size({0, 10}), "80x40");
  EXPECT_EQ(size({1, 1}), "10x5");
  EXPECT_EQ(size({10, 10}), "10x5");
  EXPECT_EQ(size({10, 10, true}), "20x10");
  EXPECT_EQ(size({11, 10}), "20x10");
  EXPECT_EQ(size({100, 6}), "20x10");
  EXPECT_EQ(size({40, 40}), "40x20");
  EXPECT_EQ(size({40, 40, true}), "80x40");
  EXPECT_EQ(size({51, 1, true}), "60x30");
  EXPECT_EQ(size({71, 40}), "80x40");
  EXPECT_EQ(size({800, 800, true}), "80x40");
}

TEST(PictureDecoder, SmallSizesRoundUpAndKeepTheirColours) {
  const DecodedPicture decoded = Decode(RedAndBlue({.width = 81, .height = 41}), {11, 6, true});
  ASSERT_EQ(SizeOf(decoded), "11x6");
  EXPECT_TRUE(IsNear(ColourAt(decoded, 1, 3), kRed));
  EXPECT_TRUE(IsNear(ColourAt(decoded, 9, 3), kBlue));
}

TEST(PictureDecoder, TurnsAPictureAsTheCameraWasHeld) {
  const Bytes file = RedAndBlue({.app1 = test::ExifOf(6)});
  const DecodedPicture whole = Decode(file);
  ASSERT_EQ(SizeOf(whole), "40x80");
  EXPECT_TRUE(IsNear(ColourAt(whole, 20, 4), kRed));
  EXPECT_TRUE(IsNear(ColourAt(whole, 20, 75), kBlue));
  EXPECT_EQ(SizeOf(Decode(file, {20, 39})), "20x40");
  EXPECT_EQ(SizeOf(Decode(file, {5, 11, true})), "10x20");
}

TEST(PictureDecoder, WhatACameraTellsBesidesIsPassedOver) {
  const Bytes exif = test::ExifOf(6);
  for (std::size_t size = 1; size < 24; ++size)
    ExpectRedAndBlue(Decode(RedAndBlue({.app1 = Begin(exif, size)})));
  ExpectRedAndBlue(Decode(RedAndBlue({.app1 = Bytes(60'000, 0xFF)})));
}

TEST(PictureDecoder, TakesNoMoreMemoryThanItMay) {
  // 512 x 512 pixels take 786,432 bytes; a progressive file twice as much again while it is read.
  constexpr std::size_t kOnce = 786'432;
  const JpegFile large{.width = 512, .height = 512};
  const Bytes baseline = RedAndBlue(large);
  const Bytes turned = RedAndBlue({.width = 512, .height = 512, .app1 = test::ExifOf(6)});
  const Bytes progressive = RedAndBlue({.width = 512, .height = 512, .progressive = true});
  EXPECT_EQ(FaultOf(baseline, {.memory = kOnce}), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(baseline, {.memory = 3 * kOnce / 2}), PictureFault::kNone);
  EXPECT_EQ(FaultOf(turned, {.memory = 3 * kOnce / 2}), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(turned, {.memory = 3 * kOnce}), PictureFault::kNone);
  EXPECT_EQ(FaultOf(progressive, {.memory = 2 * kOnce}), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(progressive, {.memory = 4 * kOnce}), PictureFault::kNone);
}

TEST(PictureDecoder, ReadsNoMorePassesThanAPhotoHas) {
  const Bytes progressive = RedAndBlue({.progressive = true});
  EXPECT_EQ(FaultOf(progressive, {.scans = 3}), PictureFault::kTooLarge);
  EXPECT_EQ(FaultOf(progressive, {.scans = 10}), PictureFault::kNone);
  EXPECT_EQ(FaultOf(RedAndBlue(), {.scans = 1}), PictureFault::kNone);
}

}  // namespace
}  // namespace vintoral
