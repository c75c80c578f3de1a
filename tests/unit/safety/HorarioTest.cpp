#include "safety/Horario.h"

#include <gtest/gtest.h>

#include "support/MemoryStation.h"
#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::BlankEntry;
using test::Entry;
using test::kFdr;
using test::LogOf;
using test::MemoryStation;

const RegistroFuncion kEnd = BlankEntry("19/11/2026  08:00");

/// A report around `rows`, each without its line end.
String Report(const std::vector<String>& rows, const char* station = "01") {
  const String rule = " ------------------------------------------------\r\n"_w;
  String text = "\r\n Vintoral                             HORARIO P"_w + String(std::string_view(station)) +
                "\r\n"_w + rule + " FECHA       FUNCION          H.INI  H.FIN TIEMPO\r\n"_w + rule + "\r\n"_w;
  for (const String& row : rows)
    text += row + "\r\n"_w;
  return text + rule + "\r\n\r\n\r\n"_w;
}

String ReportOf(const std::vector<RegistroFuncion>& records, const char* station = "01") {
  const String log(LogOf(records));
  return TextoHorario(station, &log);
}

TEST(TextoHorario, ADayHeadsItsEvents) {
  const String text =
      ReportOf({Entry("20/11/2026  14:05", 10, "01:30", 15, 35), Entry("20/11/2026  15:20", 112),
                Entry("20/11/2026  14:05", 125), Entry("19/11/2026  08:00", 10, "10:00", 18, 0),
                Entry("19/11/2026  18:00", 126), kEnd});
  // 1 + 10 + 2 + 15 + 7, then the end and the time: the columns of the heading.
  EXPECT_EQ(text, Report({" 20/11/2026  EN_EJECUCION     14:05  15:35  01:30"_w,
                          "             ACCESO_PASSWORD  15:20"_w, "             ABRIR_PROGRAMA   14:05"_w,
                          " 19/11/2026  EN_EJECUCION     08:00  18:00  10:00"_w,
                          "             CERRAR_PROGRAMA  18:00"_w}));
}

TEST(TextoHorario, AnEventOfTheNextDayHasTheDateBelowTheOldDay) {
  const String text = ReportOf({Entry("20/11/2026  08:00", 10, "16:00", 0, 0),
                                Entry("21/11/2026  00:00", 115), Entry("20/11/2026  23:00", 17), kEnd});
  EXPECT_EQ(text, Report({" 20/11/2026  EN_EJECUCION     08:00  00:00  16:00"_w,
                          " 21/11/2026  CODIGO_BARRAS    00:00  00:00  00:00"_w,
                          " 20/11/2026  GENERA_TIQUETES  23:00  00:00  00:00"_w}));
}

TEST(TextoHorario, EveryCodeHasItsName) {
  const std::vector<std::string> names = {
      "EN_EJECUCION",    "MONITOR_F1",      "MONITOR_F2",      "MONITOR_F3",      "CONECTAR_WEBCAM",
      "IMPRIMIR_REGIST", "BUSQUEDA_REGIST", "GENERA_TIQUETES", "GENERA_FACTURAS", "SELECCIO_EXTRAS",
      "GENERAD_TARIFAS", "CONFIGUR_WEBCAM", "ACCESO_PASSWORD", "DESACT_PASSWORD", "MEMORIA_ROSTROS",
      "CODIGO_BARRAS",   "WEBCAM_TABLETS",  "BOTON_PANICO",    "FORMATO_TIQUETE", "FORMATO_FACTURA",
      "REINICIO_EXTRAS", "REINICIO_HISTOR", "COMENZAR_TURNO",  "TERMINAR_TURNO",  "CAMBIAR_HORA",
      "ABRIR_PROGRAMA",  "CERRAR_PROGRAMA"};
  for (std::size_t code = 0; code < names.size(); ++code) {
    const std::int64_t number =
        code < 10 ? 10 + static_cast<std::int64_t>(code) : 100 + static_cast<std::int64_t>(code);
    std::string name = names[code];
    name.resize(15, ' ');
    EXPECT_EQ(ReportOf({Entry("20/11/2026  08:00", number), kEnd}),
              Report({" 20/11/2026  "_w + String(name) + "  08:00  00:00  00:00"_w}))
        << code;
  }
}

TEST(TextoHorario, ACodeThatNobodyKnowsKeepsTheNameBefore) {
  RegistroFuncion odd = Entry("20/11/2026  08:02", 0);
  odd.CodigoFuncion = Money::FromRaw(1'005'000);  // 100.5
  const String text = ReportOf({Entry("20/11/2026  08:00", 127), Entry("20/11/2026  08:01", 103),
                                Entry("20/11/2026  08:02", 13), Entry("20/11/2026  08:03", 199), odd,
                                Entry("20/11/2026  08:05", 1), kEnd});
  EXPECT_EQ(text, Report({" 20/11/2026                   08:00  00:00  00:00"_w,
                          "                              08:01"_w,  // "03" is no code
                          "             MONITOR_F3       08:02"_w, "             MONITOR_F3       08:03"_w,
                          "             MONITOR_F3       08:02"_w, "             MONITOR_F3       08:05"_w}));
}

