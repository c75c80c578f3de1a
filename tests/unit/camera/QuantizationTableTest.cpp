#include "camera/cJpeg/QuantizationTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "camera/cJpeg/cJpegError.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;

// clang-format off
// ITU-T T.81, table K.1.
constexpr int kTableK1[] = {
    16, 11, 10, 16, 24, 40, 51, 61,
    12, 12, 14, 19, 26, 58, 60, 55,
    14, 13, 16, 24, 40, 57, 69, 56,
    14, 17, 22, 29, 51, 87, 80, 62,
    18, 22, 37, 56, 68, 109, 103, 77,
    24, 35, 55, 64, 81, 104, 113, 92,
    49, 64, 78, 87, 103, 121, 120, 101,
    72, 92, 95, 98, 112, 100, 103, 99};

// ITU-T T.81, table K.2.
constexpr int kTableK2[] = {
    17, 18, 24, 47, 99, 99, 99, 99,
    18, 21, 26, 66, 99, 99, 99, 99,
    24, 26, 56, 99, 99, 99, 99, 99,
    47, 66, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99};

// ITU-T T.81, figure A.6: the number that each place of the block has in the sequence.
constexpr int kFigureA6[] = {
     0,  1,  5,  6, 14, 15, 27, 28,
     2,  4,  7, 13, 16, 26, 29, 42,
     3,  8, 12, 17, 25, 30, 41, 43,
     9, 11, 18, 24, 31, 40, 44, 53,
    10, 19, 23, 32, 39, 45, 52, 54,
    20, 22, 33, 38, 46, 51, 55, 60,
    21, 34, 37, 47, 50, 56, 59, 61,
    35, 36, 48, 49, 57, 58, 62, 63};
// clang-format on

TEST(QuantizationTable, HoldsTheStandardsTables) {
  EXPECT_THAT(kLuminanceQuantization.entries, ElementsAreArray(kTableK1));
  EXPECT_THAT(kChrominanceQuantization.entries, ElementsAreArray(kTableK2));
}

TEST(QuantizationTable, ZigZagFollowsTheStandardsFigure) {
  for (std::size_t place = 0; place < 64; ++place) {
    EXPECT_EQ(kZigZag[static_cast<std::size_t>(kFigureA6[place])], place);
  }
}

TEST(QuantizationTable, Quality50IsTheBase) {
  EXPECT_EQ(ScaleQuantization(kLuminanceQuantization, 50).entries, kLuminanceQuantization.entries);
}

TEST(QuantizationTable, Quality100IsAllOnes) {
  EXPECT_THAT(ScaleQuantization(kLuminanceQuantization, 100).entries, Each(1));
  EXPECT_THAT(ScaleQuantization(kChrominanceQuantization, 100).entries, Each(1));
}

TEST(QuantizationTable, Quality1IsClampedTo255) {
  // Scale 5000: the least entry, 10, would become 500.
  EXPECT_THAT(ScaleQuantization(kLuminanceQuantization, 1).entries, Each(255));
}

std::vector<int> FirstRow(int quality) {
  const QuantizationTable table = ScaleQuantization(kLuminanceQuantization, quality);
  return {table.entries.begin(), table.entries.begin() + 8};
}

TEST(QuantizationTable, ScalesAndRoundsByTheRule) {
  // Scale 200 - 2 * 95 = 10: (16 * 10 + 50) / 100 = 2, (11 * 10 + 50) / 100 = 1, ...
  EXPECT_THAT(FirstRow(95), ElementsAre(2, 1, 1, 2, 2, 4, 5, 6));
  // Scale 200 - 2 * 75 = 50.
  EXPECT_THAT(FirstRow(75), ElementsAre(8, 6, 5, 8, 12, 20, 26, 31));
  // Scale 5000 / 30 = 166, cut: (16 * 166 + 50) / 100 = 27.
  EXPECT_THAT(FirstRow(30), ElementsAre(27, 18, 17, 27, 40, 66, 85, 101));
}

std::string ErrorOfCheck(const QuantizationTable& table) {
  try {
    CheckQuantization(table);
  } catch (const cJpegError& error) {
    return error.what();
  }
  return "";
}

TEST(QuantizationTable, CheckNamesWhatIsWrong) {
  QuantizationTable table = kLuminanceQuantization;
  EXPECT_EQ(ErrorOfCheck(table), "");
  table.entries[63] = 0;
  EXPECT_EQ(ErrorOfCheck(table), "Bad Quantization Table");
  table.entries[63] = 256;
  EXPECT_EQ(ErrorOfCheck(table), "Bad Quantization Table");
  table.entries[63] = 255;
  EXPECT_EQ(ErrorOfCheck(table), "");
  table.precision = 1;
  EXPECT_EQ(ErrorOfCheck(table), "Illegal precission in Quantization Table");
}

}  // namespace
}  // namespace vintoral
