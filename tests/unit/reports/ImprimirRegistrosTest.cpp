// F4: the questions about slips, the page and the slip of what the screen shows.
#include <gmock/gmock.h>

#include "station/form1/Sonidos.h"
#include "unit/network/RejillaFixture.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kPage = "Recursos\\Vintoral.HTML";

class ImprimirRegistrosTest : public test::RejillaTest {
 protected:
  ImprimirRegistrosTest() {
    Station.Printer.Installed = {{"Tira80"_w}, "Tira80"_w};
    Fill(2);
  }
  void F4(std::deque<Answer> answers) {
    Station.Answers = std::move(answers);
    Station.Hands.Key(keys::kF4, 0);
    EXPECT_THAT(Station.Answers, IsEmpty());
  }
  /// The texts of the one slip that was printed.
  std::vector<std::string> Slip() {
    std::vector<std::string> lines;
    for (const DeviceEvent& event : Station.Events.Take()) {
      for (const PrintOperation& operation : event.printed)
        lines.push_back(operation.text.Bytes());
    }
    return lines;
  }
};

TEST_F(ImprimirRegistrosTest, NoAsksNoMore) {
  F4({Answer::kNo});
  ASSERT_THAT(Station.Boxes, SizeIs(1));
  EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Imprimir Estado/Búsqueda/Ficha"_w);
  EXPECT_EQ(Station.Boxes[0].text, "¿Desea también imprimir los registros en formato tiquete?"_w);
  EXPECT_THAT(Station.Boxes[0].buttons, ElementsAre(Answer::kYes, Answer::kNo, Answer::kCancel));
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("<TITLE>Vintoral - ESTADO P01</TITLE>"));
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("2 Registro(s)"));
  EXPECT_THAT(Slip(), IsEmpty());
}

TEST_F(ImprimirRegistrosTest, WhatIsHeardAndOpened) {
  F4({Answer::kNo});
  std::vector<String> told;
  for (const DeviceEvent& event : Station.Events.Take())
    told.push_back(event.text);
  EXPECT_THAT(told, ElementsAre("Explorer.exe Recursos\\Vintoral.HTML"_w, String(sonido::kClic)));
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
}

TEST_F(ImprimirRegistrosTest, TheWatchOfTheLinkBeginsItsWaitAnew) {
  Station.Pass(4000);
  ASSERT_EQ(Form.TmrConexion.Interval(), 10'000);
  ASSERT_LT(Form.TmrConexion.Due(), Station.Clock.Ticks() + 10'000);
  F4({Answer::kNo});
  EXPECT_EQ(Form.TmrConexion.Due(), Station.Clock.Ticks() + 10'000);
}

TEST_F(ImprimirRegistrosTest, AnEntryThatIsTypedGoesOn) {
  Station.Hands.ReplaceText(Form.TxtCampo[0], "0005"_w);
  Station.Hands.Key(keys::kEnter, 0);
  Station.Hands.Focus(Form.TxtCampo[2]);
  F4({Answer::kNo});
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[2]);
}

TEST_F(ImprimirRegistrosTest, RowByRowOnASlip) {
  F4({Answer::kYes, Answer::kNo});
  EXPECT_EQ(Station.Boxes[1].text, "¿Desea imprimir sólo un resumen de los registros?"_w);
  const std::vector<std::string> slip = Slip();
  EXPECT_THAT(slip, testing::Contains("Vintoral             ESTADO P01"));
  EXPECT_THAT(slip, testing::Contains("ENTRA CATEGORIA TIEMPO    VALOR"));
  EXPECT_THAT(slip, testing::Contains("Vintoral     RESUMEN ESTADO P01"));
}

TEST_F(ImprimirRegistrosTest, ASummaryAlone) {
  F4({Answer::kYes, Answer::kYes});
  const std::vector<std::string> slip = Slip();
  EXPECT_THAT(slip, Not(testing::Contains("Vintoral             ESTADO P01")));
  EXPECT_THAT(slip, testing::Contains("Vintoral     RESUMEN ESTADO P01"));
}

TEST_F(ImprimirRegistrosTest, CancelAtEitherQuestionDoesNothing) {
  F4({Answer::kCancel});
  F4({Answer::kYes, Answer::kCancel});
  EXPECT_FALSE(Disk.Exists(kPage));
  EXPECT_THAT(Station.Events.Take(), IsEmpty());
}

TEST_F(ImprimirRegistrosTest, AMonitorIsReportedWithoutQuestions) {
  RegistroFicha gone = Salida(2, 7, "10:00  (20/11/2026)");
  gone.EnUso = true;  // as rows of the history are
  PutHistory({RegistroFicha{}, gone});
  Press(boton::kUltimosEnSalir);
  ASSERT_EQ(Form.TotalVista(), 1);
  F4({});
  EXPECT_THAT(Station.Boxes, IsEmpty());
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("10:00  (20/11/2026)"));
}

TEST_F(ImprimirRegistrosTest, AnEmptyGridIsHeardAndWritesNothing) {
  Free(1);
  Free(2);
  Form.RefrescarVista();
  ASSERT_EQ(Form.TotalVista(), 0);
  F4({Answer::kNo});
  EXPECT_FALSE(Disk.Exists(kPage));
  EXPECT_THAT(Station.Heard(), ElementsAre(String(sonido::kClic), String(sonido::kClic)));
}

TEST_F(ImprimirRegistrosTest, TheFichaUnderThePointerHasASheet) {
  Hover(1);
  ASSERT_FALSE(Form.TxtCampo[0].Visible);
  F4({Answer::kNo});
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("No.FICHA : 0002<BR><BR>"));
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("<TITLE>Vintoral - B\xDASQUEDA P01</TITLE>"));
  EXPECT_THAT(Disk.Get(kPage), Not(HasSubstr("<table")));
}

