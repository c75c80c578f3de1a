#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "camera/cImage/cImage.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

cImage ImageOf(const made::MadePicture& picture, int bitCount = 0) {
  cImage image;
  EXPECT_TRUE(image.CopyStdPicture(picture.View(), bitCount));
  return image;
}

// One row of greys.
cImage RowOf(const std::vector<int>& greys) {
  made::MadePicture picture(static_cast<int>(greys.size()), 1);
  for (std::size_t x = 0; x < greys.size(); ++x) {
    const auto grey = static_cast<std::uint8_t>(greys[x]);
    picture.Set(static_cast<int>(x), 0, {grey, grey, grey});
  }
  return ImageOf(picture);
}

std::vector<int> GreysOf(const cImage& image) {
  std::vector<int> greys;
  for (int x = 0; x < image.Width(); ++x)
    greys.push_back(image.hDC().Row(0)[3 * x]);
  return greys;
}

// The mean of colour `channel` over the area of a new pixel, each old pixel cut into as many parts as fit.
double MeanOfArea(const made::MadePicture& picture, int width, int height, int x, int y, int channel) {
  double sum = 0;
  for (int i = 0; i < picture.width; ++i) {
    for (int j = 0; j < picture.height; ++j) {
      sum += picture.At((x * picture.width + i) / width, (y * picture.height + j) / height)[channel];
    }
  }
  return sum / (picture.width * picture.height);
}

TEST(Resample, ShrinksToTheMeanOfTheArea) {
  const made::MadePicture picture = made::Noise(23, 17, 9);
  const cImage image = ImageOf(picture);
  for (const auto& [width, height] : {std::pair{22, 16}, {11, 5}, {1, 1}, {7, 17}, {23, 3}}) {
    const auto small = image.Resample(width, height);
    ASSERT_TRUE(small);
    ASSERT_EQ(small->Width(), width);
    ASSERT_EQ(small->Height(), height);
    for (int y = 0; y < height; ++y) {
      for (int i = 0; i < 3 * width; ++i) {
        const double mean = MeanOfArea(picture, width, height, i / 3, y, i % 3);
        ASSERT_NEAR(std::as_const(*small).hDC().Row(y)[i], mean, 0.501);
      }
    }
  }
}

TEST(Resample, GrowsWithoutRinging) {
  const made::MadePicture picture = made::Noise(9, 6, 4);
  const auto large = ImageOf(picture).Resample(40, 31);
  ASSERT_TRUE(large);
  for (int channel = 0; channel < 3; ++channel) {
    for (int y = 0; y < 31; ++y) {
      for (int x = 0; x < 40; ++x) {
        // Between the four old pixels around the place, so never beyond them.
        const int left = std::clamp(static_cast<int>(std::floor((x + 0.5) * 9 / 40 - 0.5)), 0, 8);
        const int top = std::clamp(static_cast<int>(std::floor((y + 0.5) * 6 / 31 - 0.5)), 0, 5);
        const int right = std::min(left + 1, 8), bottom = std::min(top + 1, 5);
        const auto [low, high] =
            std::minmax({picture.At(left, top)[channel], picture.At(right, top)[channel],
                         picture.At(left, bottom)[channel], picture.At(right, bottom)[channel]});
        const int value = std::as_const(*large).hDC().Row(y)[3 * x + channel];
        ASSERT_GE(value, low);
        ASSERT_LE(value, high);
      }
    }
  }
}

// New centres of two pixels made four lie at -0.25, 0.25, 0.75 and 1.25 of the old ones.
TEST(Resample, GrowsFromCentreToCentre) {
  EXPECT_EQ(GreysOf(*RowOf({0, 200}).Resample(4, 1)), (std::vector<int>{0, 50, 150, 200}));
}

TEST(Resample, DoesNotShiftEdges) {
  // A picture that is its own mirror image stays so.
  const std::vector<int> greys = {10, 60, 250, 250, 60, 10};
  for (const int width : {2, 3, 5, 7, 13, 60}) {
    const std::vector<int> resampled = GreysOf(*RowOf(greys).Resample(width, 1));
    std::vector<int> mirrored(resampled.rbegin(), resampled.rend());
    for (std::size_t x = 0; x < resampled.size(); ++x)
      EXPECT_NEAR(resampled[x], mirrored[x], 1) << width;
  }
}

TEST(Resample, KeepsFlatPicturesFlat) {
  for (const int light : {0, 1, 127, 254, 255}) {
    const auto grey = static_cast<std::uint8_t>(light);
    const cImage image = ImageOf(made::Flat(13, 11, {grey, grey, grey}));
    for (const auto& [width, height] : {std::pair{3, 4}, {50, 2}, {2, 50}, {99, 98}}) {
      const auto resampled = image.Resample(width, height);
      for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
          ASSERT_EQ(std::as_const(*resampled).hDC().Row(y)[3 * x], grey);
      }
    }
  }
}

TEST(Resample, GrowsFromASinglePixel) {
  EXPECT_EQ(GreysOf(*RowOf({77}).Resample(3, 2)), (std::vector<int>{77, 77, 77}));
}

TEST(Resample, KeepsTheDepthAndThePalette) {
  for (const int bitCount : {1, 4, 8, 24}) {
    const cImage image = ImageOf(made::Photograph(40, 30, 1), bitCount);
    for (const auto& [width, height] : {std::pair{40, 30}, {13, 9}, {80, 45}}) {
      const auto resampled = image.Resample(width, height);
      ASSERT_TRUE(resampled);
      EXPECT_EQ(resampled->BitCount(), bitCount);
      EXPECT_TRUE(
          std::equal(resampled->Palette().begin(), resampled->Palette().end(), image.Palette().begin()));
    }
  }
}

TEST(Resample, AtTheSameSizeCopies) {
  const cImage image = ImageOf(made::Noise(9, 7, 2), 8);
  const auto copy = image.Resample(9, 7);
  ASSERT_TRUE(copy);
  EXPECT_TRUE(
      std::equal(image.DIBitsPtr(), image.DIBitsPtr() + image.BytesPerScanLine() * 7, copy->DIBitsPtr()));
}

TEST(Resample, RefusesSizesThatNoPictureHas) {
  const cImage image = ImageOf(made::Noise(3, 3, 2));
  EXPECT_FALSE(image.Resample(0, 3));
  EXPECT_FALSE(image.Resample(3, -3));
  EXPECT_FALSE(image.Resample(65501, 1));
}

}  // namespace
}  // namespace vintoral
