#include "camera/cJpeg/Kernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "camera/cJpeg/EncodePlanes.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

constexpr std::size_t kStride = 80;  // more than the group's width

// ITU-T T.81, A.3.3, as it stands there.
double DctByDefinition(const float* block, int u, int v) {
  const auto scale = [](int k) { return k == 0 ? std::numbers::sqrt2 / 2 : 1.0; };
  double sum = 0;
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      sum += static_cast<double>(block[static_cast<std::size_t>(y) * kStride + static_cast<std::size_t>(x)]) *
             std::cos((2 * x + 1) * u * std::numbers::pi / 16) *
             std::cos((2 * y + 1) * v * std::numbers::pi / 16);
    }
  }
  return sum * scale(u) * scale(v) / 4;
}

void ExpectBlock(const CodedBlock& block, const float* samples, const QuantizationTable& table) {
  for (std::size_t k = 0; k < 64; ++k) {
    const std::size_t place = kZigZag[k];
    const double exact = DctByDefinition(samples, static_cast<int>(place % 8), static_cast<int>(place / 8));
    const double quantized = exact / table.entries[place];
    ASSERT_NEAR(block.values[k], quantized, 0.5 + 1e-4) << "coefficient " << k;
    ASSERT_EQ((block.nonzero >> k & 1U) != 0, k > 0 && block.values[k] != 0) << "coefficient " << k;
  }
}

class KernelsTest : public testing::TestWithParam<const Kernels*> {};

TEST_P(KernelsTest, TransformIsTheStandards) {
  std::mt19937 random(8);
  QuantizationTable table;
  for (int round = 0; round < 30; ++round) {
    for (auto& entry : table.entries)
      entry = static_cast<std::uint16_t>(round == 0 ? 1 : 1 + random() % 40);
    std::vector<float> samples(8 * kStride);
    const bool extreme = round % 3 == 0;
    for (float& sample : samples) {
      const auto byte = static_cast<int>(random() % 256);
      sample = static_cast<float>(extreme ? (byte < 128 ? -128 : 127) : byte - 128);
    }
    CodedBlock blocks[kGroupBlocks];
    GetParam()->transform(samples.data(), kStride, Quantizer(table), blocks);
    for (std::size_t i = 0; i < kGroupBlocks; ++i)
      ExpectBlock(blocks[i], samples.data() + 8 * i, table);
  }
}

TEST_P(KernelsTest, ColourIsTheStandards) {
  constexpr std::ptrdiff_t kCount = 37;  // no whole number of vectors
  std::mt19937 random(2);
  std::vector<std::uint8_t> red(kCount), green(kCount), blue(kCount);
  std::vector<float> y(kCount), cb(kCount), cr(kCount);
  for (auto* plane : {&red, &green, &blue}) {
    for (auto& byte : *plane)
      byte = static_cast<std::uint8_t>(random());
  }
  GetParam()->toYcc(red.data(), green.data(), blue.data(), kCount, y.data(), cb.data(), cr.data());
  for (std::size_t i = 0; i < kCount; ++i) {  // ITU-T T.871, 7
    EXPECT_NEAR(y[i], 0.299 * red[i] + 0.587 * green[i] + 0.114 * blue[i] - 128, 1e-4);
    EXPECT_NEAR(cb[i], -0.168736 * red[i] - 0.331264 * green[i] + 0.5 * blue[i], 3e-4);
    EXPECT_NEAR(cr[i], 0.5 * red[i] - 0.418688 * green[i] - 0.081312 * blue[i], 3e-4);
  }
}

TEST_P(KernelsTest, LumaIsTheStandards) {
  constexpr std::ptrdiff_t kCount = 37;
  std::vector<std::uint8_t> red(kCount), green(kCount), blue(kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    red[i] = static_cast<std::uint8_t>(7 * i);
    green[i] = static_cast<std::uint8_t>(255 - 5 * i);
    blue[i] = static_cast<std::uint8_t>(i % 2 == 0 ? 0 : 255);
  }
  std::vector<float> y(kCount + 1, 1e6F);
  GetParam()->toLuma(red.data(), green.data(), blue.data(), kCount, y.data());
  for (std::size_t i = 0; i < kCount; ++i)
    EXPECT_NEAR(y[i], 0.299 * red[i] + 0.587 * green[i] + 0.114 * blue[i] - 128, 1e-4);
  EXPECT_EQ(y[kCount], 1e6F);
}

