// What each mark of the tariff language does to a price.
#include "tariffs/Valor.h"

#include <gtest/gtest.h>

#include "unit/tariffs/Categoria.h"

namespace vintoral {
namespace {

Money Units(std::int64_t units) {
  return Money::FromUnits(units);
}

TEST(Minutos, OneStarChargesEachMinuteFromTheFirst) {
  EXPECT_EQ(PriceBy({"1M = 100*"}, {0, 0, 0}).valor, Units(0));
  EXPECT_EQ(PriceBy({"1M = 100*"}, {0, 0, 1}).valor, Units(100));
  EXPECT_EQ(PriceBy({"1M = 100*"}, {0, 0, 59}).valor, Units(5900));
}

TEST(Minutos, AKeyAboveOneWithAStarIsChargedByTheMinuteUpToIt) {
  EXPECT_EQ(PriceBy({"15M = 10*", "30M = 7*"}, {0, 0, 15}).valor, Units(150));
  EXPECT_EQ(PriceBy({"15M = 10*", "30M = 7*"}, {0, 0, 16}).valor, Units(112));
}

TEST(Minutos, NoStarIsAStep) {
  EXPECT_EQ(PriceBy({"17M = 500", "32M = 1000"}, {0, 0, 1}).valor, Units(500));
  EXPECT_EQ(PriceBy({"17M = 500", "32M = 1000"}, {0, 0, 17}).valor, Units(500));
  EXPECT_EQ(PriceBy({"17M = 500", "32M = 1000"}, {0, 0, 18}).valor, Units(1000));
}

TEST(Minutos, ALongerStayKeepsTheLastStep) {
  EXPECT_EQ(PriceBy({"15M = 400", "30M = 800"}, {0, 0, 45}).valor, Units(800));
  EXPECT_EQ(PriceBy({"15M = 400", "30M = 8*"}, {0, 0, 45}).valor, Units(8));
}

TEST(Minutos, TheFirstStepIsChargedOnWholeHours) {
  EXPECT_EQ(PriceBy({"15M = 500", "1H = 2000"}, {0, 1, 0}).valor, Units(2500));
  EXPECT_EQ(PriceBy({"15M = 0", "1H = 2000"}, {0, 1, 0}).valor, Units(2000));
  EXPECT_EQ(PriceBy({"15M = 500*", "1H = 2000"}, {0, 1, 0}).valor, Units(2000));
}

TEST(Minutos, KeyZeroIsAFlatPrice) {
  EXPECT_EQ(PriceBy({"0M = 300000"}, {0, 0, 0}).valor, Units(300000));
  EXPECT_EQ(PriceBy({"0M = 300000"}, {0, 0, 1}).valor, Units(300000));
  EXPECT_EQ(PriceBy({"0M = 300000"}, {12, 23, 59}).valor, Units(300000));
}

TEST(Minutos, AStarWithNoValueDoesNotChargeByTheMinute) {
  EXPECT_EQ(PriceBy({"1M = 0*", "30M = 700"}, {0, 0, 20}).valor, Units(700));
}

TEST(PrimeraHora, ZeroWithTwoStarsMakesAnHourOfTheFirstMinutes) {
  for (const std::int32_t minutos : {1, 2, 59}) {
    const Valor valor = PriceBy({"1M = 0**", "5M = 40", "1H = 600"}, {0, 0, minutos});
    EXPECT_EQ(valor.contada, (Estadia{0, 1, 0}));
    EXPECT_EQ(valor.valor, Units(640));
    EXPECT_EQ(valor.reglasMinutos, 1U);
    EXPECT_EQ(valor.reglasHoras, 1U);
  }
}

TEST(PrimeraHora, AStayOfNothingStaysNothing) {
  const Valor valor = PriceBy({"1M = 0**", "1H = 600"}, {0, 0, 0});
  EXPECT_EQ(valor.contada, (Estadia{0, 0, 0}));
  EXPECT_EQ(valor.valor, Units(0));
  EXPECT_TRUE(valor.conPrecio);
}

TEST(PrimeraHora, AfterAnHourTheLineCountsAsAnyOther) {
  EXPECT_EQ(PriceBy({"1M = 0**", "30M = 200", "1H = 600"}, {0, 1, 1}).valor, Units(600));
  EXPECT_EQ(PriceBy({"1M = 0**", "30M = 200", "1H = 600"}, {0, 1, 2}).valor, Units(800));
  EXPECT_EQ(PriceBy({"1M = 10**", "1H = 600"}, {0, 1, 20}).valor, Units(800));
}

TEST(PrimeraHora, AValueRaisesWhenTheLineBelowSpeaksOfHours) {
  const Valor valor = PriceBy({"1M = 10**", "1H = 600"}, {0, 0, 20});
  EXPECT_EQ(valor.contada, (Estadia{0, 1, 0}));
  EXPECT_EQ(valor.valor, Units(600));
  EXPECT_EQ(valor.reglasMinutos, 0U);
}

TEST(PrimeraHora, WithoutHoursBelowTheLineIsDroppedAndTheStayKept) {
  const Valor valor = PriceBy({"1M = 10**", "30M = 200", "1H = 600"}, {0, 0, 20});
  EXPECT_EQ(valor.contada, (Estadia{0, 0, 20}));
  EXPECT_EQ(valor.valor, Units(200));
  EXPECT_EQ(valor.reglasMinutos, 1U);
  EXPECT_EQ(valor.reglasHoras, 0U);
}

TEST(PrimeraHora, ADroppedLineCanLeaveNoPrice) {
  EXPECT_FALSE(PriceBy({"1M = 10**"}, {0, 0, 20}).conPrecio);
}

TEST(PrimeraHora, TheHeadOfTheNextCategoryCanBeTheLineBelow) {
  const std::vector<String> tabla = TableOf({"X"_w, "1M = 10**"_w, "HOTEL"_w, "1M = 5"_w});
  EXPECT_EQ(CalcularValorDe(tabla, "X", {0, 0, 20}).contada, (Estadia{0, 1, 0}));
}

TEST(PrimeraHora, TheLastLineOfTheTableIsAnOrdinaryRule) {
  const std::vector<String> tabla = TableOf({"X"_w, "1M = 0**"_w});
  const Valor zero = CalcularValorDe(tabla, "X", {0, 0, 20});
  EXPECT_EQ(zero.contada, (Estadia{0, 0, 20}));
  EXPECT_EQ(zero.reglasMinutos, 1U);
  EXPECT_EQ(CalcularValorDe(TableOf({"X"_w, "1M = 10**"_w}), "X", {0, 0, 20}).valor, Units(200));
}

TEST(PrimeraHora, AsksOnlyForHoursAtZero) {
  const Valor valor = PriceBy({"1M = 0**", "1H = 600", "1D = 3000*"}, {3, 0, 1});
  EXPECT_EQ(valor.contada, (Estadia{3, 1, 0}));
  EXPECT_EQ(valor.valor, Units(9600));
  EXPECT_EQ(PriceBy({"1M = 0**", "1H = 600", "1D = 3000*"}, {3, 0, 0}).contada, (Estadia{3, 0, 0}));
}

TEST(PrimeraHora, MinusOneIsOne) {
  EXPECT_EQ(PriceBy({"-1M = 0**", "1H = 600"}, {0, 0, 5}).valor, Units(600));
  EXPECT_EQ(PriceBy({"2M = 0**", "1H = 600"}, {0, 0, 5}).contada, (Estadia{0, 0, 5}));
}

TEST(PrimeraHora, OnlyHourLinesBelowTheMarkSeeTheRaisedHour) {
  const Valor above = PriceBy({"1H = 600", "1M = 0**", "5M = 3"}, {0, 0, 5});
  EXPECT_EQ(above.reglasHoras, 0U);
  EXPECT_EQ(above.valor, Units(3));
}

TEST(PrimeraHora, ALineOfTwoClassesSeesTheHourThatItRaised) {
  const Valor valor = PriceBy({"1MH = 0**"}, {0, 0, 5});
  EXPECT_EQ(valor.reglasMinutos, 0U);
  EXPECT_EQ(valor.reglasHoras, 1U);
}

TEST(PrimeraHora, MinuteLinesAboveTheMarkStayAndSeeTheRaisedStay) {
  EXPECT_EQ(PriceBy({"9M = 70", "1M = 0**", "1H = 600"}, {0, 0, 30}).valor, Units(670));
}

TEST(Horas, NoStarIsAStep) {
  EXPECT_EQ(PriceBy({"2H = 12000", "3H = 18000"}, {0, 1, 0}).valor, Units(12000));
  EXPECT_EQ(PriceBy({"2H = 12000", "3H = 18000"}, {0, 3, 0}).valor, Units(18000));
}

TEST(Horas, OneStarChargesEachHourFromTheFirst) {
  EXPECT_EQ(PriceBy({"1H = 600*", "5H = 1"}, {0, 7, 0}).valor, Units(4200));
  EXPECT_EQ(PriceBy({"5H = 500*"}, {0, 4, 0}).valor, Units(2000));
}

TEST(Horas, TwoStarsLeaveOutTheMinutes) {
  EXPECT_EQ(PriceBy({"1M = 10*", "5H = 30000**"}, {0, 4, 30}).valor, Units(30000));
  EXPECT_EQ(PriceBy({"1M = 10*", "5H = 30000"}, {0, 4, 30}).valor, Units(30300));
}

TEST(Horas, TwoStarsOnTheFirstHourDoNotChargeByTheHour) {
  EXPECT_EQ(PriceBy({"1H = 600**", "5H = 2500"}, {0, 3, 0}).valor, Units(2500));
  EXPECT_EQ(PriceBy({"1H = 600**", "5H = 2500"}, {0, 1, 0}).valor, Units(600));
}

TEST(Horas, PastTheLastKeyTheLastValueAndTheMinutesStay) {
  EXPECT_EQ(PriceBy({"1M = 10*", "1H = 2000", "2H = 4000"}, {0, 9, 30}).valor, Units(4300));
  EXPECT_EQ(PriceBy({"1M = 10*", "1H = 2000", "2H = 4000**"}, {0, 9, 30}).valor, Units(4300));
}

TEST(Dias, OneStarChargesEachDay) {
  EXPECT_EQ(PriceBy({"1D = 30000*"}, {1, 0, 0}).valor, Units(30000));
  EXPECT_EQ(PriceBy({"1D = 30000*"}, {12, 0, 0}).valor, Units(360000));
}

TEST(Dias, TwoStarsAreOneAndClearNothing) {
  EXPECT_EQ(PriceBy({"1M = 1*", "1H = 100", "1D = 30000**"}, {2, 1, 5}).valor, Units(60105));
}

TEST(Dias, NoStarIsAStepThatKeepsItsLastValue) {
  EXPECT_EQ(PriceBy({"2D = 50", "7D = 90"}, {2, 0, 0}).valor, Units(50));
  EXPECT_EQ(PriceBy({"2D = 50", "7D = 90"}, {3, 0, 0}).valor, Units(90));
  EXPECT_EQ(PriceBy({"2D = 50", "7D = 90*"}, {8, 0, 0}).valor, Units(90));
}

TEST(Dias, AddToHoursAndMinutes) {
  EXPECT_EQ(PriceBy({"1M = 1*", "5H = 100", "1D = 1000*"}, {1, 5, 9}).valor, Units(1109));
}

TEST(Lineas, AreThoseThatGaveTheParts) {
  // X is line 0.
  const std::vector<std::string_view> rules = {"5M = 1", "30M = 2", "2H = 3", "9H = 4", "1D = 5", "2D = 6"};
  const Valor steps = PriceBy(rules, {1, 2, 30});
  EXPECT_EQ(steps.lineaMinutos, 2U);
  EXPECT_EQ(steps.lineaHoras, 3U);
  EXPECT_EQ(steps.lineaDias, 5U);
  const Valor beyond = PriceBy(rules, {3, 10, 31});
  EXPECT_EQ(beyond.lineaMinutos, 2U);
  EXPECT_EQ(beyond.lineaHoras, 4U);
  EXPECT_EQ(beyond.lineaDias, 6U);
  EXPECT_EQ(PriceBy({"1H = 600**"}, {0, 1, 0}).lineaHoras, 1U);
}

TEST(Lineas, AreNoneWhereNoRuleCounts) {
  const Valor valor = PriceBy({"1M = 0**", "1H = 600", "1D = 3000*"}, {0, 0, 20});
  EXPECT_EQ(valor.lineaMinutos, std::nullopt);
  EXPECT_EQ(valor.lineaHoras, 2U);
  EXPECT_EQ(valor.lineaDias, std::nullopt);
}

}  // namespace
}  // namespace vintoral
