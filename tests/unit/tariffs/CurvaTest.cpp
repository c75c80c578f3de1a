#include "tariffs/Curva.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::IsEmpty;

Money Units(std::int64_t units) {
  return Money::FromUnits(units);
}

TEST(Curva, IsTheValueOfEachMinuteOfADay) {
  const std::vector<Money> curve = CurvaDeTarifa(TarifasPredeterminadas(), "AUTOMOVIL");
  ASSERT_EQ(curve.size(), 1441U);
  EXPECT_EQ(curve[0], Units(0));
  EXPECT_EQ(curve[37], Units(3700));
  EXPECT_EQ(curve[60], Units(6000));
  EXPECT_EQ(curve[2 * 60 + 30], Units(15000));  // 12000 and 30 minutes of 100
  EXPECT_EQ(curve[4 * 60 + 59], Units(29900));
  EXPECT_EQ(curve[5 * 60], Units(30000));
  EXPECT_EQ(curve[23 * 60 + 59], Units(30000));
  EXPECT_EQ(curve[24 * 60], Units(30000));  // the day's own rule
}

TEST(Curva, ChargesADayAtItsEnd) {
  const std::vector<Money> curve = CurvaDeTarifa({"X"_w, "1H = 7*"_w, "1D = 1000"_w}, "X");
  ASSERT_EQ(curve.size(), 1441U);
  EXPECT_EQ(curve[1439], Units(161));  // 23 hours of 7
  EXPECT_EQ(curve[1440], Units(1000));
}

TEST(Curva, TakesTheLinesAsSavingWouldStoreThem) {
  // The stars stand past the twentieth character.
  const std::vector<Money> curve =
      CurvaDeTarifa({" auto "_w, "  1m =             500*  "_w, ""_w, "1m = 9"_w}, "AUTO");
  ASSERT_EQ(curve.size(), 1441U);
  EXPECT_EQ(curve[1], Units(500));
  EXPECT_EQ(curve[30], Units(500));
}

TEST(Curva, EndsAtTheBlankLineAndSeesIt) {
  // With a line below it the mark makes an hour of the first minutes, and no rule charges that hour.
  const std::vector<Money> marked = CurvaDeTarifa({"X"_w, "1M = 0**"_w, "2M = 5"_w, ""_w, "1H = 9"_w}, "X");
  ASSERT_EQ(marked.size(), 1441U);
  EXPECT_EQ(marked[1], Units(5));
  EXPECT_EQ(marked[60], Units(0));
  const std::vector<Money> last = CurvaDeTarifa({"X"_w, "1M = 10**"_w}, "X");
  const std::vector<Money> dropped = CurvaDeTarifa({"X"_w, "1M = 10**"_w, ""_w}, "X");
  ASSERT_EQ(last.size(), 1441U);
  ASSERT_EQ(dropped.size(), 1441U);
  EXPECT_EQ(last[3], Units(30));
  EXPECT_EQ(dropped[3], Units(0));
  EXPECT_EQ(dropped[63], Units(30));
}

TEST(Curva, AFlatPriceIsTheSameThroughout) {
  const std::vector<Money> curve = CurvaDeTarifa(TarifasPredeterminadas(), "lavado automovil");
  EXPECT_EQ(curve.size(), 1441U);
  EXPECT_THAT(curve, Each(Units(50000)));
}

TEST(Curva, IsNoneWithoutAPrice) {
  EXPECT_THAT(CurvaDeTarifa(TarifasPredeterminadas(), "VISITANTE"), IsEmpty());
  EXPECT_THAT(CurvaDeTarifa(TarifasPredeterminadas(), "CAMION"), IsEmpty());
  EXPECT_THAT(CurvaDeTarifa(TarifasPredeterminadas(), ""), IsEmpty());
  EXPECT_THAT(CurvaDeTarifa({}, "AUTOMOVIL"), IsEmpty());
  EXPECT_THAT(CurvaDeTarifa({"X"_w, "1 = 500"_w}, "X"), IsEmpty());
}

TEST(Curva, AFreePriceIsAPrice) {
  const std::vector<Money> curve = CurvaDeTarifa({"X"_w, "0M = 0"_w}, "X");
  EXPECT_EQ(curve.size(), 1441U);
  EXPECT_THAT(curve, Each(Money()));
}

}  // namespace
}  // namespace vintoral
