// Points of nobody, of two gates at once, cleared ones, and registers that fail.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "unit/entry/PuntosFixture.h"

namespace vintoral {
namespace {

using test::At;
using test::kUsr;
using test::PuntosTest;

using PuntosAjenosTest = PuntosTest;

// ---- Nobody's
// --------------------------------------------------------------------------------------------------------

TEST_F(PuntosAjenosTest, WithoutAPlateTheyAreShownAndNobodys) {
  PutUsers(100);
  station_.TypeAndEnter("7");
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  const std::string users = station_.Disk.Get(kUsr);
  station_.Clock.Set(At(16, 47, 0, 21));
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.LblPuntos[1].Caption, "107"_w);
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(station_.History(2).UsuarioPuntos, 0);
  EXPECT_EQ(station_.Disk.Get(kUsr), users);
  EXPECT_EQ(Movements(), 0u);
}

TEST_F(PuntosAjenosTest, OfANumberThatNoUserHasAreNobodys) {
  for (const std::int32_t nobody : {4, -2, std::numeric_limits<std::int32_t>::max()}) {
    PutUsers(100);
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.MarcaEntrada = "13:00  (20/11/2026)";
    ficha.Placa = "BBB";
    ficha.UsuarioPuntos = nobody;
    station_.PutSlot(7, ficha);
    const std::string users = station_.Disk.Get(kUsr);
    const std::size_t rows = station_.HistoryRows();
    station_.TypeAndEnter("7");
    Retire();
    ASSERT_EQ(station_.HistoryRows(), rows + 1) << nobody;
    EXPECT_EQ(station_.History(rows + 1).UsuarioPuntos, 0) << nobody;
    EXPECT_EQ(station_.Disk.Get(kUsr), users) << nobody;
    EXPECT_EQ(Movements(), 0u) << nobody;
  }
}

TEST_F(PuntosAjenosTest, WithoutUsersTheyAreNobodys) {
  Stay(100);
  station_.UnderBox = [this] { ASSERT_TRUE(station_.Disk.Remove(kUsr)); };
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(station_.History(2).UsuarioPuntos, 0);
  EXPECT_FALSE(station_.Disk.Exists(kUsr));
  EXPECT_EQ(Movements(), 0u);
}

// ---- Two gates
// -------------------------------------------------------------------------------------------------------

TEST_F(PuntosAjenosTest, WhatAnotherGateHasAddedSinceIsKept) {
  Stay(100);
  SetPoints(105);
  Retire();
  ExpectStored(212);
}

TEST_F(PuntosAjenosTest, WhatAnotherGateHasClearedSinceIsGone) {
  Stay(100);
  SetPoints(0);
  Retire();
  ExpectStored(107);
}

TEST_F(PuntosAjenosTest, TheMostCountsForBothGatesTogether) {
  Stay(999'890);
  SetPoints(999'895);
  Retire();
  ExpectStored(107);
}

TEST_F(PuntosAjenosTest, TwoThatBeginAnewDoNotGoBelowNothing) {
  Stay(999'990);
  SetPoints(7);
  Retire();
  ExpectStored(114);
}

// ---- Cleared
// ---------------------------------------------------------------------------------------------------------

TEST_F(PuntosAjenosTest, ClearedOnesAreGoneWithTheRetiring) {
  Stay(100);
  Clear();
  EXPECT_EQ(UserAt(2).Puntos, 100);  // nothing is written at that moment
  EXPECT_EQ(Movements(), 0u);
  Retire();
  ExpectStored(0);
}

TEST_F(PuntosAjenosTest, ClearedOnesAreGoneWhateverAnotherGateAdded) {
  Stay(100);
  Clear();
  SetPoints(105);
  Retire();
  ExpectStored(0);
}

TEST_F(PuntosAjenosTest, ClearedOnesStayWithWhoeverIsNotRetired) {
  Stay(100);
  Clear();
  station_.Hands.Key(keys::kEscape, 0);
  EXPECT_EQ(UserAt(2).Puntos, 100);
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.LblPuntos[1].Caption, "207"_w);
  Retire();
  ExpectStored(207);
}

// ---- Failures
// --------------------------------------------------------------------------------------------------------

TEST_F(PuntosAjenosTest, UsersThatCantBeWrittenDoNotHoldTheVehicle) {
  Stay(100);
  station_.UnderBox = [this] { station_.Disk.SetReadOnly(kUsr); };
  Retire();
  EXPECT_EQ(station_.HistoryRows(), 2u);
  EXPECT_FALSE(station_.Slot(7).EnUso);
  EXPECT_EQ(UserAt(2).Puntos, 100);
}

TEST_F(PuntosAjenosTest, ARowThatCantBeWrittenAddsNothing) {
  Stay(100);
  const std::string users = station_.Disk.Get(kUsr);
  station_.UnderBox = [this] { station_.Faulty.Set().failWrite = 2; };  // slot, row
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 1u);
  EXPECT_EQ(station_.Disk.Get(kUsr), users);
  EXPECT_EQ(Movements(), 0u);
  EXPECT_TRUE(form_.FichaEnPantalla());
  station_.Faulty.Repair();
  Retire();
  ExpectStored(207);
}

}  // namespace
}  // namespace vintoral
