// A whole code on the screen: whose it is.
#include <gmock/gmock.h>

#include <string>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::kAct;
using test::kCdb;
using test::kCfr;
using test::kCodigo;
using test::kOtro;
using test::Pase;

class BuscarCodigoBarrasTest : public CodigosTest {
 protected:
  void PutTicket(std::size_t number, std::string_view code = kCodigo) {
    PutInside(number);
    PutCode(number, code, Digits(static_cast<std::int64_t>(number), 4));
  }
};

TEST_F(BuscarCodigoBarrasTest, OneThatIsInsideShowsItsFichaForExit) {
  PutTicket(6, kOtro);
  PutTicket(7);
  form_.TxtBarCodeOK.BackColor = kWhite;
  Scan(kCodigo);
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_EQ(form_.TxtCampo[0].Text(), "0007"_w);
  EXPECT_EQ(form_.LblCampo[0].Caption, "0007"_w);
  EXPECT_TRUE(form_.TxtBarCodeOK.Visible);
  EXPECT_EQ(form_.TxtBarCodeOK.BackColor, 0x80FFFF);
  EXPECT_TRUE(form_.PctBoton[boton::kRetirar].Visible);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
}

TEST_F(BuscarCodigoBarrasTest, TheLastSlotIsLookedAtToo) {
  PutTicket(1000);
  Scan(kCodigo);
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_EQ(form_.TxtCampo[0].Text(), "1000"_w);
}

TEST_F(BuscarCodigoBarrasTest, WhatStandsBehindTheSlotsIsNobodys) {
  PutTicket(7, kOtro);
  PutCode(1001, kCodigo, "0007");
  Scan(kCodigo);
  EXPECT_FALSE(form_.FichaEnCurso());
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
}

TEST_F(BuscarCodigoBarrasTest, AReaderMayWriteInSmallLetters) {
  PutTicket(7);
  Scan("a1b2c3d4e5f6");
  EXPECT_TRUE(form_.FichaEnPantalla());
}

TEST_F(BuscarCodigoBarrasTest, TheCodeOfOneWhoIsInsideNeverReachesThePasses) {
  PutTicket(7);
  const RegistroPase over = Pase(1, 0, "14:05  (01/11/2026)");
  PutPass(1, over);
  Scan(kCodigo);
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_EQ(PassAt(1), over);  // it would have been freed
}

TEST_F(BuscarCodigoBarrasTest, AnUnknownOneStandsForASecondAndNothingElseHappens) {
  PutTicket(7, kOtro);
  const std::string act = station_.Disk.Get(kAct);
  Scan(kCodigo);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
  EXPECT_FALSE(form_.TxtBarCodeOK.Visible || form_.FichaEnCurso());
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_TRUE(station_.Waits.empty());
  station_.Pass(999);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
  station_.Pass(1);
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
  EXPECT_EQ(station_.Disk.Get(kAct), act);
}

TEST_F(BuscarCodigoBarrasTest, WithoutCodesNoPassIsLookedForEither) {
  PutPass(1, Pase(0, 2));
  ASSERT_TRUE(station_.Disk.Remove(kCdb));
  Scan(kCodigo);
  EXPECT_FALSE(form_.FichaEnCurso());
  EXPECT_TRUE(station_.Waits.empty());
  EXPECT_EQ(form_.NumeroPase, 0);
}

TEST_F(BuscarCodigoBarrasTest, CodesThatCantBeReadLetNobodyIn) {
  PutTicket(7);
  PutPass(1, Pase(0, 2));
  for (const int read : {1, 2}) {  // the search, the record
    station_.Faulty.Set().failRead = read;
    Scan(kCodigo);
    EXPECT_FALSE(form_.FichaEnCurso()) << read;
    EXPECT_TRUE(station_.Waits.empty()) << read;
    station_.Faulty.Repair();
    station_.Hands.Key(keys::kEscape, 0);
  }
}

