// Whole files, read by two decoders that have nothing in common: libjpeg-turbo and stb_image.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stb/stb_image.h>

#include <array>
#include <random>
#include <string>

#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Factors = std::array<int, 6>;

constexpr Factors kStation = {1, 1, 1, 1, 1, 1};
constexpr Factors kDefault = {2, 2, 1, 1, 1, 1};

Bytes Encode(const made::MadePicture& picture, int quality, const Factors& f) {
  cJpeg jpeg;
  jpeg.Quality(quality);
  jpeg.SetSamplingFrequencies(f[0], f[1], f[2], f[3], f[4], f[5]);
  EXPECT_TRUE(jpeg.SampleHDC(picture.View(), picture.width, picture.height));
  return jpeg.Encode();
}

// The pixels as stb_image sees them, blue first; none if it refuses the file.
Bytes DecodeWithStb(const Bytes& file, int width, int height) {
  int readWidth = 0, readHeight = 0, components = 0;
  stbi_uc* pixels = stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &readWidth, &readHeight,
                                          &components, 3);
  if (pixels == nullptr) return {};
  Bytes decoded(pixels, pixels + 3 * std::ptrdiff_t{readWidth} * readHeight);
  stbi_image_free(pixels);
  EXPECT_EQ(readWidth, width);
  EXPECT_EQ(readHeight, height);
  for (std::size_t i = 0; i < decoded.size(); i += 3)
    std::swap(decoded[i], decoded[i + 2]);
  return decoded;
}

// The mean square error of a file by one decoder and by the other; each complaint fails the test.
std::array<made::PictureError, 2> Errors(const made::MadePicture& picture, const Bytes& file) {
  const made::DecodedJpeg decoded = made::DecodeWithLibJpeg(file);
  EXPECT_THAT(decoded.complaints, testing::IsEmpty());
  EXPECT_EQ(decoded.width, picture.width);
  EXPECT_EQ(decoded.height, picture.height);
  const Bytes other = DecodeWithStb(file, picture.width, picture.height);
  EXPECT_EQ(other.size(), decoded.pixels.size()) << "stb_image: " << stbi_failure_reason();
  if (testing::Test::HasFailure()) return {};
  return {made::ErrorOf(picture, decoded.pixels), made::ErrorOf(picture, other)};
}

// With all factors 1 no coefficient is off by more than half a step, so (the transform keeps squares) the
// mean square error of a component is at most a quarter of its mean square step. Red, green and blue are each
// Y and at most 1.772 times one other component, or 0.344 and 0.714 times both; decoders round twice.
double BoundOfMeanSquare(int quality) {
  const auto deviation = [quality](const QuantizationTable& base) {
    double sum = 0;
    for (const double step : ScaleQuantization(base, quality).entries)
      sum += step * step;
    return std::sqrt(sum / 64 / 4);
  };
  const double bound = deviation(kLuminanceQuantization) + 1.772 * deviation(kChrominanceQuantization) + 1;
  return bound * bound;
}

TEST(JpegDecode, ErrorIsBoundedAtEachQuality) {
  for (const made::PictureKind& kind : made::PictureKinds()) {
    const made::MadePicture picture = kind.make(120, 83);
    for (const int quality : {1, 10, 25, 49, 50, 75, 90, 95, 99, 100}) {
      for (const made::PictureError& error : Errors(picture, Encode(picture, quality, kStation))) {
        EXPECT_LE(error.meanSquare, BoundOfMeanSquare(quality)) << kind.name << " " << quality;
      }
    }
  }
}

TEST(JpegDecode, FlatPicturesComeBackWithinRounding) {
  for (const Rgb colour :
       {Rgb{0, 0, 0}, {255, 255, 255}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {13, 200, 117}}) {
    const made::MadePicture picture = made::Flat(33, 17, colour);
    for (const made::PictureError& error : Errors(picture, Encode(picture, 100, kDefault))) {
      EXPECT_LE(error.largest, 2);
    }
  }
}

