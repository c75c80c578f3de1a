// The pointer over the grid: the record's face of the screen, the face of entry, and a click.
#include <gmock/gmock.h>

#include "unit/network/RejillaFixture.h"

namespace vintoral {
namespace {

using test::FotoDentro;
using test::FotoFuera;
using test::Photo;
using testing::ElementsAre;
using testing::IsEmpty;

class PunteroTest : public test::RejillaTest {
 protected:
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const Label& row : Form.LblCampo)
      rows.push_back(row.Caption.Bytes());
    return rows;
  }
  bool EntryFace() const {
    return std::all_of(Form.TxtCampo.begin(), Form.TxtCampo.end(),
                       [](const TextBox& field) { return field.Visible; }) &&
           Form.CboTarifa[1].Visible && !Form.CboTarifa[0].Visible && Form.TmrHoraFecha.Enabled;
  }
  bool RecordFace() const {
    return std::none_of(Form.TxtCampo.begin(), Form.TxtCampo.end(),
                        [](const TextBox& field) { return field.Visible; }) &&
           !Form.CboTarifa[1].Visible && Form.CboTarifa[0].Visible && !Form.TmrHoraFecha.Enabled;
  }
  void Present() { ASSERT_TRUE(EntryFace()); }
};

TEST_F(PunteroTest, OverACellShowsItsRecord) {
  Disk.Put(FotoDentro(2), Photo());
  Fill(3);
  Present();
  Hover(1);
  EXPECT_TRUE(RecordFace());
  EXPECT_EQ(Form.PctFicha.Tag, "2"_w);
  EXPECT_TRUE(Form.ShpCelda.Visible);
  EXPECT_EQ(Form.ShpCelda.Cell, 1);
  EXPECT_THAT(Rows(), ElementsAre("0002", "ABC2", "ANA", "RUIZ", "555", "ROJO"));
  EXPECT_EQ(Form.LblCampo[5].BackColor, kYellow);
  EXPECT_EQ(Form.LblFechaEnt.Caption, "13:30  (20/11/2026)"_w);
  EXPECT_EQ(Form.LblFechaEnt.BackColor, kLightYellow);
  EXPECT_EQ(Form.LblFechaSal.Caption, "??"_w);
  EXPECT_EQ(Form.LblFechaSal.BackColor, kYellow);
  EXPECT_EQ(Form.CboTarifa[0].Text(), "AUTOMOVIL"_w);
  EXPECT_EQ(Form.Picture2.Picture.Path(), "Multimedia\\Imágenes ACT\\000002.jpg"_w);
  EXPECT_TRUE(Form.Picture2.Visible);
  EXPECT_FALSE(Form.Picture1.Visible);
  EXPECT_FALSE(Form.LblWebCamMsg.Visible);
}

TEST_F(PunteroTest, TheRowsAreSeenWhateverHidThem) {
  Fill(1);
  for (Label& row : Form.LblCampo)
    row.Visible = false;
  Hover(0);
  for (const Label& row : Form.LblCampo)
    EXPECT_TRUE(row.Visible);
}

TEST_F(PunteroTest, TheStayUpToThisMinuteIsKeptForTheFare) {
  Fill(1);
  Station.Pass(25'000);
  Form.TiempoEstadia = {};
  Hover(0);
  // From 13:30 to 14:00, whatever the seconds.
  EXPECT_EQ(Form.Permanencia.horas, 0);
  EXPECT_EQ(Form.Permanencia.minutos, 30);
  EXPECT_EQ(Form.TiempoEstadia, "30M "_w);
}

TEST_F(PunteroTest, WhoHasLeftHasNoStayAndShowsItsExit) {
  Disk.Put(FotoFuera(9), Photo());
  Form.VistaFichas = {Salida(9, 5, "13:40  (20/11/2026)")};
  Form.ImprimirIndice();
  Form.TiempoEstadia = "as before"_w;
  Hover(0);
  EXPECT_EQ(Form.TiempoEstadia, "as before"_w);
  EXPECT_EQ(Form.LblFechaSal.Caption, "13:40  (20/11/2026)"_w);
  EXPECT_EQ(Form.Picture2.Picture.Path(), "Multimedia\\Imágenes HST\\000009.jpg"_w);
}

TEST_F(PunteroTest, WithoutAPhotoThereIsTheLivePictureAndAWord) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(2);
  Hover(0);
  ASSERT_TRUE(Form.Picture2.Visible);
  Hover(1);
  EXPECT_TRUE(RecordFace());
  EXPECT_FALSE(Form.Picture2.Visible);
  EXPECT_TRUE(Form.Picture1.Visible);
  EXPECT_TRUE(Form.LblWebCamMsg.Visible);
  EXPECT_EQ(Form.LblWebCamMsg.Caption, "SIN IMAGEN"_w);
}

