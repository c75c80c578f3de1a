// What Enter does in each field, and how labels are renamed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "station/forms/Input.h"
#include "unit/station/forms/HandsFixture.h"

namespace vintoral {
namespace {

using test::InputTest;

// ---- Enter
// ----------------------------------------------------------------------------------------------------

TEST_F(InputTest, EnterOnAFreeNumberOpensTheFormOfANewFicha) {
  station_.TypeAndEnter("7");
  EXPECT_TRUE(number_.Locked);
  EXPECT_TRUE(form_.PctBoton[5].Visible);
  EXPECT_FALSE(form_.PctBoton[6].Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(InputTest, EnterOnANumberOutOfRangeEmptiesTheField) {
  for (const char* typed : {"1001", "0", "99999999999999999999"}) {
    form_.SetFocus(&number_);
    station_.TypeAndEnter(typed);
    EXPECT_TRUE(number_.Text().Empty()) << typed;
    EXPECT_FALSE(number_.Locked) << typed;
    EXPECT_FALSE(form_.PctBoton[5].Visible) << typed;
  }
}

TEST_F(InputTest, TheEndsOfTheRangeAreFichas) {
  for (const char* typed : {"1", "1000", "0005"}) {
    station_.TypeAndEnter(typed);
    EXPECT_TRUE(form_.PctBoton[5].Visible) << typed;
    hands_.Key(27, 0);
  }
}

TEST_F(InputTest, EnterInAnEmptyNumberOpensNothing) {
  hands_.Key(keys::kEnter, 0);
  EXPECT_FALSE(number_.Locked);
  EXPECT_FALSE(form_.PctBoton[5].Visible);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(InputTest, EnterOnATakenNumberShowsTheFicha) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_TRUE(form_.PctBoton[6].Visible);
  EXPECT_EQ(form_.LblCampo[1].Caption, "ABC"_w);
}

TEST_F(InputTest, EnterLeadsFromFieldToFieldToTheCategoryAndSaves) {
  station_.TypeAndEnter("7");
  for (std::size_t i = 1; i <= 5; ++i) {
    ASSERT_EQ(form_.Focus(), &form_.TxtCampo[i]) << i;
    station_.TypeAndEnter("dato " + std::to_string(i));
  }
  ASSERT_EQ(form_.Focus(), &form_.CboTarifa[1]);
  station_.Answers = {Answer::kYes};
  hands_.Key(keys::kEnter, 0);
  const RegistroFicha ficha = station_.Slot(7);
  EXPECT_TRUE(ficha.EnUso);
  EXPECT_EQ(ficha.Placa.Trimmed(), "DATO 1"_w);
  EXPECT_EQ(ficha.Nombre.Trimmed(), "DATO 2"_w);
  EXPECT_EQ(ficha.Apellido.Trimmed(), "DATO 3"_w);
  EXPECT_EQ(ficha.Telefono.Trimmed(), "DATO 4"_w);
  EXPECT_EQ(ficha.Observacion.Trimmed(), "DATO 5"_w);
}

TEST_F(InputTest, AKnownPlateLeadsStraightToTheCategory) {
  RegistroUsuario user;
  user.Placa = "XYZ789";
  user.Nombre = "ANA";
  user.Categoria = "MOTOCICLETA";
  const auto bytes = user.Encode();
  station_.Disk.Put("Multimedia\\Vintoral.USR", {bytes.data(), bytes.size()});
  station_.TypeAndEnter("7");
  station_.TypeAndEnter("xyz789");
  EXPECT_EQ(form_.Focus(), &form_.CboTarifa[1]);
  EXPECT_EQ(name_.Text(), "ANA"_w);
  EXPECT_EQ(form_.CboTarifa[1].Text(), "MOTOCICLETA"_w);
  EXPECT_EQ(form_.NumeroUsuario, 1);
}

TEST_F(InputTest, APlateThatIsInsideIsRefusedAndTheScreenIsIdle) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("8");
  station_.Answers = {Answer::kOk};
  station_.TypeAndEnter("abc");
  ASSERT_FALSE(station_.Boxes.empty());
  EXPECT_EQ(station_.Boxes.back().title, "Vintoral - Ingreso Denegado"_w);
  EXPECT_EQ(station_.Boxes.back().icon, Icon::kCritical);
  EXPECT_EQ(station_.Boxes.back().text,
            "La información digitada ya se encuentra en uso por la ficha 0007."_w);
  EXPECT_TRUE(number_.Text().Empty());
  EXPECT_FALSE(number_.Locked);
  EXPECT_EQ(form_.Focus(), &number_);
}

TEST_F(InputTest, AClickOnTheNameActsAsEnterInThePlate) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("8");
  station_.Type("abc");
  station_.Answers = {Answer::kOk};
  hands_.Click(name_);
  EXPECT_EQ(station_.Boxes.back().title, "Vintoral - Ingreso Denegado"_w);
}

TEST_F(InputTest, AClickOnTheNameOfALockedPlateIsJustAClick) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("8");
  station_.Type("abc");
  form_.TxtCampo[1].Locked = true;
  station_.Boxes.clear();
  hands_.Click(name_);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(form_.Focus(), &name_);
}

TEST_F(InputTest, EnterInTheCashRetires) {
  station_.Enter("7", "ABC");
  station_.Pass(37 * 60'000);
  station_.TypeAndEnter("7");
  station_.Pass(500);
  ASSERT_EQ(form_.Focus(), &form_.TxtEfectivo);
  station_.Answers = {Answer::kYes};
  hands_.Key(keys::kEnter, 0);
  EXPECT_FALSE(station_.Slot(7).EnUso);
  EXPECT_EQ(station_.History(2).ValorCobrado, Money::FromUnits(3700));
}

// ---- Labels
// ---------------------------------------------------------------------------------------------------

class LabelTest : public InputTest {
 protected:
  TextBox& label_ = form_.TxtEtiqueta[2];
  PictureBox& panel_ = form_.PctEtiqueta[2];
  /// Label 2 as the shared folder holds it.
  std::string Stored() { return station_.Disk.Get("Multimedia\\Vintoral.LBL").substr(40, 20); }
};

TEST_F(LabelTest, AClosedLabelTakesNoTyping) {
  form_.SetFocus(&label_);
  station_.Type("5");
  EXPECT_EQ(label_.Text(), "NOMBRE "_w);
}

TEST_F(LabelTest, AClickOnItsPanelOpensItWithItsTextSelected) {
  hands_.Click(panel_);
  EXPECT_FALSE(label_.Locked);
  EXPECT_EQ(form_.Focus(), &label_);
  ExpectSelection(label_, 0, 7);
}

TEST_F(LabelTest, SmallLettersShowInCapitals) {
  hands_.Click(panel_);
  station_.Type("señor"_w);
  EXPECT_EQ(label_.Text(), "SEÑOR"_w);
}

TEST_F(LabelTest, EnterEndsAndStoresIt) {
  hands_.Click(panel_);
  station_.TypeAndEnter("cliente");
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(label_.Text(), "CLIENTE "_w);
  EXPECT_EQ(Stored(), "CLIENTE             ");
  EXPECT_EQ(form_.Focus(), &number_);
}

TEST_F(LabelTest, LeavingItEndsAndStoresIt) {
  hands_.Click(panel_);
  station_.Type("socio");
  hands_.Click(form_.TxtCampo[1]);
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(Stored(), "SOCIO               ");
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(LabelTest, AClickOnTheToolBarEndsAndStoresIt) {
  hands_.Click(panel_);
  station_.Type("socio");
  hands_.Click(form_.PctBoton[1]);
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(Stored(), "SOCIO               ");
  EXPECT_EQ(form_.Focus(), &number_);
}

TEST_F(LabelTest, BlanksAroundItAreNotStored) {
  hands_.Click(panel_);
  station_.TypeAndEnter("  socio  ");
  EXPECT_EQ(label_.Text(), "SOCIO "_w);
  EXPECT_EQ(Stored(), "SOCIO               ");
}

TEST_F(LabelTest, ItHoldsTwentyCharacters) {
  hands_.Click(panel_);
  station_.TypeAndEnter("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(Stored(), "ABCDEFGHIJKLMNOPQRST");
}

TEST_F(LabelTest, ADisabledControlTakesNoClick) {
  panel_.Enabled = false;
  hands_.Click(panel_);
  EXPECT_TRUE(label_.Locked);
}

}  // namespace
}  // namespace vintoral
