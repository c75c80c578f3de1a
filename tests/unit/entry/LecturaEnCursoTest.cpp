// Codes that a reader types while a ficha is under way: none of them becomes a plate, a name, cash, or part
// of another code.
#include <gmock/gmock.h>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::kCodigo;
using test::kOtro;
using test::Pase;

class LecturaEnCursoTest : public CodigosTest {
 protected:
  /// Slot 1 is inside with kCodigo and on display, the cash line open.
  void ShowForExit() {
    PutInside(1, "ABC123");
    PutCode(1, kCodigo, "0001");
    Scan(kCodigo);
    station_.Pass(1500);
    ASSERT_EQ(form_.Focus(), &form_.TxtEfectivo);
  }
};

TEST_F(LecturaEnCursoTest, TypingInTheToolBarLeavesTheTicketsCodeAlone) {
  TypeTicket();
  const String codigo = form_.TxtBarCode.Text();
  ASSERT_EQ(codigo.Size(), 12u);
  form_.SetFocus(nullptr);
  for (const char character : {'j', 'u', 'a', 'n'}) {
    station_.Pass(200);
    station_.Hands.Character(character);
  }
  EXPECT_EQ(form_.TxtBarCode.Text(), codigo);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
  station_.Hands.Focus(form_.TxtBarCode);
  station_.Hands.Character('Z');
  EXPECT_EQ(form_.TxtBarCode.Text(), codigo);
}

TEST_F(LecturaEnCursoTest, TwiceIsOnceBesideAPassThatComesIn) {
  PutPass(1, Pase(0, 2));
  station_.UnderWait = [this] {
    ASSERT_EQ(form_.Focus(), &form_.TxtCampo[1]);
    station_.Pass(300);
    Scan(kCodigo);
    station_.Hands.Key(keys::kEnter, 0);
    EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
    station_.Pass(100);
    Scan(kOtro);
    EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
    EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
  };
  station_.Answers = {Answer::kYes};
  Scan(kCodigo);
  EXPECT_EQ(station_.Slot(1).Placa.Trimmed(), "ABC123"_w);
  EXPECT_EQ(PassAt(1).RestantesPase, 1);
}

TEST_F(LecturaEnCursoTest, TwelveCharactersOfATypedNameStay) {
  TypeTicket();
  station_.Hands.Focus(form_.TxtCampo[3]);
  Scan("DELACRUZ1234");
  EXPECT_EQ(form_.TxtCampo[3].Text(), "DELACRUZ1234"_w);
  station_.Pass(100);
  Scan(form_.TxtBarCode.Text().Bytes());
  EXPECT_EQ(form_.TxtCampo[3].Text(), "DELACRUZ1234"_w);
  station_.Pass(100);
  station_.Hands.Character('x');
  EXPECT_EQ(form_.TxtCampo[3].Text(), "DELACRUZ1234X"_w);
}

TEST_F(LecturaEnCursoTest, OverTheCashNothingIsPaidAndNothingAsked) {
  ShowForExit();
  Scan(kCodigo);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_EQ(form_.TxtEfectivo.Text(), "0"_w);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_TRUE(form_.FichaEnPantalla());
  station_.Pass(200);
  for (const char character : {'5', '0'}) {
    station_.Pass(200);
    station_.Hands.Character(character);
  }
  EXPECT_EQ(form_.TxtEfectivo.Text(), "50"_w);
}

TEST_F(LecturaEnCursoTest, AWholeCodeTakesThePlaceOfHalfAOne) {
  PutInside(3, "ABC123");
  PutCode(3, kCodigo, "0003");
  Scan(kCodigo.substr(0, 8));
  station_.Pass(400);
  Scan(kCodigo);
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_EQ(form_.LblCampo[0].Caption, "0003"_w);
}

TEST_F(LecturaEnCursoTest, WhoeverAnsweredNoIsNotAskedAgain) {
  PutPass(1, Pase(0, 2));
  station_.UnderWait = [this] {
    station_.Answers = {Answer::kNo};
    station_.Hands.Key(keys::kInsert, 0);
    ASSERT_EQ(station_.Boxes.size(), 1u);
  };
  Scan(kCodigo);
  EXPECT_EQ(station_.Boxes.size(), 1u);
  EXPECT_TRUE(form_.PctBoton[5].Visible);
  EXPECT_FALSE(station_.Slot(1).EnUso);
}

}  // namespace
}  // namespace vintoral
