// Users whom another gate adds at the same time, and users who can't be written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "records/ArchivosNuevos.h"
#include "support/MemoryStation.h"
#include "support/Registers.h"

namespace vintoral {
namespace {

using test::CountOf;
using test::Encoded;
using test::kNsr;
using test::kUsr;
using test::MemoryStation;
using test::RecordOf;

RegistroUsuario User(const char* plate, std::int32_t points = 0) {
  RegistroUsuario user;
  user.Placa = std::string_view(plate);
  user.Puntos = points;
  return user;
}

class UsuarioTest : public testing::Test {
 protected:
  UsuarioTest() {
    station_.StartConnected();
    station_.Disk.Put(kUsr, Encoded(User("AAA", 11)));
  }
  void Append(const RegistroUsuario& user) { test::PutRecord(station_.Disk, kUsr, Users() + 1, user); }
  /// `plate` comes in at number 7; `meanwhile` happens under the question.
  void Enter(const char* plate, std::function<void()> meanwhile = nullptr) {
    station_.TypeNew("7", plate);
    station_.UnderBox = std::move(meanwhile);
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
    ASSERT_EQ(station_.Boxes.size(), 1u);
  }
  std::size_t Users() const { return CountOf<RegistroUsuario>(station_.Disk, kUsr); }
  RegistroUsuario UserAt(std::size_t number) const {
    return RecordOf<RegistroUsuario>(station_.Disk, kUsr, number);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

// ---- Other gates
// -----------------------------------------------------------------------------------------------------

TEST_F(UsuarioTest, TwoNewPlatesAtOnceAreTwoUsers) {
  Enter("mine", [this] { Append(User("THEIRS")); });
  ASSERT_EQ(Users(), 3u);
  EXPECT_EQ(UserAt(2), User("THEIRS"));
  EXPECT_EQ(UserAt(3).Placa.Trimmed(), "MINE"_w);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 3);
  EXPECT_EQ(RecordOf<RegistroFicha>(station_.Disk, kNsr, 4), station_.Slot(7));
}

TEST_F(UsuarioTest, TwoNewPlatesAtTheLockAreTwoUsers) {
  station_.Disk.BeforeLocked(kUsr, [this] { Append(User("THEIRS")); });
  Enter("mine");
  ASSERT_EQ(Users(), 3u);
  EXPECT_EQ(UserAt(2), User("THEIRS"));
  EXPECT_EQ(UserAt(3).Placa.Trimmed(), "MINE"_w);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 3);
}

TEST_F(UsuarioTest, OneNewPlateAtTwoGatesIsOneUser) {
  Enter("same", [this] {
    Append(User("OTHER"));
    Append(User(" same ", 5));
  });
  ASSERT_EQ(Users(), 3u);
  EXPECT_EQ(UserAt(3).Placa.Trimmed(), "SAME"_w);
  EXPECT_EQ(UserAt(3).Puntos, 5);
  EXPECT_EQ(UserAt(2), User("OTHER"));
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 3);
}

TEST_F(UsuarioTest, OneNewPlateAtTheLockIsOneUser) {
  station_.Disk.BeforeLocked(kUsr, [this] {
    Append(User("SAME", 5));
    Append(User("LATER"));
  });
  Enter("same");
  ASSERT_EQ(Users(), 3u);
  EXPECT_EQ(UserAt(2).Puntos, 5);
  EXPECT_EQ(UserAt(3), User("LATER"));
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 2);
  // He is not the last one any more: his first ficha is the other gate's to write.
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
}

TEST_F(UsuarioTest, WhoeverStandsBeforeIsNotLookedAtUnderTheLock) {
  const std::size_t before = station_.Disk.UsedUnderLock().size();
  Enter("new");
  const auto& used = station_.Disk.UsedUnderLock();
  EXPECT_EQ(std::count(used.begin() + static_cast<std::ptrdiff_t>(before), used.end(),
                       "/ESTACION/MULTIMEDIA/VINTORAL.USR"),
            0);
  EXPECT_EQ(Users(), 2u);
}

