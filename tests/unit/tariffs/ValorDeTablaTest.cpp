// Where the rules of a category begin and end, and how the sum becomes money.
#include <gtest/gtest.h>

#include <limits>

#include "unit/tariffs/Categoria.h"

namespace vintoral {
namespace {

constexpr Estadia kTenMinutes = {0, 0, 10};

Money Cents(std::int64_t cents) {
  return Money::FromRaw(cents * 100);
}

TEST(Categoria, IsFoundWhateverItsCaseAndBlanks) {
  const std::vector<String> tabla = TableOf({" camión"_w, " 5m=70"_w});
  for (const String& name : {"CAMIÓN"_w, "camión"_w, "  Camión     "_w}) {
    const Valor valor = CalcularValorDe(tabla, name, {0, 0, 5});
    EXPECT_TRUE(valor.encontrada) << name.ToUtf8();
    EXPECT_EQ(valor.valor, Money::FromUnits(70)) << name.ToUtf8();
  }
  EXPECT_FALSE(CalcularValorDe(tabla, "CAMION", {0, 0, 5}).encontrada);
}

TEST(Categoria, IsAnotherWithAZeroByte) {
  const String name(std::string_view("X\0", 2));
  EXPECT_FALSE(CalcularValorDe(TableOf({"X"_w}), name, kTenMinutes).encontrada);
  EXPECT_TRUE(CalcularValorDe(TableOf({name}), name, kTenMinutes).encontrada);
}

TEST(Categoria, UnknownCostsNothing) {
  const Valor valor = CalcularValorDe(TableOf({"X"_w, "1M = 5"_w}), "Y", kTenMinutes);
  EXPECT_FALSE(valor.encontrada);
  EXPECT_FALSE(valor.conPrecio);
  EXPECT_EQ(valor.valor, Money());
  EXPECT_EQ(valor.contada, kTenMinutes);
}

TEST(Categoria, IsUnknownInAnEmptyTable) {
  EXPECT_FALSE(CalcularValorDe({}, "X", kTenMinutes).encontrada);
  EXPECT_FALSE(CalcularValorDe({}, "", kTenMinutes).encontrada);
}

TEST(Categoria, WithoutANameIsTheFirstBlankLine) {
  const Valor valor = CalcularValorDe(TableOf({" "_w, "1M = 5"_w}), "  ", kTenMinutes);
  EXPECT_TRUE(valor.encontrada);
  EXPECT_FALSE(valor.conPrecio);
}

TEST(Categoria, TheFirstOfTwoWithOneNameCounts) {
  const std::vector<String> tabla = TableOf({"X"_w, "0M = 1"_w, ""_w, "X"_w, "0M = 2"_w});
  EXPECT_EQ(CalcularValorDe(tabla, "X", kTenMinutes).valor, Money::FromUnits(1));
}

TEST(Categoria, IsCutToTwentyLettersInTheTableOnly) {
  const std::vector<String> tabla = TableOf({"UNA CATEGORIA DE NOMBRE LARGO"_w, "0M = 1"_w});
  EXPECT_TRUE(CalcularValorDe(tabla, "UNA CATEGORIA DE NOM", kTenMinutes).encontrada);
  EXPECT_FALSE(CalcularValorDe(tabla, "UNA CATEGORIA DE NOMBRE LARGO", kTenMinutes).encontrada);
}

TEST(Categoria, ThatNamesARuleBeginsWithThatRule) {
  const std::vector<String> tabla = TableOf({"X"_w, "0M = 1"_w, "0M = 2"_w});
  EXPECT_EQ(CalcularValorDe(tabla, "0m = 1", {0, 0, 0}).valor, Money::FromUnits(1));
}

TEST(Reglamento, EndsAtTheFirstBlankLine) {
  const Valor valor = CalcularValorDe(TableOf({"X"_w, "0M = 1"_w, ""_w, "0M = 2"_w}), "X", kTenMinutes);
  EXPECT_EQ(valor.reglasMinutos, 1U);
  EXPECT_EQ(valor.valor, Money::FromUnits(1));
}

TEST(Reglamento, RunsOnThroughALineOfAZeroByte) {
  const String zero(1, '\0');
  const Valor valor = CalcularValorDe(TableOf({"X"_w, "0M = 1"_w, zero, "9M = 2"_w}), "X", {0, 0, 5});
  EXPECT_EQ(valor.reglasMinutos, 2U);
  EXPECT_EQ(valor.valor, Money::FromUnits(2));
}

TEST(Reglamento, RunsOnThroughAHeadWithoutABlankLineAboveIt) {
  const Valor valor = CalcularValorDe(TableOf({"X"_w, "0M = 1"_w, "Y"_w, "9M = 2"_w}), "X", {0, 0, 5});
  EXPECT_EQ(valor.reglasMinutos, 2U);
  EXPECT_EQ(valor.valor, Money::FromUnits(2));
}

TEST(Reglamento, BeginsBelowTheHead) {
  const Valor valor = CalcularValorDe(TableOf({"0M = 1"_w, "X"_w, "0H = 2"_w}), "X", {0, 1, 5});
  EXPECT_EQ(valor.reglasMinutos, 0U);
  EXPECT_EQ(valor.valor, Money::FromUnits(2));
}

TEST(Reglamento, PassesOverRulesOfNoClass) {
  EXPECT_FALSE(PriceBy({"1 = 500", "= 7"}, {1, 1, 1}).conPrecio);
}

TEST(Reglamento, HoursAndDaysNeedAStayThatLong) {
  EXPECT_FALSE(PriceBy({"1H = 500", "1D = 700"}, {0, 0, 59}).conPrecio);
  EXPECT_TRUE(PriceBy({"1H = 500", "1D = 700"}, {0, 1, 0}).conPrecio);
  EXPECT_EQ(PriceBy({"1H = 500", "1D = 700"}, {1, 0, 0}).reglasDias, 1U);
}

TEST(Reglamento, AFreeRuleIsAPrice) {
  const Valor valor = PriceBy({"59M = 0"}, kTenMinutes);
  EXPECT_TRUE(valor.conPrecio);
  EXPECT_EQ(valor.valor, Money());
}

TEST(Reglamento, ALineInTwoClassesIsChargedInBoth) {
  EXPECT_EQ(PriceBy({"9MH = 100"}, {0, 2, 3}).valor, Money::FromUnits(200));
}

TEST(Reglamento, SmallLettersWithoutBlanksAreTheSameRule) {
  EXPECT_EQ(PriceBy({"1h=6000"}, {0, 1, 0}).valor, PriceBy({" 1H = 6000"}, {0, 1, 0}).valor);
  EXPECT_EQ(PriceBy({"1h=6000"}, {0, 1, 0}).valor, Money::FromUnits(6000));
}

TEST(Reglamento, HasNoLongestLength) {
  std::vector<std::string_view> rules(500, "0M = 1");
  rules.push_back("59M = 2");
  const Valor valor = PriceBy(rules, kTenMinutes);
  EXPECT_EQ(valor.reglasMinutos, 501U);
  EXPECT_EQ(valor.valor, Money::FromUnits(2));
}

TEST(Redondeo, TakesCommasAsPoints) {
  EXPECT_EQ(PriceBy({"1M = 12,50*"}, {0, 0, 3}).valor, Cents(3750));
}

TEST(Redondeo, HalvesOfACentGoAwayFromZero) {
  EXPECT_EQ(PriceBy({"0M = 0.005"}, kTenMinutes).valor, Cents(1));
  EXPECT_EQ(PriceBy({"0M = 0.0149"}, kTenMinutes).valor, Cents(1));
  EXPECT_EQ(PriceBy({"0M = 0.015"}, kTenMinutes).valor, Cents(2));
  EXPECT_EQ(PriceBy({"0M = 0.025"}, kTenMinutes).valor, Cents(3));
}

TEST(Redondeo, FourDecimalsComeFirstWithHalvesToTheEvenOne) {
  EXPECT_EQ(PriceBy({"0M = 0.00495"}, kTenMinutes).valor, Cents(1));   // 0.0050
  EXPECT_EQ(PriceBy({"0M = 0.01485"}, kTenMinutes).valor, Cents(1));   // 0.0148
  EXPECT_EQ(PriceBy({"0M = 0.014949"}, kTenMinutes).valor, Cents(1));  // 0.0149
  EXPECT_EQ(PriceBy({"0M = 0.014951"}, kTenMinutes).valor, Cents(2));  // 0.0150
}

TEST(Redondeo, RoundsTheSumAndNotItsParts) {
  EXPECT_EQ(PriceBy({"0M = 0.004", "0H = 0.004", "0D = 0.004"}, {1, 1, 1}).valor, Cents(1));
  EXPECT_EQ(PriceBy({"1M = .0000001*", "1D = .0000001*"}, {4'999'999, 0, 1}).valor, Cents(50));
}

TEST(Redondeo, LosesNothingInLargeSums) {
  EXPECT_EQ(PriceBy({"1M = 99999,999*", "1D = 999999999*"}, {900'000, 0, 59}).valor,
            Cents(89'999'999'910'000'000 + 589'999'994));
}

TEST(Redondeo, StopsAtTheEndOfMoney) {
  const Money end = Money::FromRaw(std::numeric_limits<std::int64_t>::max()).RoundedToCents();
  EXPECT_EQ(PriceBy({"1D = 999999999*"}, {922'337, 0, 0}).valor, Money::FromUnits(922'336'999'077'663));
  EXPECT_EQ(PriceBy({"1D = 999999999*"}, {922'338, 0, 0}).valor, end);
  EXPECT_EQ(PriceBy({"1D = 999999999*"}, {std::numeric_limits<std::int32_t>::max(), 0, 0}).valor, end);
}

}  // namespace
}  // namespace vintoral