TEST_F(PunteroTest, ThePhotoTakesThePlaceOfTheOutsideCamera) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(1);
  Form.ImgIndicador[indicador::kCamaraDesactivada].Visible = true;
  Form.MostrarImagenEnVivo();
  ASSERT_TRUE(Form.PctAppCamera.Visible);
  Hover(0);
  EXPECT_FALSE(Form.PctAppCamera.Visible);
  Leave();
  EXPECT_TRUE(Form.PctAppCamera.Visible);
  EXPECT_FALSE(Form.Picture1.Visible);
}

TEST_F(PunteroTest, TheSameCellAgainChangesNothing) {
  Fill(2);
  Hover(1);
  Form.LblCampo[2].Caption = "untouched"_w;
  Hover(1);
  EXPECT_EQ(Form.LblCampo[2].Caption, "untouched"_w);
  Hover(0);
  EXPECT_EQ(Form.LblCampo[2].Caption, "ANA"_w);
}

TEST_F(PunteroTest, BehindTheLastRecordNothingIsShown) {
  Fill(2);
  Hover(2);
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_TRUE(EntryFace());
}

TEST_F(PunteroTest, OnTheSecondPageTheRecordIsCountedOn) {
  Fill(52);
  Press(boton::kAvanzar);
  Hover(1);
  EXPECT_EQ(Form.PctFicha.Tag, "52"_w);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0052"_w);
}

TEST_F(PunteroTest, AwayFromTheGridTheFaceOfEntryComesBack) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(1);
  Station.Type("12");
  const std::size_t caret = Form.TxtCampo[0].Caret();
  Form.TxtCampo[2].Enabled = false;
  Hover(0);
  ASSERT_TRUE(RecordFace());
  Leave();
  EXPECT_TRUE(EntryFace());
  EXPECT_TRUE(Form.TxtCampo[2].Enabled);
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_FALSE(Form.ShpCelda.Visible);
  EXPECT_EQ(Form.ShpCelda.Cell, -1);
  EXPECT_THAT(Rows(), ElementsAre("", "", "", "", "", ""));
  EXPECT_EQ(Form.LblCampo[0].BackColor, kLightOrange);
  EXPECT_EQ(Form.LblFechaEnt.Caption, ""_w);
  EXPECT_EQ(Form.LblFechaEnt.BackColor, kWhite);
  EXPECT_EQ(Form.LblFechaSal.Caption, ""_w);
  EXPECT_EQ(Form.LblFechaSal.BackColor, kWhite);
  EXPECT_EQ(Form.CboTarifa[0].Text(), ""_w);
  EXPECT_TRUE(Form.Picture1.Visible);
  EXPECT_FALSE(Form.Picture2.Visible);
  EXPECT_EQ(Form.TxtCampo[0].Text(), "12"_w);
  EXPECT_EQ(Form.TxtCampo[0].Caret(), caret);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
  Station.Pass(500);
  EXPECT_EQ(Form.LblFechaEnt.Caption, "14:00  (20/11/2026)"_w);
}

TEST_F(PunteroTest, AnythingElseUnderThePointerIsAwayFromTheGrid) {
  Fill(1);
  for (Control* other : {static_cast<Control*>(&Form.FraFicha), static_cast<Control*>(&Form.PctFicha),
                         static_cast<Control*>(&Form.PctBoton[3]), static_cast<Control*>(&Form.ImgFondo)}) {
    Hover(0);
    ASSERT_TRUE(RecordFace());
    Station.Hands.Hover(*other);
    EXPECT_TRUE(EntryFace()) << other->Name;
  }
  EXPECT_EQ(Form.PctBoton[3].ToolTipText, "<F4> Imprimir Estado/Búsqueda/Ficha"_w);
}

