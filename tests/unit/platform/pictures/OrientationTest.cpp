#include "platform/pictures/Orientation.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/platform/pictures/JpegFiles.h"

namespace vintoral {
namespace {

using test::Bytes;
using test::ExifOf;

/// Three by two pixels with the values a, b, c above d, e, f.
cImage Letters() {
  cImage picture;
  EXPECT_TRUE(picture.Create(3, 2, 8));
  for (int i = 0; i < 6; ++i)
    picture.hDC().Row(i / 3)[i % 3] = static_cast<std::uint8_t>('a' + i);
  return picture;
}

/// Row by row, with a bar between rows.
std::string Rows(const cImage& picture) {
  std::string text;
  for (int y = 0; y < picture.Height(); ++y) {
    if (y > 0) text += '|';
    for (int x = 0; x < picture.Width(); ++x)
      text += static_cast<char>(picture.hDC().Row(y)[x]);
  }
  return text;
}

std::string Turned(std::uint8_t tag) {
  const std::optional<cImage> upright = Upright(Letters(), OrientationOf(ExifOf(tag)));
  return upright ? Rows(*upright) : "none";
}

TEST(Orientation, EachValueMakesThePictureUpright) {
  ASSERT_EQ(Rows(Letters()), "abc|def");
  EXPECT_EQ(Turned(1), "abc|def");
  EXPECT_EQ(Turned(2), "cba|fed");
  EXPECT_EQ(Turned(3), "fed|cba");
  EXPECT_EQ(Turned(4), "def|abc");
  EXPECT_EQ(Turned(5), "ad|be|cf");
  EXPECT_EQ(Turned(6), "da|eb|fc");
  EXPECT_EQ(Turned(7), "fc|eb|da");
  EXPECT_EQ(Turned(8), "cf|be|ad");
}

TEST(Orientation, FourOfThemSwapTheSides) {
  std::string swapped;
  for (std::uint8_t tag = 1; tag <= 8; ++tag)
    swapped += SwapsSides(OrientationOf(ExifOf(tag))) ? 'y' : 'n';
  EXPECT_EQ(swapped, "nnnnyyyy");
}

TEST(Orientation, OtherValuesAreUpright) {
  ASSERT_NE(OrientationOf(ExifOf(8)), Orientation{});
  EXPECT_EQ(OrientationOf(ExifOf(0)), Orientation{});
  EXPECT_EQ(OrientationOf(ExifOf(9)), Orientation{});
  EXPECT_EQ(OrientationOf({}), Orientation{});
}

TEST(Orientation, IsFoundInEitherByteOrderBehindOtherEntries) {
  const Bytes highFirst = {'E', 'x',  'i', 'f', 0, 0, 'M', 'M', 0,   42,  0,   0,
                           0,   10,                                                // the folder is at 10
                           0,   0,                                                 // nothing
                           0,   2,                                                 // two entries
                           1,   0x10, 0,   2,   0, 0, 0,   4,   'A', 'B', 'C', 0,  // the camera's name
                           1,   0x12, 0,   3,   0, 0, 0,   1,   0,   6,   0,   0};
  EXPECT_EQ(OrientationOf(highFirst), (Orientation{false, 90}));
}

TEST(Orientation, ATagThatIsNoShortNumberSaysNothing) {
  Bytes exif = ExifOf(6);
  ASSERT_EQ(OrientationOf(exif), (Orientation{false, 90}));
  exif[18] = 4;
  EXPECT_EQ(OrientationOf(exif), Orientation{});
}

TEST(Orientation, WhatIsNotExifSaysNothing) {
  Bytes exif = ExifOf(6);
  exif[3] = 'F';
  EXPECT_EQ(OrientationOf(exif), Orientation{});
}

TEST(Orientation, SegmentsThatAreCutSayNothingUntilTheTagIsThere) {
  const Bytes exif = ExifOf(6);
  constexpr std::size_t kBehindTheValue = 25;
  for (std::size_t size = 0; size < exif.size(); ++size) {
    const Orientation held = OrientationOf({exif.data(), size});
    EXPECT_EQ(held, size < kBehindTheValue ? Orientation{} : (Orientation{false, 90})) << size;
  }
}

TEST(Orientation, AFolderBeyondTheSegmentSaysNothing) {
  Bytes exif = ExifOf(6);
  exif[10] = exif[11] = exif[12] = exif[13] = 0xFF;
  EXPECT_EQ(OrientationOf(exif), Orientation{});
}

}  // namespace
}  // namespace vintoral
