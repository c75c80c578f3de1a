#include "reports/Renglones.h"

#include <gtest/gtest.h>

#include "reports/DatosInforme.h"

namespace vintoral {
namespace {

const String kAhora = "18:00  (21/11/2026)"_w;
const String kDesde = "00:00  (20/11/2026)"_w;
const String kHasta = "23:59  (20/11/2026)"_w;

TEST(LineaTitulo, TheGateEndsInTheLastColumn) {
  EXPECT_EQ(LineaTitulo("BÚSQUEDA"_w, "01"_w), "Vintoral           BÚSQUEDA P01"_w);
  EXPECT_EQ(LineaTitulo("ESTADO"_w, "02"_w), "Vintoral             ESTADO P02"_w);
  EXPECT_EQ(LineaTitulo("TURNO DE TRABAJO"_w, "01"_w), "Vintoral   TURNO DE TRABAJO P01"_w);
  EXPECT_EQ(LineaTitulo("HISTORIAL DÍA"_w, "01"_w), "Vintoral      HISTORIAL DÍA P01"_w);
  EXPECT_EQ(LineaTitulo("RESUMEN BÚSQUEDA"_w, "01"_w), "Vintoral   RESUMEN BÚSQUEDA P01"_w);
  EXPECT_EQ(LineaTitulo("RESUMEN ESTADO"_w, "01"_w), "Vintoral     RESUMEN ESTADO P01"_w);
  EXPECT_EQ(LineaTitulo("RESUMEN TURNO.TRA"_w, "01"_w), "Vintoral  RESUMEN TURNO.TRA P01"_w);
  EXPECT_EQ(LineaTitulo("RESUMEN HISTO.DÍA"_w, "01"_w), "Vintoral  RESUMEN HISTO.DÍA P01"_w);
  EXPECT_EQ(LineaTitulo("EXTRAS"_w, "01"_w), "Vintoral             EXTRAS P01"_w);
  EXPECT_EQ(LineaTitulo("DETALLE EXTRAS"_w, "01"_w), "Vintoral     DETALLE EXTRAS P01"_w);
}

TEST(Cabeza, OfAState) {
  const CabezaInforme entries = CabezaDeEstado(kAhora, false);
  EXPECT_EQ(entries.titulo, "ESTADO"_w);
  EXPECT_EQ(entries.resumen, "RESUMEN ESTADO"_w);
  EXPECT_FALSE(entries.salidas);
  EXPECT_EQ(entries.sellosTira, std::vector{"HORA/FECHA  18:00  (21/11/2026)"_w});
  EXPECT_EQ(entries.sellosPagina, std::vector{kAhora});
  EXPECT_TRUE(CabezaDeEstado(kAhora, true).salidas);
}

TEST(Cabeza, OfASearch) {
  const CabezaInforme search = CabezaDeBusqueda(kAhora, kDesde, kHasta);
  EXPECT_EQ(search.titulo, "BÚSQUEDA"_w);
  EXPECT_EQ(search.resumen, "RESUMEN BÚSQUEDA"_w);
  EXPECT_TRUE(search.salidas);
  const std::vector paper = {"HORA/FECHA  18:00  (21/11/2026)"_w, "INICIO -->  00:00  (20/11/2026)"_w,
                             " FINAL -->  23:59  (20/11/2026)"_w};
  EXPECT_EQ(search.sellosTira, paper);
  EXPECT_EQ(search.sellosPagina, (std::vector{kAhora, kDesde, kHasta}));
}

TEST(Cabeza, OfAShift) {
  const CabezaInforme shift = CabezaDeTurno(kDesde, kAhora);
  EXPECT_EQ(shift.titulo, "TURNO DE TRABAJO"_w);
  EXPECT_EQ(shift.resumen, "RESUMEN TURNO.TRA"_w);
  EXPECT_TRUE(shift.salidas);
  const std::vector paper = {"INICIO -->  00:00  (20/11/2026)"_w, " FINAL -->  18:00  (21/11/2026)"_w};
  EXPECT_EQ(shift.sellosTira, paper);
  EXPECT_EQ(shift.sellosPagina, (std::vector{kDesde, kAhora}));
}

TEST(Cabeza, OfADay) {
  const CabezaInforme day = CabezaDeDia(kAhora);
  EXPECT_EQ(day.titulo, "HISTORIAL DÍA"_w);
  EXPECT_EQ(day.resumen, "RESUMEN HISTO.DÍA"_w);
  EXPECT_TRUE(day.salidas);
  EXPECT_EQ(day.sellosTira, std::vector{"HORA/FECHA  18:00  (21/11/2026)"_w});
  EXPECT_TRUE(day.sellosPagina.empty());
}

TEST(LineaSubtotal, EndsInTheLastColumn) {
  // 30 columns less one of the currency and seven of the amount: 22 blanks.
  EXPECT_EQ(LineaSubtotal(" $ "_w, Suma(Money::FromUnits(1500))), "                      $ 1500.00"_w);
  // Without a currency its blank stays.
  EXPECT_EQ(LineaSubtotal(""_w, Suma(Money::FromUnits(1500))), "                        1500.00"_w);
}

TEST(LineaTotal, EndsInTheLastColumn) {
  // 24 columns less one and seven: 16 blanks.
  EXPECT_EQ(LineaTotal("$"_w, Suma(Money::FromUnits(1500))), "                TOTAL $ 1500.00"_w);
  EXPECT_EQ(LineaTotal("COP"_w, Suma()), "                 TOTAL COP 0.00"_w);
}

TEST(LineaTotal, WhereTheRoomIsTooNarrowThereAreNoBlanks) {
  const Suma most(Money::FromRaw(9223372036854775807));
  // 10 and 18 characters: four more than there is room for.
  EXPECT_EQ(LineaTotal("0123456789"_w, most), "TOTAL 0123456789 922337203685477.58"_w);
}

TEST(LineaRegistros, CountsThem) {
  EXPECT_EQ(LineaRegistros(0), "0 Registro(s)"_w);
  EXPECT_EQ(LineaRegistros(12), "12 Registro(s)"_w);
}

}  // namespace
}  // namespace vintoral