// Sampling loses what the eye does not miss, so the measure here is another encoder that loses the same.
TEST(JpegDecode, ErrorAndSizeAreNoWorseThanAnotherEncoders) {
  for (const made::PictureKind& kind : made::PictureKinds()) {
    const made::MadePicture picture = kind.make(320, 240);
    for (const int quality : {20, 75, 95, 100}) {
      for (const Factors& factors : {kStation, kDefault, Factors{2, 1, 1, 1, 1, 1}}) {
        SCOPED_TRACE(kind.name + " " + std::to_string(quality) + " " + std::to_string(factors[0]));
        const Bytes ours = Encode(picture, quality, factors);
        const Bytes theirs = made::EncodeWithLibJpeg(picture, {quality, factors[0], factors[1]});
        const double error = Errors(picture, ours)[0].meanSquare;
        const double theirError = Errors(picture, theirs)[0].meanSquare;
        // Print sets some coefficients so close to halfway between two steps that the other encoder's own
        // error decides them, all the same way; its higher peaks are cut off again by the decoder.
        EXPECT_LE(error, theirError * (kind.name == "text" ? 1.06 : 1.01) + 0.1);
        // Pure black and white sit so exactly between two steps that rounding Cb and Cr first decides many of
        // them.
        const double allowed = kind.name == "extremes" ? 1.01 : 1.002;
        EXPECT_LE(static_cast<double>(ours.size()), static_cast<double>(theirs.size()) * allowed + 40);
      }
    }
  }
}

TEST(JpegDecode, EachSamplingThatTheDecodersKnowIsRead) {
  const made::MadePicture picture = made::Gradient(90, 70);
  for (const Factors& factors : {Factors{1, 1, 1, 1, 1, 1},
                                 {2, 1, 1, 1, 1, 1},
                                 {1, 2, 1, 1, 1, 1},
                                 {2, 2, 1, 1, 1, 1},
                                 {4, 1, 1, 1, 1, 1},
                                 {1, 4, 1, 1, 1, 1},
                                 {4, 2, 1, 1, 1, 1},
                                 {2, 4, 1, 1, 1, 1},
                                 {3, 1, 1, 1, 1, 1},
                                 {1, 1, 2, 2, 1, 1},
                                 {1, 1, 1, 1, 4, 2},
                                 {2, 2, 2, 1, 1, 2},
                                 // With a scan for each component:
                                 {2, 2, 2, 2, 2, 2},
                                 {4, 4, 1, 1, 1, 1},
                                 {4, 4, 2, 2, 2, 1},
                                 {4, 2, 2, 2, 4, 1},
                                 {1, 1, 4, 4, 2, 2}}) {
    SCOPED_TRACE(testing::PrintToString(factors));
    for (const made::PictureError& error : Errors(picture, Encode(picture, 95, factors))) {
      // Two neighbours of this gradient differ by less than 4; a sample stands for at most 4 by 4 of them.
      // With that many, whose places have a variance of 1.25 each way, it is off by 1.25 (2.9^2 + 3.7^2) at
      // most.
      EXPECT_LE(error.largest, 24);
      EXPECT_LE(error.meanSquare, factors[0] * factors[1] == 16 ? 27 : 12);
    }
  }
}

TEST(JpegDecode, RandomSizesAndContentsAreRead) {
  std::mt19937 random(6);
  const auto& kinds = made::PictureKinds();
  for (int round = 0; round < 150; ++round) {
    const made::PictureKind& kind = kinds[random() % kinds.size()];
    const made::MadePicture picture =
        kind.make(1 + static_cast<int>(random() % 150), 1 + static_cast<int>(random() % 60));
    const int quality = 1 + static_cast<int>(random() % 100);
    SCOPED_TRACE(kind.name + " " + std::to_string(picture.width) + "x" + std::to_string(picture.height));
    for (const made::PictureError& error : Errors(picture, Encode(picture, quality, kStation))) {
      ASSERT_LE(error.meanSquare, BoundOfMeanSquare(quality));
    }
    Errors(picture, Encode(picture, quality, kDefault));
  }
}

TEST(JpegDecode, TheLongestSidesAreRead) {
  for (const auto& [width, height] : {std::pair{65500, 1}, {1, 65500}, {65500, 9}, {9, 65500}}) {
    const made::MadePicture picture = made::Gradient(width, height);
    for (const Factors& factors : {kStation, kDefault}) {
      Errors(picture, Encode(picture, 95, factors));
      ASSERT_FALSE(HasFailure()) << width << "x" << height;
    }
  }
}

TEST(JpegDecode, ARepeatGivesTheSameBytes) {
  const made::MadePicture picture = made::Photograph(97, 51, 3);
  cJpeg jpeg;
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 97, 51));
  const Bytes first = jpeg.Encode();
  EXPECT_EQ(jpeg.Encode(), first);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 97, 51));
  EXPECT_EQ(jpeg.Encode(), first);
}

}  // namespace
}  // namespace vintoral
