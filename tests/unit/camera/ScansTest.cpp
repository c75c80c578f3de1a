#include "camera/cJpeg/Scans.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using testing::ElementsAre;

// The components of the blocks in the order of a scan, as the selector of their tables; -1 for a block that
// says nothing but that all is as in the one before it.
std::vector<int> BlocksOf(const ScanSymbols& scan) {
  std::vector<int> blocks;
  for (const SymbolStore::Piece& piece : scan.Store().Pieces()) {
    for (const SymbolWord* word = piece.words.get(); word != piece.end; word += 2 + word[1] / 2) {
      const bool says = word[0] != 0 || word[1] / 2 > 1;
      blocks.push_back(says ? word[1] % 2 : -1);
    }
  }
  return blocks;
}

// Noise, every block of which says something.
std::vector<ScanSymbols> ScansOf(int width, int height, const SamplingFactors& factors) {
  const made::MadePicture picture = made::Noise(width, height, 3);
  const ColourPlanes planes(picture.View(), 0, 0, width, height);
  const Quantizer quantizer(ScaleQuantization(kLuminanceQuantization, 95));
  return CollectScans(planes, Layout(width, height, false, factors), {quantizer, quantizer}, BestKernels());
}

TEST(Scans, AnInterleavedScanGoesUnitByUnit) {
  const auto scans = ScansOf(32, 16, {{{2, 2}, {1, 1}, {1, 1}}});
  ASSERT_EQ(scans.size(), 1U);
  EXPECT_THAT(BlocksOf(scans[0]), ElementsAre(0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 1, 1));
}

// 24 by 8 pixels are three blocks of luma in a row. Of the two units' eight the five others lie beyond.
TEST(Scans, BlocksBeyondThePictureSayNothing) {
  const auto scans = ScansOf(24, 8, {{{2, 2}, {1, 1}, {1, 1}}});
  ASSERT_EQ(scans.size(), 1U);
  EXPECT_THAT(BlocksOf(scans[0]), ElementsAre(0, 0, -1, -1, 1, 1, 0, -1, -1, -1, 1, 1));
}

TEST(Scans, AScanOfItsOwnHasOnlyTheBlocksOfThePicture) {
  const auto scans = ScansOf(24, 8, {{{4, 4}, {1, 1}, {2, 1}}});
  ASSERT_EQ(scans.size(), 3U);
  EXPECT_THAT(BlocksOf(scans[0]), ElementsAre(0, 0, 0));
  EXPECT_THAT(BlocksOf(scans[1]), ElementsAre(1));
  EXPECT_THAT(BlocksOf(scans[2]), ElementsAre(1, 1));  // 12 samples
}

}  // namespace
}  // namespace vintoral
