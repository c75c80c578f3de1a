// What the encoder puts into a file, read back as quantised coefficients and compared with the standard's
// formulas, worked out slowly. Unlike a comparison of pixels this leaves no room for an error that only looks
// small, and it reaches the sampling factors that decoders do not turn back into pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using Factors = std::array<int, 6>;
using Plane = std::vector<std::vector<double>>;

// Component 0, 1 or 2 of a pixel, level-shifted (ITU-T T.871, 7; ITU-T T.81, A.3.1).
double Component(Rgb colour, std::size_t component) {
  static constexpr double kParts[3][3] = {
      {0.299, 0.587, 0.114}, {-0.299 / 1.772, -0.587 / 1.772, 0.5}, {0.5, -0.587 / 1.402, -0.114 / 1.402}};
  const auto& part = kParts[component];
  return part[0] * colour.red + part[1] * colour.green + part[2] * colour.blue - (component == 0 ? 128 : 0);
}

// The value of the component where each pixel is cut into `across` by `down` parts, and goes on beyond the
// edges.
double Part(const made::MadePicture& picture, std::size_t component, int x, int y, int across, int down) {
  return Component(
      picture.Colour(std::min(x / across, picture.width - 1), std::min(y / down, picture.height - 1)),
      component);
}

// The samples of a component: means over as many parts as the densest component has in the place of one
// sample.
Plane Samples(const made::MadePicture& picture, std::size_t component, int h, int v, int maxH, int maxV,
              int width, int height) {
  Plane plane(static_cast<std::size_t>(height), std::vector<double>(static_cast<std::size_t>(width)));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      double sum = 0;
      for (int part = 0; part < maxH * maxV; ++part) {
        sum += Part(picture, component, x * maxH + part % maxH, y * maxV + part / maxH, h, v);
      }
      plane[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = sum / (maxH * maxV);
    }
  }
  return plane;
}

// cosines[k][n] of ITU-T T.81, A.3.3, scale included.
const std::array<std::array<double, 8>, 8>& Cosines() {
  static const auto cosines = [] {
    std::array<std::array<double, 8>, 8> c{};
    for (std::size_t k = 0; k < 8; ++k) {
      for (std::size_t n = 0; n < 8; ++n) {
        const auto angle = static_cast<double>((2 * n + 1) * k) * std::numbers::pi / 16;
        c[k][n] = std::cos(angle) / 2 * (k == 0 ? std::numbers::sqrt2 / 2 : 1);
      }
    }
    return c;
  }();
  return cosines;
}

std::array<double, 64> Dct(const Plane& plane, std::size_t left, std::size_t top) {
  std::array<double, 64> rows{}, block{};
  for (std::size_t y = 0; y < 8; ++y) {
    for (std::size_t u = 0; u < 8; ++u) {
      for (std::size_t x = 0; x < 8; ++x)
        rows[8 * y + u] += Cosines()[u][x] * plane[top + y][left + x];
    }
  }
  for (std::size_t v = 0; v < 8; ++v) {
    for (std::size_t u = 0; u < 8; ++u) {
      for (std::size_t y = 0; y < 8; ++y)
        block[8 * v + u] += Cosines()[v][y] * rows[8 * y + u];
    }
  }
  return block;
}

// How far the coefficients of the file are from the exact ones, in steps of the quantiser; at most 0.5 if all
// are rounded to the nearest.
double FarthestCoefficient(const made::MadePicture& picture, const Factors& f, int quality) {
  cJpeg jpeg;
  jpeg.Quality(quality);
  jpeg.SetSamplingFrequencies(f[0], f[1], f[2], f[3], f[4], f[5]);
  EXPECT_TRUE(jpeg.SampleHDC(picture.View(), picture.width, picture.height));
  const auto components = made::CoefficientsByLibJpeg(jpeg.Encode());
  const int maxH = std::max({f[0], f[2], f[4]}), maxV = std::max({f[1], f[3], f[5]});
  double farthest = components.size() == 3 ? 0 : 1e9;
  for (std::size_t i = 0; i < components.size(); ++i) {
    const QuantizationTable table =
        ScaleQuantization(i == 0 ? kLuminanceQuantization : kChrominanceQuantization, quality);
    const int h = f[2 * i], v = f[2 * i + 1];
    const int across = (picture.width * h + 8 * maxH - 1) / (8 * maxH);
    const int down = (picture.height * v + 8 * maxV - 1) / (8 * maxV);
    const Plane plane = Samples(picture, i, h, v, maxH, maxV, 8 * across, 8 * down);
    EXPECT_EQ(components[i].size(), static_cast<std::size_t>(64 * across * down));
    for (std::size_t at = 0; at < components[i].size(); ++at) {
      const std::size_t block = at / 64, wide = static_cast<std::size_t>(across);
      static thread_local std::array<double, 64> exact;
      if (at % 64 == 0) exact = Dct(plane, block % wide * 8, block / wide * 8);
      farthest = std::max(farthest, std::abs(components[i][at] - exact[at % 64] / table.entries[at % 64]));
    }
  }
  return farthest;
}

constexpr double kRounded = 0.5 + 2e-3;  // floats of 32 bits leave a little doubt where exactly halfway is

TEST(JpegCoefficients, AreTheNearestForEveryContentAndQuality) {
  for (const made::PictureKind& kind : made::PictureKinds()) {
    for (const int quality : {1, 20, 50, 75, 95, 100}) {
      EXPECT_LE(FarthestCoefficient(kind.make(75, 43), {1, 1, 1, 1, 1, 1}, quality), kRounded)
          << kind.name << " " << quality;
      EXPECT_LE(FarthestCoefficient(kind.make(75, 43), {2, 2, 1, 1, 1, 1}, quality), kRounded)
          << kind.name << " " << quality;
    }
  }
}

// Chroma at half the density across alone, and three scans; with more than one group of units in a row.
TEST(JpegCoefficients, AreTheNearestForEveryContentAndOtherSamplings) {
  for (const made::PictureKind& kind : made::PictureKinds()) {
    EXPECT_LE(FarthestCoefficient(kind.make(150, 20), {2, 1, 1, 1, 1, 1}, 75), kRounded) << kind.name;
    EXPECT_LE(FarthestCoefficient(kind.make(300, 43), {4, 4, 1, 1, 2, 2}, 75), kRounded) << kind.name;
  }
}

// Of the 4096 combinations of factors 1 to 4 the 515 whose units have at most ten blocks make one scan; of
// the others, which make three, every 17th is tried.
TEST(JpegCoefficients, AreTheNearestForEverySampling) {
  const made::MadePicture picture = made::Photograph(37, 35, 4);
  int interleaved = 0;
  for (int code = 0; code < 4096; ++code) {
    Factors factors{};
    for (int i = 0, rest = code; i < 6; ++i, rest /= 4)
      factors[static_cast<std::size_t>(i)] = 1 + rest % 4;
    const auto& f = factors;
    const bool apart = f[0] * f[1] + f[2] * f[3] + f[4] * f[5] > 10;
    if (apart && code % 17 != 0) continue;
    interleaved += apart ? 0 : 1;
    ASSERT_LE(FarthestCoefficient(picture, factors, 90), kRounded)
        << f[0] << f[1] << " " << f[2] << f[3] << " " << f[4] << f[5];
  }
  EXPECT_EQ(interleaved, 515);
}

}  // namespace
}  // namespace vintoral