TEST(TextoHorario, EndsAtTheFirstRecordOfAnotherDigit) {
  const RegistroFuncion ours = Entry("20/11/2026  08:00", 210), theirs = Entry("20/11/2026  08:01", 112);
  const String row = " 20/11/2026  GENERAD_TARIFAS  08:00  00:00  00:00"_w;
  EXPECT_EQ(ReportOf({ours, theirs, ours, kEnd}, "02"), Report({row}, "02"));
  EXPECT_EQ(ReportOf({theirs, ours}, "02"), Report({}, "02"));
  RegistroFuncion negative = ours;
  negative.CodigoFuncion = Money::FromUnits(-210);
  EXPECT_EQ(ReportOf({negative}, "02"), Report({}, "02"));
}

TEST(TextoHorario, AStationNumberThatEndsInAnotherDigitReadsNothing) {
  // Station "10" writes 100 and 1025, which begin with 1.
  EXPECT_EQ(ReportOf({Entry("20/11/2026  08:00", 100), Entry("20/11/2026  08:00", 1025)}, "10"),
            Report({}, "10"));
}

TEST(TextoHorario, AFullLogHasAThousandRows) {
  const String text = ReportOf({Entry("20/11/2026  08:00", 10), Entry("20/11/2026  08:00", 112)});
  EXPECT_EQ(std::count(text.Bytes().begin(), text.Bytes().end(), '\n'), 6 + 1000 + 4);
}

TEST(TextoHorario, ACutLogEndsWhereItIsCut) {
  const std::string log =
      LogOf({Entry("20/11/2026  08:00", 10, "01:30", 9, 30), Entry("20/11/2026  08:00", 112)});
  const String row = " 20/11/2026  EN_EJECUCION     08:00  09:30  01:30"_w;
  for (const std::size_t length : {0u, 45u, 46u, 91u, 92u}) {
    const String cut(log.substr(0, length));
    const std::vector<String> rows = {row, "             ACCESO_PASSWORD  08:00"_w};
    EXPECT_EQ(TextoHorario("01", &cut),
              Report({rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(length / 46)}))
        << length;
  }
}

TEST(TextoHorario, WithoutALogThereIsTheHeadAlone) {
  EXPECT_EQ(TextoHorario("01", nullptr), Report({}));
}

// ---- The station
// ---------------------------------------------------------------------------------------------

constexpr const char* kRgt = "Recursos\\Vintoral.RGT";

class ImprimirHoraTrabajoTest : public testing::Test {
 protected:
  ImprimirHoraTrabajoTest() { station_.StartConnected(); }
  MemoryStation station_;
};

TEST_F(ImprimirHoraTrabajoTest, WritesTheReportAndOpensIt) {
  station_.Disk.Put(kRgt, "an older one, which is longer than nothing");
  station_.Disk.SetReadOnly(kRgt);
  station_.Form.ImprimirHoraTrabajo();
  EXPECT_EQ(station_.Disk.Get(kRgt), Report({" 20/11/2026  EN_EJECUCION     14:00  14:00  00:00"_w,
                                             "             ABRIR_PROGRAMA   14:00"_w})
                                         .Bytes());
  EXPECT_EQ(station_.Launched(), std::vector<String>{"Notepad.exe Recursos\\Vintoral.RGT"_w});
}

TEST_F(ImprimirHoraTrabajoTest, WithoutALogWritesTheHead) {
  ASSERT_TRUE(station_.Disk.Remove(kFdr));
  station_.Form.ImprimirHoraTrabajo();
  EXPECT_EQ(station_.Disk.Get(kRgt), Report({}).Bytes());
  EXPECT_EQ(station_.Launched().size(), 1u);
}

TEST_F(ImprimirHoraTrabajoTest, SaysWhyItCannotAndOpensNothing) {
  station_.Faulty.Set().failAllWrites = true;
  station_.Answers = {Answer::kOk};
  station_.Form.ImprimirHoraTrabajo();
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Imposible Imprimir"_w);
  EXPECT_EQ(
      station_.Boxes[0].text,
      "La carpeta '/estacion' está protegida contra escritura. No es posible crear el archivo de impresión \"Vintoral.RGT\"."_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_TRUE(station_.Launched().empty());
  EXPECT_FALSE(station_.Disk.Exists(kRgt));
}

}  // namespace
}  // namespace vintoral
