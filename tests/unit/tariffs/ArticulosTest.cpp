#include "tariffs/Articulos.h"

#include <gtest/gtest.h>

#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

Articulo Sold(std::string_view name, std::int64_t tenThousandths) {
  return {String(name), Money::FromRaw(tenThousandths)};
}

TEST(Articulos, NameAndPriceStandAroundTheFirstEqualsSign) {
  EXPECT_EQ(ArticuloDe("MINUTO CELULAR = 200"), Sold("MINUTO CELULAR", 2'000'000));
  EXPECT_EQ(ArticuloDe("CASCO=120000"), Sold("CASCO", 1'200'000'000));
  EXPECT_EQ(ArticuloDe("A = 5 = 7"), Sold("A", 50'000));
}

TEST(Articulos, ALineWithoutEqualsSignIsNone) {
  EXPECT_EQ(ArticuloDe(""), std::nullopt);
  EXPECT_EQ(ArticuloDe("   "), std::nullopt);
  EXPECT_EQ(ArticuloDe("MINUTO 200"), std::nullopt);
}

TEST(Articulos, TheNameCountsUpToFifteenCharactersWithoutBlanksAround) {
  EXPECT_EQ(ArticuloDe("  ABCDEFGHIJKLMNOPQ = 1")->nombre, "ABCDEFGHIJKLMNO"_w);
  // The cut falls behind a blank, which goes too.
  EXPECT_EQ(ArticuloDe("ABCDEFGHIJKLMN OPQ = 1")->nombre, "ABCDEFGHIJKLMN"_w);
  EXPECT_EQ(ArticuloDe("\tCASCO\tMOTO\t= 1")->nombre, "CASCO MOTO"_w);
  EXPECT_EQ(ArticuloDe("= 5"), Sold("", 50'000));
}

TEST(Articulos, ThePriceCountsUpToNineCharacters) {
  EXPECT_EQ(ArticuloDe("A = 1234567890")->precio, Money::FromUnits(123'456'789));
  EXPECT_EQ(ArticuloDe("A =   12  ")->precio, Money::FromUnits(12));
  EXPECT_EQ(ArticuloDe("A = 12,5")->precio, Money::FromRaw(125'000));
  EXPECT_EQ(ArticuloDe("A = 12.5")->precio, Money::FromRaw(125'000));
  EXPECT_EQ(ArticuloDe("A = -300")->precio, Money::FromUnits(300));
  EXPECT_EQ(ArticuloDe("A = gratis")->precio, Money());
  EXPECT_EQ(ArticuloDe("A =")->precio, Money());
}

TEST(Articulos, APriceIsWholeCentsHalvesAwayFromZero) {
  EXPECT_EQ(ArticuloDe("A = 1.005")->precio, Money::FromRaw(10'100));
  EXPECT_EQ(ArticuloDe("A = 1.0049")->precio, Money::FromRaw(10'000));
  EXPECT_EQ(ArticuloDe("A = -1.005")->precio, Money::FromRaw(10'100));
  // 0.0049999 is 0.0050 in ten-thousandths, and that is a cent.
  EXPECT_EQ(ArticuloDe("A = 0.0049999")->precio, Money::FromRaw(100));
}

TEST(Articulos, ATableGivesThoseOfItsLinesInTheirOrder) {
  EXPECT_EQ(ArticulosDe({"B = 2"_w, "nada"_w, ""_w, "A = 1"_w}),
            (std::vector{Sold("B", 20'000), Sold("A", 10'000)}));
  const auto first = ArticulosDe(ExtrasPredeterminados());
  ASSERT_EQ(first.size(), 10u);
  EXPECT_EQ(first.front(), Sold("MINUTO CELULAR", 2'000'000));
  EXPECT_EQ(first.back(), Sold("CAFE COLOMBIANO", 50'000'000));
}

}  // namespace
}  // namespace vintoral
