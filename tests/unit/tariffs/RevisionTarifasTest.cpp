#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tariffs/Revision.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kUnreached = "Ninguna estadía llega a esta regla.";
const std::string kNoHead = "Nunca se aplica: falta el nombre de la categoría encima.";
const std::string kNoHour = "No cobra la primera hora: ponga debajo las reglas de horas.";

std::vector<std::string> Review(const std::vector<std::string_view>& lines) {
  std::vector<String> lineas;
  for (const std::string_view line : lines)
    lineas.push_back(String::FromUtf8(line));
  std::vector<std::string> reparos;
  for (const String& reparo : RevisarTarifas(lineas))
    reparos.push_back(reparo.ToUtf8());
  return reparos;
}

/// Of the rules of one category, a blank line below them.
std::vector<std::string> ReviewRules(std::vector<std::string_view> rules) {
  rules.insert(rules.begin(), "X");
  rules.push_back("");
  std::vector<std::string> reparos = Review(rules);
  EXPECT_EQ(reparos.front() + reparos.back(), "");
  return {reparos.begin() + 1, reparos.end() - 1};
}

TEST(RevisarTarifas, SaysNothingOfANewInstallation) {
  const std::vector<String> reparos = RevisarTarifas(TarifasPredeterminadas());
  EXPECT_EQ(reparos.size(), 66U);
  EXPECT_THAT(reparos, Each(""_w));
  EXPECT_THAT(RevisarTarifas({}), IsEmpty());
}

TEST(RevisarTarifas, ARuleNeedsAHeadAbove) {
  EXPECT_THAT(Review({"1M = 5", "1H = 6", "AUTO", "1M = 5"}), ElementsAre(kNoHead, kNoHead, "", ""));
  EXPECT_THAT(Review({"AUTO", "1M = 5", " ", "1H = 6"}), ElementsAre("", "", "", kNoHead));
}

TEST(RevisarTarifas, TellsWhatALineHidesFirst) {
  EXPECT_THAT(Review({"AUTO", "15 = 500", "", "15 = 500"}),
              ElementsAre("", "Sin M, H ni D la regla nunca se aplica.", "", kNoHead));
}

TEST(RevisarTarifas, ACategoryWithoutRulesIsOne) {
  EXPECT_THAT(Review({"VISITANTE", "", "EMPLEADO", "RESIDENTE"}), Each(""));
}

TEST(RevisarTarifas, OfTwoEqualHeadsTheFirstCounts) {
  const std::string repeated = "Categoría repetida: solo cuenta la primera.";
  EXPECT_THAT(Review({"AUTO", "1M = 5", "", " auto ", "1M = 6*", "99M = 7"}),
              ElementsAre("", "", "", repeated, "", ""));
  // Both are CAMIONES DE CARGA XX to the station.
  EXPECT_THAT(Review({"camiones de carga xx", "", "camiones de carga xxl"}), ElementsAre("", "", repeated));
}

TEST(RevisarTarifas, ANameEndsAtTwentyCharacters) {
  EXPECT_THAT(Review({"  CAMIONES DE CARGA XX  ", "", "CAMIONES DE CARGA XYZ"}),
              ElementsAre("", "", "El nombre se corta en 20 caracteres."));
}

TEST(RevisarTarifas, ALineThatOnlyLooksBlankIsAHead) {
  const std::string looks = "Parece en blanco pero es una categoría: lleva un tabulador.";
  EXPECT_THAT(Review({"AUTO", "1M = 5", " \t ", "", "\u00A0", ""}),
              ElementsAre("", "", looks, "", looks, ""));
}

TEST(RevisarTarifas, WithoutABlankLineTwoCategoriesShareRules) {
  EXPECT_THAT(
      Review({"AUTO", "1H = 5", "MOTO", "2H = 3"}),
      ElementsAre("", "", "Sus reglas valen también para AUTO: falta una línea en blanco encima.", ""));
  EXPECT_THAT(Review({"AUTO", "1H = 5", "MOTO", "", "BICI", "2H = 3"}), Each(""));
  EXPECT_THAT(Review({"1M = 5", "AUTO", "1M = 5"}), ElementsAre(kNoHead, "", ""));
}

TEST(RevisarTarifas, ARuleWithoutItsSignIsACategory) {
  const std::string sign = "Sin el signo = es una categoría, no una regla.";
  EXPECT_THAT(Review({"AUTO", "1H = 5", "9H 6"}), ElementsAre("", "", sign));
  EXPECT_THAT(Review({"AUTO", "1H = 5", "0H 6"}), ElementsAre("", "", sign));
  EXPECT_THAT(Review({"24 HORAS", "1H = 5"}), Each(""));
  EXPECT_THAT(Review({"AUTO", "/ MOTO", ": BICI"}), Each(""));  // the neighbours of the digits
}

TEST(PrimeraHoraRevisada, NeedsHoursBelow) {
  EXPECT_THAT(ReviewRules({"1M = 0**", "1H = 600"}), ElementsAre("", ""));
  EXPECT_THAT(ReviewRules({"1M = 0**", "15M = 5", "1H = 600"}), ElementsAre("", "", ""));
  EXPECT_THAT(ReviewRules({"1H = 600", "1M = 0**"}), ElementsAre("", kNoHour));
  EXPECT_THAT(ReviewRules({"1M = 0**"}), ElementsAre(kNoHour));
  EXPECT_THAT(Review({"X", "1M = 0**"}), ElementsAre("", kNoHour));
  // The hours of the next category are not its own.
  EXPECT_THAT(Review({"X", "1M = 0**", "", "Y", "1H = 5"}), ElementsAre("", kNoHour, "", "", ""));
}

