// A click in the grid, and on a row of the record shown.
#include <gmock/gmock.h>

#include "unit/network/PunteroFixture.h"

namespace vintoral {
namespace {

using test::PunteroTest;
using testing::ElementsAre;
using testing::IsEmpty;

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
  Station.Answers = {Answer::kCancel};
  Click(0);
  EXPECT_FALSE(Form.FichaEnPantalla());
  EXPECT_THAT(Station.Heard(), IsEmpty());
  EXPECT_EQ(Form.PctFicha.Tag, "1"_w);
  ASSERT_EQ(Station.Boxes.size(), 1u);
  EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Imprimir Estado/Búsqueda/Ficha"_w);
}

TEST_F(PunteroTest, AClickOnANumberOutOfRangeAsksToPrint) {
  Fill(1);
  for (const char* number : {"1001", "0", ""}) {
    Hover(0);
    Form.LblCampo[0].Caption = String(std::string_view(number));
    Station.Events.Take();
    Station.Answers = {Answer::kCancel};
    Form.ImgFicha_Click(0);
    EXPECT_FALSE(Form.FichaEnPantalla());
    EXPECT_THAT(Station.Heard(), IsEmpty());
    EXPECT_TRUE(Station.Answers.empty()) << "it was asked";
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
