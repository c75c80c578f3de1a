#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tariffs/Revision.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::ElementsAre;

String OfArticle(std::string_view line) {
  return RevisarExtras({String(line)}).at(0);
}

TEST(RevisarExtras, SaysNothingOfANewInstallation) {
  const std::vector<String> reparos = RevisarExtras(ExtrasPredeterminados());
  EXPECT_EQ(reparos.size(), 11U);
  EXPECT_THAT(reparos, Each(""_w));
}

TEST(RevisarExtras, SpeaksOfEachLine) {
  EXPECT_THAT(RevisarExtras({"cera = 5"_w, ""_w, "cera"_w, "  "_w}),
              ElementsAre(""_w, ""_w, "Sin el signo = no es un artículo."_w, ""_w));
}

TEST(RevisarExtras, AnArticleHasANameOfFifteenCharacters) {
  EXPECT_EQ(OfArticle(" = 500"), "El artículo no tiene nombre."_w);
  EXPECT_EQ(OfArticle(" \t = 500"), "El artículo no tiene nombre."_w);
  EXPECT_EQ(OfArticle("\t ambientador liq \t = 500"), ""_w);
  EXPECT_EQ(OfArticle("ambientador liqu = 500"), "El nombre se corta en 15 caracteres."_w);
}

TEST(RevisarExtras, AnArticleHasAPrice) {
  EXPECT_EQ(OfArticle("cera = 123456789"), ""_w);
  EXPECT_EQ(OfArticle("cera = 12,50"), ""_w);
  EXPECT_EQ(OfArticle("cera = 1234567890"), "Se lee 123456789: el número se corta en 9 caracteres."_w);
  EXPECT_EQ(OfArticle("cera ="), "Se lee 0: falta el número después del signo =."_w);
  EXPECT_EQ(OfArticle("cera = 5 = 6"), "Se lee 5: después del número sobra texto."_w);
  EXPECT_EQ(OfArticle("cera = 5*"), "Se lee 5: después del número sobra texto."_w);
}

TEST(RevisarPrepago, LinesAreFreeUpToTheRecordsEnd) {
  EXPECT_THAT(RevisarPrepago(PrepagoPredeterminado()), Each(""_w));
  EXPECT_THAT(RevisarPrepago({String(100, 'a'), String(101, 'a'), String(100, 'a') + "  "_w, "=-*"_w}),
              ElementsAre(""_w, "La línea se corta en 100 caracteres."_w, ""_w, ""_w));
}

}  // namespace
}  // namespace vintoral
