#include "camera/cImage/cImage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

constexpr Rgb kBlack{0, 0, 0}, kWhite{255, 255, 255}, kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlue{0, 0, 255};

Rgb ColourAt(const cImage& image, int x, int y) {
  std::uint8_t pixel[3];
  ReadColourRow(image.hDC(), x, y, 1, pixel);
  return {pixel[2], pixel[1], pixel[0]};
}

// The red of each pixel, row by row.
std::vector<int> Reds(const cImage& image) {
  std::vector<int> reds;
  for (int y = 0; y < image.Height(); ++y) {
    for (int x = 0; x < image.Width(); ++x)
      reds.push_back(ColourAt(image, x, y).red);
  }
  return reds;
}

// A picture of the given depth with pixels 1, 2, 3, ... (of its palette, or that red), row by row.
cImage Counting(int width, int height, int bitCount) {
  std::vector<Rgb> palette;
  for (int i = 0; i < 1 << std::min(bitCount, 8); ++i)
    palette.push_back({static_cast<std::uint8_t>(i), 7, 9});
  Bytes pixels;
  for (int i = 0; i < width * height; ++i) {
    pixels.push_back(static_cast<std::uint8_t>((i + 1) % (1 << std::min(bitCount, 8))));
  }
  cImage image;
  EXPECT_TRUE(image.Create(width, height, bitCount));
  image.SetPalette(palette);
  image.CopyHDC({width, height, 8, pixels.data(), width, palette});
  return image;
}

Bytes BitsOf(const cImage& image) {
  return {image.DIBitsPtr(),
          image.DIBitsPtr() + image.BytesPerScanLine() * static_cast<std::size_t>(image.Height())};
}

TEST(cImage, IsEmptyAtFirst) {
  const cImage image;
  EXPECT_EQ(image.Width(), 0);
  EXPECT_EQ(image.Height(), 0);
  EXPECT_EQ(image.BitCount(), 0);
  EXPECT_FALSE(image.Greyscale() || image.Resample(3, 3) || image.Mirror(true) || image.Rotate(90));
}

TEST(cImage, PadsRowsTo32Bits) {
  for (const auto& [width, bitCount, size] : {std::tuple{1, 1, 4U},
                                              {32, 1, 4U},
                                              {33, 1, 8U},
                                              {8, 4, 4U},
                                              {9, 4, 8U},
                                              {4, 8, 4U},
                                              {5, 8, 8U},
                                              {1, 24, 4U},
                                              {4, 24, 12U},
                                              {5, 24, 16U}}) {
    cImage image;
    ASSERT_TRUE(image.Create(width, 3, bitCount));
    EXPECT_EQ(image.BytesPerScanLine(), size) << width << " at " << bitCount;
    EXPECT_EQ(image.Width(), width);
    EXPECT_EQ(image.Height(), 3);
    EXPECT_EQ(image.BitCount(), bitCount);
    EXPECT_EQ(image.Palette().size(), bitCount == 24 ? 0U : 1U << bitCount);
    EXPECT_THAT(BitsOf(image), Each(0));
  }
}

TEST(cImage, CreateRefusesOtherSizesAndDepthsAndChangesNothing) {
  cImage image;
  ASSERT_TRUE(image.Create(2, 3, 24));
  EXPECT_FALSE(image.Create(0, 1, 24));
  EXPECT_FALSE(image.Create(1, -1, 24));
  EXPECT_FALSE(image.Create(65501, 1, 24));
  for (const int depth : {0, 2, 16, 32, -8})
    EXPECT_FALSE(image.Create(1, 1, depth));
  EXPECT_EQ(image.Width(), 2);
  EXPECT_EQ(image.BitCount(), 24);
}

TEST(cImage, RowsLieBottomToTop) {
  cImage image;
  ASSERT_TRUE(image.Create(1, 2, 24));
  image.DIBitsPtr()[0] = 255;  // blue of the first row in memory
  EXPECT_EQ(ColourAt(image, 0, 1), kBlue);
  EXPECT_EQ(ColourAt(image, 0, 0), kBlack);
}

TEST(cImage, PacksSmallPixelsWithTheLeftmostHighest) {
  EXPECT_THAT(BitsOf(Counting(3, 1, 1)), ElementsAre(0b10100000, 0, 0, 0));
  EXPECT_THAT(BitsOf(Counting(3, 1, 4)), ElementsAre(0x12, 0x30, 0, 0));
  EXPECT_THAT(BitsOf(Counting(3, 1, 8)), ElementsAre(1, 2, 3, 0));
  EXPECT_THAT(BitsOf(Counting(1, 1, 24)), ElementsAre(9, 7, 1, 0));
}

