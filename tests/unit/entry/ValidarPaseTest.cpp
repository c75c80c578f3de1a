// A pass that is shown: looked for, put on the screen, freed when it has run out.
#include <string>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::kCfr;
using test::kCodigo;
using test::kOtro;
using test::Pase;

class ValidarPaseTest : public CodigosTest {
 protected:
  /// Another pass stands there, and nothing is looked for by itself.
  ValidarPaseTest() {
    form_.TxtBarCodeOK.Visible = true;
    form_.TxtBarCode.SetText(String(kCodigo));
    form_.TxtBarCodeOK.Visible = false;
    form_.NumeroPase = 9;
    form_.LstModEntrada.ListIndex = 1;
    form_.TxtMaxEntrada.SetText("77"_w);
  }
  bool Nothing() const {
    return form_.NumeroPase == 0 && !form_.TxtBarCodeOK.Visible && form_.TxtMaxEntrada.Text() == "77"_w &&
           !form_.TxtMaxEntrada.Visible && form_.TxtMaxEntrada.Enabled && form_.TxtCampo[1].Text().Empty();
  }
};

TEST_F(ValidarPaseTest, WithoutTheRegisterThereIsNone) {
  ASSERT_FALSE(station_.Disk.Exists(kCfr));
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_TRUE(Nothing());
  EXPECT_FALSE(station_.Disk.Exists(kCfr));
}

TEST_F(ValidarPaseTest, ACodeThatNoPassHasIsNone) {
  PutPass(1, Pase(0, 2, "", kOtro));
  const std::string before = station_.Disk.Get(kCfr);
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_TRUE(Nothing());
  EXPECT_EQ(station_.Disk.Get(kCfr), before);
}

TEST_F(ValidarPaseTest, EntriesAreShownAndShut) {
  PutPass(1, Pase(0, 5, "", kOtro));
  PutPass(2, Pase(0, 2));
  const std::string before = station_.Disk.Get(kCfr);
  EXPECT_TRUE(form_.ValidarPase());
  EXPECT_EQ(form_.NumeroPase, 2);
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "2"_w);
  EXPECT_EQ(form_.LstModEntrada.ListIndex, 0);
  EXPECT_TRUE(form_.TxtMaxEntrada.Visible && form_.LstModEntrada.Visible && form_.TxtBarCodeOK.Visible);
  EXPECT_FALSE(form_.TxtMaxEntrada.Enabled || form_.LstModEntrada.Enabled);
  EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
  EXPECT_EQ(station_.Disk.Get(kCfr), before);
}

TEST_F(ValidarPaseTest, DaysAreShownTodayIncluded) {
  form_.LstModEntrada.ListIndex = 0;
  PutPass(1, Pase(1, 29, "14:05  (11/11/2026)"));  // today is the 20th
  EXPECT_TRUE(form_.ValidarPase());
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "21"_w);
  EXPECT_EQ(form_.LstModEntrada.ListIndex, 1);
  EXPECT_EQ(form_.NumeroPase, 1);
}

TEST_F(ValidarPaseTest, CaseAndBlanksDoNotCount) {
  PutPass(1, Pase(0, 2, "", "  a1b2c3d4e5f6"));
  EXPECT_TRUE(form_.ValidarPase());
  EXPECT_EQ(form_.NumeroPase, 1);
}

TEST_F(ValidarPaseTest, DaysThatAreOverFreeTheRecordAndNothingElse) {
  PutPass(1, Pase(0, 5, "", kOtro));
  PutPass(2, Pase(1, 8, "14:05  (11/11/2026)"));
  const int syncs = station_.Disk.Syncs();
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_TRUE(Nothing());
  EXPECT_EQ(PassAt(2), Pase(1, 8, "14:05  (11/11/2026)", ""));
  EXPECT_EQ(PassAt(1), Pase(0, 5, "", kOtro));
  EXPECT_GT(station_.Disk.Syncs(), syncs);
}

TEST_F(ValidarPaseTest, TheLastDayIsGood) {
  PutPass(1, Pase(1, 9, "14:05  (11/11/2026)"));
  EXPECT_TRUE(form_.ValidarPase());
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "1"_w);
  EXPECT_EQ(PassAt(1).CodigoPase.Trimmed(), String(kCodigo));
}

TEST_F(ValidarPaseTest, WhatIsWorthNothingStays) {
  for (const RegistroPase& pass : {Pase(0, 0), Pase(0, -3), Pase(1, 30, "")}) {
    PutPass(1, pass);
    EXPECT_FALSE(form_.ValidarPase()) << pass.RestantesPase;
    EXPECT_TRUE(Nothing());
    EXPECT_EQ(PassAt(1), pass);
  }
}

TEST_F(ValidarPaseTest, TheFirstOfTwoCounts) {
  PutPass(1, Pase(0, 2));
  PutPass(2, Pase(0, 7));
  EXPECT_TRUE(form_.ValidarPase());
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "2"_w);
}

TEST_F(ValidarPaseTest, ARecordThatSomebodyHasTakenSinceIsHis) {
  const RegistroPase his = Pase(0, 4, "", kOtro);
  PutPass(1, Pase(1, 8, "14:05  (11/11/2026)"));
  station_.Disk.BeforeLocked(kCfr, [&] { PutPass(1, his); });
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_EQ(PassAt(1), his);
}

TEST_F(ValidarPaseTest, ATornLastRecordIsNoPass) {
  station_.Disk.Put(kCfr, test::Encoded(Pase(0, 2)).substr(0, 92));
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_TRUE(Nothing());
}

TEST_F(ValidarPaseTest, ARegisterThatCantBeReadLetsNobodyIn) {
  PutPass(1, Pase(0, 2));
  station_.Faulty.Set().failRead = 1;  // the search
  EXPECT_FALSE(form_.ValidarPase());
  station_.Faulty.Set().failRead = 2;  // the record
  EXPECT_FALSE(form_.ValidarPase());
  station_.Faulty.Set().failLength = true;
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_TRUE(Nothing());
  station_.Faulty.Repair();
  EXPECT_TRUE(form_.ValidarPase());
}

TEST_F(ValidarPaseTest, DaysThatAreOverCountForNothingInAReadOnlyRegisterToo) {
  PutPass(1, Pase(1, 8, "14:05  (11/11/2026)"));
  station_.Disk.SetReadOnly(kCfr);
  EXPECT_FALSE(form_.ValidarPase());
  EXPECT_TRUE(Nothing());
  EXPECT_EQ(PassAt(1).CodigoPase.Trimmed(), String(kCodigo));
}

}  // namespace
}  // namespace vintoral
