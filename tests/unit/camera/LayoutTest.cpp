#include "camera/cJpeg/Layout.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

TEST(Layout, UnitsCoverThePicture) {
  const Layout layout(37, 33, false, {{{2, 2}, {1, 1}, {1, 1}}});
  EXPECT_EQ(layout.unitsAcross, 3);  // of 16 pixels
  EXPECT_EQ(layout.unitsDown, 3);
  const Layout exact(32, 16, false, {{{2, 2}, {1, 1}, {1, 1}}});
  EXPECT_EQ(exact.unitsAcross, 2);
  EXPECT_EQ(exact.unitsDown, 1);
}

TEST(Layout, InterleavesUpToTenBlocks) {
  EXPECT_EQ(Layout(8, 8, false, {{{1, 1}, {1, 1}, {1, 1}}}).Scans(), 1);
  EXPECT_EQ(Layout(8, 8, false, {{{4, 2}, {1, 1}, {1, 1}}}).Scans(), 1);
  EXPECT_EQ(Layout(8, 8, false, {{{3, 3}, {1, 1}, {1, 1}}}).Scans(), 3);
  EXPECT_EQ(Layout(8, 8, false, {{{1, 1}, {1, 1}, {3, 3}}}).Scans(), 3);
  EXPECT_EQ(Layout(8, 8, false, {{{4, 4}, {4, 4}, {4, 4}}}).Scans(), 3);
}

TEST(Layout, AGreyPictureHasOneScanOfSingleBlocks) {
  const Layout layout(37, 33, true, {{{4, 4}, {4, 4}, {4, 4}}});
  EXPECT_EQ(layout.Scans(), 1);
  EXPECT_EQ(layout.unitsAcross, 5);
  EXPECT_EQ(layout.unitsDown, 5);
}

// 37 pixels are 37, ceil(37 / 3) = 13 and ceil(74 / 3) = 25 samples, in blocks of eight; 33 are 33, 17
// and 17.
TEST(Layout, BlocksOfAComponentCoverItsSamples) {
  const Layout layout(37, 33, false, {{{3, 4}, {1, 2}, {2, 2}}});
  EXPECT_EQ(layout.blocksAcross[0], 5);
  EXPECT_EQ(layout.blocksAcross[1], 2);
  EXPECT_EQ(layout.blocksAcross[2], 4);
  EXPECT_EQ(layout.blocksDown[0], 5);
  EXPECT_EQ(layout.blocksDown[1], 3);
  EXPECT_EQ(layout.blocksDown[2], 3);
}

// 24 pixels at a third are 8 samples, one block; 25 are 9, two.
TEST(Layout, ASampleThatIsBegunCounts) {
  EXPECT_EQ(Layout(24, 24, false, {{{3, 3}, {1, 1}, {1, 1}}}).blocksAcross[1], 1);
  EXPECT_EQ(Layout(25, 25, false, {{{3, 3}, {1, 1}, {1, 1}}}).blocksAcross[1], 2);
  EXPECT_EQ(Layout(25, 24, false, {{{3, 3}, {1, 1}, {1, 1}}}).blocksDown[1], 1);
  EXPECT_EQ(Layout(24, 25, false, {{{3, 3}, {1, 1}, {1, 1}}}).blocksDown[1], 2);
}

}  // namespace
}  // namespace vintoral
