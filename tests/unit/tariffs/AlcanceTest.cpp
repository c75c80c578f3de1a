#include "tariffs/Alcance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vintoral {
namespace {

using testing::ElementsAre;

TEST(LineasAlcanzadas, AreThoseThatPriceSomeStay) {
  // 9M stands behind a price of each minute; 3D behind a higher key, before the last.
  EXPECT_THAT(LineasAlcanzadas({"X"_w, "1M = 5*"_w, "9M = 4"_w, "1H = 6"_w, "4D = 7"_w, "3D = 8"_w,
                                "9D = 9"_w, "15 = 1"_w, ""_w}),
              ElementsAre(false, true, false, true, true, false, true, false, false));
}

TEST(LineasAlcanzadas, AreNoneWithoutRules) {
  EXPECT_THAT(LineasAlcanzadas({"X"_w}), ElementsAre(false));
}

}  // namespace
}  // namespace vintoral
