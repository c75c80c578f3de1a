#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/FinPeriodo.h"
#include "reports/InformeFichas.h"
#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "unit/reports/Informes.h"
#include "unit/reports/Slips.h"

namespace vintoral {
namespace {

using test::En;
using test::Encoded;
using test::FichaIda;
using test::Filas;
using test::MemoryDisk;
using test::Textos;
using testing::ElementsAre;

constexpr const char* kVacia = "||||||||||||||";
constexpr const char* kAhora = "18:00  (21/11/2026)||||||||||||||";
constexpr const char* kInicio = "06:00  (20/11/2026)||||||||||||||";
const std::string kBlanco = Encoded(RegistroFicha{});

RegistroFicha Ida(std::string_view placa, std::string_view fecha, std::int64_t valor = 1500) {
  RegistroFicha ficha = FichaIda(fecha);
  ficha.Placa = placa;
  ficha.ValorCobrado = Money::FromUnits(valor);
  return ficha;
}
/// The last one when a shift began.
RegistroFicha UltimaAntes(std::string_view placa, std::string_view fecha) {
  RegistroFicha ficha = Ida(placa, fecha);
  ficha.InicioTurno = true;
  return ficha;
}

std::string Fila(const std::string& placa, const std::string& fecha, const std::string& valor = "1500.00") {
  return "14:05  (" + fecha + ")|01|16:35  (" + fecha + ")|02|0042|AUTOMOVIL|SIN IMAGEN|02H 30M|" + valor +
         "|" + placa + "|JUAN|PEREZ|3001234567|CASCO|";
}
std::string Subtotal(const std::string& valor) {
  return "||||||||$ " + valor + "||||||";
}
std::string Total(int registros, const std::string& valor) {
  return std::to_string(registros) + " Registro(s)|||||TOTAL|||$ " + valor + "||||||";
}

DatosInforme DeDia() {
  DatosInforme datos = test::Datos();
  datos.cabeza = CabezaDeDia("18:00  (21/11/2026)"_w);
  return datos;
}
DatosInforme DeTurno() {
  DatosInforme datos = test::Datos();
  datos.cabeza = CabezaDeTurno("06:00  (20/11/2026)"_w, "18:00  (21/11/2026)"_w);
  return datos;
}

InformeHecho Informe(const DatosInforme& datos, const std::string& archivo, bool turno, std::string& pagina) {
  MemoryDisk disk;
  disk.Put("HST", archivo);
  return InformeHistorial(datos, Register<RegistroFicha>(disk, "HST", OpenMode::kRead), turno, En(pagina));
}

std::vector<std::string> FilasDe(const std::string& archivo, bool turno) {
  std::string page;
  EXPECT_TRUE(Informe(turno ? DeTurno() : DeDia(), archivo, turno, page).pagina);
  return Filas(page);
}

TEST(FinPeriodo, NeedsAShiftAndItsMark) {
  EXPECT_TRUE(FinPeriodo(true, true));
  EXPECT_FALSE(FinPeriodo(true, false));
  EXPECT_FALSE(FinPeriodo(false, true));
  EXPECT_FALSE(FinPeriodo(false, false));
}

TEST(InformeHistorial, WithoutAShiftTheLastDayInTheFile) {
  const std::string file = kBlanco + Encoded(Ida("AYER", "18/11/2026")) + Encoded(Ida("UNO", "19/11/2026")) +
                           Encoded(Ida("DOS", "19/11/2026", 500));
  EXPECT_THAT(FilasDe(file, false),
              ElementsAre(Fila("DOS", "19/11/2026", "500.00"), Fila("UNO", "19/11/2026"), Subtotal("2000.00"),
                          kVacia, kVacia, Total(2, "2000.00")));
}

TEST(InformeHistorial, ADayThatBeginsTheFileEndsAtRecord1) {
  EXPECT_THAT(
      FilasDe(kBlanco + Encoded(Ida("UNO", "19/11/2026")), false),
      ElementsAre(Fila("UNO", "19/11/2026"), Subtotal("1500.00"), kVacia, kVacia, Total(1, "1500.00")));
  // Record 1 is never listed, whatever it holds.
  EXPECT_THAT(
      FilasDe(Encoded(Ida("CERO", "19/11/2026")) + Encoded(Ida("UNO", "19/11/2026")), false),
      ElementsAre(Fila("UNO", "19/11/2026"), Subtotal("1500.00"), kVacia, kVacia, Total(1, "1500.00")));
}

TEST(InformeHistorial, OfABlankRecordAloneNothing) {
  EXPECT_THAT(FilasDe(kBlanco, false), ElementsAre(Subtotal("0.00"), kVacia, kVacia, Total(0, "0.00")));
  EXPECT_THAT(FilasDe(kBlanco, true),
              ElementsAre(Subtotal("0.00"), kVacia, kVacia, kInicio, kAhora, kVacia, Total(0, "0.00")));
  EXPECT_THAT(FilasDe("", false), ElementsAre(kVacia, Total(0, "0.00")));
}

TEST(InformeHistorial, AMarkOfAShiftThatIsOverDoesNotEndADay) {
  const std::string file =
      kBlanco + Encoded(UltimaAntes("UNO", "19/11/2026")) + Encoded(Ida("DOS", "19/11/2026"));
  EXPECT_THAT(FilasDe(file, false), ElementsAre(Fila("DOS", "19/11/2026"), Fila("UNO", "19/11/2026"),
                                                Subtotal("3000.00"), kVacia, kVacia, Total(2, "3000.00")));
}

TEST(InformeHistorial, AShiftOverTwoDays) {
  const std::string file = kBlanco + Encoded(Ida("ANTES", "20/11/2026")) +
                           Encoded(UltimaAntes("MARCA", "20/11/2026")) + Encoded(Ida("UNO", "20/11/2026")) +
                           Encoded(Ida("DOS", "21/11/2026", 500)) + Encoded(Ida("TRES", "21/11/2026"));
  EXPECT_THAT(FilasDe(file, true),
              ElementsAre(Fila("TRES", "21/11/2026"), Fila("DOS", "21/11/2026", "500.00"),
                          Subtotal("2000.00"), kVacia, Fila("UNO", "20/11/2026"), Subtotal("1500.00"), kVacia,
                          kVacia, kInicio, kAhora, kVacia, Total(3, "3500.00")));
}

TEST(InformeHistorial, TheLatestMarkCounts) {
  const std::string file = kBlanco + Encoded(UltimaAntes("VIEJA", "20/11/2026")) +
                           Encoded(UltimaAntes("NUEVA", "20/11/2026")) + Encoded(Ida("UNO", "20/11/2026"));
  EXPECT_THAT(FilasDe(file, true), ElementsAre(Fila("UNO", "20/11/2026"), Subtotal("1500.00"), kVacia, kVacia,
                                               kInicio, kAhora, kVacia, Total(1, "1500.00")));
}

TEST(InformeHistorial, AShiftInWhichNothingHasGone) {
  const std::string file = kBlanco + Encoded(UltimaAntes("MARCA", "20/11/2026"));
  EXPECT_THAT(FilasDe(file, true),
              ElementsAre(Subtotal("0.00"), kVacia, kVacia, kInicio, kAhora, kVacia, Total(0, "0.00")));
}

TEST(InformeHistorial, AShiftWithoutAMarkGoesBackToRecord1) {
  const std::string file = kBlanco + Encoded(Ida("UNO", "19/11/2026")) + Encoded(Ida("DOS", "20/11/2026"));
  EXPECT_THAT(FilasDe(file, true),
              ElementsAre(Fila("DOS", "20/11/2026"), Subtotal("1500.00"), kVacia, Fila("UNO", "19/11/2026"),
                          Subtotal("1500.00"), kVacia, kVacia, kInicio, kAhora, kVacia, Total(2, "3000.00")));
}

TEST(InformeHistorial, OneNotInUseCountsAndHasNoRow) {
  RegistroFicha free = Ida("LIBRE", "19/11/2026");
  free.EnUso = false;
  const std::string file = kBlanco + Encoded(Ida("UNO", "19/11/2026")) + Encoded(free);
  EXPECT_THAT(FilasDe(file, false), ElementsAre(Fila("UNO", "19/11/2026"), Subtotal("1500.00"), kVacia,
                                                kVacia, Total(2, "1500.00")));
}

TEST(InformeHistorial, ARowThatSaysItIsInsideAddsNothing) {
  RegistroFicha inside = Ida("ADENTRO", "19/11/2026");
  inside.PorteriaSalida = "??";
  std::vector<std::string> asked;
  DatosInforme datos = DeDia();
  datos.foto = [&](std::string_view folder, std::int64_t number) -> std::optional<String> {
    asked.push_back(String(folder).ToUtf8() + " " + std::to_string(number));
    return std::nullopt;
  };
  std::string page;
  EXPECT_TRUE(
      Informe(datos, kBlanco + Encoded(inside) + Encoded(Ida("UNO", "19/11/2026")), false, page).pagina);
  EXPECT_EQ(Filas(page)[2], Subtotal("1500.00"));
  EXPECT_THAT(asked, ElementsAre("Imágenes HST 7", "Imágenes ACT 7"));
}

TEST(InformeHistorial, ATornLastRecordIsNone) {
  const std::string file =
      kBlanco + Encoded(Ida("UNO", "19/11/2026")) + Encoded(Ida("DOS", "20/11/2026")).substr(0, 187);
  EXPECT_EQ(FilasDe(file, false)[0], Fila("UNO", "19/11/2026"));
}

TEST(InformeHistorial, TheTitlesOfThePage) {
  std::string page;
  EXPECT_TRUE(Informe(DeDia(), kBlanco, false, page).pagina);
  EXPECT_THAT(page, testing::HasSubstr("<head><TITLE>Vintoral - HISTORIAL D\xCD"
                                       "A P01</TITLE>\r\n"));
  page.clear();
  EXPECT_TRUE(Informe(DeTurno(), kBlanco, true, page).pagina);
  EXPECT_THAT(page, testing::HasSubstr("<head><TITLE>Vintoral - TURNO DE TRABAJO P01</TITLE>\r\n"));
}

TEST(InformeHistorial, TheSlipOfAShift) {
  const std::string file = kBlanco + Encoded(UltimaAntes("MARCA", "20/11/2026")) +
                           Encoded(Ida("UNO", "20/11/2026")) + Encoded(Ida("DOS", "21/11/2026", 500));
  DatosInforme datos = DeTurno();
  datos.tira = FormatoTira{"POS-80"_w, 10.5F, true};
  std::string page;
  const InformeHecho done = Informe(datos, file, true, page);
  ASSERT_TRUE(done.tira);
  const String guiones(31, '-'), iguales(31, '=');
  EXPECT_THAT(
      Textos(*done.tira),
      ElementsAre("Vintoral   TURNO DE TRABAJO P01"_w, "INICIO -->  06:00  (20/11/2026)"_w,
                  " FINAL -->  18:00  (21/11/2026)"_w, guiones, "SALID CATEGORIA TIEMPO    VALOR"_w, guiones,
                  "(21/11/2026)"_w, "16:35 AUTOMOVIL 02H30M   500.00"_w, "                       $ 500.00"_w,
                  "(20/11/2026)"_w, "16:35 AUTOMOVIL 02H30M  1500.00"_w, "                      $ 1500.00"_w,
                  iguales, "2 Registro(s)"_w, "                TOTAL $ 2000.00"_w, "\r\n\r\n"_w + guiones,
                  "Vintoral  RESUMEN TURNO.TRA P01"_w, "INICIO -->  06:00  (20/11/2026)"_w,
                  " FINAL -->  18:00  (21/11/2026)"_w, guiones, "      CATEGORIA   CANT    VALOR"_w, guiones,
                  "AUTOMOVIL            2  2000.00"_w, iguales, "2 Registro(s)"_w,
                  "                TOTAL $ 2000.00"_w, "\r\n\r\n\r\n."_w));
}

TEST(InformeHistorial, TheSummaryOfADay) {
  DatosInforme datos = DeDia();
  datos.tira = FormatoTira{"POS-80"_w, 10.5F, false};
  std::string page;
  const InformeHecho done = Informe(datos, kBlanco + Encoded(Ida("UNO", "19/11/2026")), false, page);
  ASSERT_TRUE(done.tira);
  EXPECT_EQ(Textos(*done.tira)[0], "Vintoral  RESUMEN HISTO.DÍA P01"_w);
  EXPECT_EQ(Textos(*done.tira)[1], "HORA/FECHA  18:00  (21/11/2026)"_w);
}

TEST(InformeHistorial, WhatWasReadBeforeAFailureCounts) {
  std::string file = kBlanco;
  for (int i = 0; i < 1000; ++i)
    file += Encoded(Ida("X", "19/11/2026", 1));
  MemoryDisk memory;
  memory.Put("HST", file);
  test::FaultyDisk disk(memory);
  disk.Set().failRead = 2;  // 675 records are read at a time
  std::string page;
  EXPECT_TRUE(
      InformeHistorial(DeDia(), Register<RegistroFicha>(disk, "HST", OpenMode::kRead), false, En(page))
          .pagina);
  const std::vector<std::string> rows = Filas(page);
  ASSERT_EQ(rows.size(), 675U + 4);
  EXPECT_EQ(rows[675], Subtotal("675.00"));
  EXPECT_EQ(rows.back(), Total(675, "675.00"));
}

TEST(InformeHistorial, WhatCannotBeReadEndsIt) {
  MemoryDisk disk;
  const Register<RegistroFicha> missing(disk, "HST", OpenMode::kRead);
  std::string page;
  EXPECT_TRUE(InformeHistorial(DeDia(), missing, false, En(page)).pagina);
  EXPECT_EQ(Filas(page).back(), Total(0, "0.00"));
}

}  // namespace
}  // namespace vintoral