TEST(PrimeraHoraRevisada, WithAPriceNeedsThemNext) {
  EXPECT_THAT(ReviewRules({"1M = 10**", "1H = 600"}), ElementsAre("", ""));
  EXPECT_THAT(ReviewRules({"1M = 10**", "30M = 5", "1H = 600"}), ElementsAre(kNoHour, "", ""));
  EXPECT_THAT(ReviewRules({"1M = 10**"}), ElementsAre(kNoHour));
  EXPECT_THAT(ReviewRules({"1M = 0 **", "30M = 5", "1H = 600"}), ElementsAre(kNoHour, "", ""));
}

TEST(PrimeraHoraRevisada, SpeaksOfTheMarkAlone) {
  EXPECT_THAT(ReviewRules({"1M = 10*"}), ElementsAre(""));
  EXPECT_THAT(ReviewRules({"2M = 10**"}), ElementsAre(""));
  EXPECT_THAT(ReviewRules({"1H = 10**"}), ElementsAre(""));
}

TEST(AlcanceDeReglas, NoneBehindOneThatChargesByTheUnit) {
  EXPECT_THAT(ReviewRules({"1M = 100*", "30M = 500"}), ElementsAre("", kUnreached));
  EXPECT_THAT(ReviewRules({"1H = 600*", "5H = 2500**"}), ElementsAre("", kUnreached));
  EXPECT_THAT(ReviewRules({"1D = 600*", "5D = 2500"}), ElementsAre("", kUnreached));
  EXPECT_THAT(ReviewRules({"1H = 600**", "5H = 2500**"}), ElementsAre("", ""));
}

TEST(AlcanceDeReglas, NoneBehindAHigherKeyButTheLast) {
  EXPECT_THAT(ReviewRules({"30M = 500", "15M = 300", "45M = 800"}), ElementsAre("", kUnreached, ""));
  EXPECT_THAT(ReviewRules({"30M = 500", "15M = 300"}), ElementsAre("", ""));
  EXPECT_THAT(ReviewRules({"7D = 500", "2D = 300", "9D = 800"}), ElementsAre("", kUnreached, ""));
  EXPECT_THAT(ReviewRules({"3H = 500", "3H = 300", "4H = 800"}), ElementsAre("", kUnreached, ""));
}

TEST(AlcanceDeReglas, NoneBeyondTheLongestStay) {
  EXPECT_THAT(ReviewRules({"59M = 500", "60M = 600"}), ElementsAre("", kUnreached));
  EXPECT_THAT(ReviewRules({"58M = 500", "60M = 600"}), ElementsAre("", ""));
  EXPECT_THAT(ReviewRules({"23H = 500", "24H = 600"}), ElementsAre("", kUnreached));
  EXPECT_THAT(ReviewRules({"22H = 500", "24H = 600"}), ElementsAre("", ""));
  EXPECT_THAT(ReviewRules({"9998D = 500", "9999D = 600"}), ElementsAre("", ""));
  EXPECT_THAT(ReviewRules({"0H = 500", "1H = 600"}), ElementsAre(kUnreached, ""));
}

TEST(AlcanceDeReglas, KnowsTheHourThatTheMarkMakes) {
  // Minutes below the mark are met by stays of an hour that were none; hours only below it.
  EXPECT_THAT(ReviewRules({"1M = 10**", "1H = 600", "30M = 5"}), ElementsAre("", "", ""));
  EXPECT_THAT(ReviewRules({"1H = 600", "1M = 0**", "1H = 800", "5H = 9"}), ElementsAre("", "", "", ""));
  EXPECT_THAT(ReviewRules({"1H = 600", "1H = 800", "5H = 9"}), ElementsAre("", kUnreached, ""));
}

TEST(AlcanceDeReglas, AMarkWorksWithoutPricingAStay) {
  EXPECT_THAT(ReviewRules({"30M = 5", "1M = 0**", "45M = 6", "1H = 600"}), ElementsAre("", "", "", ""));
  EXPECT_THAT(ReviewRules({"30M = 5", "1M = 0*", "45M = 6", "1H = 600"}),
              ElementsAre("", kUnreached, "", ""));
}

TEST(AlcanceDeReglas, IsNotToldBelowASecondHead) {
  const std::vector<std::string> reparos =
      Review({"X", "30M = 1", "15M = 9", "Y", "15M = 2", "45M = 3", "15M = 4", "50M = 5"});
  ASSERT_EQ(reparos.size(), 8U);
  EXPECT_EQ(reparos[2], kUnreached);
  EXPECT_EQ(reparos[4], "");
  EXPECT_EQ(reparos[6], "");
}

TEST(AlcanceDeReglas, ARepeatedHeadChangesNothing) {
  const std::string repeated = "Categoría repetida: solo cuenta la primera.";
  EXPECT_THAT(Review({"X", "", "X", "Y", "30M = 1", "15M = 9", "X", "15M = 8", "45M = 3"}),
              ElementsAre("", "", repeated, "", "", kUnreached, repeated, kUnreached, ""));
}

}  // namespace
}  // namespace vintoral