TEST(cImage, CopiesAPictureAtItsOwnDepth) {
  for (const int bitCount : {1, 4, 8, 24}) {
    const cImage original = Counting(7, 5, bitCount);
    cImage copy;
    ASSERT_TRUE(copy.CopyStdPicture(original.hDC()));
    EXPECT_EQ(copy.BitCount(), bitCount);
    EXPECT_EQ(BitsOf(copy), BitsOf(original));
    EXPECT_TRUE(std::equal(copy.Palette().begin(), copy.Palette().end(), original.Palette().begin()));
  }
}

TEST(cImage, CopiesDepths16And32As24) {
  constexpr std::uint8_t k16[] = {0x00, 0x7C, 0x1F, 0x00};  // red, blue at 5-5-5
  constexpr std::uint8_t k32[] = {0, 0, 255, 99, 255, 0, 0, 99};
  for (const PixelView& picture : {PixelView{2, 1, 16, k16, 4, {}}, {2, 1, 32, k32, 8, {}}}) {
    for (const int bitCount : {0, picture.bitCount}) {
      cImage image;
      ASSERT_TRUE(image.CopyStdPicture(picture, bitCount));
      EXPECT_EQ(image.BitCount(), 24);
      EXPECT_EQ(ColourAt(image, 0, 0), kRed);
      EXPECT_EQ(ColourAt(image, 1, 0), kBlue);
    }
  }
}

TEST(cImage, CopiesToAnotherDepthByTheNearestColour) {
  made::MadePicture picture(3, 1);
  picture.Set(0, 0, {250, 10, 3});
  picture.Set(1, 0, {200, 190, 195});
  picture.Set(2, 0, {1, 120, 0});
  cImage image;
  ASSERT_TRUE(image.CopyStdPicture(picture.View(), 4));
  EXPECT_EQ(ColourAt(image, 0, 0), kRed);
  EXPECT_EQ(ColourAt(image, 1, 0), (Rgb{192, 192, 192}));
  EXPECT_EQ(ColourAt(image, 2, 0), (Rgb{0, 128, 0}));
  ASSERT_TRUE(image.CopyStdPicture(picture.View(), 1));
  EXPECT_EQ(Reds(image), (std::vector<int>{0, 255, 0}));  // by lightness
  ASSERT_TRUE(image.CopyStdPicture(picture.View(), 8));
  EXPECT_EQ(ColourAt(image, 0, 0), kRed);
}

TEST(cImage, AShortPaletteIsFilledWithBlack) {
  const Rgb palette[] = {{5, 5, 5}, {6, 6, 6}};
  constexpr std::uint8_t pixels[] = {1, 0, 2, 255};
  cImage image;
  ASSERT_TRUE(image.CopyStdPicture({4, 1, 8, pixels, 4, palette}));
  EXPECT_EQ(Reds(image), (std::vector<int>{6, 5, 0, 0}));
  EXPECT_EQ(BitsOf(image), (Bytes{1, 0, 2, 255}));
  EXPECT_TRUE(HasGreyPalette(image.hDC()));
}

TEST(cImage, CopyOfNothingIsRefused) {
  cImage image = Counting(2, 2, 8);
  EXPECT_FALSE(image.CopyStdPicture({}));
  EXPECT_EQ(image.Width(), 2);
}

TEST(cImage, CopiesFromAPlaceOfAnother) {
  const cImage from = Counting(4, 3, 24);  // 1 2 3 4, 5 6 7 8, 9 10 11 12
  cImage image;
  ASSERT_TRUE(image.Create(2, 2, 24));
  image.CopyHDC(from.hDC(), 1, 1);
  EXPECT_EQ(Reds(image), (std::vector<int>{6, 7, 10, 11}));
  image.CopyHDC(from.hDC(), 3, 2);  // only one pixel is left there
  EXPECT_EQ(Reds(image), (std::vector<int>{12, 7, 10, 11}));
  image.CopyHDC(from.hDC(), -1, -1);
  EXPECT_EQ(Reds(image), (std::vector<int>{12, 7, 10, 1}));
  for (const int far : {INT_MIN, INT_MAX})
    image.CopyHDC(from.hDC(), far, far);
  EXPECT_EQ(Reds(image), (std::vector<int>{12, 7, 10, 1}));
}