TEST_F(UsuarioTest, ARegisterThatWasPutBackIsContinued) {
  Append(User("BBB"));
  Append(User("CCC"));
  Enter("new", [this] { station_.Disk.Put(kUsr, Encoded(User("AAA"))); });
  EXPECT_EQ(Users(), 2u);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 2);
}

// ---- Failures
// --------------------------------------------------------------------------------------------------------

TEST_F(UsuarioTest, ATornLastRecordIsOverwritten) {
  station_.Disk.Put(kUsr, Encoded(User("AAA", 11)) + "HALF");
  Enter("new");
  ASSERT_EQ(Users(), 2u);
  EXPECT_EQ(UserAt(2).Placa.Trimmed(), "NEW"_w);
  EXPECT_EQ(station_.Disk.Get(kUsr).size(), 248u);
}

TEST_F(UsuarioTest, ANewOneWhoCantBeWrittenIsNobodys) {
  const std::string users = station_.Disk.Get(kUsr);
  Enter("new", [this] { station_.Disk.SetReadOnly(kUsr); });
  EXPECT_EQ(station_.Disk.Get(kUsr), users);
  EXPECT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 0);
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
}

TEST_F(UsuarioTest, AKnownOneWhoCantBeWrittenKeepsHisFicha) {
  const std::string users = station_.Disk.Get(kUsr);
  Enter("aaa", [this] { station_.Disk.SetReadOnly(kUsr); });
  EXPECT_EQ(station_.Disk.Get(kUsr), users);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 1);
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
}

TEST_F(UsuarioTest, AFullDiskMakesNoHalfOne) {
  for (const std::size_t torn : {0u, 1u, 60u, 123u}) {
    station_.Boxes.clear();
    station_.Disk.Put(test::kAct, ActNuevo());
    station_.Disk.Put(kUsr, Encoded(User("AAA", 11)));
    Enter("new", [&] {
      station_.Faulty.Set().failWrite = 1;
      station_.Faulty.Set().tornBytes = torn;
    });
    EXPECT_EQ(Users(), 1u) << torn;
    EXPECT_EQ(UserAt(1), User("AAA", 11)) << torn;
    EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 0) << torn;
    EXPECT_TRUE(station_.Slot(7).EnUso) << torn;
  }
}

TEST_F(UsuarioTest, AUserWhoCouldNotBeReadIsNotAddedASecondTime) {
  // The slots in several pieces, the search among the users, the user, the slot, ...
  int nobodys = 0;
  for (int read = 1; read <= 12; ++read) {
    SCOPED_TRACE(read);
    station_.Hands.Key(keys::kEscape, 0);
    station_.Disk.Put(test::kAct, ActNuevo());
    station_.TypeAndEnter("7");
    station_.Type("aaa");
    station_.Faulty.Set().failRead = read;
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
    station_.Faulty.Repair();
    const RegistroFicha slot = station_.Slot(7);
    EXPECT_EQ(Users(), 1u);
    EXPECT_EQ(UserAt(1).Puntos, 11);
    EXPECT_TRUE(!slot.EnUso || slot.UsuarioPuntos == 1 || slot.UsuarioPuntos == 0);
    nobodys += slot.EnUso && slot.UsuarioPuntos == 0 ? 1 : 0;
  }
  EXPECT_EQ(nobodys, 2);  // the search and the user
}

TEST_F(UsuarioTest, AMissingRegisterUnderTheQuestionIsMadeAgain) {
  Enter("new", [this] { ASSERT_TRUE(station_.Disk.Remove(kUsr)); });
  EXPECT_EQ(Users(), 1u);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 1);
}

TEST_F(UsuarioTest, WhatCantBeReadUnderTheLockAddsNobody) {
  Enter("new", [this] {
    Append(User("NEW"));
    station_.Faulty.Set().failRead = 2;  // the slot, then those who came meanwhile
  });
  EXPECT_EQ(Users(), 2u);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 0);
}

}  // namespace
}  // namespace vintoral
