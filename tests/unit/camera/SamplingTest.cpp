#include "camera/cJpeg/Sampling.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

bool IsHalved(const SamplingFactors& factors, bool grey = false) {
  return HasHalvedChroma(Layout(40, 40, grey, factors));
}

TEST(Sampling, ChromaIsHalvedAcrossOrBothWays) {
  EXPECT_TRUE(IsHalved({{{2, 2}, {1, 1}, {1, 1}}}));
  EXPECT_TRUE(IsHalved({{{2, 1}, {1, 1}, {1, 1}}}));
}

TEST(Sampling, AnyOtherSamplingIsNotHalved) {
  EXPECT_FALSE(IsHalved({{{1, 1}, {1, 1}, {1, 1}}}));
  EXPECT_FALSE(IsHalved({{{1, 2}, {1, 1}, {1, 1}}}));
  EXPECT_FALSE(IsHalved({{{3, 1}, {1, 1}, {1, 1}}}));
  EXPECT_FALSE(IsHalved({{{2, 3}, {1, 1}, {1, 1}}}));
  EXPECT_FALSE(IsHalved({{{2, 2}, {2, 1}, {1, 1}}}));
  EXPECT_FALSE(IsHalved({{{2, 2}, {1, 2}, {1, 1}}}));
  EXPECT_FALSE(IsHalved({{{2, 2}, {1, 1}, {2, 1}}}));
  EXPECT_FALSE(IsHalved({{{2, 2}, {1, 1}, {1, 2}}}));
  EXPECT_FALSE(IsHalved({{{2, 2}, {1, 1}, {1, 1}}}, true));
}

TEST(Sampling, FullDensityIsThatOfTheDensestBothWays) {
  const Layout layout(40, 40, false, {{{2, 2}, {2, 1}, {1, 2}}});
  EXPECT_TRUE(IsFullDensity(layout, 0));
  EXPECT_FALSE(IsFullDensity(layout, 1));
  EXPECT_FALSE(IsFullDensity(layout, 2));
}

}  // namespace
}  // namespace vintoral
