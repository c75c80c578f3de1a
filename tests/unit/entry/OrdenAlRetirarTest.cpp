// What a retiring has written when it fails at one of its steps: code, slot, row, points, movement.
#include <gmock/gmock.h>

#include <string>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::CountOf;
using test::kAct;
using test::kCdb;
using test::kCodigo;
using test::kCrd;
using test::kHst;
using test::kOtro;
using test::kUsr;
using test::RecordOf;

/// Number 7, user 1 with 100 points, came in at 13:00 with a code and is on display at 14:00: 4 points.
class OrdenAlRetirarTest : public CodigosTest {
 protected:
  OrdenAlRetirarTest() { Begin(); }
  void Begin() {
    PutInside(7, "AAA");
    RegistroFicha ficha = station_.Slot(7);
    ficha.UsuarioPuntos = 1;
    station_.PutSlot(7, ficha);
    PutCode(7, kCodigo, "0007");
    RegistroUsuario user;
    user.Placa = "AAA";
    user.Puntos = 100;
    station_.Disk.Put(kUsr, test::Encoded(user));
    station_.Disk.Put(kCrd, "");
    station_.Disk.Put(kHst, test::Encoded(RegistroFicha{}));
    Scan(kCodigo);
    ASSERT_TRUE(form_.FichaEnPantalla());
  }
  void Retire(std::function<void()> fails) {
    station_.Events.Take();
    station_.UnderBox = std::move(fails);
    CodigosTest::Retire();
    station_.Faulty.Repair();
  }
  void FailWrite(int step, std::size_t torn = 0) {
    Retire([this, step, torn] {
      station_.Faulty.Set().failWrite = step;
      station_.Faulty.Set().tornBytes = torn;
    });
  }
  bool Inside() const { return station_.Slot(7).EnUso; }
  bool InHistory() const { return station_.HistoryRows() == 2; }
  std::int32_t Points() const { return RecordOf<RegistroUsuario>(station_.Disk, kUsr, 1).Puntos; }
  std::size_t Movements() const { return CountOf<RegistroFicha>(station_.Disk, kCrd); }
};

TEST_F(OrdenAlRetirarTest, NothingFails) {
  ASSERT_EQ(CodeAt(7), kCodigo);
  FailWrite(0);
  EXPECT_FALSE(Inside());
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(CodeAt(7), "");
  EXPECT_EQ(Points(), 104);
  EXPECT_EQ(Movements(), 1u);
  EXPECT_TRUE(Idle());
  EXPECT_FALSE(station_.Faulty.Pending());
}

TEST_F(OrdenAlRetirarTest, ACodeThatCantBeBlankedHoldsNobody) {
  FailWrite(1);
  EXPECT_FALSE(Inside());
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(CodeAt(7), kCodigo);
  EXPECT_EQ(Points(), 104);
}

TEST_F(OrdenAlRetirarTest, ARowThatCantBeWrittenGivesSlotAndCodeBack) {
  const std::string act = station_.Disk.Get(kAct), cdb = station_.Disk.Get(kCdb),
                    usr = station_.Disk.Get(kUsr);
  for (const std::size_t torn : {0u, 1u, 187u}) {
    FailWrite(3, torn);
    EXPECT_EQ(station_.Disk.Get(kAct), act) << torn;
    EXPECT_EQ(station_.Disk.Get(kCdb), cdb) << torn;
    EXPECT_EQ(station_.Disk.Get(kUsr), usr) << torn;
    EXPECT_EQ(Movements(), 0u) << torn;
    EXPECT_FALSE(InHistory()) << torn;
    EXPECT_TRUE(form_.FichaEnPantalla()) << torn;
    EXPECT_EQ(station_.Beeps(), 1) << torn;
    EXPECT_EQ(form_.TmrConexion.Interval(), 100) << torn;
  }
  FailWrite(0);
  EXPECT_EQ(Points(), 104);
  EXPECT_TRUE(InHistory());
}

TEST_F(OrdenAlRetirarTest, NothingIsGivenBackOverWhoTookTheSlot) {
  station_.Disk.BeforeLocked(kHst, [this] {
    PutInside(7, "NEXT");
    PutCode(7, kOtro, "0007");
  });
  FailWrite(3);
  EXPECT_FALSE(InHistory());
  EXPECT_EQ(station_.Slot(7).Placa.Trimmed(), "NEXT"_w);
  EXPECT_EQ(CodeAt(7), kOtro);
}

TEST_F(OrdenAlRetirarTest, ACodeThatCouldNotBeReadIsNotGivenBack) {
  Retire([this] {
    station_.Faulty.Set().failRead = 3;  // the slot twice, the code
    station_.Faulty.Set().failWrite = 3;
  });
  EXPECT_TRUE(Inside());
  EXPECT_EQ(CodeAt(7), "");
}

TEST_F(OrdenAlRetirarTest, WithoutCodesTheSlotIsGivenBackAllTheSame) {
  ASSERT_TRUE(station_.Disk.Remove(kCdb));
  FailWrite(2);  // slot, row
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
  EXPECT_FALSE(station_.Disk.Exists(kCdb));
}

TEST_F(OrdenAlRetirarTest, PointsThatCantBeWrittenHoldNobody) {
  FailWrite(4);
  EXPECT_FALSE(Inside());
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(Points(), 100);
  EXPECT_EQ(CodeAt(7), "");
}

TEST_F(OrdenAlRetirarTest, AMovementThatCantBeWrittenHoldsNobody) {
  FailWrite(5, 50);
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(Points(), 104);
  EXPECT_EQ(Movements(), 0u);
}

TEST_F(OrdenAlRetirarTest, OneThatAnotherGateRetiredMeanwhileKeepsTheCodeOfTheNext) {
  RegistroFicha gone = station_.Slot(7);
  gone.EnUso = false;
  PutCode(7, "", "");
  Retire([&] {
    station_.PutSlot(7, gone);
    PutCode(7, kOtro, "0007");  // on its way in at the other gate, its slot not yet written
  });
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(CodeAt(7), kOtro);
}

TEST_F(OrdenAlRetirarTest, AFolderThatGoesAwayAtAnyStepLosesNoMoney) {
  bool all = false;
  for (int step = 0; !all; ++step) {
    SCOPED_TRACE(step);
    ASSERT_LT(step, 100);
    Retire([this, step] { station_.Faulty.Set().goneAfter = step; });
    // A slot that is free has its row, or the folder went away before the station could give it back.
    EXPECT_TRUE(Points() == 100 || InHistory());
    EXPECT_TRUE(Movements() == 0 || InHistory());
    EXPECT_FALSE(CodeAt(7).empty() && Inside() && InHistory());
    EXPECT_EQ(station_.Disk.Get(kAct).size(), 188'188u);
    EXPECT_EQ(station_.Disk.Get(kCdb).size(), 54'000u);
    all = Movements() == 1;
    station_.Hands.Key(keys::kEscape, 0);
    station_.Pass(20'000);
    if (!all) Begin();
  }
  EXPECT_EQ(Points(), 104);
}

}  // namespace
}  // namespace vintoral
