#include "reports/FilaFicha.h"

#include <gtest/gtest.h>

#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::FichaAdentro;
using test::FichaIda;

TEST(FechaDeFila, OfTheExitAndInsideOfTheEntry) {
  RegistroFicha gone = FichaIda();
  gone.MarcaEntrada = "14:05  (19/11/2026)";
  EXPECT_EQ(FechaDeFila(gone), "20/11/2026"_w);
  RegistroFicha inside = FichaAdentro();
  inside.MarcaEntrada = "14:05  (19/11/2026)";
  EXPECT_EQ(FechaDeFila(inside), "19/11/2026"_w);
}

TEST(TiempoDeFila, OfOneGoneAlone) {
  EXPECT_EQ(TiempoDeFila(FichaIda()), "02H 30M"_w);
  EXPECT_EQ(TiempoDeFila(FichaAdentro()), "??"_w);
}

TEST(TiempoDeFila, StampsThatTellOfNoStay) {
  RegistroFicha ficha = FichaIda();
  ficha.MarcaEntrada = "16:36  (20/11/2026)";  // a minute later than the exit
  EXPECT_EQ(TiempoDeFila(ficha), "??"_w);
  ficha.MarcaEntrada = "";
  EXPECT_EQ(TiempoDeFila(ficha), "??"_w);
}

TEST(ValorDeFila, OfOneGoneAlone) {
  EXPECT_EQ(ValorDeFila(FichaIda()), "1500.00"_w);
  EXPECT_EQ(ValorDeFila(FichaAdentro()), "??"_w);
}

TEST(LineaDeFila, OfOneGone) {
  //                                        5 + 1 + 16 + 9
  EXPECT_EQ(LineaDeFila(FichaIda(), false), "16:35 AUTOMOVIL 02H30M  1500.00"_w);
  EXPECT_EQ(LineaDeFila(FichaIda(), true), "16:35 AUTOMOVIL 02H30M  1500.00"_w);
}

TEST(LineaDeFila, AShortCategoryIsFilledAndALongOneCut) {
  RegistroFicha ficha = FichaIda();
  ficha.Categoria = " MOTO ";
  EXPECT_EQ(LineaDeFila(ficha, false), "16:35 MOTO      02H30M  1500.00"_w);
  ficha.Categoria = "MOTOCICLETA";  // 15 less the six of the stay: nine
  EXPECT_EQ(LineaDeFila(ficha, false), "16:35 MOTOCICLE 02H30M  1500.00"_w);
  ficha.MarcaEntrada = "14:05  (18/11/2026)";  // nine of the stay: six
  EXPECT_EQ(LineaDeFila(ficha, false), "16:35 MOTOCI 02D02H30M  1500.00"_w);
  ficha.MarcaEntrada = "??";
  EXPECT_EQ(LineaDeFila(ficha, false), "16:35 MOTOCICLETA   ??  1500.00"_w);
}

TEST(LineaDeFila, AValueOfMoreThanNineColumnsMakesItLonger) {
  RegistroFicha ficha = FichaIda();
  ficha.ValorCobrado = Money::FromUnits(123456);
  EXPECT_EQ(LineaDeFila(ficha, false), "16:35 AUTOMOVIL 02H30M123456.00"_w);
  ficha.ValorCobrado = Money::FromUnits(1234567);
  EXPECT_EQ(LineaDeFila(ficha, false), "16:35 AUTOMOVIL 02H30M1234567.00"_w);
}

TEST(LineaDeFila, OfOneInside) {
  //                                             5 + 1 + 9 + 7 + 7 + 2
  EXPECT_EQ(LineaDeFila(FichaAdentro(), false), "14:05 AUTOMOVIL ACTIVO       ??"_w);
  EXPECT_EQ(LineaDeFila(FichaAdentro(), true), "   ?? AUTOMOVIL ACTIVO       ??"_w);
  RegistroFicha ficha = FichaAdentro();
  ficha.Categoria = " MOTO";
  EXPECT_EQ(LineaDeFila(ficha, false), "14:05 MOTO      ACTIVO       ??"_w);
  ficha.Categoria = "MOTOCICLETA";
  EXPECT_EQ(LineaDeFila(ficha, false), "14:05 MOTOCICLE ACTIVO       ??"_w);
}

}  // namespace
}  // namespace vintoral
