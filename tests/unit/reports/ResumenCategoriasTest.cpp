#include "reports/ResumenCategorias.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::FichaAdentro;
using test::FichaIda;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ResumenCategorias, CountsByCategoryIgnoringCase) {
  ResumenCategorias resumen({" Automovil "_w, "MOTO"_w});
  resumen.Contar(FichaIda());
  resumen.Contar(FichaIda());
  resumen.Contar(FichaAdentro());
  const std::vector<RenglonCategoria>& lines = resumen.Renglones();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].nombre, "Automovil"_w);
  EXPECT_EQ(lines[0].salidas, 2);
  EXPECT_EQ(lines[0].activas, 1);
  EXPECT_EQ(lines[0].valor.Texto(), "3000.00"_w);
  EXPECT_EQ(lines[1].salidas, 0);
  EXPECT_EQ(lines[1].activas, 0);
}

TEST(ResumenCategorias, ACategoryThatIsNotInTheListIsInNoLine) {
  ResumenCategorias resumen({"AUTO"_w, "AUTOMOVILES"_w});
  resumen.Contar(FichaIda());
  for (const RenglonCategoria& line : resumen.Renglones())
    EXPECT_THAT(LineasDeCategoria(line), IsEmpty());
}

TEST(ResumenCategorias, OfTwoOfTheSameNameTheFirstCounts) {
  ResumenCategorias resumen({"AUTOMOVIL"_w, "automovil"_w});
  resumen.Contar(FichaIda());
  EXPECT_EQ(resumen.Renglones()[0].salidas, 1);
  EXPECT_EQ(resumen.Renglones()[1].salidas, 0);
}

TEST(LineasDeCategoria, OneForThoseGoneAndOneForThoseInside) {
  const Suma value(Money::FromUnits(3000));
  EXPECT_THAT(LineasDeCategoria({"AUTOMOVIL"_w, 2, 1, value}),
              ElementsAre("AUTOMOVIL            2  3000.00"_w, "*AUTOMOVIL           1   ACTIVO"_w));
  EXPECT_THAT(LineasDeCategoria({"MOTO"_w, 1, 0, {}}), ElementsAre("MOTO                 1     0.00"_w));
  EXPECT_THAT(LineasDeCategoria({"MOTO"_w, 0, 1, {}}), ElementsAre("*MOTO                1   ACTIVO"_w));
  EXPECT_THAT(LineasDeCategoria({"MOTO"_w, 0, 0, {}}), IsEmpty());
}

TEST(LineasDeCategoria, CutsTheName) {
  const Suma value(Money::FromUnits(999999));
  EXPECT_THAT(LineasDeCategoria({"0123456789ABCDEF"_w, 1234567, 1, value}),
              ElementsAre("0123456789ABCDE1234567999999.00"_w, "*0123456789ABCD      1   ACTIVO"_w));
}

}  // namespace
}  // namespace vintoral
