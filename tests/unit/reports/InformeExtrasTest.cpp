#include "reports/InformeExtras.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::ConCrLf;
using test::En;
using testing::HasSubstr;
using testing::Not;

RegistroExtra Venta(std::string_view fecha, std::string_view articulo, std::int16_t hora,
                    std::int16_t cantidad, std::int64_t precio) {
  RegistroExtra venta;
  venta.FechaVenta = String(fecha);
  venta.Articulo = String(articulo) + String(15 - articulo.size(), ' ');
  venta.HoraVenta = hora;
  venta.Cantidad = cantidad;
  venta.PrecioUnitario = Money::FromUnits(precio);
  return venta;
}

DatosExtras Datos(std::vector<RegistroExtra> ventas) {
  ventas.emplace_back();  // the blank one that ends a list
  return {.turnoActivo = false,
          .marcaTurno = "06:00  (20/11/2026)"_w,
          .ahora = "18:00  (21/11/2026)"_w,
          .porteria = "01"_w,
          .moneda = " $ "_w,
          .articulos = {{"ACEITE"_w, Money::FromUnits(800)}, {"LAVADO"_w, Money::FromUnits(500)}},
          .ventas = std::move(ventas)};
}

std::string Sumas(const DatosExtras& datos) {
  std::string text;
  EXPECT_TRUE(EscribirValorExtra(datos, En(text)));
  return text;
}
std::string Lista(const DatosExtras& datos) {
  std::string text;
  EXPECT_TRUE(EscribirContadorExtra(datos, En(text)));
  return text;
}

/// Two of the day and one of the day before.
std::vector<RegistroExtra> Tres() {
  return {Venta("21/11/26", "LAVADO", 1405, 3, 500), Venta("21/11/26", "aceite", 905, 1, 700),
          Venta("20/11/26", "LAVADO", 5, 1, 500)};
}

constexpr std::string_view kCabezaSumas = R"(
 Vintoral             EXTRAS P01
 HORA/FECHA  18:00  (21/11/2026)
 -------------------------------
 DESCRIPCION   CANTIDAD    VALOR
 -------------------------------

)";
constexpr std::string_view kCabezaLista = R"(
 Vintoral     DETALLE EXTRAS P01
 HORA/FECHA  18:00  (21/11/2026)
 -------------------------------
 HORA  DESCRIPCION CANT    VALOR
 -------------------------------

)";

