// A reader of bar codes is a fast keyboard: what counts as its burst, and the Enter behind it.
#include <gmock/gmock.h>

#include <string>

#include "unit/station/form1/LecturaFixture.h"

namespace vintoral {
namespace {

using test::kCodigo;
using test::kOtro;
using test::LecturaTest;
using test::Pase;

TEST_F(LecturaTest, InTheBoxOfCodesItIsSimplyTyped) {
  ASSERT_EQ(form_.Focus(), &form_.TxtBarCode);
  Scan("A1B2C3D4E5F");
  EXPECT_EQ(form_.TxtBarCode.Text(), "A1B2C3D4E5F"_w);
  EXPECT_FALSE(Found());
  Scan("6");
  EXPECT_TRUE(Found());
}

TEST_F(LecturaTest, AsFastAsAReaderIsAndAsSlow) {
  for (const std::int64_t gap : {0, 1, 5, 49}) {
    form_.SetFocus(&form_.TxtCampo[1]);
    Scan(kCodigo, gap);
    EXPECT_TRUE(Found()) << gap;
    station_.Hands.Key(keys::kEscape, 0);
    station_.Pass(1000);
  }
}

TEST_F(LecturaTest, OutOfAFieldItIsTakenBack) {
  form_.TxtCampo[1].SetText("QWE"_w);
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan("A1B2C3D4E5F");
  ASSERT_EQ(form_.TxtCampo[1].Text(), "A1B2C3D4E5FQWE"_w);
  std::string plate;
  form_.TxtBarCode.OnChange = [&, change = form_.TxtBarCode.OnChange] {
    plate = form_.TxtCampo[1].Text().Bytes();
    change();
  };
  station_.Hands.Character('6');
  EXPECT_EQ(plate, "QWE");
  EXPECT_TRUE(Found());
}

TEST_F(LecturaTest, AnUnknownOneIsTakenBackToo) {
  form_.TxtCampo[2].SetText("ANA"_w);
  form_.SetFocus(&form_.TxtCampo[2]);
  Scan(kOtro);
  EXPECT_EQ(form_.TxtCampo[2].Text(), "ANA"_w);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kOtro));
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
}

TEST_F(LecturaTest, TypingStaysWhereItWasTyped) {
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan(kCodigo, 50);
  EXPECT_EQ(form_.TxtCampo[1].Text(), String(kCodigo));
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
}

TEST_F(LecturaTest, TypingBeforeItStaysToo) {
  form_.SetFocus(&form_.TxtCampo[1]);
  station_.Type("QW");
  station_.Pass(50);
  Scan(kOtro);
  EXPECT_EQ(form_.TxtCampo[1].Text(), "QW"_w);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kOtro));
}

TEST_F(LecturaTest, AShortBurstIsTyping) {
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan("A1B2C3D4E5F");
  station_.Pass(50);
  Scan("6");
  EXPECT_EQ(form_.TxtCampo[1].Text(), String(kCodigo));
  EXPECT_FALSE(Found());
}

TEST_F(LecturaTest, WhatIsNoLetterAndNoDigitBreaksIt) {
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan("A1B2C3-D4E5F6");
  EXPECT_EQ(form_.TxtCampo[1].Text(), "A1B2C3-D4E5F6"_w);
  for (const char odd : {'/', ':', '@', '[', ' ', '\xD1'}) {
    form_.TxtCampo[1].SetText({});
    station_.Pass(100);
    Scan("A1B2C3D4E5F" + std::string(1, odd) + "6");
    EXPECT_FALSE(Found()) << odd;
  }
}

TEST_F(LecturaTest, SmallLettersAreLetters) {
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan("a1b2c3d4e5f6");
  EXPECT_TRUE(Found());
}

TEST_F(LecturaTest, TheEndsOfBothRowsAreOfCodes) {
  PutInside(8);
  PutCode(8, "0099AAZZ09AZ", "0008");
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan("0099aazz09AZ");
  EXPECT_EQ(form_.TxtCampo[0].Text(), "0008"_w);
}

// ---- What is left alone
// -----------------------------------------------------------------------------------------------

TEST_F(LecturaTest, WithoutBarCodesFieldsTakeAnything) {
  form_.CambiarModoFicha();
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan(kCodigo);
  EXPECT_EQ(form_.TxtCampo[1].Text(), String(kCodigo));
  EXPECT_FALSE(Found());
}

TEST_F(LecturaTest, WhileAFichaIsTypedFieldsTakeAnything) {
  TypeTicket();
  const String code = form_.TxtBarCode.Text();
  form_.SetFocus(&form_.TxtCampo[5]);
  Scan(kCodigo);
  EXPECT_EQ(form_.TxtCampo[5].Text(), String(kCodigo));
  EXPECT_EQ(form_.TxtBarCode.Text(), code);
}

TEST_F(LecturaTest, ANewOneTakesThePlaceOfOneThatNobodyKnew) {
  Scan(kOtro);
  ASSERT_EQ(form_.TxtBarCode.Text(), String(kOtro));
  station_.Pass(50);
  Scan(kCodigo);
  EXPECT_TRUE(Found());
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
}

// ---- Enter behind it
// -------------------------------------------------------------------------------------------------

TEST_F(LecturaTest, ItsEnterDoesNotSaveThePassThatWaits) {
  form_.SetFocus(&form_.TxtCampo[1]);
  PutPass(1, Pase(0, 2, "", kOtro));
  station_.UnderWait = [this] {
    ASSERT_EQ(form_.Focus(), &form_.TxtCampo[1]);
    Enter();
    EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
  };
  station_.Answers = {Answer::kYes};
  Scan(kOtro);
  EXPECT_TRUE(station_.Slot(1).EnUso);
}

TEST_F(LecturaTest, ItsEnterIsSwallowedForFiftyMilliseconds) {
  for (const std::int64_t gap : {0, 49, 50}) {
    form_.SetFocus(&form_.TxtCampo[1]);
    Scan(kOtro);
    form_.SetFocus(&form_.TxtCampo[3]);
    station_.Pass(gap);
    Enter();
    EXPECT_EQ(form_.Focus(), gap < 50 ? &form_.TxtCampo[3] : &form_.TxtCampo[4]) << gap;
    station_.Hands.Key(keys::kEscape, 0);
    station_.Pass(1000);
  }
}

TEST_F(LecturaTest, AnEnterWithoutACodeIsTheOperators) {
  form_.SetFocus(&form_.TxtCampo[3]);
  Scan("A1B2C3D4E5F");
  Enter();
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[4]);
}

TEST_F(LecturaTest, ItsEnterDoesNotRetireTheFichaThatItShows) {
  Scan(kCodigo);
  ASSERT_TRUE(Found());
  form_.LineaEfectivo();
  ASSERT_EQ(form_.Focus(), &form_.TxtEfectivo);
  Enter();
  EXPECT_TRUE(station_.Boxes.empty());
  station_.Pass(50);
  station_.Answers = {Answer::kNo};
  Enter();
  EXPECT_EQ(station_.Boxes.size(), 1u);
}

}  // namespace
}  // namespace vintoral
