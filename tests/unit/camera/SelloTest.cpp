// Letters on photos: where they stand, their edge, and what is cut off.
#include "camera/Sello.h"

#include <gtest/gtest.h>

#include "support/Photos.h"

namespace vintoral {
namespace {

using test::Frame;
using test::PixelAt;

constexpr Rgb kGround{90, 100, 110};
constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kBlack{0, 0, 0};

cImage Stamped(int x, int y, std::string_view text, int width = 40, int height = 30) {
  cImage picture = *Frame(kGround, width, height);
  Sellar(picture, x, y, text);
  return picture;
}

/// What is not ground, as left, top, right, bottom.
std::array<int, 4> Box(const cImage& picture) {
  std::array<int, 4> box{picture.Width(), picture.Height(), -1, -1};
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      if (PixelAt(picture, x, y) == kGround) continue;
      box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y)};
    }
  }
  return box;
}

// The 1 of the face: rows 1 to 7, its foot from column 1 to column 6, which is 0x7E of seven bits.
TEST(Sello, ALetterIsLightWithADarkEdgeAllAround) {
  const cImage picture = Stamped(5, 4, "1");
  // One pixel further right and down than the place, for the edge: the foot stands in row 4 + 1 + 7.
  for (int column = 0; column < 6; ++column)
    EXPECT_EQ(PixelAt(picture, 5 + 1 + column, 12), kWhite) << column;
  EXPECT_EQ(PixelAt(picture, 5, 12), kBlack);
  EXPECT_EQ(PixelAt(picture, 12, 12), kBlack);
  for (int x = 5; x <= 12; ++x)
    EXPECT_EQ(PixelAt(picture, x, 13), kBlack) << x;
  EXPECT_EQ(PixelAt(picture, 4, 12), kGround);
  EXPECT_EQ(PixelAt(picture, 13, 12), kGround);
  EXPECT_EQ(PixelAt(picture, 8, 14), kGround);
}

TEST(Sello, IsElevenPixelsHighAtMost) {
  const cImage picture = Stamped(0, 0, " ()/0123456789:ABCDEFGHIJKLMNOPQRSTUVWXYZ", 400, 30);
  EXPECT_EQ(Box(picture)[1], 0);
  EXPECT_EQ(Box(picture)[3], 10);
}

TEST(Sello, LettersAreSevenPixelsApart) {
  const cImage one = Stamped(2, 3, "1"), two = Stamped(2, 3, " 1");
  EXPECT_EQ(Box(two)[0], Box(one)[0] + 7);
  EXPECT_EQ(Box(two)[2], Box(one)[2] + 7);
}

TEST(Sello, TheEdgeOfALetterDoesntCoverItsNeighbour) {
  const cImage picture = Stamped(0, 0, "MM", 40, 12);
  const cImage alone = Stamped(0, 0, "M", 40, 12);
  for (int y = 0; y < 12; ++y) {
    for (int x = 0; x < 8; ++x) {
      if (PixelAt(alone, x, y) != kWhite) continue;
      EXPECT_EQ(PixelAt(picture, x, y), kWhite) << x << " " << y;
      EXPECT_EQ(PixelAt(picture, x + 7, y), kWhite) << x << " " << y;
    }
  }
}

TEST(Sello, WhatThereIsNoLetterForIsBlank) {
  EXPECT_EQ(Box(Stamped(0, 0, "a\xD1-")), (std::array<int, 4>{40, 30, -1, -1}));
}

TEST(Sello, WhatSticksOutIsCutOff) {
  for (const auto& [x, y] : {std::pair{-4, -4}, {36, 25}, {-100, 0}, {0, 100}}) {
    const cImage picture = Stamped(x, y, "0123456789");
    EXPECT_EQ(picture.Width(), 40);
  }
  EXPECT_NE(Box(Stamped(-4, -4, "8"))[2], -1);
  EXPECT_NE(Box(Stamped(36, 25, "8"))[2], -1);
}

TEST(Sello, APictureOfAnotherDepthIsLeftAlone) {
  cImage grey;
  ASSERT_TRUE(grey.Create(20, 12, 8));
  const std::vector<std::uint8_t> before(grey.DIBitsPtr(), grey.DIBitsPtr() + 240);
  Sellar(grey, 0, 0, "8");
  EXPECT_TRUE(std::equal(before.begin(), before.end(), grey.DIBitsPtr()));
}

}  // namespace
}  // namespace vintoral