TEST_F(PunteroTest, OverTheRestOfTheScreenNothingMoves) {
  Fill(1);
  Form.SetFocus(&Form.TxtCampo[3]);
  Station.Hands.Hover(Form.FraFicha);
  Leave();
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[3]);
}

TEST_F(PunteroTest, TheRecordsFaceHidesWhatIsForTyping) {
  Form.CboTarifa[0].Visible = true;
  Form.EstadoCelda(true, false);
  EXPECT_TRUE(RecordFace());
  EXPECT_FALSE(Form.Picture1.Visible);
}

TEST_F(PunteroTest, TheGridIsRefreshedUnderAPointerThatCameAtOnce) {
  Fill(2);
  Station.TypeAndEnter("9");
  Station.Pass(500);
  ASSERT_FALSE(Form.TmrMonitor.Enabled);
  Form.Cancelar();
  Hover(0);  // before the clock could turn it on again
  EXPECT_TRUE(Form.TmrMonitor.Enabled);
}

TEST_F(PunteroTest, WithoutTheFolderTheGridIsNotRefreshed) {
  Fill(1);
  Station.Faulty.Set().existsSays = false;
  Station.Pass(10'000);
  ASSERT_EQ(Form.LblConexion[0].BackColor, kLightRed);
  Hover(0);
  EXPECT_FALSE(Form.TmrMonitor.Enabled);
}

TEST_F(PunteroTest, PhotoCanStayWhenTheFaceOfEntryComesBack) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(1);
  Hover(0);
  Form.EstadoCelda(false, true);
  EXPECT_TRUE(EntryFace());
  EXPECT_TRUE(Form.Picture2.Visible);
}

TEST_F(PunteroTest, GridAnswersNothingWhileAFichaIsTypedOrOnDisplay) {
  Fill(2);
  Station.TypeAndEnter("9");
  ASSERT_TRUE(Form.PctBoton[boton::kGuardar].Visible);
  Hover(0);
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_TRUE(Form.TxtCampo[1].Visible);
  Form.EstadoCelda(false, false);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[1]);
  Form.Cancelar();
  Station.TypeAndEnter("2");
  ASSERT_TRUE(Form.PctBoton[boton::kRetirar].Visible);
  Hover(0);
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0002"_w);
}

TEST_F(PunteroTest, WithoutTheFolderTheClockStaysStopped) {
  Fill(1);
  Hover(0);
  Station.Faulty.Set().existsSays = false;
  Station.Pass(10'000);
  ASSERT_EQ(Form.LblConexion[0].BackColor, kLightRed);
  Leave();
  EXPECT_FALSE(Form.TmrHoraFecha.Enabled);
  EXPECT_EQ(Form.LblFechaEnt.Caption, "CONECTANDO... "_w);
}

TEST_F(PunteroTest, AFolderThatComesBackLeavesTheClockStoppedUnderThePointer) {
  Fill(1);
  Hover(0);
  Station.Faulty.Set().existsSays = false;
  Station.Pass(10'000);
  Station.Faulty.Repair();
  Station.Pass(3'000);
  ASSERT_EQ(Form.LblConexion[0].BackColor, kLightGreen);
  EXPECT_FALSE(Form.TmrHoraFecha.Enabled);
  EXPECT_EQ(Form.LblFechaEnt.Caption, "13:30  (20/11/2026)"_w);
  Leave();
  EXPECT_TRUE(Form.TmrHoraFecha.Enabled);
}

TEST_F(PunteroTest, EscapeBringsTheFaceOfEntryBackAndTheClock) {
  Fill(1);
  Hover(0);
  Station.Hands.Key(keys::kEscape, 0);
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
}

// ---- Typing
// -----------------------------------------------------------------------------------------------------

TEST_F(PunteroTest, WhatIsTypedUnderAnIdlePointerIsNotLost) {
  Fill(1);
  Station.Type("1");
  Hover(0);
  Station.Type("2");
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.TxtCampo[0].Text(), "12"_w);
}

TEST_F(PunteroTest, TheFieldThatWasTypedInTakesTheNextCharacter) {
  Fill(1);
  Form.SetFocus(&Form.TxtCampo[4]);
  Station.Type("55");
  Hover(0);
  Station.Type("6");
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.TxtCampo[4].Text(), "556"_w);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[4]);
  Hover(0);
  Station.Type("\b");
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.TxtCampo[4].Text(), "55"_w);
}

