// The invoice of a ficha that is retired: its number, its copies, its place in the log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "records/ArchivosNuevos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"
#include "support/Slips.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kFta = "Recursos\\Vintoral.FTA";
constexpr const char* kHfc = "Recursos\\Vintoral.HFC";

/// Slot 7 came in at 14:00 (AUTOMOVIL, 100 a minute) and is on display at 14:37, invoices being on.
class FacturaDeSalidaTest : public testing::Test {
 protected:
  FacturaDeSalidaTest() {
    station_.Disk.Put("Multimedia\\Vintoral.ACT", ActNuevo());
    station_.Printer.Installed = {{"Tira80"_w}, "Tira80"_w};
    station_.StartConnected();
    form_.FacturaActual.DimFuente = 10.5F;
    form_.FacturaActual.Encabezado = "CABEZA";
    form_.FacturaActual.Prefijo = "No.FACTURA\x1B";
    form_.FacturaActual.NumFactura = 41;
    form_.FacturaActual.Impuesto = 19;
    form_.FacturaActual.Pie = "PIE";
    form_.EtiquetasActuales.ImprimirCampo = {true, false, false, false, false};
    form_.PctBoton[boton::kFacturas].BorderStyle = 1;
    station_.Enter("7", "abc123");
    station_.Pass(37 * 60'000);
    Show();
  }
  void Show() {
    station_.TypeAndEnter("7");
    station_.Pass(500);  // the cash line
    station_.Boxes.clear();
    station_.Events.Take();
  }
  /// What came out of the printers.
  std::vector<DeviceEvent> Retire() {
    station_.Answers.push_back(Answer::kYes);
    station_.Hands.Key(keys::kDelete, 0);
    return test::Printed(station_.Events);
  }
  std::string Log() const { return station_.Disk.Get(kHfc); }
  std::int32_t NumberOnDisk() { return test::Decoded<RegistroFactura>(station_.Disk.Get(kFta)).NumFactura; }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(FacturaDeSalidaTest, SaysWhatTheStayCost) {
  ASSERT_EQ(form_.ChkFactura.Value, 1);
  station_.Hands.ReplaceText(form_.TxtEfectivo, "5000"_w);
  station_.Pass(500);
  const auto printed = Retire();
  ASSERT_EQ(printed.size(), 1u);
  // 3700 / 1.19 = 3109.2437
  EXPECT_EQ(test::TextOf(printed[0]),
            "CABEZA\n"
            "No.FACTURA  42              P01\n"
            "HORA/FECHA  14:37  (20/11/2026)\n"
            "-------------------------------\n"
            "PLACA/DOC : ABC123\n"
            "-------------------------------\n"
            "  ENTRADA : 14:00  (20/11/2026)\n"
            "   SALIDA : 14:37  (20/11/2026)\n"
            "CATEGORIA : AUTOMOVIL\n"
            "   TIEMPO : 37M \n"
            "===============================\n"
            "     BASE 3109.24\n"
            " IMPUESTO  590.76 (19.00%)\n"
            "===============================\n"
            "                TOTAL $ 3700.00\n"
            " EFECTIVO 5000.00\n"
            "   CAMBIO 1300.00\n"
            "-------------------------------\n"
            "----------- vintoral.example --\n"
            "PIE\n\n\n.\n");
}

TEST_F(FacturaDeSalidaTest, CashAndChangeAgreeThoughNoTickCameBetween) {
  station_.Hands.ReplaceText(form_.TxtEfectivo, "5000"_w);
  station_.Pass(500);
  station_.Hands.ReplaceText(form_.TxtEfectivo, "20000"_w);
  EXPECT_THAT(test::TextOf(Retire().at(0)), HasSubstr("\n EFECTIVO 20000.00\n   CAMBIO 16300.00\n"));
}

TEST_F(FacturaDeSalidaTest, TheEntryIsTheRegistersThoughTheLinkWasLost) {
  form_.LblFechaEnt.Caption = "CONECTANDO... "_w;
  EXPECT_THAT(test::TextOf(Retire().at(0)), HasSubstr("\n  ENTRADA : 14:00  (20/11/2026)\n"));
}

TEST_F(FacturaDeSalidaTest, SwitchedOffTheTickIsGone) {
  ASSERT_TRUE(form_.ChkFactura.Visible);
  ASSERT_TRUE(form_.ImgIndicador[indicador::kImprimirFactura].Visible);
  station_.Answers = {Answer::kYes};
  form_.PctBoton_Click(boton::kFacturas);
  EXPECT_FALSE(form_.ChkFactura.Visible);
  EXPECT_FALSE(form_.ImgIndicador[indicador::kImprimirFactura].Visible);
  EXPECT_EQ(form_.ChkFactura.Value, 0);
}

TEST_F(FacturaDeSalidaTest, SwitchedOnBeforeAFichaItIsTickedForAllToSee) {
  station_.Answers = {Answer::kYes};
  form_.PctBoton_Click(boton::kFacturas);
  ASSERT_FALSE(form_.ChkFactura.Visible);
  station_.InDialog = {[this] { station_.Hands.Key(keys::kEnter, 0); }};
  form_.PctBoton_Click(boton::kFacturas);
  EXPECT_TRUE(form_.ChkFactura.Visible);
  EXPECT_TRUE(form_.ChkFactura.Enabled);
  EXPECT_EQ(form_.ChkFactura.Value, 1);
  EXPECT_EQ(form_.ChkFactura.Tag, "1"_w);
  EXPECT_TRUE(form_.ImgIndicador[indicador::kImprimirFactura].Visible);
}

TEST_F(FacturaDeSalidaTest, NoCashLineWithoutEnoughCash) {
  const std::string text = test::TextOf(Retire().at(0));
  EXPECT_THAT(text, HasSubstr("TOTAL $ 3700.00\n-------------------------------\n"));
}

TEST_F(FacturaDeSalidaTest, ThePointsLineStandsWhereTheFormatAsksForIt) {
  form_.FacturaActual.Puntos = true;
  form_.PuntosAcumulados = 12;
  form_.PuntosEstadia = 30;
  form_.ImgPuntos.Tag = "1"_w;  // the points of the stay stand
  const std::string text = test::TextOf(Retire().at(0));
  EXPECT_THAT(text, HasSubstr("AUTOMOVIL\n  *PUNTOS : 42\n   TIEMPO : 37M"));
}

TEST_F(FacturaDeSalidaTest, WithoutFieldsTheEntryIsTheBoldFirstLine) {
  form_.EtiquetasActuales.ImprimirCampo = {};
  const auto printed = Retire();
  const auto& operations = printed.at(0).printed;
  const auto entry = std::find_if(operations.begin(), operations.end(), [](const PrintOperation& each) {
    return each.text == "  ENTRADA : 14:00  (20/11/2026)"_w;
  });
  ASSERT_NE(entry, operations.end());
  EXPECT_TRUE(entry->fontBold);
  EXPECT_EQ((entry - 1)->text, String(31, '-'));
  EXPECT_EQ((entry + 1)->text, "   SALIDA : 14:37  (20/11/2026)"_w);
  EXPECT_FALSE((entry + 1)->fontBold);
}

TEST_F(FacturaDeSalidaTest, TheLogBeginsWithItByteForByte) {
  station_.Disk.Put(kHfc, "lo anterior");
  form_.FacturaActual.Impuesto = 0;
  Retire();
  EXPECT_EQ(Log(),
            "\r\n\r\n\r\n"
            "CABEZA\r\n"
            "No.FACTURA  42              P01\r\n"
            "HORA/FECHA  14:37  (20/11/2026)\r\n"
            "-------------------------------\r\n"
            "PLACA/DOC : ABC123\r\n"
            "-------------------------------\r\n"
            "  ENTRADA : 14:00  (20/11/2026)\r\n"
            "   SALIDA : 14:37  (20/11/2026)\r\n"
            "CATEGORIA : AUTOMOVIL\r\n"
            "   TIEMPO : 37M\r\n"
            "===============================\r\n"
            "                TOTAL $ 3700.00\r\n"
            "-------------------------------\r\n"
            "----------- vintoral.example --\r\n"
            "PIE\r\n\r\n\r\n"
            "\r\n\r\n\r\n"
            "lo anterior\r\n");
}

TEST_F(FacturaDeSalidaTest, OnPaperWhenSlotRowAndNumberAreOnDisk) {
  bool settled = false;
  station_.Printer.OnEndDoc = [&] {
    settled = !station_.Slot(7).EnUso && station_.HistoryRows() == 2 && NumberOnDisk() == 42 &&
              !station_.Faulty.Pending();
  };
  ASSERT_EQ(Retire().size(), 1u);
  EXPECT_TRUE(settled);
}

TEST_F(FacturaDeSalidaTest, TheSecondCopyComesFiveSecondsLaterAndIsTheSame) {
  form_.FacturaActual.Copia = true;
  std::vector<DeviceEvent> first;
  std::string log;
  station_.UnderWait = [&] {
    first = test::Printed(station_.Events);
    log = Log();
    EXPECT_TRUE(form_.TxtCampo[0].TakesFocus());  // the next one can be served
    EXPECT_TRUE(form_.TmrHoraFecha.Enabled);
  };
  const auto second = Retire();
  EXPECT_THAT(station_.Waits, ElementsAre(5000));
  ASSERT_EQ(first.size(), 1u);
  ASSERT_EQ(second.size(), 1u);
  EXPECT_EQ(first[0], second[0]);
  EXPECT_EQ(log, Log());
  EXPECT_THAT(log, HasSubstr("No.FACTURA  42 "));
}

TEST_F(FacturaDeSalidaTest, AWaitOverMidnightEndsAfterFiveSecondsToo) {
  form_.FacturaActual.Copia = true;
  station_.Clock.Set(At(23, 59, 57));
  station_.Hands.Key(keys::kEscape, 0);
  Show();
  ASSERT_EQ(Retire().size(), 2u);
  EXPECT_THAT(station_.Waits, ElementsAre(5000));
}

TEST_F(FacturaDeSalidaTest, WhatIsTypedDuringTheWaitStaysAndGoesOn) {
  form_.FacturaActual.Copia = true;
  station_.UnderWait = [this] {
    station_.TypeNew("9", "nueva");
    station_.Type("an");
  };
  ASSERT_EQ(Retire().size(), 2u);
  station_.Type("a");
  EXPECT_EQ(form_.TxtCampo[1].Text(), "NUEVA"_w);
  EXPECT_EQ(form_.TxtCampo[2].Text(), "ANA"_w);
  EXPECT_TRUE(form_.TxtCampo[0].Locked);
}

TEST_F(FacturaDeSalidaTest, ItIsHeardBeforeTheCopyComes) {
  form_.FacturaActual.Copia = true;
  bool heard = false;
  station_.UnderWait = [&] {
    const auto events = station_.Events.Take();
    heard = events.size() == 2 && events[0].kind == DeviceEvent::Kind::kPrint &&
            events[1].text == "Sonidos\\Vintoral-4.wav"_w;
  };
  EXPECT_EQ(Retire().size(), 1u);
  EXPECT_TRUE(heard);
}

TEST_F(FacturaDeSalidaTest, TheNextOneRetiredDuringTheWaitIsInvoicedToo) {
  form_.FacturaActual.Copia = true;
  station_.Hands.Key(keys::kEscape, 0);
  station_.Enter("8", "def456");
  Show();
  station_.UnderWait = [this] {
    station_.TypeAndEnter("8");
    station_.Pass(500);
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kDelete, 0);
  };
  const auto printed = Retire();
  ASSERT_EQ(printed.size(), 4u);
  // Each copy in the order of the first ones, the second 500 ms behind the first: nobody waits twice.
  EXPECT_EQ(printed[2], printed[0]);
  EXPECT_EQ(printed[3], printed[1]);
  EXPECT_NE(printed[2], printed[3]);
  EXPECT_EQ(NumberOnDisk(), 43);
  EXPECT_EQ(station_.HistoryRows(), 3u);
  // The newest on top.
  const std::string log = Log();
  EXPECT_LT(log.find("No.FACTURA  43 "), log.find("No.FACTURA  42 "));
  EXPECT_NE(log.find("No.FACTURA  42 "), std::string::npos);
}

TEST_F(FacturaDeSalidaTest, NoneWhereItIsNotTickedOrNotSwitchedOn) {
  form_.ChkFactura.Value = 0;
  form_.ChkFactura.Tag = "1"_w;  // ticked once already
  EXPECT_THAT(Retire(), IsEmpty());
  EXPECT_EQ(Log(), "");
  EXPECT_EQ(form_.FacturaActual.NumFactura, 41);
  EXPECT_EQ(station_.HistoryRows(), 2u);
}

TEST_F(FacturaDeSalidaTest, NoneWhereTheFichaStaysInside) {
  station_.Faulty.Set().failReserve = true;
  EXPECT_THAT(Retire(), IsEmpty());
  EXPECT_EQ(form_.FacturaActual.NumFactura, 41);
  EXPECT_EQ(Log(), "");
}

TEST_F(FacturaDeSalidaTest, ALogThatCantBeWrittenStopsNothing) {
  station_.Disk.Put(kHfc, "lo anterior");
  station_.Printer.OnEndDoc = [this] { station_.Faulty.Set().failAllWrites = true; };
  ASSERT_EQ(Retire().size(), 1u);
  EXPECT_EQ(Log(), "lo anterior");
  EXPECT_EQ(station_.Boxes.size(), 1u);  // the question of retiring
}

TEST_F(FacturaDeSalidaTest, WithoutAPrinterTheLogHasItAllTheSame) {
  station_.Printer.Installed = {};
  EXPECT_THAT(Retire(), IsEmpty());
  EXPECT_THAT(Log(), HasSubstr("No.FACTURA  42 "));
}

TEST_F(FacturaDeSalidaTest, AFirstInvoiceMakesTheLog) {
  station_.Disk.Remove(kHfc).PassOver();
  Retire();
  EXPECT_THAT(Log(), StartsWith("\r\n\r\n\r\nCABEZA\r\n"));
  EXPECT_THAT(Log(), EndsWith("PIE\r\n\r\n\r\n\r\n\r\n\r\n\r\n"));
}

TEST_F(FacturaDeSalidaTest, TheExitOnItIsThisOnesWhereAnotherGateWasFaster) {
  RegistroFicha gone = station_.Slot(7);
  gone.EnUso = false;
  gone.MarcaSalida = "09:09  (09/09/2025)";
  form_.TextoSalida = "08:08  (08/08/2025)"_w;
  station_.PutSlot(7, gone);
  EXPECT_THAT(test::TextOf(Retire().at(0)), HasSubstr("   SALIDA : 14:37  (20/11/2026)\n"));
}

struct Number {
  std::int32_t last, next;
};

class NumeroSiguienteTest : public FacturaDeSalidaTest, public testing::WithParamInterface<Number> {};

TEST_P(NumeroSiguienteTest, FollowsTheLastOne) {
  form_.FacturaActual.NumFactura = GetParam().last;
  form_.CopiarFactura(false);
  EXPECT_EQ(form_.FacturaActual.NumFactura, GetParam().next);
  EXPECT_EQ(NumberOnDisk(), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(Numbers, NumeroSiguienteTest,
                         testing::Values(Number{0, 1}, Number{999'998, 999'999}, Number{999'999, 1},
                                         Number{1'000'000, 1},
                                         Number{std::numeric_limits<std::int32_t>::max(), 1}));

TEST_F(FacturaDeSalidaTest, ARecordThatIsReadHasNoNumberBelowZero) {
  RegistroFactura damaged;
  damaged.NumFactura = -7;
  damaged.Encabezado = "CABEZA NUEVA";
  station_.Disk.Put(kFta, test::Encoded(damaged));
  form_.CargarFactura();
  EXPECT_EQ(form_.FacturaActual.NumFactura, 0);
  EXPECT_EQ(form_.FacturaActual.Encabezado.Trimmed(), "CABEZA NUEVA"_w);
}

TEST_F(FacturaDeSalidaTest, AMissingFileLeavesTheRecordAsItWas) {
  form_.CargarFactura();
  EXPECT_EQ(form_.FacturaActual.NumFactura, 41);
}

}  // namespace
}  // namespace vintoral
