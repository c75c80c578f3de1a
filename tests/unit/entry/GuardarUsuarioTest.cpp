// Every plate that comes in is a user: what USR and NSR hold behind a saved ficha.
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

RegistroUsuario User(const char* plate, const char* name, std::int32_t points) {
  RegistroUsuario user;
  user.Placa = std::string_view(plate);
  user.Nombre = std::string_view(name);
  user.Categoria = "MOTOCICLETA";
  user.Puntos = points;
  return user;
}

class GuardarUsuarioTest : public testing::Test {
 protected:
  GuardarUsuarioTest() { station_.StartConnected(); }
  void PutUsers(const std::vector<RegistroUsuario>& users) {
    std::string bytes;
    for (const RegistroUsuario& user : users)
      bytes += Encoded(user);
    station_.Disk.Put(kUsr, bytes);
  }
  void Save(Answer answer = Answer::kYes) {
    station_.Answers = {answer};
    station_.Hands.Key(keys::kInsert, 0);
  }
  void Enter(const char* plate) {
    station_.TypeNew("7", plate);
    Save();
  }
  std::size_t Users() const { return CountOf<RegistroUsuario>(station_.Disk, kUsr); }
  RegistroUsuario UserAt(std::size_t number) const {
    return RecordOf<RegistroUsuario>(station_.Disk, kUsr, number);
  }
  RegistroFicha FirstFichaOf(std::size_t user) const {
    return RecordOf<RegistroFicha>(station_.Disk, kNsr, user + 1);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(GuardarUsuarioTest, TheFirstPlateMakesTheRegister) {
  ASSERT_FALSE(station_.Disk.Exists(kUsr));
  ASSERT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
  station_.TypeNew("7", "abc123");
  station_.TypeAndEnter(" ana ");
  station_.TypeAndEnter("ruiz");
  station_.TypeAndEnter("300");
  station_.TypeAndEnter("casco");
  form_.PuntosAcumulados = 0;
  Save();
  const std::string expected =
      "ABC123              ANA                 RUIZ                300                 "
      "CASCO               AUTOMOVIL           " +
      test::Zeros(4);
  EXPECT_EQ(station_.Disk.Get(kUsr), expected);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 1);
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes() + Encoded(station_.Slot(7)));
}

TEST_F(GuardarUsuarioTest, APlateSeenForTheFirstTimeIsTheNextUser) {
  PutUsers({User("AAA", "ANA", 11), User("BBB", "BRUNO", 22)});
  Enter("ccc");
  ASSERT_EQ(Users(), 3u);
  EXPECT_EQ(UserAt(1), User("AAA", "ANA", 11));
  EXPECT_EQ(UserAt(2), User("BBB", "BRUNO", 22));
  EXPECT_EQ(UserAt(3).Placa.Trimmed(), "CCC"_w);
  EXPECT_EQ(UserAt(3).Categoria.Trimmed(), "AUTOMOVIL"_w);
  EXPECT_EQ(UserAt(3).Puntos, 0);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 3);
  EXPECT_EQ(FirstFichaOf(3), station_.Slot(7));
}

TEST_F(GuardarUsuarioTest, WhatTheFormTellsOfAKnownOneStandsOverHim) {
  PutUsers({User("AAA", "ANA", 11), User("BBB", "BRUNO", 22)});
  station_.TypeNew("7", "aaa");
  ASSERT_EQ(form_.TxtCampo[2].Text(), "ANA"_w);
  form_.TxtCampo[2].SetText("ana maria "_w);
  form_.TxtCampo[4].SetText("301"_w);
  form_.CboTarifa[1].Select(0);
  Save();
  RegistroUsuario expected = User("AAA", "ANA MARIA", 11);
  expected.Telefono = "301";
  expected.Categoria = "AUTOMOVIL";
  EXPECT_EQ(UserAt(1), expected);
  EXPECT_EQ(UserAt(2), User("BBB", "BRUNO", 22));
  EXPECT_EQ(Users(), 2u);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 1);
}

TEST_F(GuardarUsuarioTest, AKnownOneAmongOthersKeepsHisFirstFicha) {
  PutUsers({User("AAA", "ANA", 11), User("BBB", "BRUNO", 22)});
  const std::string before = station_.Disk.Get(kNsr);
  Enter("aaa");
  EXPECT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(station_.Disk.Get(kNsr), before);
}

