// How long a ticket is good for, as it says so itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "reports/Tiquete.h"
#include "unit/reports/Slips.h"

namespace vintoral {
namespace {

using test::Textos;
using testing::ElementsAre;
using testing::IsEmpty;

const String kIguales = "==============================="_w;
constexpr int kOtra = 2;

DatosTiquete ConValidez(String numero, int unidad) {
  DatosTiquete datos;
  datos.formato.DimFuente = 10.5F;
  datos.codigo = "X"_w;
  datos.validez = {std::move(numero), unidad,
                   *Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 23, .minute = 59})};
  return datos;
}

/// What stands between the bars and the closing rule.
std::vector<String> Bloque(String numero, int unidad) {
  const std::vector<String> texts = Textos(TiqueteImpreso(ConValidez(std::move(numero), unidad)));
  const auto bars = std::find(texts.begin(), texts.end(), "*X*"_w);
  return {bars + 1, texts.end() - 3};
}

TEST(Validez, OneEntryIsNotWorthSaying) {
  EXPECT_THAT(Bloque("1"_w, Validez::kEntradas), IsEmpty());
}

TEST(Validez, OneDayEndsToday) {
  EXPECT_THAT(Bloque("1"_w, Validez::kDias), ElementsAre(kIguales, "VALIDO 1 DIA(S)    (20/11/2026)"_w));
}

TEST(Validez, NoneSaysNothing) {
  for (const int unidad : {Validez::kEntradas, Validez::kDias, kOtra, -1}) {
    EXPECT_THAT(Bloque("0"_w, unidad), IsEmpty());
    EXPECT_THAT(Bloque(""_w, unidad), IsEmpty());
    EXPECT_THAT(Bloque("."_w, unidad), IsEmpty());
    EXPECT_THAT(Bloque("-5"_w, unidad), IsEmpty());
    EXPECT_THAT(Bloque("X9"_w, unidad), IsEmpty());
  }
}

TEST(Validez, EntriesStandInTheMiddle) {
  // (16 - length) / 2 blanks, the fraction dropped.
  EXPECT_THAT(Bloque("2"_w, Validez::kEntradas), ElementsAre(kIguales, "       VALIDO 2 ENTRADAS"_w));
  EXPECT_THAT(Bloque("10"_w, Validez::kEntradas), ElementsAre(kIguales, "       VALIDO 10 ENTRADAS"_w));
  EXPECT_THAT(Bloque("100"_w, Validez::kEntradas), ElementsAre(kIguales, "      VALIDO 100 ENTRADAS"_w));
}

TEST(Validez, ANumberWithoutRoomForEntriesLosesItsLine) {
  EXPECT_THAT(Bloque("123456789012345"_w, Validez::kEntradas),
              ElementsAre(kIguales, "VALIDO 123456789012345 ENTRADAS"_w));  // half a blank is none
  EXPECT_THAT(Bloque("1234567890123456"_w, Validez::kEntradas),
              ElementsAre(kIguales, "VALIDO 1234567890123456 ENTRADAS"_w));
  EXPECT_THAT(Bloque("12345678901234567"_w, Validez::kEntradas),
              ElementsAre(kIguales, "VALIDO 12345678901234567 ENTRADAS"_w));  // nor are minus one half
  EXPECT_THAT(Bloque("123456789012345678"_w, Validez::kEntradas), ElementsAre(kIguales));
}

TEST(Validez, DaysFillTheLine) {
  EXPECT_THAT(Bloque("30"_w, Validez::kDias), ElementsAre(kIguales, "VALIDO 30 DIA(S)   (19/12/2026)"_w));
  // 20/11/2026 and 998 days: to 20/11/2028 731 of them, for 2028 has a 29th of February, and 267 more.
  EXPECT_THAT(Bloque("999"_w, Validez::kDias), ElementsAre(kIguales, "VALIDO 999 DIA(S)  (14/08/2029)"_w));
  for (const char* number : {"1", "30", "999"})
    EXPECT_EQ(Bloque(String(std::string_view(number)), Validez::kDias).at(1).Size(), 31U) << number;
}

TEST(Validez, ANumberWithoutRoomForDaysLosesItsLine) {
  EXPECT_THAT(Bloque("1000"_w, Validez::kDias), ElementsAre(kIguales));
  EXPECT_THAT(Bloque(" 30 "_w, Validez::kDias), ElementsAre(kIguales));
}

TEST(Validez, AnotherUnitHasItsRuleAlone) {
  EXPECT_THAT(Bloque("2"_w, kOtra), ElementsAre(kIguales));
  EXPECT_THAT(Bloque("2"_w, -1), ElementsAre(kIguales));
  EXPECT_THAT(Bloque("1"_w, kOtra), IsEmpty());
}

TEST(Validez, PartsOfOneCount) {
  EXPECT_THAT(Bloque("1.5"_w, Validez::kEntradas), ElementsAre(kIguales, "      VALIDO 1.5 ENTRADAS"_w));
  EXPECT_THAT(Bloque("1.0"_w, Validez::kEntradas), IsEmpty());
  // A comma ends the number.
  EXPECT_THAT(Bloque("1,5"_w, Validez::kEntradas), IsEmpty());
  EXPECT_THAT(Bloque("1.5"_w, Validez::kDias), ElementsAre(kIguales, "VALIDO 1.5 DIA(S)  (20/11/2026)"_w));
  // Half a day less than one is the day before.
  EXPECT_THAT(Bloque(".5"_w, Validez::kDias), ElementsAre(kIguales, "VALIDO .5 DIA(S)   (19/11/2026)"_w));
}

TEST(Validez, IsBoldBelowAPlainRule) {
  const PrintDocument ticket = TiqueteImpreso(ConValidez("2"_w, Validez::kEntradas));
  const std::vector<PrintOperation>& operations = ticket.Operations();
  const auto line = operations.end() - 4, rule = line - 1, after = line + 1;
  EXPECT_EQ(line->text, "       VALIDO 2 ENTRADAS"_w);
  EXPECT_TRUE(line->fontBold);
  EXPECT_FALSE(rule->fontBold);
  EXPECT_FALSE(after->fontBold);
}

TEST(Validez, BelongsToTheBars) {
  DatosTiquete datos = ConValidez("30"_w, Validez::kDias);
  datos.codigo.reset();
  const std::vector<String> texts = Textos(TiqueteImpreso(datos));
  // Header, number, stamp, rule, category, rule, address, footer.
  EXPECT_EQ(texts.size(), 8U);
  EXPECT_THAT(texts, testing::Not(testing::Contains(kIguales)));
}

}  // namespace
}  // namespace vintoral
