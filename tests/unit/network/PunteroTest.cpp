// The pointer over the grid: the record's face of the screen, and the face of entry.
#include <gmock/gmock.h>

#include "unit/network/PunteroFixture.h"

namespace vintoral {
namespace {

using test::FotoDentro;
using test::FotoFuera;
using test::Photo;
using test::PunteroTest;
using testing::ElementsAre;
using testing::IsEmpty;

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

}  // namespace
}  // namespace vintoral
