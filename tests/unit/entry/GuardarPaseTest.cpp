// A pass is made or spent together with the slot of its ficha, and no entry is spent twice.
#include <gmock/gmock.h>

#include <string>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::kCdb;
using test::kCfr;
using test::kCodigo;
using test::kOtro;
using test::Pase;

// ---- One that comes back
// -----------------------------------------------------------------------------------------------

class PaseQueVuelveTest : public CodigosTest {
 protected:
  /// Scanned, and answered with yes; `meanwhile` happens under the question.
  void Enter(std::function<void()> meanwhile = nullptr) {
    station_.UnderBox = std::move(meanwhile);
    station_.Answers = {Answer::kYes};
    Scan(kCodigo);
    ASSERT_EQ(station_.Boxes.size(), 1u);
  }
  bool NothingSaved() const { return !station_.Slot(1).EnUso && CodeAt(1).empty(); }
};

TEST_F(PaseQueVuelveTest, ThatAnotherGateHasSpentLetsNobodyIn) {
  PutPass(1, Pase(0, 1));
  Enter([this] {
    PutPass(1, Pase(0, 1, "", ""));
    station_.Events.Take();
  });
  EXPECT_TRUE(NothingSaved());
  EXPECT_EQ(PassAt(1), Pase(0, 1, "", ""));
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_TRUE(Idle());
}

TEST_F(PaseQueVuelveTest, WhoseRecordIsSomebodyElsesByNowLetsNobodyIn) {
  const RegistroPase his = Pase(0, 4, "", kOtro);
  PutPass(1, Pase(0, 1));
  Enter([&] { PutPass(1, his); });
  EXPECT_TRUE(NothingSaved());
  EXPECT_EQ(PassAt(1), his);
}

TEST_F(PaseQueVuelveTest, WhoseRecordWasCutOffLetsNobodyIn) {
  PutPass(1, Pase(0, 4));
  Enter([this] { station_.Disk.Put(kCfr, ""); });
  EXPECT_TRUE(NothingSaved());
  EXPECT_EQ(station_.Disk.Get(kCfr), "");
}

TEST_F(PaseQueVuelveTest, IsLookedAtAgainWhenTheLockIsHad) {
  PutPass(1, Pase(0, 1));
  station_.Disk.BeforeLocked(kCfr, [this] { PutPass(1, Pase(0, 1, "", "")); });
  Enter();
  EXPECT_TRUE(NothingSaved());
  EXPECT_TRUE(Idle());
}

TEST_F(PaseQueVuelveTest, EntriesThatOthersTookCount) {
  PutPass(1, Pase(0, 3));
  Enter([this] { PutPass(1, Pase(0, 2)); });
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(PassAt(1), Pase(0, 1));
}

TEST_F(PaseQueVuelveTest, ReadInSmallLettersIsTheSame) {
  PutPass(1, Pase(0, 2));
  station_.Answers = {Answer::kYes};
  Scan("a1b2c3d4e5f6");
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(PassAt(1), Pase(0, 1));
}

TEST_F(PaseQueVuelveTest, SlotAndPassAreWrittenWhileOtherGatesWait) {
  PutPass(1, Pase(0, 2));
  const std::size_t before = station_.Disk.UsedUnderLock().size();
  Enter();
  const auto& used = station_.Disk.UsedUnderLock();
  const std::vector<std::string> mine(used.begin() + static_cast<std::ptrdiff_t>(before), used.end());
  EXPECT_THAT(mine, testing::Contains("/ESTACION/MULTIMEDIA/VINTORAL.ACT"));
  EXPECT_THAT(mine, testing::Contains("/ESTACION/MULTIMEDIA/VINTORAL.CFR"));
}

TEST_F(PaseQueVuelveTest, ThatCantBeReadLetsItsVehicleInAllTheSame) {
  PutPass(1, Pase(0, 2));
  Enter([this] {
    // The slot, the user's record, then the pass.
    station_.Faulty.Set().cutAt = 0;
  });
  station_.Faulty.Repair();
  EXPECT_EQ(PassAt(1), Pase(0, 2));
}

TEST_F(PaseQueVuelveTest, WhoseRegisterIsReadOnlyLetsItsVehicleIn) {
  PutPass(1, Pase(0, 2));
  Enter([this] { station_.Disk.SetReadOnly(kCfr); });
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(CodeAt(1), kCodigo);
  EXPECT_EQ(PassAt(1), Pase(0, 2));
}

TEST_F(PaseQueVuelveTest, WhoseSlotCantBeWrittenKeepsItsEntry) {
  PutPass(1, Pase(0, 2));
  Enter([this] {
    station_.Disk.SetReadOnly(test::kAct);
    station_.Events.Take();
  });
  EXPECT_TRUE(NothingSaved());
  EXPECT_EQ(PassAt(1), Pase(0, 2));
  EXPECT_EQ(station_.Beeps(), 1);
}

TEST_F(PaseQueVuelveTest, OfDaysIsNotWrittenAtAll) {
  PutPass(1, Pase(1, 29, "14:05  (11/11/2026)"));
  const int locked = station_.Disk.Locked();
  Enter([this] { station_.Disk.Put(kCfr, "whatever"); });
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(station_.Disk.Get(kCfr), "whatever");
  EXPECT_LE(station_.Disk.Locked(), locked + 1);  // that of the user
}

