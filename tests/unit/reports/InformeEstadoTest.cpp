#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "reports/InformeFichas.h"
#include "unit/reports/Informes.h"
#include "unit/reports/Slips.h"

namespace vintoral {
namespace {

using test::Datos;
using test::En;
using test::FichaAdentro;
using test::FichaIda;
using test::Filas;
using test::kLinea;
using test::Negrita;
using test::Normal;
using test::Textos;
using testing::ElementsAre;
using testing::ElementsAreArray;

const String kGuiones = "-------------------------------"_w;
const String kIguales = "==============================="_w;
constexpr const char* kVacia = "||||||||||||||";
constexpr const char* kAhora = "18:00  (21/11/2026)||||||||||||||";

std::string FilaIda(const std::string& fecha) {
  return "14:05  (" + fecha + ")|01|16:35  (" + fecha +
         ")|02|0042|AUTOMOVIL|SIN IMAGEN|02H 30M|1500.00|ABC123|JUAN|PEREZ|3001234567|CASCO|";
}
std::string FilaAdentro(const std::string& fecha) {
  return "14:05  (" + fecha +
         ")|01|??|??|0042|AUTOMOVIL|SIN IMAGEN|??|??|ABC123|JUAN|PEREZ|3001234567|CASCO|";
}
std::string Subtotal(const std::string& valor) {
  return "||||||||$ " + valor + "||||||";
}
std::string Total(int registros, const std::string& valor) {
  return std::to_string(registros) + " Registro(s)|||||TOTAL|||$ " + valor + "||||||";
}

std::vector<std::string> FilasDe(const DatosInforme& datos, const std::vector<RegistroFicha>& vista) {
  std::string page;
  EXPECT_TRUE(InformeEstado(datos, vista, En(page)).pagina);
  return Filas(page);
}

PrintDocument TiraDe(const DatosInforme& datos, const std::vector<RegistroFicha>& vista) {
  std::string page;
  InformeHecho done = InformeEstado(datos, vista, En(page));
  EXPECT_TRUE(done.tira);
  return *done.tira;
}

DatosInforme ConTira(bool detalle) {
  DatosInforme datos = Datos();
  datos.tira = FormatoTira{"POS-80"_w, 10.5F, detalle};
  return datos;
}

// ---- The page
// ----------------------------------------------------------------------------------------------

TEST(PaginaFichas, OneRowItsDayAndTheTotal) {
  EXPECT_THAT(FilasDe(Datos(), {FichaIda()}), ElementsAre(FilaIda("20/11/2026"), Subtotal("1500.00"), kVacia,
                                                          kVacia, kAhora, kVacia, Total(1, "1500.00")));
}

TEST(PaginaFichas, ThreeDaysHaveThreeSubtotalsAndOneTotal) {
  EXPECT_THAT(FilasDe(Datos(), {FichaIda("18/11/2026"), FichaIda("18/11/2026"), FichaIda("19/11/2026"),
                                FichaIda("20/11/2026")}),
              ElementsAre(FilaIda("18/11/2026"), FilaIda("18/11/2026"), Subtotal("3000.00"), kVacia,
                          FilaIda("19/11/2026"), Subtotal("1500.00"), kVacia, FilaIda("20/11/2026"),
                          Subtotal("1500.00"), kVacia, kVacia, kAhora, kVacia, Total(4, "6000.00")));
}

TEST(PaginaFichas, ThoseInsideCountAndAddNothing) {
  RegistroFicha inside = FichaAdentro();
  inside.ValorCobrado = Money::FromUnits(999);  // of the ficha that had the slot before
  EXPECT_THAT(FilasDe(Datos(), {inside, FichaIda()}),
              ElementsAre(FilaAdentro("20/11/2026"), FilaIda("20/11/2026"), Subtotal("1500.00"), kVacia,
                          kVacia, kAhora, kVacia, Total(2, "1500.00")));
}

TEST(PaginaFichas, OneNoLongerInUseCountsAndHasNoRow) {
  RegistroFicha free = FichaIda();
  free.EnUso = false;
  EXPECT_THAT(FilasDe(Datos(), {FichaIda(), free}),
              ElementsAre(FilaIda("20/11/2026"), Subtotal("1500.00"), kVacia, kVacia, kAhora, kVacia,
                          Total(2, "1500.00")));
  free.MarcaSalida = "16:35  (21/11/2026)";  // its day begins all the same
  EXPECT_THAT(FilasDe(Datos(), {FichaIda(), free}),
              ElementsAre(FilaIda("20/11/2026"), Subtotal("1500.00"), kVacia, Subtotal("0.00"), kVacia,
                          kVacia, kAhora, kVacia, Total(2, "1500.00")));
}

TEST(PaginaFichas, ASearchTellsItsRange) {
  DatosInforme datos = Datos();
  datos.cabeza = CabezaDeBusqueda("18:00  (21/11/2026)"_w, "00:00  (20/11/2026)"_w, "23:59  (21/11/2026)"_w);
  datos.busqueda = true;
  EXPECT_THAT(FilasDe(datos, {FichaIda()}),
              ElementsAre(FilaIda("20/11/2026"), Subtotal("1500.00"), kVacia, kVacia, kAhora,
                          "00:00  (20/11/2026)||||||||||||||", "23:59  (21/11/2026)||||||||||||||", kVacia,
                          Total(1, "1500.00")));
}

TEST(PaginaFichas, APhotoIsLookedForWhereItsFichaIs) {
  std::vector<std::string> asked;
  DatosInforme datos = Datos();
  datos.foto = [&](std::string_view folder, std::int64_t number) -> std::optional<String> {
    asked.push_back(String(folder).ToUtf8() + " " + std::to_string(number));
    return std::nullopt;
  };
  FilasDe(datos, {FichaIda(), FichaAdentro()});
  EXPECT_THAT(asked, ElementsAre("Imágenes HST 7", "Imágenes ACT 7"));
}

TEST(PaginaFichas, ASumThatRunsOverSaysSo) {
  RegistroFicha most = FichaIda();
  most.ValorCobrado = Money::FromRaw(std::numeric_limits<std::int64_t>::max());
  const std::vector<std::string> rows = FilasDe(Datos(), {most, FichaIda(), FichaIda("21/11/2026")});
  EXPECT_EQ(rows[2], Subtotal("\xA1"
                              "ERROR!"));
  EXPECT_EQ(rows[5], Subtotal("1500.00"));
  EXPECT_EQ(rows.back(), Total(3,
                               "\xA1"
                               "ERROR!"));
}

// ---- The slip
// ----------------------------------------------------------------------------------------------

TEST(TiraFichas, NoneWhereNoneIsAskedFor) {
  std::string page;
  EXPECT_FALSE(InformeEstado(Datos(), {}, En(page)).tira);
}

TEST(TiraFichas, EveryLineOfAStateOfTwoDays) {
  RegistroFicha bike = FichaAdentro("21/11/2026");
  bike.Categoria = "MOTOCICLETA";
  RegistroFicha other = FichaIda("21/11/2026");
  other.Categoria = "CAMION";  // which is not in the list
  const PrintDocument slip = TiraDe(ConTira(true), {FichaIda(), bike, other});
  Twips y = 0;
  const auto at = [&](Twips lines) { return std::exchange(y, y + lines * kLinea); };
  std::vector<PrintOperation> expected;
  for (const String& line : {"Vintoral             ESTADO P01"_w, "HORA/FECHA  18:00  (21/11/2026)"_w})
    expected.push_back(Negrita(at(1), line));
  for (const String& line :
       {kGuiones, "ENTRA CATEGORIA TIEMPO    VALOR"_w, kGuiones, "(20/11/2026)"_w,
        "16:35 AUTOMOVIL 02H30M  1500.00"_w, "                      $ 1500.00"_w, "(21/11/2026)"_w,
        "14:05 MOTOCICLE ACTIVO       ??"_w, "16:35 CAMION    02H30M  1500.00"_w,
        "                      $ 1500.00"_w, kIguales, "3 Registro(s)"_w})
    expected.push_back(Normal(at(1), line));
  expected.push_back(Negrita(at(1), "                TOTAL $ 3000.00"_w));
  expected.push_back(Normal(at(3), "\r\n\r\n"_w + kGuiones));
  for (const String& line : {"Vintoral     RESUMEN ESTADO P01"_w, "HORA/FECHA  18:00  (21/11/2026)"_w})
    expected.push_back(Negrita(at(1), line));
  for (const String& line :
       {kGuiones, "      CATEGORIA   CANT    VALOR"_w, kGuiones, "AUTOMOVIL            1  1500.00"_w,
        "*MOTOCICLETA         1   ACTIVO"_w, kIguales, "3 Registro(s)"_w})
    expected.push_back(Normal(at(1), line));
  expected.push_back(Negrita(at(1), "                TOTAL $ 3000.00"_w));
  expected.push_back(Normal(at(4), "\r\n\r\n\r\n."_w));
  EXPECT_THAT(slip.Operations(), ElementsAreArray(expected));
  EXPECT_EQ(slip.PrinterWanted, "POS-80"_w);
}

TEST(TiraFichas, TheSummaryAlone) {
  const PrintDocument slip = TiraDe(ConTira(false), {FichaIda(), FichaAdentro()});
  EXPECT_THAT(Textos(slip),
              ElementsAre("Vintoral     RESUMEN ESTADO P01"_w, "HORA/FECHA  18:00  (21/11/2026)"_w, kGuiones,
                          "      CATEGORIA   CANT    VALOR"_w, kGuiones, "AUTOMOVIL            1  1500.00"_w,
                          "*AUTOMOVIL           1   ACTIVO"_w, kIguales, "2 Registro(s)"_w,
                          "                TOTAL $ 1500.00"_w, "\r\n\r\n\r\n."_w));
}

TEST(TiraFichas, ASearchHasItsRangeAndNoTimeOfThoseInside) {
  DatosInforme datos = ConTira(true);
  datos.cabeza = CabezaDeBusqueda("18:00  (21/11/2026)"_w, "00:00  (20/11/2026)"_w, "23:59  (21/11/2026)"_w);
  datos.busqueda = true;
  const std::vector<String> lines = Textos(TiraDe(datos, {FichaAdentro()}));
  const std::vector<String> first(lines.begin(), lines.begin() + 9);
  EXPECT_THAT(first, ElementsAre("Vintoral           BÚSQUEDA P01"_w, "HORA/FECHA  18:00  (21/11/2026)"_w,
                                 "INICIO -->  00:00  (20/11/2026)"_w, " FINAL -->  23:59  (21/11/2026)"_w,
                                 kGuiones, "SALID CATEGORIA TIEMPO    VALOR"_w, kGuiones, "(20/11/2026)"_w,
                                 "   ?? AUTOMOVIL ACTIVO       ??"_w));
  EXPECT_EQ(lines[14], "Vintoral   RESUMEN BÚSQUEDA P01"_w);
  EXPECT_EQ(lines[16], "INICIO -->  00:00  (20/11/2026)"_w);
}

TEST(TiraFichas, TheExitsViewHasTimesOfExits) {
  DatosInforme datos = ConTira(true);
  datos.cabeza = CabezaDeEstado("18:00  (21/11/2026)"_w, true);
  EXPECT_EQ(Textos(TiraDe(datos, {FichaIda()}))[3], "SALID CATEGORIA TIEMPO    VALOR"_w);
}

TEST(TiraFichas, ADayThatBeginsWithOneNoLongerInUseHasItsDateToo) {
  RegistroFicha free = FichaIda("21/11/2026");
  free.EnUso = false;
  const std::vector<String> lines = Textos(TiraDe(ConTira(true), {FichaIda(), free, FichaIda("21/11/2026")}));
  EXPECT_EQ(lines[7], "                      $ 1500.00"_w);
  EXPECT_EQ(lines[8], "(21/11/2026)"_w);
  EXPECT_EQ(lines[9], "16:35 AUTOMOVIL 02H30M  1500.00"_w);
}

TEST(TiraFichas, APageThatCannotBeWrittenIsPrintedAllTheSame) {
  const InformeHecho done = InformeEstado(ConTira(false), {}, test::Lleno());
  EXPECT_EQ(done.pagina.Error(), ENOSPC);
  ASSERT_TRUE(done.tira);
  EXPECT_EQ(Textos(*done.tira).back(), "\r\n\r\n\r\n."_w);
}

TEST(TiraFichas, ADamagedSizePrintsAsTheDefault) {
  DatosInforme datos = ConTira(false);
  datos.tira->tamano = -1;
  EXPECT_EQ(TiraDe(datos, {}).Operations().front().fontSize, 10.5);
  datos.tira->tamano = 8;
  EXPECT_EQ(TiraDe(datos, {}).Operations().front().fontSize, 8);
}

}  // namespace
}  // namespace vintoral