TEST_F(GuardarUsuarioTest, TheLastOneWritesHisFirstFichaAtEachVisit) {
  PutUsers({User("AAA", "ANA", 11), User("BBB", "BRUNO", 22)});
  RegistroFicha first;
  first.Placa = "BBB";
  test::PutRecord(station_.Disk, kNsr, 3, first);
  Enter("bbb");
  EXPECT_EQ(FirstFichaOf(2), station_.Slot(7));
  EXPECT_EQ(CountOf<RegistroFicha>(station_.Disk, kNsr), 3u);
}

TEST_F(GuardarUsuarioTest, TheCategoryFollowsTheListAtEachVisit) {
  PutUsers({User("AAA", "ANA", 11)});
  station_.TypeNew("7", "aaa");
  ASSERT_EQ(form_.CboTarifa[1].Text(), "MOTOCICLETA"_w);
  form_.CboTarifa[1].Select(3);
  const String chosen = form_.CboTarifa[1].Text();
  ASSERT_NE(chosen, "MOTOCICLETA"_w);
  Save();
  station_.TypeAndEnter("7");
  Save();  // nothing: the ficha is on display
  station_.Answers.clear();
  EXPECT_EQ(UserAt(1).Categoria.Trimmed(), chosen);
}

TEST_F(GuardarUsuarioTest, ACategoryThatIsGoneBecomesWhatTheListShows) {
  RegistroUsuario user = User("AAA", "ANA", 11);
  user.Categoria = "CARRETA";
  PutUsers({user});
  Enter("aaa");
  EXPECT_EQ(UserAt(1).Categoria.Trimmed(), "AUTOMOVIL"_w);
}

TEST_F(GuardarUsuarioTest, WithoutAPlateNobodyIsWritten) {
  PutUsers({User("AAA", "ANA", 11)});
  const std::string users = station_.Disk.Get(kUsr), first = station_.Disk.Get(kNsr);
  form_.NumeroUsuario = 1;
  station_.TypeAndEnter("7");
  station_.Type("  ");
  Save();
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 0);
  EXPECT_EQ(station_.Disk.Get(kUsr), users);
  EXPECT_EQ(station_.Disk.Get(kNsr), first);
}

TEST_F(GuardarUsuarioTest, APlateOrANumberAloneIsNobody) {
  form_.TxtCampo[1].SetText("ABC123"_w);
  form_.NumeroUsuario = 0;
  EXPECT_FALSE(form_.GuardarUsuario());
  EXPECT_FALSE(station_.Disk.Exists(kUsr));
  form_.TxtCampo[1].SetText("   "_w);
  form_.NumeroUsuario = 1;
  EXPECT_FALSE(form_.GuardarUsuario());
  EXPECT_FALSE(station_.Disk.Exists(kUsr));
}

TEST_F(GuardarUsuarioTest, NoWritesNobody) {
  station_.TypeNew("7", "abc123");
  Save(Answer::kNo);
  EXPECT_FALSE(station_.Disk.Exists(kUsr));
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
}

TEST_F(GuardarUsuarioTest, PointsAreThoseOnDisk) {
  PutUsers({User("AAA", "ANA", 11), User("BBB", "BRUNO", 22)});
  station_.TypeNew("7", "aaa");
  ASSERT_EQ(form_.PuntosAcumulados, 11);
  station_.UnderBox = [this] { PutUsers({User("AAA", "ANA", 111), User("BBB", "BRUNO", 22)}); };
  Save();
  EXPECT_EQ(UserAt(1).Puntos, 111);
}

TEST_F(GuardarUsuarioTest, PointsOutOfRangeAreKeptAsTheyAre) {
  for (const std::int32_t points : {-5, 999'999, 1'000'000, std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()}) {
    PutUsers({User("AAA", "ANA", points), User("BBB", "BRUNO", 22)});
    station_.Disk.Put(test::kAct, ActNuevo());
    Enter("aaa");
    EXPECT_EQ(UserAt(1).Puntos, points);
  }
}

TEST_F(GuardarUsuarioTest, WhatIsOnTheScreenIsSyncedWithTheFicha) {
  station_.TypeNew("7", "abc123");
  const int before = station_.Disk.Syncs();
  Save();
  // User, his first ficha, slot; none while other gates wait for their user.
  EXPECT_EQ(station_.Disk.Syncs() - before, 3);
  EXPECT_FALSE(station_.Faulty.Pending());
}

}  // namespace
}  // namespace vintoral
