#include "station/form1/Papel.h"

#include <gtest/gtest.h>

#include <limits>

namespace vintoral {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(Reglas, CrossThePaper) {
  EXPECT_EQ(ReglaGuiones(), "-------------------------------"_w);
  EXPECT_EQ(ReglaIguales(), "==============================="_w);
  EXPECT_EQ(ReglaGuiones().Size(), 31U);
  EXPECT_EQ(ReglaIguales().Size(), 31U);
}

TEST(LineaPie, HasTheAddressBetweenItsHyphens) {
  // Eleven hyphens, a blank, sixteen characters, a blank, two hyphens.
  EXPECT_EQ(LineaPie("https://vintoral.example"), "----------- vintoral.example --"_w);
  EXPECT_EQ(LineaPie("vintoral.example"), "----------- vintoral.example --"_w);
}

TEST(LineaPie, KeepsItsColumnsWithAnyAddress) {
  EXPECT_EQ(LineaPie("a.example"), "------------------ a.example --"_w);
  EXPECT_EQ(LineaPie(""), "---------------------------  --"_w);
  // 27 characters leave no hyphen at the left; what is longer is cut.
  EXPECT_EQ(LineaPie("abcdefghijklmnopqrstuvwxyz1"), " abcdefghijklmnopqrstuvwxyz1 --"_w);
  EXPECT_EQ(LineaPie("abcdefghijklmnopqrstuvwxyz123"), " abcdefghijklmnopqrstuvwxyz1 --"_w);
}

TEST(Dominio, IsTheHostOfTheAddress) {
  EXPECT_EQ(Dominio("https://vintoral.example"), "vintoral.example"_w);
  EXPECT_EQ(Dominio("http://vintoral.example/es/ayuda"), "vintoral.example"_w);
  EXPECT_EQ(Dominio("vintoral.example/"), "vintoral.example"_w);
  EXPECT_EQ(Dominio(""), ""_w);
  EXPECT_EQ(Dominio("https://"), ""_w);
}

TEST(EtiquetaEnColumna, EndsInTheNinthColumn) {
  EXPECT_EQ(EtiquetaEnColumna("PLACA"), "    PLACA"_w);
  EXPECT_EQ(EtiquetaEnColumna("  PLACA  "), "    PLACA"_w);
  EXPECT_EQ(EtiquetaEnColumna("NUEVELETR"), "NUEVELETR"_w);
  EXPECT_EQ(EtiquetaEnColumna("OBSERVACION"), "OBSERVACI"_w);
  EXPECT_EQ(EtiquetaEnColumna(""), "         "_w);
  // The cut comes after the trimming, and leaves the blank that it lays open.
  EXPECT_EQ(EtiquetaEnColumna(" ABCDEFGH IJ"), "ABCDEFGH "_w);
}

TEST(LineaDeCampo, IsLabelAndValueInTheirColumns) {
  EXPECT_EQ(LineaDeCampo("PLACA", "ABC123"), "    PLACA : ABC123"_w);
  EXPECT_EQ(LineaDeCampo("OBSERVACION", "  de diecinueve letras y mas "),
            "OBSERVACI : de diecinueve letra"_w);
  EXPECT_EQ(LineaDeCampo("OBSERVACION", "de diecinueve letras").Size(), 31U);
  EXPECT_EQ(LineaDeCampo("", ""), "          : "_w);
}

TEST(TamanoFuente, IsTheStoredOneWhereItCanBeRead) {
  EXPECT_EQ(TamanoFuente(10.5F), 10.5);
  EXPECT_EQ(TamanoFuente(5), 5);
  EXPECT_EQ(TamanoFuente(1), 1);
  EXPECT_EQ(TamanoFuente(100), 100);
}

TEST(TamanoFuente, IsTenAndAHalfOtherwise) {
  for (const float size :
       {0.0F, -0.0F, -1.0F, -1e30F, 1e30F, 100.01F, 0.99F, 1e-39F, kNaN, -kNaN, kInfinity, -kInfinity})
    EXPECT_EQ(TamanoFuente(size), 10.5) << size;
}

TEST(Porcentaje, IsTheStoredOneBetweenNoneAndAll) {
  EXPECT_EQ(Porcentaje(19), 19);
  EXPECT_EQ(Porcentaje(0.25F), 0.25F);
  EXPECT_EQ(Porcentaje(100), 100);
  for (const float none : {0.0F, -0.0F, -19.0F, -1e30F, kNaN, -kNaN, -kInfinity})
    EXPECT_EQ(Porcentaje(none), 0) << none;
  for (const float all : {100.01F, 1e30F, kInfinity})
    EXPECT_EQ(Porcentaje(all), 100) << all;
}

TEST(TextoPorcentaje, HasTwoDecimalsOfWhatWasTyped) {
  EXPECT_EQ(TextoPorcentaje(19), "19.00"_w);
  EXPECT_EQ(TextoPorcentaje(8.5F), "8.50"_w);
  EXPECT_EQ(TextoPorcentaje(100), "100.00"_w);
  EXPECT_EQ(TextoPorcentaje(0), "0.00"_w);
  EXPECT_EQ(TextoPorcentaje(0.25F), "0.25"_w);
}

TEST(TextoPorcentaje, RoundsHalvesAwayFromZeroAndOnce) {
  // As a single, 0.005 lies below and 0.045 below a half; what counts is what was typed.
  EXPECT_EQ(TextoPorcentaje(0.005F), "0.01"_w);
  EXPECT_EQ(TextoPorcentaje(0.045F), "0.05"_w);
  EXPECT_EQ(TextoPorcentaje(0.125F), "0.13"_w);
  EXPECT_EQ(TextoPorcentaje(0.124F), "0.12"_w);
  // Four decimals would be 0.0050.
  EXPECT_EQ(TextoPorcentaje(0.00495F), "0.00"_w);
  EXPECT_EQ(TextoPorcentaje(1e-40F), "0.00"_w);
}

TEST(TextoTamano, IsWhatIsTyped) {
  EXPECT_EQ(TextoTamano(10.5), "10,5"_w);
  EXPECT_EQ(TextoTamano(8), "8"_w);
  EXPECT_EQ(TextoTamano(static_cast<double>(8.1F)), "8,1"_w);
  EXPECT_EQ(TextoTamano(100), "100"_w);
  EXPECT_EQ(TextoTamano(1.25), "1,25"_w);
}

TEST(NumeroDecimal, ReadsACommaAsAPoint) {
  EXPECT_EQ(NumeroDecimal("10,5"), 10.5F);
  EXPECT_EQ(NumeroDecimal("10.5"), 10.5F);
  EXPECT_EQ(NumeroDecimal("8,1"), 8.1F);
  EXPECT_EQ(NumeroDecimal(",5"), 0.5F);
  EXPECT_EQ(NumeroDecimal("12"), 12.0F);
}

TEST(NumeroDecimal, IsZeroWithoutANumberAndEndsWhereItEnds) {
  EXPECT_EQ(NumeroDecimal(""), 0.0F);
  EXPECT_EQ(NumeroDecimal(","), 0.0F);
  EXPECT_EQ(NumeroDecimal("x5"), 0.0F);
  EXPECT_EQ(NumeroDecimal("5x6"), 5.0F);
  EXPECT_EQ(NumeroDecimal("1,5,7"), 1.5F);
  EXPECT_EQ(NumeroDecimal("-2,5"), -2.5F);
}

TEST(PrefijoDe, EndsAtItsMarkAlone) {
  RegistroFactura format;
  format.Prefijo = "FE  \x1B";
  EXPECT_EQ(PrefijoDe(format), "FE  "_w);
  format.Prefijo =
      "\x1B"
      "FE";
  EXPECT_EQ(PrefijoDe(format), ""_w);
  format.Prefijo = "  A \x1B B\x1B";
  EXPECT_EQ(PrefijoDe(format), "  A "_w);
}

}  // namespace
}  // namespace vintoral