TEST_F(PunteroTest, EnterUnderAnIdlePointerIsNotLostEither) {
  Fill(2);
  Station.Type("2");
  Hover(0);
  Station.Type("\r");
  EXPECT_TRUE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.LblCampo[0].Caption, "0002"_w);
}

TEST_F(PunteroTest, EscapeAndOtherSignsBringNothingBack) {
  Fill(1);
  Hover(0);
  Station.Type("\x03");
  EXPECT_TRUE(RecordFace());
}

TEST_F(PunteroTest, EnterInTheToolBarStaysThere) {
  Form.SetFocus(nullptr);
  Station.Type("\r");
  EXPECT_EQ(Form.Focus(), nullptr);
}

TEST_F(PunteroTest, MinutesAreTypedUnderThePointerToo) {
  Fill(1);
  Press(boton::kTiempoDePermanencia);
  Form.SetFocus(&Form.CboMinutos);
  Hover(0);
  Station.Type("4");
  EXPECT_EQ(Form.CboMinutos.Text(), "4"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "1"_w);
}

TEST_F(PunteroTest, TypingInTheToolBarGoesToTheNumber) {
  Form.SetFocus(nullptr);
  Station.Type("7");
  EXPECT_EQ(Form.TxtCampo[0].Text(), "7"_w);
}

TEST_F(PunteroTest, TheGridIsReachedByTabAndLeftByIt) {
  Fill(1);
  Form.SetFocus(&Form.FraFicha);
  ASSERT_EQ(Form.Focus(), &Form.FraFicha);
  Hover(0);
  ASSERT_TRUE(RecordFace());
  EXPECT_EQ(Form.Focus(), &Form.FraFicha);
  Station.Hands.Key(keys::kTab, 0);
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
  Form.SetFocus(&Form.FraFicha);
  Hover(0);
  Station.Type("5");
  EXPECT_EQ(Form.TxtCampo[0].Text(), "5"_w);
}

TEST_F(PunteroTest, TabFromAFieldThatIsHiddenBringsItBackAndGoesOn) {
  Fill(1);
  Hover(0);
  Station.Hands.Key(keys::kTab, 0);
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[1]);
}

TEST_F(PunteroTest, AFocusThatLeavesTheGridTakesThePointerAlong) {
  Fill(1);
  Form.SetFocus(&Form.FraFicha);
  Hover(0);
  Form.SetFocus(nullptr);
  EXPECT_TRUE(EntryFace());
}

// ---- The view changes under the pointer
// -----------------------------------------------------------------------

TEST_F(PunteroTest, ARecordRetiredAtAnotherGateGivesWayToTheNext) {
  Fill(3);
  Hover(1);
  Free(2);
  Form.RefrescarVista();
  EXPECT_TRUE(RecordFace());
  EXPECT_EQ(Form.PctFicha.Tag, "2"_w);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0003"_w);
  EXPECT_EQ(Form.ShpCelda.Cell, 1);
  EXPECT_TRUE(Form.ShpCelda.Visible);
}

TEST_F(PunteroTest, ARedrawLeavesWhatIsTypedMeanwhileAlone) {
  Fill(2);
  Press(boton::kTiempoDePermanencia);
  Hover(1);
  Form.SetFocus(&Form.CboMinutos);
  Station.Type("4");
  Form.RefrescarVista();
  EXPECT_EQ(Form.CboMinutos.Text(), "4"_w);
  Free(2);
  Form.RefrescarVista();  // and the pointer's record has gone
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.Focus(), &Form.CboMinutos);
  EXPECT_EQ(Form.CboMinutos.Text(), "4"_w);
}

