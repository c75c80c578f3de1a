// The way of a pass: made with its first entry, scanned out, scanned in by itself, spent.
#include <gmock/gmock.h>

#include <string>

#include "support/Slips.h"
#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::At;
using test::CodigosTest;
using test::kCfr;
using test::kCodigo;
using test::Pase;

class PaseEntraTest : public CodigosTest {
 protected:
  /// A first entry with this validity; the ticket's code.
  String Sell(const char* number, int unit) {
    TypeTicket();
    station_.Hands.ReplaceText(form_.TxtMaxEntrada, String(std::string_view(number)));
    form_.LstModEntrada.ListIndex = unit;
    String code = form_.TxtBarCode.Text();
    Save();
    return code;
  }
  void Leave(const String& code) {
    Scan(code);
    ASSERT_TRUE(form_.FichaEnPantalla());
    Retire();
    ASSERT_TRUE(Idle());
  }
  /// What the box of validity shows while the gate waits, behind a scan that lets somebody in; nothing for a
  /// scan that doesn't.
  std::string ScanIn(const String& code) {
    std::string shown;
    station_.UnderWait = [&] { shown = form_.TxtMaxEntrada.Text().Bytes(); };
    const std::size_t boxes = station_.Boxes.size();
    station_.Answers = {Answer::kYes};
    Scan(code);
    if (station_.Boxes.size() == boxes) station_.Answers.clear();
    station_.UnderWait = nullptr;
    return shown;
  }
};

TEST_F(PaseEntraTest, OfThreeEntries) {
  const String code = Sell("3", 0);
  ASSERT_TRUE(station_.Slot(1).EnUso);
  ASSERT_EQ(CodeAt(1), code.Bytes());
  ASSERT_EQ(Passes(), 1u);
  EXPECT_EQ(PassAt(1), Pase(0, 2, "", code));
  Leave(code);
  EXPECT_EQ(CodeAt(1), "");

  EXPECT_EQ(ScanIn(code), "2");
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(CodeAt(1), code.Bytes());
  EXPECT_EQ(PassAt(1), Pase(0, 1, "", code));
  Leave(code);

  EXPECT_EQ(ScanIn(code), "1");
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(PassAt(1), Pase(0, 1, "", ""));
  Leave(code);

  EXPECT_EQ(ScanIn(code), "");
  EXPECT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(form_.TxtBarCode.Text(), code);
  EXPECT_EQ(Passes(), 1u);
}

TEST_F(PaseEntraTest, OfThirtyDays) {
  station_.Clock.Set(At(14, 5, 0, 1));
  const String code = Sell("30", 1);
  const RegistroPase pass = Pase(1, 29, "14:05  (01/11/2026)", code);
  EXPECT_EQ(PassAt(1), pass);
  Leave(code);

  station_.Clock.Set(At(9, 0, 0, 10));
  EXPECT_EQ(ScanIn(code), "21");
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(PassAt(1), pass);
  Leave(code);

  station_.Clock.Set(At(9, 0, 0, 30));
  EXPECT_EQ(ScanIn(code), "1");
  EXPECT_EQ(PassAt(1), pass);
  Leave(code);

  station_.Clock.Set(At(0, 0, 0, 30).Plus(86'400'000));
  EXPECT_EQ(ScanIn(code), "");
  EXPECT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(PassAt(1), Pase(1, 29, "14:05  (01/11/2026)", ""));
}

TEST_F(PaseEntraTest, OfOneEntryThereIsNone) {
  const String code = Sell("1", 0);
  ASSERT_TRUE(station_.Slot(1).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(kCfr));
  Leave(code);
  EXPECT_EQ(ScanIn(code), "");
  EXPECT_FALSE(station_.Slot(1).EnUso);
}

TEST_F(PaseEntraTest, OfOneDay) {
  const String code = Sell("1", 1);
  const RegistroPase pass = Pase(1, 0, "14:00  (20/11/2026)", code);
  EXPECT_EQ(PassAt(1), pass);
  Leave(code);
  EXPECT_EQ(ScanIn(code), "1");
  EXPECT_EQ(PassAt(1), pass);
  EXPECT_TRUE(station_.Slot(1).EnUso);
}

TEST_F(PaseEntraTest, OfNoneThereIsNone) {
  for (const char* none : {"0", "", ",5"}) {
    for (const int unit : {0, 1}) {
      const String code = Sell(none, unit);
      ASSERT_TRUE(station_.Slot(1).EnUso) << none;
      EXPECT_FALSE(station_.Disk.Exists(kCfr)) << none;
      Leave(code);
    }
  }
}