TEST_F(ImprimirRegistrosTest, AFichaCalledUpByItsNumberHasASheet) {
  Station.TypeAndEnter("2");
  ASSERT_EQ(Form.LblCampo[0].Caption, "0002"_w);
  ASSERT_FALSE(Form.TxtCampo[0].Visible);
  F4({Answer::kNo});
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("No.FICHA : 0002<BR><BR>"));
  EXPECT_THAT(Disk.Get(kPage), HasSubstr(" : ABC2<BR><BR>"));
  EXPECT_THAT(Disk.Get(kPage), Not(HasSubstr("<table")));
}

TEST_F(ImprimirRegistrosTest, APhotoOnDiskIsALink) {
  Disk.Put(test::FotoDentro(2), "photo");
  F4({Answer::kNo});
  const std::string page = Disk.Get(kPage);
  const std::string link =
      "<a href=\"file:////estacion\\Multimedia\\Im\xE1genes ACT\\000002.jpg\" target=\"_blank\">VER FOTO</a>";
  ASSERT_THAT(page, HasSubstr(link));
  EXPECT_EQ(page.find("VER FOTO"), page.rfind("VER FOTO"));
  EXPECT_LT(page.find("SIN IMAGEN"), page.find(link)) << "the first ficha has none";
}

TEST_F(ImprimirRegistrosTest, AFolderThatTakesNoPageIsTold) {
  Station.Faulty.Set().openReadOnly = true;
  F4({Answer::kYes, Answer::kNo, Answer::kOk});
  ASSERT_THAT(Station.Boxes, SizeIs(3));
  EXPECT_EQ(Station.Boxes[2].title, "Vintoral - Imposible Imprimir"_w);
  EXPECT_EQ(
      Station.Boxes[2].text,
      "La carpeta '/estacion' está protegida contra escritura. No es posible crear el archivo de impresión \"Vintoral.HTML\"."_w);
  EXPECT_EQ(Station.Boxes[2].icon, Icon::kExclamation);
  EXPECT_THAT(Slip(), IsEmpty()) << "told before anything is printed";
}

TEST_F(ImprimirRegistrosTest, ADiskThatFillsUpLeavesNoHalfPage) {
  Disk.Put(kPage, "the page of yesterday");
  Station.Faulty.Set().failWrite = 1;
  F4({Answer::kYes, Answer::kNo, Answer::kOk});
  EXPECT_EQ(Station.Boxes.back().title, "Vintoral - Imposible Imprimir"_w);
  EXPECT_EQ(Disk.Get(kPage), "the page of yesterday");
  EXPECT_FALSE(Disk.Exists("Recursos\\Vintoral.HTML.nuevo"));
  int printed = 0, launched = 0;
  for (const DeviceEvent& event : Station.Events.Take()) {
    printed += event.kind == DeviceEvent::Kind::kPrint ? 1 : 0;
    launched += event.kind == DeviceEvent::Kind::kLaunch ? 1 : 0;
  }
  EXPECT_EQ(printed, 1);
  EXPECT_EQ(launched, 0);
}

TEST_F(ImprimirRegistrosTest, WhatAKilledRunLeftDoesNotStandBehindThePage) {
  Disk.Put("Recursos\\Vintoral.HTML.nuevo", std::string(100'000, 'x'));
  F4({Answer::kNo});
  EXPECT_THAT(Disk.Get(kPage), testing::EndsWith("</html>\r\n"));
  EXPECT_FALSE(Disk.Exists("Recursos\\Vintoral.HTML.nuevo"));
}

}  // namespace
}  // namespace vintoral
