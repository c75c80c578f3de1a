#include "tariffs/Categoria.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<String> kTabla = {""_w,     "AUTO"_w,    "1M = 100*"_w, "1H = 6000"_w, "   "_w,
                                    "MOTO"_w, "1M = 50"_w, "BICI"_w,      "1M = 10"_w};

TEST(LineaDeCategoria, IsTheFirstThatEqualsIt) {
  EXPECT_EQ(LineaDeCategoria(kTabla, " auto  "), 1U);
  EXPECT_EQ(LineaDeCategoria({"X"_w, "A"_w, "a"_w}, "A"), 1U);
  EXPECT_EQ(LineaDeCategoria(kTabla, "AUT"), 9U);
  EXPECT_EQ(LineaDeCategoria({}, "AUTO"), 0U);
}

TEST(LineasDeCategoria, EndWithTheBlankLineOrTheTable) {
  EXPECT_THAT(LineasDeCategoria(kTabla, 1), ElementsAre("AUTO"_w, "1M = 100*"_w, "1H = 6000"_w, "   "_w));
  EXPECT_THAT(LineasDeCategoria(kTabla, 7), ElementsAre("BICI"_w, "1M = 10"_w));
  EXPECT_THAT(LineasDeCategoria(kTabla, 0), ElementsAre(""_w));
}

TEST(TablaEditada, HoldsLinesAsTheStationKeepsThem) {
  EXPECT_THAT(TablaEditada({" camión "_w, ""_w, " 1m = 5**"_w, "categoria de veinticinco."_w}),
              ElementsAre("CAMIÓN"_w, ""_w, "1M = 5**"_w, "CATEGORIA DE VEINTIC"_w));
  EXPECT_THAT(TablaEditada({}), IsEmpty());
}

TEST(CategoriaEnLinea, IsTheNearestHeadAtOrAbove) {
  EXPECT_EQ(CategoriaEnLinea(kTabla, 1), "AUTO"_w);
  EXPECT_EQ(CategoriaEnLinea(kTabla, 3), "AUTO"_w);
  EXPECT_EQ(CategoriaEnLinea(kTabla, 6), "MOTO"_w);
  EXPECT_EQ(CategoriaEnLinea(kTabla, 8), "BICI"_w);
}

TEST(CategoriaEnLinea, IsNoneOnABlankLineBelowItAndPastTheEnd) {
  EXPECT_EQ(CategoriaEnLinea(kTabla, 0), ""_w);
  EXPECT_EQ(CategoriaEnLinea(kTabla, 4), ""_w);
  EXPECT_EQ(CategoriaEnLinea({"AUTO"_w, ""_w, "1M = 5"_w}, 2), ""_w);
  EXPECT_EQ(CategoriaEnLinea({"1M = 5"_w, "AUTO"_w}, 0), ""_w);
  EXPECT_EQ(CategoriaEnLinea(kTabla, 9), ""_w);
  EXPECT_EQ(CategoriaEnLinea({}, 0), ""_w);
}

TEST(CategoriaEnLinea, IsTheNameAsTheStationKeepsIt) {
  EXPECT_EQ(CategoriaEnLinea({"  categoria de veinticinco.  "_w, " 1m = 5"_w}, 1), "CATEGORIA DE VEINTIC"_w);
}

TEST(CategoriaEnLinea, ARuleWhoseEqualsSignIsLostIsNoCategory) {
  EXPECT_EQ(CategoriaEnLinea({"AUTO"_w, "1H de la primera hora = 5"_w}, 1), "AUTO"_w);
}

}  // namespace
}  // namespace vintoral