TEST_F(BuscarCodigoBarrasTest, ACodeWithoutANumberIsNotInside) {
  PutCode(7, kCodigo, "");
  PutPass(1, Pase(0, 2));
  station_.Answers = {Answer::kNo};
  Scan(kCodigo);
  EXPECT_EQ(form_.NumeroPase, 1);
  EXPECT_EQ(station_.Waits.size(), 1u);
}

TEST_F(BuscarCodigoBarrasTest, ANumberThatLeadsNowhereGoesAwayAfterASecond) {
  for (const char* number : {"ABCD", "0000", "1001", "-001"}) {
    PutCode(7, kCodigo, number);
    Scan(kCodigo);
    EXPECT_FALSE(form_.FichaEnCurso() || form_.TxtBarCodeOK.Visible) << number;
    EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo)) << number;
    station_.Pass(1000);
    EXPECT_TRUE(Idle()) << number;
    EXPECT_TRUE(form_.TxtCampo[0].Text().Empty()) << number;
  }
}

TEST_F(BuscarCodigoBarrasTest, ACodeThatWasLeftAtAFreeNumberOpensItsForm) {
  PutCode(7, kCodigo, "0007");
  form_.TxtBarCodeOK.BackColor = kWhite;
  Scan(kCodigo);
  EXPECT_TRUE(form_.PctBoton[boton::kGuardar].Visible);
  EXPECT_EQ(form_.TxtCampo[0].Text(), "0007"_w);
  EXPECT_TRUE(form_.TxtBarCodeOK.Visible);
  EXPECT_EQ(form_.TxtBarCodeOK.BackColor, 0x80FFFF);
  station_.Pass(3000);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
}

TEST_F(BuscarCodigoBarrasTest, ASlotOutOfReachLeavesTheCodeToBeReadAgain) {
  PutTicket(7);
  ASSERT_TRUE(station_.Disk.Remove(kAct));
  Scan(kCodigo);
  EXPECT_FALSE(form_.FichaEnCurso() || form_.TxtBarCodeOK.Visible);
  EXPECT_EQ(form_.TmrConexion.Interval(), 100);
}

TEST_F(BuscarCodigoBarrasTest, AFichaCalledUpByItIsRetiredLikeAnyOther) {
  PutTicket(7);
  Scan(kCodigo);
  ASSERT_TRUE(form_.FichaEnPantalla());
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(station_.History(2).NumeroFicha.Trimmed(), "0007"_w);
  EXPECT_FALSE(station_.Slot(7).EnUso);
  EXPECT_EQ(CodeAt(7), "");
  EXPECT_TRUE(Idle());
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
}

// ---- The text of the box
// ---------------------------------------------------------------------------------------------

TEST_F(BuscarCodigoBarrasTest, OtherLengthsDoNothing) {
  PutTicket(7, "A1B2C3D4E5F");
  PutTicket(8, "A1B2C3D4E5F67");
  for (const char* code : {"A1B2C3D4E5F", "A1B2C3D4E5F67"}) {
    form_.TxtBarCode.SetText(String(std::string_view(code)));
    EXPECT_FALSE(form_.FichaEnCurso()) << code;
  }
}

TEST_F(BuscarCodigoBarrasTest, BlanksAroundDoNotCount) {
  PutTicket(7);
  form_.TxtBarCode.SetText("  A1B2C3D4E5F6 "_w);
  EXPECT_TRUE(form_.FichaEnPantalla());
}

TEST_F(BuscarCodigoBarrasTest, WhatIsAcceptedIsNotLookedForAgain) {
  PutTicket(7);
  form_.TxtBarCodeOK.Visible = true;
  form_.TxtBarCode.SetText(String(kCodigo));
  EXPECT_FALSE(form_.FichaEnCurso());
  station_.Pass(3000);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
}

TEST_F(BuscarCodigoBarrasTest, HalfACodeIsThrownAwayASecondAfterItsLastCharacter) {
  for (const char character : std::string("A1B2")) {
    station_.Hands.Character(character);
    station_.Pass(999);
  }
  EXPECT_EQ(form_.TxtBarCode.Text(), "A1B2"_w);
  station_.Pass(1);
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
}

}  // namespace
}  // namespace vintoral
