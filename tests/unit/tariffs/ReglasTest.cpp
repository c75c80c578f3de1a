#include "tariffs/Reglas.h"

#include <gtest/gtest.h>

#include "common/String.h"

namespace vintoral {
namespace {

std::int64_t KeyOf(std::string_view line) {
  return LeerRegla(line).clave;
}

std::int64_t ValueOf(std::string_view line) {
  return LeerRegla(line).valor;
}

TEST(Reglas, AnEqualsSignMakesALineARule) {
  EXPECT_TRUE(EsRegla("1M = 100"));
  EXPECT_TRUE(EsRegla("="));
  EXPECT_FALSE(EsRegla("1M 100"));
  EXPECT_FALSE(EsRegla(""));
}

TEST(Reglas, TheKeyIsTheWholeNumberAtTheStart) {
  EXPECT_EQ(KeyOf("15M = 500"), 15);
  EXPECT_EQ(KeyOf("15=500M"), 15);
  EXPECT_EQ(KeyOf("   7 M = 500"), 7);
  EXPECT_EQ(KeyOf("M15 = 500"), 0);
  EXPECT_EQ(KeyOf("M = 500"), 0);
  EXPECT_EQ(KeyOf("= 500M"), 0);
}

TEST(Reglas, TheKeyLosesItsSign) {
  EXPECT_EQ(KeyOf("-1M = 0**"), 1);
  EXPECT_EQ(KeyOf("+1M = 0**"), 1);
  EXPECT_EQ(KeyOf("-59M = 0"), 59);
  EXPECT_EQ(KeyOf("- 1M = 0**"), 0);
  EXPECT_EQ(KeyOf("--1M = 0**"), 0);
}

TEST(Reglas, TheKeyEndsAtItsFourthCharacter) {
  EXPECT_EQ(KeyOf("9999M = 1"), 9999);
  EXPECT_EQ(KeyOf("12345M = 1"), 1234);
  EXPECT_EQ(KeyOf("-1234M = 1"), 123);
  EXPECT_EQ(KeyOf("0001M = 1"), 1);
  EXPECT_EQ(KeyOf("00015M = 1"), 1);
}

TEST(Reglas, TheKeyEndsAtAPointOrABlank) {
  EXPECT_EQ(KeyOf("1.5H = 1"), 1);
  EXPECT_EQ(KeyOf("1,5H = 1"), 1);
  EXPECT_EQ(KeyOf(".5H = 1"), 0);
  EXPECT_EQ(KeyOf("1 5H = 1"), 1);
}

TEST(Reglas, TheValueIsExactInHundredMillionths) {
  EXPECT_EQ(ValueOf("5H = 30000**"), 30000 * kEscalaValor);
  EXPECT_EQ(ValueOf("1M = 12,50*"), 1'250'000'000);
  EXPECT_EQ(ValueOf("1M = 12.50*"), 1'250'000'000);
  EXPECT_EQ(ValueOf("1M = .00000001"), 1);
  EXPECT_EQ(ValueOf("1M = 0.0000001"), 10);
  EXPECT_EQ(ValueOf("1M = 999999999"), 999'999'999 * kEscalaValor);
}

TEST(Reglas, TheValueLosesItsSign) {
  EXPECT_EQ(ValueOf("1M = -5"), 5 * kEscalaValor);
  EXPECT_EQ(ValueOf("1M = +5"), 5 * kEscalaValor);
  EXPECT_EQ(ValueOf("1M = -0,5"), kEscalaValor / 2);
}

TEST(Reglas, TheValueEndsAtItsNinthCharacter) {
  EXPECT_EQ(ValueOf("1M = 1234567890"), 123'456'789 * kEscalaValor);
  EXPECT_EQ(ValueOf("1M = 0000000001"), 0);
  EXPECT_EQ(ValueOf("1M = 1234567,89"), 12'345'678 * (kEscalaValor / 10));
  EXPECT_EQ(ValueOf("1M = -123456789"), 12'345'678 * kEscalaValor);
}

TEST(Reglas, TheValueEndsWhereTheNumberDoes) {
  EXPECT_EQ(ValueOf("1M = 1,2,3"), 12 * (kEscalaValor / 10));
  EXPECT_EQ(ValueOf("1M = 1.000,50"), kEscalaValor);
  EXPECT_EQ(ValueOf("1M = 1E3"), kEscalaValor);
  EXPECT_EQ(ValueOf("1M = 5 0"), 5 * kEscalaValor);
  EXPECT_EQ(ValueOf("1M = 5 = 6"), 5 * kEscalaValor);
}

TEST(Reglas, AValueWithoutDigitsIsNothing) {
  for (const std::string_view line : {"1M =", "1M = *", "1M = $5", "1M = .", "1M = ,", "1M = -", "1M = = 5"})
    EXPECT_EQ(ValueOf(line), 0) << line;
}

TEST(Reglas, LettersAnywhereOnTheLineMakeTheClass) {
  const auto classes = [](std::string_view line) {
    const ReglaTarifa regla = LeerRegla(line);
    return std::string(regla.minutos ? "M" : "") + (regla.horas ? "H" : "") + (regla.dias ? "D" : "");
  };
  EXPECT_EQ(classes("1M = 5"), "M");
  EXPECT_EQ(classes("1h=5"), "H");
  EXPECT_EQ(classes("1d=5"), "D");
  EXPECT_EQ(classes("1 = 5m"), "M");
  EXPECT_EQ(classes("1MHD = 5"), "MHD");
  EXPECT_EQ(classes("1M = 5 HORA"), "MH");
  EXPECT_EQ(classes("1 = 5"), "");
}

TEST(Reglas, StarsCountAnywhereOnTheLine) {
  EXPECT_FALSE(LeerRegla("1M = 5").estrella);
  EXPECT_TRUE(LeerRegla("1M = 5*").estrella);
  EXPECT_FALSE(LeerRegla("1M = 5*").dosEstrellas);
  EXPECT_FALSE(LeerRegla("1M* = 5*").dosEstrellas);
  EXPECT_TRUE(LeerRegla("1M** = 5").dosEstrellas);
  EXPECT_TRUE(LeerRegla("1M** = 5").estrella);
  EXPECT_TRUE(LeerRegla("1M = 5***").dosEstrellas);
}

TEST(Reglas, ZeroWithTwoStarsIsReadToTheLetter) {
  EXPECT_TRUE(ValorEsCeroDosEstrellas("1M = 0**"));
  EXPECT_TRUE(ValorEsCeroDosEstrellas("1M=0**   "));
  for (const std::string_view line :
       {"1M = 0 **", "1M = 00**", "1M = 0***", "1M = 0*", "1M = 10**", "1M** = 0", "1M = 0** H"})
    EXPECT_FALSE(ValorEsCeroDosEstrellas(line)) << line;
}

TEST(Reglas, AZeroByteIsNoBlank) {
  EXPECT_EQ(KeyOf(std::string_view("\0 5M = 7", 8)), 0);
  EXPECT_EQ(ValueOf(std::string_view("5M = \0 7", 8)), 0);
  EXPECT_FALSE(ValorEsCeroDosEstrellas(std::string_view("1M = 0**\0", 9)));
}

TEST(Reglas, HoursAreFoundInBothCases) {
  EXPECT_TRUE(TieneHoras("1h = 5"));
  EXPECT_TRUE(TieneHoras("HOTEL"));
  EXPECT_FALSE(TieneHoras("1M = 5"));
  EXPECT_FALSE(TieneHoras(""));
}

}  // namespace
}  // namespace vintoral
