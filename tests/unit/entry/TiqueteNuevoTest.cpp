// A new ticket with a bar code: what the generator puts on the screen, and the buttons that ask for it.
#include <gmock/gmock.h>

#include <algorithm>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::kAct;
using test::kCodigo;
using testing::Contains;

class TiqueteNuevoTest : public CodigosTest {
 protected:
  void Generate() { station_.Hands.Key(keys::kHome, 0); }
  void FillAll() {
    RegistroFicha taken;
    taken.EnUso = true;
    for (std::size_t number = 1; number <= 1000; ++number)
      PutRecord(station_.Disk, kAct, number, taken);
  }
};

TEST_F(TiqueteNuevoTest, IsGoodForOneEntryAndHasACode) {
  form_.NumeroPase = 9;
  form_.TxtMaxEntrada.SetText("30"_w);
  form_.LstModEntrada.ListIndex = 1;
  form_.TxtMaxEntrada.Enabled = form_.LstModEntrada.Enabled = false;
  ASSERT_FALSE(form_.TxtMaxEntrada.Visible || form_.LstModEntrada.Visible || form_.TxtBarCodeOK.Visible);
  station_.Chance.Digits(4);
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "1"_w);
  EXPECT_EQ(form_.NumeroPase, 0);
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "1"_w);
  EXPECT_EQ(form_.LstModEntrada.ListIndex, 0);
  EXPECT_TRUE(form_.TxtMaxEntrada.Enabled && form_.LstModEntrada.Enabled);
  EXPECT_TRUE(form_.TxtMaxEntrada.Visible && form_.LstModEntrada.Visible);
  EXPECT_EQ(form_.TxtBarCode.Text(), "444444444444"_w);
  EXPECT_TRUE(form_.TxtBarCodeOK.Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(TiqueteNuevoTest, ItsUnitsAreEntriesAndDays) {
  EXPECT_THAT(form_.LstModEntrada.List, testing::ElementsAre("ENT(S)"_w, "DIA(S)"_w));
}

TEST_F(TiqueteNuevoTest, ItsCodeDoesNotGoAwayByItself) {
  Generate();
  const String code = form_.TxtBarCode.Text();
  ASSERT_EQ(code.Size(), 12u);
  station_.Pass(5000);
  EXPECT_EQ(form_.TxtBarCode.Text(), code);
}

TEST_F(TiqueteNuevoTest, HalfACodeThatWasTypedGivesWayToItsOwn) {
  station_.Type("A1B2C");
  ASSERT_EQ(form_.TxtBarCode.Text(), "A1B2C"_w);
  station_.Chance.Digits(4);
  Generate();
  EXPECT_EQ(form_.TxtBarCode.Text(), "444444444444"_w);
}

TEST_F(TiqueteNuevoTest, TheLimitIsToldOfCodes) {
  FillAll();
  station_.Answers = {Answer::kOk};
  Generate();
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Generador de Códigos de Barras"_w);
  EXPECT_EQ(station_.Boxes[0].text,
            "Se ha alcanzado el límite de códigos entregados por esta portería. "
            "Por favor vuelva a intentarlo más tarde."_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_TRUE(Idle());
  EXPECT_FALSE(form_.TxtMaxEntrada.Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
}

// ---- The buttons
// -----------------------------------------------------------------------------------------------------

TEST_F(TiqueteNuevoTest, TheButtonAsksForItThoughTheNumberIsShut) {
  ASSERT_FALSE(form_.TxtCampo[0].Enabled);
  station_.Hands.Click(form_.CmdBarCode);
  EXPECT_EQ(form_.TxtCampo[0].Text(), "1"_w);
  EXPECT_EQ(form_.TxtBarCode.Text().Size(), 12u);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(TiqueteNuevoTest, TheButtonBeepsOnALockedNumberAndTheKeyDoesNot) {
  Generate();
  const String code = form_.TxtBarCode.Text();
  ASSERT_TRUE(form_.TxtCampo[0].Locked);
  station_.Events.Take();
  Generate();
  EXPECT_EQ(station_.Beeps(), 0);
  form_.CmdNumeroFicha.Visible = true;
  for (CommandButton* button : {&form_.CmdBarCode, &form_.CmdNumeroFicha}) {
    form_.SetFocus(&form_.TxtCampo[1]);
    station_.Hands.Click(*button);
    EXPECT_EQ(station_.Beeps(), 1) << button->Name;
    EXPECT_EQ(form_.Focus(), nullptr) << button->Name;
  }
  EXPECT_EQ(form_.TxtBarCode.Text(), code);
}

TEST_F(TiqueteNuevoTest, TheButtonBeepsWithoutTickets) {
  form_.PctBoton[boton::kTiquetes].BorderStyle = 0;
  station_.Hands.Click(form_.CmdBarCode);
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_FALSE(form_.FichaEnCurso());
}

TEST_F(TiqueteNuevoTest, AfterTheLimitTheNextCodeIsReadAsBefore) {
  FillAll();
  station_.Answers = {Answer::kOk};
  station_.Hands.Click(form_.CmdBarCode);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
}

TEST_F(TiqueteNuevoTest, TheButtonsSayWhatTheyAre) {
  EXPECT_EQ(form_.CmdNumeroFicha.ToolTipText, "<INICIO> Generador Automático de Fichas"_w);
  EXPECT_EQ(form_.CmdBarCode.ToolTipText, "<INICIO> Generador de Códigos de Barras Code39"_w);
}

// ---- The code
// --------------------------------------------------------------------------------------------------------

TEST_F(TiqueteNuevoTest, ACodeThatIsInsideIsDrawnAgain) {
  PutCode(1000, "111111111111", "1000");
  station_.Chance.Digits(1);
  station_.Chance.Digits(2);
  Generate();
  EXPECT_EQ(form_.TxtBarCode.Text(), "222222222222"_w);
}

TEST_F(TiqueteNuevoTest, ACodeThatIsAPassIsDrawnAgain) {
  PutPass(1, test::Pase(0, 2));
  PutPass(2, test::Pase(0, 2, "", "111111111111"));
  station_.Chance.Digits(1);
  station_.Chance.Digits(2);
  Generate();
  EXPECT_EQ(form_.TxtBarCode.Text(), "222222222222"_w);
}

TEST_F(TiqueteNuevoTest, ASourceThatAlwaysGivesTheSameDoesNotHoldTheGate) {
  PutCode(7, "111111111111", "0007");
  for (int i = 0; i < 15; ++i)
    station_.Chance.Digits(1);
  station_.Chance.Digits(2);  // the sixteenth
  form_.GenerarCodigoBarras();
  EXPECT_EQ(form_.TxtBarCode.Text(), "222222222222"_w);
  for (int i = 0; i < 16; ++i)
    station_.Chance.Digits(1);
  form_.GenerarCodigoBarras();
  EXPECT_EQ(form_.TxtBarCode.Text(), "111111111111"_w);
  EXPECT_TRUE(station_.Chance.Next.empty());
}

TEST_F(TiqueteNuevoTest, RegistersThatCantBeReadTakeNoCode) {
  PutCode(7, "111111111111", "0007");
  station_.Chance.Digits(1);
  station_.Faulty.Set().goneAfter = 0;
  form_.GenerarCodigoBarras();
  EXPECT_EQ(form_.TxtBarCode.Text(), "111111111111"_w);
  EXPECT_TRUE(form_.TxtBarCodeOK.Visible);
  EXPECT_TRUE(station_.Chance.Next.empty());
}

TEST_F(TiqueteNuevoTest, TwoInARowDiffer) {
  Generate();
  const String first = form_.TxtBarCode.Text();
  station_.Hands.Key(keys::kEscape, 0);
  ASSERT_TRUE(form_.TxtBarCode.Text().Empty());
  Generate();
  EXPECT_NE(form_.TxtBarCode.Text(), first);
}

}  // namespace
}  // namespace vintoral
