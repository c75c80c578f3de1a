// How points move: earned on the screen, stored at the exit in USR, CRD and the row of the history.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "unit/entry/PuntosFixture.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::kCrd;
using test::PuntosTest;

TEST_F(PuntosTest, AHundredAndSevenBehindAHundred) {
  Stay(100);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "207"_w);
  EXPECT_TRUE(form_.ImgPuntos.Visible && form_.LblPuntos[1].Visible);
  EXPECT_EQ(UserAt(2).Puntos, 100);
  Retire();
  ExpectStored(207);
  EXPECT_EQ(UserAt(2).Nombre.Trimmed(), "BRUNO"_w);
  EXPECT_EQ(UserAt(1).Puntos, 11);
  EXPECT_EQ(UserAt(3).Puntos, 33);
}

TEST_F(PuntosTest, TheMovementIsTheRowOfTheHistory) {
  Stay(100);
  Retire();
  ASSERT_EQ(Movements(), 1u);
  EXPECT_EQ(MovementAt(1), station_.History(2));
  EXPECT_EQ(MovementAt(1).Placa.Trimmed(), "BBB"_w);
  EXPECT_EQ(MovementAt(1).ValorCobrado, form_.ValorEstadia);
}

TEST_F(PuntosTest, AllOfItIsOnDiskWhenTheScreenIsIdle) {
  Stay(100);
  const int before = station_.Disk.Syncs();
  Retire();
  EXPECT_EQ(station_.Disk.Syncs() - before, 4);  // slot, row, user, movement
  EXPECT_FALSE(station_.Faulty.Pending());
}

TEST_F(PuntosTest, MovementsAreAppended) {
  RegistroFicha before;
  before.Placa = "BEFORE";
  station_.Disk.Put(kCrd, Encoded(before) + "TORN");
  Stay(100);
  Retire();
  ASSERT_EQ(Movements(), 2u);
  EXPECT_EQ(MovementAt(1), before);
  EXPECT_EQ(MovementAt(2).UsuarioPuntos, 207);
}

TEST_F(PuntosTest, AMissingRegisterOfMovementsIsMade) {
  Stay(100);
  ASSERT_TRUE(station_.Disk.Remove(kCrd));
  Retire();
  ExpectStored(207);
}

TEST_F(PuntosTest, AStayOfNothingIsAMovementToo) {
  PutUsers(100);
  station_.Enter("7", "bbb");
  station_.TypeAndEnter("7");
  Retire();
  ExpectStored(100);
}

TEST_F(PuntosTest, TheMostIsKept) {
  Stay(999'892);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "999999"_w);
  Retire();
  ExpectStored(999'999);
}

TEST_F(PuntosTest, OneMoreBeginsAnewWithTheStaysOwn) {
  Stay(999'893);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "107"_w);
  Retire();
  ExpectStored(107);
}

TEST_F(PuntosTest, NumbersOutOfRangeInTheFileAreTakenAsTheyAre) {
  Stay(-50);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "57"_w);
  Retire();
  ExpectStored(57);
}

TEST_F(PuntosTest, BeyondTheMostInTheFileBeginsAnew) {
  Stay(std::numeric_limits<std::int32_t>::max());
  Retire();
  ExpectStored(107);
}

TEST_F(PuntosTest, TheLeastOfAllDoesNotWrapAround) {
  Stay(std::numeric_limits<std::int32_t>::min());
  Retire();
  ExpectStored(std::numeric_limits<std::int32_t>::min() + 107);
}

}  // namespace
}  // namespace vintoral