TEST_F(PunteroTest, WithoutANextOneTheFaceOfEntryComesBack) {
  Fill(2);
  Hover(1);
  Free(2);
  Form.RefrescarVista();
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_FALSE(Form.ShpCelda.Visible);
}

TEST_F(PunteroTest, APageThatEmptiesUnderThePointerShowsTheOneBefore) {
  Fill(51);
  Press(boton::kAvanzar);
  Hover(0);
  ASSERT_EQ(Form.LblCampo[0].Caption, "0051"_w);
  Free(51);
  Form.RefrescarVista();
  EXPECT_EQ(Form.InicioPagina, 1);
  EXPECT_TRUE(RecordFace());
  EXPECT_EQ(Form.LblCampo[0].Caption, "0001"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "1"_w);
}

TEST_F(PunteroTest, TurningThePageShowsTheRecordThatComesUnderThePointer) {
  Fill(60);
  Hover(3);
  Press(boton::kAvanzar);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0054"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "54"_w);
}

// ---- A click
// ----------------------------------------------------------------------------------------------------

TEST_F(PunteroTest, AClickOnAFichaThatIsInsidePutsItOnDisplay) {
  Fill(3);
  Hover(2);
  Station.Events.Take();
  Click(2);
  EXPECT_THAT(Station.Heard(), ElementsAre("Sonidos\\Vintoral-6.wav"_w));
  EXPECT_TRUE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.TxtCampo[0].Text(), "3"_w);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0003"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_EQ(Form.ShpCelda.Cell, 2);
  EXPECT_TRUE(Form.TmrHoraFecha.Enabled);  // without it a forgotten ficha would stay on display
}

TEST_F(PunteroTest, AClickNeedsNoMovementBefore) {
  Fill(3);
  Click(1);
  EXPECT_TRUE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.LblCampo[0].Caption, "0002"_w);
}

TEST_F(PunteroTest, AClickOnWhoHasLeftAsksToPrint) {
  Form.VistaFichas = {Salida(1, 5, "13:40  (20/11/2026)")};
  Form.ImprimirIndice();
  Station.Events.Take();
  Click(0);
  EXPECT_FALSE(Form.FichaEnPantalla());
  EXPECT_THAT(Station.Heard(), IsEmpty());
  EXPECT_EQ(Form.PctFicha.Tag, "1"_w);
}

TEST_F(PunteroTest, AClickOnANumberOutOfRangeAsksToPrint) {
  Fill(1);
  for (const char* number : {"1001", "0", ""}) {
    Hover(0);
    Form.LblCampo[0].Caption = String(std::string_view(number));
    Station.Events.Take();
    Form.ImgFicha_Click(0);
    EXPECT_FALSE(Form.FichaEnPantalla());
    EXPECT_THAT(Station.Heard(), IsEmpty());
  }
  Form.LblCampo[0].Caption = "1000"_w;
  Form.ImgFicha_Click(0);
  EXPECT_EQ(Form.TxtCampo[0].Text(), "1000"_w);
}

TEST_F(PunteroTest, AClickWhileAFichaIsOnDisplayCancels) {
  Fill(2);
  Station.TypeAndEnter("2");
  ASSERT_TRUE(Form.FichaEnPantalla());
  Click(0);
  EXPECT_FALSE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
}

TEST_F(PunteroTest, AClickBehindTheLastRecordCancels) {
  Fill(1);
  Station.Type("12");
  Form.ImgFicha_Click(1);
  EXPECT_EQ(Form.TxtCampo[0].Text(), ""_w);
}

TEST_F(PunteroTest, ACellWhoseFichaHasGoneElsewhereOpensTheForm) {
  Fill(1);
  Hover(0);
  Free(1);
  Click(0);
  EXPECT_FALSE(Form.FichaEnPantalla());
  EXPECT_TRUE(Form.PctBoton[boton::kGuardar].Visible);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[1]);
}

TEST_F(PunteroTest, ANumberTypedUnderThePointerIsCalledUpWithTheClockRunning) {
  Fill(2);
  Hover(0);
  Form.TxtCampo[0].SetText("2"_w);
  Form.AvanzarCampo(0);
  EXPECT_TRUE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_EQ(&Form.FichaMostrada(), &Form.FichaActual);
  EXPECT_TRUE(Form.TmrHoraFecha.Enabled);
}