TEST_F(PaseEntraTest, PrintsNoTicketAgain) {
  station_.Printer.Installed = {{"Tira80"_w}, "Tira80"_w};
  form_.TiqueteActual.Impresora = "Tira80";
  form_.TiqueteActual.DimFuente = 10;
  const String code = Sell("3", 0);
  ASSERT_EQ(test::Printed(station_.Events).size(), 1u);
  Leave(code);
  station_.Events.Take();
  ASSERT_EQ(ScanIn(code), "2");
  ASSERT_TRUE(station_.Slot(1).EnUso);
  EXPECT_TRUE(test::Printed(station_.Events).empty());
}

// ---- By itself
// -------------------------------------------------------------------------------------------------------

class PaseEsperaTest : public PaseEntraTest {
 protected:
  PaseEsperaTest() { PutPass(1, Pase(0, 2)); }
};

TEST_F(PaseEsperaTest, ASecondIsWaitedAndThenItsQuestionAsked) {
  station_.UnderWait = [this] {
    EXPECT_TRUE(station_.Boxes.empty());
    EXPECT_EQ(form_.TxtCampo[0].Text(), "1"_w);
    EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
    EXPECT_EQ(form_.TxtBarCode.Text(), String(kCodigo));
    EXPECT_TRUE(form_.TxtBarCodeOK.Visible);
    EXPECT_FALSE(form_.TxtMaxEntrada.Enabled || form_.LstModEntrada.Enabled);
  };
  station_.Answers = {Answer::kYes};
  Scan(kCodigo);
  EXPECT_THAT(station_.Waits, testing::ElementsAre(1000));
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Confirmar Datos"_w);
  EXPECT_EQ(station_.Slot(1).Placa.Trimmed(), "ABC123"_w);
  EXPECT_TRUE(Idle());
  EXPECT_EQ(form_.NumeroPase, 0);
  EXPECT_TRUE(form_.TxtMaxEntrada.Enabled && form_.LstModEntrada.Enabled);
}

TEST_F(PaseEsperaTest, NoSpendsNothingAndLeavesTheForm) {
  station_.Answers = {Answer::kNo};
  Scan(kCodigo);
  EXPECT_EQ(PassAt(1), Pase(0, 2));
  EXPECT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(form_.NumeroPase, 1);
  Save();
  EXPECT_EQ(PassAt(1), Pase(0, 1));
}

TEST_F(PaseEsperaTest, EscWhileItWaitsSavesNothing) {
  station_.UnderWait = [this] { station_.Hands.Key(keys::kEscape, 0); };
  Scan(kCodigo);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(PassAt(1), Pase(0, 2));
  EXPECT_FALSE(station_.Slot(1).EnUso);
}

TEST_F(PaseEsperaTest, AnotherTicketBegunMeanwhileIsNotSavedForIt) {
  station_.UnderWait = [this] {
    station_.Hands.Key(keys::kEscape, 0);
    TypeTicket("xyz");
  };
  Scan(kCodigo);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(form_.TxtCampo[1].Text(), "XYZ"_w);
}

TEST_F(PaseEsperaTest, OneThatTheOperatorSavedMeanwhileIsNotSavedTwice) {
  station_.UnderWait = [this] { Save(); };
  Scan(kCodigo);
  EXPECT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(PassAt(1), Pase(0, 1));
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_FALSE(station_.Slot(2).EnUso);
}

TEST_F(PaseEsperaTest, ASlotThatAnotherGateTookMeanwhileSpendsNothingAndAsksNothing) {
  station_.UnderWait = [this] { PutInside(1); };
  Scan(kCodigo);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(station_.Slot(1).Placa.Trimmed(), "OTRA"_w);
  EXPECT_EQ(PassAt(1), Pase(0, 2));
  EXPECT_EQ(CodeAt(1), "");
  EXPECT_TRUE(Idle());
}

TEST_F(PaseEsperaTest, WithoutASlotTheLimitIsToldAndTheScreenCleared) {
  RegistroFicha taken;
  taken.EnUso = true;
  for (std::size_t number = 1; number <= 1000; ++number)
    PutRecord(station_.Disk, test::kAct, number, taken);
  station_.Answers = {Answer::kOk};
  Scan(kCodigo);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Generador de Códigos de Barras"_w);
  EXPECT_TRUE(station_.Waits.empty());
  EXPECT_TRUE(Idle());
  EXPECT_EQ(form_.NumeroPase, 0);
  EXPECT_EQ(PassAt(1), Pase(0, 2));
}

TEST_F(PaseEsperaTest, APlateThatIsInsideIsRefused) {
  PutInside(5, "ABC123");
  station_.Answers = {Answer::kOk};
  Scan(kCodigo);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Ingreso Denegado"_w);
  EXPECT_EQ(PassAt(1), Pase(0, 2));
  EXPECT_TRUE(Idle());
}

}  // namespace
}  // namespace vintoral