TEST(ValorExtra, EveryLineOfTwoDays) {
  // The oil was sold at 700 and costs 800 now: the line has the price of now, the total what was paid.
  EXPECT_EQ(Sumas(Datos(Tres())), ConCrLf(std::string(kCabezaSumas) + R"( (21/11/2026)
 ACEITE               1   800.00
 LAVADO               3  1500.00
 ===============================
                 TOTAL $ 2200.00
 -------------------------------

 (20/11/2026)
 ACEITE               0     0.00
 LAVADO               1   500.00
 ===============================
                  TOTAL $ 500.00
 -------------------------------


)"));
}

TEST(ContadorExtra, EveryLineOfTwoDays) {
  EXPECT_EQ(Lista(Datos(Tres())), ConCrLf(std::string(kCabezaLista) + R"( (21/11/2026)
 14:05 LAVADO         3  1500.00
 09:05 aceite         1   700.00
 (20/11/2026)
 00:05 LAVADO         1   500.00
 ===============================
                 TOTAL $ 2700.00
 -------------------------------
 -------------------------------
       DESC    CONTADOR    VALOR
 -------------------------------
 ACEITE               1   800.00
 LAVADO               4  2000.00
 ===============================
                 TOTAL $ 2700.00
 -------------------------------

)"));
}

TEST(ValorExtra, AnEmptyListHasHeadsAndNoBlock) {
  EXPECT_EQ(Sumas(Datos({})), ConCrLf(std::string(kCabezaSumas) + "\n"));
  DatosExtras empty = Datos({});
  empty.ventas->clear();  // a file without a byte
  EXPECT_EQ(Sumas(empty), ConCrLf(std::string(kCabezaSumas) + "\n"));
}

TEST(ContadorExtra, AnEmptyListHasHeadsAndNothingInIt) {
  EXPECT_EQ(Lista(Datos({})), ConCrLf(std::string(kCabezaLista) + R"( ===============================
                    TOTAL $ 0.00
 -------------------------------
 -------------------------------
       DESC    CONTADOR    VALOR
 -------------------------------
 ===============================
                    TOTAL $ 0.00
 -------------------------------

)"));
}

TEST(InformeExtras, WithoutAFileTheHeadAlone) {
  DatosExtras datos = Datos({});
  datos.ventas.reset();
  EXPECT_EQ(Sumas(datos), ConCrLf(std::string(kCabezaSumas) + "\n\n"));
  EXPECT_EQ(Lista(datos), ConCrLf(std::string(kCabezaLista) + "\n\n"));
}

TEST(InformeExtras, AShiftHasItsOwnHeadAndEndsAtItsMark) {
  DatosExtras datos = Datos(Tres());
  datos.ventas->at(1).MarcaTurnoExtra = true;
  EXPECT_THAT(Sumas(datos), HasSubstr("ACEITE               1"));  // no shift: the mark says nothing
  datos.turnoActivo = true;
  const std::string head = ConCrLf(
      "\n Vintoral   TURNO DE TRABAJO P01\n INICIO -->  06:00  (20/11/2026)\n  FINAL -->  18:00  "
      "(21/11/2026)\n -------------------------------\n");
  EXPECT_EQ(Sumas(datos), head + ConCrLf(R"( DESCRIPCION   CANTIDAD    VALOR
 -------------------------------

 (21/11/2026)
 ACEITE               0     0.00
 LAVADO               3  1500.00
 ===============================
                 TOTAL $ 1500.00
 -------------------------------


)"));
  const std::string list = Lista(datos);
  EXPECT_THAT(list, testing::StartsWith(head));
  EXPECT_THAT(list, HasSubstr(" 14:05 LAVADO"));
  EXPECT_THAT(list, Not(HasSubstr("aceite")));
}

TEST(InformeExtras, AShiftInWhichNothingWasSold) {
  DatosExtras datos = Datos(Tres());
  datos.turnoActivo = true;
  datos.ventas->at(0).MarcaTurnoExtra = true;
  EXPECT_THAT(Sumas(datos), Not(HasSubstr("TOTAL")));
  EXPECT_THAT(Lista(datos), HasSubstr("                    TOTAL $ 0.00\r\n"));
}

TEST(InformeExtras, AResetListEndsAtItsFirstRecord) {
  DatosExtras datos = Datos(Tres());
  datos.ventas->at(1).HoraVenta = -1;
  EXPECT_THAT(Sumas(datos), Not(HasSubstr("20/11/2026)\r\n ACEITE")));
  EXPECT_THAT(Lista(datos), Not(HasSubstr("aceite")));
  EXPECT_THAT(Lista(datos), HasSubstr(" 14:05 LAVADO"));
}

TEST(InformeExtras, AFullListEndsAtRecord5000) {
  DatosExtras datos = Datos({});
  datos.ventas = std::vector<RegistroExtra>(5001, Venta("21/11/26", "LAVADO", 1405, 1, 1));
  EXPECT_THAT(Sumas(datos), HasSubstr(" LAVADO            5000"));
  EXPECT_THAT(Sumas(datos), HasSubstr("TOTAL $ 5000.00\r\n"));
  EXPECT_THAT(Lista(datos), HasSubstr("TOTAL $ 5000.00\r\n"));
}

TEST(InformeExtras, AnArticleNoLongerSoldIsInTheTotalAlone) {
  const DatosExtras datos = Datos({Venta("21/11/26", "CERA", 1405, 2, 300)});
  EXPECT_THAT(Sumas(datos), Not(HasSubstr("CERA")));
  EXPECT_THAT(Sumas(datos), HasSubstr("TOTAL $ 600.00\r\n"));
  EXPECT_THAT(Lista(datos), HasSubstr(" 14:05 CERA           2   600.00\r\n"));
  EXPECT_THAT(Lista(datos), HasSubstr("    VALOR\r\n -------------------------------\r\n ====="));
}

TEST(InformeExtras, LongNamesAreCutInTheList) {
  DatosExtras datos = Datos({Venta("21/11/26", "0123456789ABCDE", 1405, 999, 99)});
  datos.articulos = {{"0123456789ABCDE"_w, Money::FromUnits(99)}};
  EXPECT_THAT(Lista(datos), HasSubstr(" 14:05 0123456789A  999 98901.00\r\n"));
  EXPECT_THAT(Sumas(datos), HasSubstr(" 0123456789ABCDE    999 98901.00\r\n"));
}

TEST(InformeExtras, AmountsAreRoundedToCentsLineByLine) {
  RegistroExtra half = Venta("21/11/26", "LAVADO", 1405, 1, 0);
  half.PrecioUnitario = Money::FromRaw(50);  // half a cent
  EXPECT_THAT(Sumas(Datos({half, half})), HasSubstr("TOTAL $ 0.02\r\n"));
}

TEST(InformeExtras, SumsThatRunOverSaySo) {
  RegistroExtra most = Venta("21/11/26", "LAVADO", 1405, 2, 0);
  most.PrecioUnitario = Money::FromRaw(std::numeric_limits<std::int64_t>::max());
  const std::string text = Lista(Datos({most}));
  EXPECT_THAT(text, HasSubstr(" 14:05 LAVADO         2  \xA1"
                              "ERROR!\r\n"));
  EXPECT_THAT(text, HasSubstr("TOTAL $ \xA1"
                              "ERROR!\r\n"));
}

TEST(InformeExtras, ADiskThatIsFullIsTold) {
  EXPECT_EQ(EscribirValorExtra(Datos({}), test::Lleno()).Error(), ENOSPC);
  EXPECT_EQ(EscribirContadorExtra(Datos({}), test::Lleno()).Error(), ENOSPC);
}

TEST(FechaDeVenta, GetsItsCentury) {
  EXPECT_EQ(FechaDeVenta("20/11/26"), "20/11/2026"_w);
  EXPECT_EQ(FechaDeVenta(" 20/11/26 "), "20/11/2026"_w);
  EXPECT_EQ(FechaDeVenta("01/01/99"), "01/01/2099"_w);
}

TEST(FechaDeVenta, WhatIsNoDateStaysAsItIs) {
  EXPECT_EQ(FechaDeVenta("         "), ""_w);
  EXPECT_EQ(FechaDeVenta("20/11/2026"), "20/11/2026"_w);
  EXPECT_EQ(FechaDeVenta("20-11-26"), "20-11-26"_w);
  EXPECT_EQ(FechaDeVenta("2a/11/26"), "2a/11/26"_w);
}

TEST(HoraDeVenta, HoursAndMinutes) {
  EXPECT_EQ(HoraDeVenta(905), "09:05"_w);
  EXPECT_EQ(HoraDeVenta(5), "00:05"_w);
  EXPECT_EQ(HoraDeVenta(0), "00:00"_w);
  EXPECT_EQ(HoraDeVenta(59), "00:59"_w);
  EXPECT_EQ(HoraDeVenta(100), "01:00"_w);
  EXPECT_EQ(HoraDeVenta(2359), "23:59"_w);
}

TEST(HoraDeVenta, WhatIsNoTimeOfDay) {
  for (const std::int16_t hora : std::initializer_list<std::int16_t>{-1, -905, 60, 2360, 2400, 32767})
    EXPECT_EQ(HoraDeVenta(hora), "??:??"_w) << hora;
}

}  // namespace
}  // namespace vintoral