// ---- A new one
// --------------------------------------------------------------------------------------------------------

class PaseNuevoTest : public CodigosTest {
 protected:
  /// A ticket for three entries, saved; `meanwhile` happens under the question.
  void Sell(std::function<void()> meanwhile = nullptr) {
    station_.Chance.Digits(4);
    TypeTicket();
    station_.Hands.ReplaceText(form_.TxtMaxEntrada, "3"_w);
    station_.UnderBox = std::move(meanwhile);
    Save();
  }
  const RegistroPase sold_ = Pase(0, 2, "", "444444444444");
};

TEST_F(PaseNuevoTest, MakesTheRegister) {
  ASSERT_FALSE(station_.Disk.Exists(kCfr));
  Sell();
  EXPECT_EQ(station_.Disk.Get(kCfr), test::Encoded(sold_));
}

TEST_F(PaseNuevoTest, StandsBehindTheLast) {
  PutPass(1, Pase(0, 2));
  Sell();
  EXPECT_EQ(station_.Disk.Get(kCfr), test::Encoded(Pase(0, 2)) + test::Encoded(sold_));
}

TEST_F(PaseNuevoTest, TakesAFreeRecord) {
  PutPass(1, Pase(0, 1, "", ""));
  PutPass(2, Pase(0, 2));
  Sell();
  EXPECT_EQ(station_.Disk.Get(kCfr), test::Encoded(sold_) + test::Encoded(Pase(0, 2)));
}

TEST_F(PaseNuevoTest, OverwritesATornLastRecord) {
  station_.Disk.Put(kCfr, test::Encoded(Pase(0, 2)) + "A1B2");
  Sell();
  EXPECT_EQ(station_.Disk.Get(kCfr), test::Encoded(Pase(0, 2)) + test::Encoded(sold_));
}

TEST_F(PaseNuevoTest, TwoGatesAtOnceTakeTwoRecords) {
  PutPass(1, Pase(0, 1, "", ""));
  const RegistroPase theirs = Pase(1, 29, "14:00  (20/11/2026)", kOtro);
  station_.Disk.BeforeLocked(kCfr, [&] { PutPass(1, theirs); });
  Sell();
  EXPECT_EQ(station_.Disk.Get(kCfr), test::Encoded(theirs) + test::Encoded(sold_));
}

TEST_F(PaseNuevoTest, TwoGatesAtOnceAppendTwoRecords) {
  PutPass(1, Pase(0, 2));
  const RegistroPase theirs = Pase(1, 29, "14:00  (20/11/2026)", kOtro);
  station_.Disk.BeforeLocked(kCfr, [&] { PutPass(2, theirs); });
  Sell();
  EXPECT_EQ(station_.Disk.Get(kCfr),
            test::Encoded(Pase(0, 2)) + test::Encoded(theirs) + test::Encoded(sold_));
}

TEST_F(PaseNuevoTest, IsNotLookedForWhileOtherGatesWait) {
  for (std::size_t number = 1; number <= 5; ++number)
    PutPass(number, Pase(0, 2, "", kOtro));
  std::size_t before = 0;
  Sell([&] { before = station_.Disk.UsedUnderLock().size(); });
  const auto& used = station_.Disk.UsedUnderLock();
  // The free place is the next row: nothing has to be read for that.
  EXPECT_EQ(std::count(used.begin() + static_cast<std::ptrdiff_t>(before), used.end(),
                       "/ESTACION/MULTIMEDIA/VINTORAL.CFR"),
            0);
}

TEST_F(PaseNuevoTest, ItsVehicleComesInThoughItCantBeWritten) {
  Sell([this] {
    station_.Disk.Put(kCfr, "");
    station_.Disk.SetReadOnly(kCfr);
  });
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(CodeAt(1), "444444444444");
  EXPECT_EQ(station_.Disk.Get(kCfr), "");
}

TEST_F(PaseNuevoTest, NoneWithoutItsFicha) {
  Sell([this] {
    station_.Disk.SetReadOnly(test::kAct);
    station_.Events.Take();
  });
  EXPECT_EQ(Passes(), 0u);
  EXPECT_EQ(CodeAt(1), "");
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_TRUE(Idle());
}

TEST_F(PaseNuevoTest, NoneForASlotThatAnotherGateTookUnderTheQuestion) {
  Sell([this] {
    PutInside(1);
    PutCode(1, kOtro, "0001");
  });
  EXPECT_EQ(station_.Slot(1).Placa.Trimmed(), "OTRA"_w);
  EXPECT_EQ(CodeAt(1), kOtro);
  EXPECT_EQ(Passes(), 0u);
  EXPECT_FALSE(station_.Disk.Exists(test::kUsr));
  EXPECT_TRUE(Idle());
}

TEST_F(PaseNuevoTest, NoneWithoutBarCodes) {
  form_.CambiarModoFicha();
  form_.TxtMaxEntrada.SetText("3"_w);
  station_.TypeNew("7", "abc123");
  form_.TxtMaxEntrada.SetText("3"_w);
  Save();
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(kCfr));
  EXPECT_EQ(CodeAt(7), "");
}

}  // namespace
}  // namespace vintoral
