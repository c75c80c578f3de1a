// The row of the history: what it holds, and what is asked of the disk while other gates wait for it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "records/ArchivosNuevos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

constexpr const char* kHst = "Multimedia\\Vintoral.HST";
constexpr const char* kUsr = "Multimedia\\Vintoral.USR";

class RegistrarHistorialTest : public testing::Test {
 protected:
  RegistrarHistorialTest() {
    station_.StartConnected();
    RegistroUsuario one, two;
    one.Puntos = 11;
    two.Puntos = 22;
    station_.Disk.Put(kUsr, Encoded(one) + Encoded(two));
    form_.FichaActual.Placa = "AAA";
    form_.FichaActual.Posicion = 7;
    form_.FichaActual.UsuarioPuntos = 2;
    form_.ValorEstadia = Money::FromUnits(3700);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(RegistrarHistorialTest, TheRowHoldsItsNumberTheValueAndTheUsersPoints) {
  ASSERT_EQ(station_.HistoryRows(), 1u);
  EXPECT_TRUE(form_.RegistrarHistorial());
  ASSERT_EQ(station_.HistoryRows(), 2u);
  const RegistroFicha row = station_.History(2);
  EXPECT_TRUE(row.EnUso);
  EXPECT_EQ(row.Posicion, 2);
  EXPECT_EQ(row.ValorCobrado, Money::FromUnits(3700));
  EXPECT_EQ(row.UsuarioPuntos, 22);
  EXPECT_EQ(row.Placa.Trimmed(), "AAA"_w);
}

TEST_F(RegistrarHistorialTest, NothingIsReadWhileOtherGatesWaitForTheirRow) {
  const int before = station_.Disk.Locked();
  ASSERT_TRUE(form_.RegistrarHistorial());
  EXPECT_EQ(station_.Disk.Locked(), before + 3);  // the row, the points, and their movement
  // The points are those that other gates have left: the one record is read under its own lock.
  EXPECT_THAT(station_.Disk.UsedUnderLock(), testing::Each(testing::EndsWith("VINTORAL.USR")));
}

TEST_F(RegistrarHistorialTest, AMissingHistoryIsPassedOverAndMakesTheLinkLookAtOnce) {
  ASSERT_TRUE(station_.Disk.Remove(kHst));
  ASSERT_EQ(form_.TmrConexion.Interval(), 10'000);
  EXPECT_TRUE(form_.RegistrarHistorial());
  EXPECT_EQ(form_.TmrConexion.Interval(), 100);
  EXPECT_FALSE(station_.Disk.Exists(kHst));
}

TEST_F(RegistrarHistorialTest, AHistoryThatCantBeOpenedOrWrittenIsToldToTheCaller) {
  station_.Disk.SetReadOnly(kHst);
  EXPECT_FALSE(form_.RegistrarHistorial());
  ASSERT_TRUE(station_.Disk.ClearReadOnly(kHst));
  station_.Faulty.Set().failWrite = 1;
  EXPECT_FALSE(form_.RegistrarHistorial());
  EXPECT_EQ(station_.Disk.Get(kHst), HstNuevo().Bytes());
}

// ---- The points of a user
// --------------------------------------------------------------------------------------------

TEST_F(RegistrarHistorialTest, PointsAreThoseOfTheNumberedUserWhoIsNowTheCurrentOne) {
  EXPECT_EQ(form_.LeerPuntosUsuario(1), 11);
  EXPECT_EQ(form_.UsuarioActual.Puntos, 11);
  EXPECT_EQ(form_.LeerPuntosUsuario(2), 22);
  EXPECT_EQ(form_.UsuarioActual.Puntos, 22);
}

TEST_F(RegistrarHistorialTest, NoUserHasNoPoints) {
  form_.UsuarioActual.Puntos = 5;
  EXPECT_EQ(form_.LeerPuntosUsuario(0), 0);
  EXPECT_EQ(form_.LeerPuntosUsuario(-1), 0);
  EXPECT_EQ(form_.UsuarioActual.Puntos, 5);
  ASSERT_TRUE(station_.Disk.Remove(kUsr));
  EXPECT_EQ(form_.LeerPuntosUsuario(1), 0);
}

}  // namespace
}  // namespace vintoral