TEST_F(PunteroTest, AClickWithoutTheFolderLeavesTheFaceOfEntry) {
  Fill(1);
  Hover(0);
  Station.Faulty.Set().existsSays = false;
  Click(0);
  EXPECT_FALSE(Form.FichaEnCurso());
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_TRUE(Form.TxtCampo[0].Visible);
}

TEST_F(PunteroTest, ThePointerMayLeaveUnderADialog) {
  Fill(1);
  Hover(0);
  Station.InDialog = {[this] {
    Leave();
    Station.Hands.Key(keys::kEscape, 0);
  }};
  Station.Hands.Key('T', keys::kControl);
  EXPECT_TRUE(EntryFace());
}

// ---- Barcodes
// ---------------------------------------------------------------------------------------------------

class PunteroConCodigosTest : public PunteroTest {
 protected:
  PunteroConCodigosTest() {
    Form.CmdBarCode.Visible = true;
    Form.LimpiarCampos();
    Fill(1);
  }
};

TEST_F(PunteroConCodigosTest, TheAcceptedCodeIsShownForWhoIsInside) {
  Form.TxtBarCodeOK.BackColor = kWhite;
  Hover(0);
  EXPECT_TRUE(Form.TxtBarCodeOK.Visible);
  EXPECT_EQ(Form.TxtBarCodeOK.BackColor, kYellow);
  Form.VistaFichas.push_back(Salida(1, 5, "13:40  (20/11/2026)"));
  Form.ImprimirIndice();
  Hover(1);
  EXPECT_FALSE(Form.TxtBarCodeOK.Visible);
}

TEST_F(PunteroConCodigosTest, AwayFromTheGridTheBoxOfTheReaderIsReadyAgain) {
  Hover(0);
  Form.TxtBarCode.SetText("half"_w);
  Form.SetFocus(nullptr);
  Leave();
  EXPECT_FALSE(Form.TxtBarCodeOK.Visible);
  EXPECT_EQ(Form.TxtBarCode.Text(), ""_w);
  EXPECT_EQ(Form.Focus(), &Form.TxtBarCode);
  EXPECT_FALSE(Form.TxtCampo[0].Enabled);  // the number is read, not typed
}

TEST_F(PunteroTest, WithNumbersThereAreNoBarcodeBoxes) {
  Fill(1);
  Hover(0);
  EXPECT_FALSE(Form.TxtBarCodeOK.Visible);
}

// ---- A click on a row
// -------------------------------------------------------------------------------------------

TEST_F(PunteroTest, AClickOnARowLooksTheNumberUp) {
  Fill(3);
  Station.Type("2");
  Station.Hands.Click(Form.LblCampo[4]);
  EXPECT_TRUE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.LblCampo[0].Caption, "0002"_w);
}

TEST_F(PunteroTest, AClickOnARowLeadsToTheNumberOfANewFicha) {
  Station.Type("9");
  Station.Hands.Click(Form.LblCampo[0]);
  EXPECT_TRUE(Form.PctBoton[boton::kGuardar].Visible);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
}

TEST_F(PunteroTest, AClickOnARowWithoutANumberInRangeDoesNothing) {
  for (const char* number : {"", "0", "1001"}) {
    Form.TxtCampo[0].SetText(String(std::string_view(number)));
    Station.Hands.Click(Form.LblCampo[0]);
    EXPECT_FALSE(Form.FichaEnCurso()) << number;
    EXPECT_EQ(Form.TxtCampo[0].Text().Bytes(), number);
  }
}

TEST_F(PunteroTest, AClickOnARowOfAFichaOnDisplayDoesNothing) {
  Fill(2);
  Station.TypeAndEnter("2");
  Form.LblCampo[2].Caption = "untouched"_w;
  Station.Hands.Click(Form.LblCampo[2]);
  EXPECT_EQ(Form.LblCampo[2].Caption, "untouched"_w);
}

}  // namespace
}  // namespace vintoral