// Each of the four pixels of a square weighs the same, at the values where a sum is largest too.
TEST_P(KernelsTest, SumSquaresAddsFourNeighbours) {
  constexpr std::ptrdiff_t kCount = 21;
  std::vector<std::uint8_t> upper(2 * kCount), lower(2 * kCount);
  std::vector<float> sums(kCount + 1, -1.0F);
  for (std::size_t i = 0; i < upper.size(); ++i) {
    upper[i] = static_cast<std::uint8_t>(i % 2 == 0 ? 255 : 6 * i);
    lower[i] = static_cast<std::uint8_t>(i < 4 ? 255 : 1 + i);
  }
  upper[1] = 255;
  GetParam()->sumSquares(upper.data(), lower.data(), kCount, sums.data());
  EXPECT_EQ(sums[0], 1020.0F);
  for (std::size_t i = 2; i < kCount; ++i) {
    const std::size_t left = 2 * i, right = left + 1;
    EXPECT_EQ(sums[i], static_cast<float>(255 + static_cast<std::uint8_t>(6 * right) + 1 + left + 1 + right));
  }
  EXPECT_EQ(sums[kCount], -1.0F);
}

TEST_P(KernelsTest, ChromaOfSumsIsTheMeanOfTheStandards) {
  constexpr std::ptrdiff_t kCount = 21;
  std::vector<float> red(kCount), green(kCount), blue(kCount), cb(kCount), cr(kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    red[i] = static_cast<float>(51 * i);
    green[i] = static_cast<float>(1020 - 50 * i);
    blue[i] = static_cast<float>(i % 2 == 0 ? 1020 : 3);
  }
  GetParam()->toChroma(red.data(), green.data(), blue.data(), kCount, cb.data(), cr.data());
  for (std::size_t i = 0; i < kCount; ++i) {
    const double r = red[i] / 4.0, g = green[i] / 4.0, b = blue[i] / 4.0;
    EXPECT_NEAR(cb[i], -0.168736 * r - 0.331264 * g + 0.5 * b, 3e-4);
    EXPECT_NEAR(cr[i], 0.5 * r - 0.418688 * g - 0.081312 * b, 3e-4);
  }
}

TEST_P(KernelsTest, SplitPartsTheBytes) {
  std::vector<std::uint8_t> pixels(3 * 41), red(41), green(41), blue(41);
  for (std::size_t i = 0; i < pixels.size(); ++i)
    pixels[i] = static_cast<std::uint8_t>(i);
  GetParam()->split(pixels.data(), 41, red.data(), green.data(), blue.data());
  for (std::size_t i = 0; i < 41; ++i) {
    ASSERT_EQ(blue[i], 3 * i);
    ASSERT_EQ(green[i], 3 * i + 1);
    ASSERT_EQ(red[i], 3 * i + 2);
  }
}

INSTANTIATE_TEST_SUITE_P(AllSets, KernelsTest, testing::Values(&kPortableKernels, &BestKernels()),
                         [](const auto& test) { return test.index == 0 ? "Portable" : "Best"; });

TEST(Kernels, AllSetsGiveTheSameFile) {
  const std::array<QuantizationTable, 2> tables = {ScaleQuantization(kLuminanceQuantization, 97),
                                                   ScaleQuantization(kChrominanceQuantization, 97)};
  for (const made::PictureKind& kind : made::PictureKinds()) {
    const made::MadePicture picture = kind.make(203, 77);
    const ColourPlanes planes(picture.View(), 0, 0, 203, 77);
    for (const SamplingFactors& factors : {SamplingFactors{{{1, 1}, {1, 1}, {1, 1}}},
                                           {{{2, 2}, {1, 1}, {1, 1}}},
                                           {{{2, 1}, {1, 1}, {1, 1}}},
                                           {{{3, 2}, {1, 1}, {2, 1}}},
                                           {{{4, 4}, {1, 1}, {3, 2}}}}) {
      EXPECT_EQ(EncodePlanes(planes, tables, factors, "", kPortableKernels),
                EncodePlanes(planes, tables, factors, "", BestKernels()))
          << kind.name;
    }
  }
}

}  // namespace
}  // namespace vintoral