TEST(cImage, PaintsOntoAnother) {
  const cImage brush = Counting(2, 2, 8);  // 1 2, 3 4
  cImage canvas;
  ASSERT_TRUE(canvas.Create(3, 2, 24));
  brush.PaintHDC(canvas.hDC(), 1, 0);
  EXPECT_EQ(Reds(canvas), (std::vector<int>{0, 1, 2, 0, 3, 4}));
  brush.PaintHDC(canvas.hDC(), -1, 1);
  EXPECT_EQ(Reds(canvas), (std::vector<int>{0, 1, 2, 2, 3, 4}));
}

TEST(cImage, CopiesAPaletteAndKeepsThePlaces) {
  cImage image = Counting(3, 1, 4);
  const Rgb palette[] = {kBlack, kRed, kGreen, kBlue};
  image.CopyPalletHDC({.bitCount = 4, .palette = palette});
  EXPECT_EQ(ColourAt(image, 0, 0), kRed);
  EXPECT_EQ(ColourAt(image, 1, 0), kGreen);
  EXPECT_EQ(ColourAt(image, 2, 0), kBlue);
  EXPECT_EQ(image.Palette().size(), 16U);
}

TEST(cImage, GreyscaleIsByLightness) {
  made::MadePicture picture(5, 1);
  int x = 0;
  for (const Rgb colour : {kBlack, kWhite, kRed, kGreen, Rgb{77, 77, 77}})
    picture.Set(x++, 0, colour);
  cImage image;
  ASSERT_TRUE(image.CopyStdPicture(picture.View()));
  const auto grey = image.Greyscale();
  ASSERT_TRUE(grey);
  EXPECT_EQ(grey->BitCount(), 8);
  // ITU-R BT.601: 0.299 and 0.587 of 255.
  EXPECT_EQ(Reds(*grey), (std::vector<int>{0, 255, 76, 150, 77}));
  for (int i = 0; i < 5; ++i)
    EXPECT_EQ(grey->hDC().Row(0)[i], Reds(*grey)[static_cast<std::size_t>(i)]);
  EXPECT_EQ(image.BitCount(), 24);
}

TEST(cImage, MirrorsBothWaysAtEachDepth) {
  for (const int bitCount : {4, 8, 24}) {
    const cImage image = Counting(3, 2, bitCount);  // 1 2 3, 4 5 6
    EXPECT_EQ(Reds(*image.Mirror(true)), (std::vector<int>{4, 5, 6, 1, 2, 3}));
    EXPECT_EQ(Reds(*image.Mirror(false)), (std::vector<int>{3, 2, 1, 6, 5, 4}));
    EXPECT_EQ(image.Mirror(true)->BitCount(), bitCount);
    EXPECT_EQ(BitsOf(*image.Mirror(false)->Mirror(false)), BitsOf(image));
  }
  EXPECT_EQ(Reds(*Counting(4, 1, 1).Mirror(false)), (std::vector<int>{0, 1, 0, 1}));
}

TEST(cImage, RotatesByRightAnglesAtEachDepth) {
  for (const int bitCount : {4, 8, 24}) {
    const cImage image = Counting(3, 2, bitCount);  // 1 2 3, 4 5 6
    const auto quarter = image.Rotate(90);
    ASSERT_TRUE(quarter);
    EXPECT_EQ(quarter->Width(), 2);
    EXPECT_EQ(quarter->Height(), 3);
    EXPECT_EQ(Reds(*quarter), (std::vector<int>{4, 1, 5, 2, 6, 3}));
    EXPECT_EQ(Reds(*image.Rotate(180)), (std::vector<int>{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(Reds(*image.Rotate(270)), (std::vector<int>{3, 6, 2, 5, 1, 4}));
  }
}

TEST(cImage, RotateBringsTheAngleToOneTurn) {
  const cImage image = Counting(3, 2, 24);
  EXPECT_EQ(Reds(*image.Rotate(-90)), Reds(*image.Rotate(270)));
  EXPECT_EQ(Reds(*image.Rotate(360 + 90)), Reds(*image.Rotate(90)));
  EXPECT_EQ(Reds(*image.Rotate(-540)), Reds(*image.Rotate(180)));
  for (const int angle : {0, 360, -360, 45, 91, INT_MAX, INT_MIN})
    EXPECT_FALSE(image.Rotate(angle)) << angle;
}

TEST(cImage, AlteredPicturesLeaveTheirOriginalAlone) {
  const cImage image = Counting(5, 4, 24);
  const Bytes before = BitsOf(image);
  EXPECT_TRUE(image.Greyscale() && image.Resample(2, 9) && image.Mirror(true) && image.Rotate(90));
  EXPECT_EQ(BitsOf(image), before);
  EXPECT_EQ(image.Width(), 5);
}

}  // namespace
}  // namespace vintoral
