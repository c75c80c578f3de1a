// What a save has written when it fails at one of its steps: never half a fact.
#include <gmock/gmock.h>

#include <string>

#include "records/ArchivosNuevos.h"
#include "support/Photos.h"
#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::CountOf;
using test::kAct;
using test::kCdb;
using test::kCfr;
using test::kCodigo;
using test::kNsr;
using test::kUsr;
using test::Pase;
using test::RecordOf;

/// A new plate with a ticket for three entries and a photo: user, first ficha, slot, code, pass, photos.
class OrdenAlGuardarTest : public CodigosTest {
 protected:
  void Sell(std::function<void()> fails) {
    TypeTicket();
    station_.Hands.ReplaceText(form_.TxtMaxEntrada, "3"_w);
    code_ = form_.TxtBarCode.Text().Bytes();
    station_.Camera.Cameras["CAMARA"_w].frame = test::Frame(test::kRed);
    station_.UnderBox = std::move(fails);
    Save();
    station_.Faulty.Repair();
  }
  void FailWrite(int step) {
    Sell([this, step] { station_.Faulty.Set().failWrite = step; });
  }
  /// Whatever the step that failed: each record that is there is whole, and what it refers to is there too.
  void ExpectNoHalfFact() {
    const RegistroFicha slot = station_.Slot(1);
    const std::size_t users = CountOf<RegistroUsuario>(station_.Disk, kUsr);
    ASSERT_LE(users, 1u);
    EXPECT_TRUE(users == 0 ||
                RecordOf<RegistroUsuario>(station_.Disk, kUsr, 1).Placa.Trimmed() == "ABC123"_w);
    const bool owned = slot.UsuarioPuntos == static_cast<std::int32_t>(users);
    EXPECT_TRUE(!slot.EnUso || slot.UsuarioPuntos == 0 || owned);
    EXPECT_TRUE(!slot.EnUso || slot.Placa.Trimmed() == "ABC123"_w);
    EXPECT_TRUE(CodeAt(1).empty() || (slot.EnUso && CodeAt(1) == code_));
    ASSERT_LE(Passes(), 1u);
    EXPECT_TRUE(Passes() == 0 || (slot.EnUso && PassAt(1) == Pase(0, 2, "", code_)));
    EXPECT_EQ(station_.Disk.Get(kAct).size(), 188'188u);
  }

  const String entrada_ = "Multimedia\\Imágenes ACT\\000001.jpg"_w;
  const String latest_ = "Multimedia\\Imágenes USR\\000001.jpg"_w;
  const String first_ = "Multimedia\\Imágenes INI\\000001.jpg"_w;
  std::string code_;
};

TEST_F(OrdenAlGuardarTest, NothingFails) {
  FailWrite(0);
  EXPECT_EQ(station_.Slot(1).UsuarioPuntos, 1);
  EXPECT_EQ(CountOf<RegistroUsuario>(station_.Disk, kUsr), 1u);
  EXPECT_EQ(CountOf<RegistroFicha>(station_.Disk, kNsr), 2u);
  EXPECT_EQ(CodeAt(1), code_);
  EXPECT_EQ(Passes(), 1u);
  EXPECT_EQ(test::ShadeOf(station_.Disk.Get(entrada_)), 'r');
  EXPECT_EQ(station_.Disk.Get(latest_), station_.Disk.Get(entrada_));
  EXPECT_EQ(station_.Disk.Get(first_), station_.Disk.Get(entrada_));
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, TheUserComesFirst) {
  FailWrite(1);
  EXPECT_EQ(CountOf<RegistroUsuario>(station_.Disk, kUsr), 0u);
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(station_.Slot(1).UsuarioPuntos, 0);
  EXPECT_EQ(Passes(), 1u);
  EXPECT_FALSE(station_.Disk.Exists(latest_) || station_.Disk.Exists(first_));
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ThenHisFirstFicha) {
  FailWrite(2);
  EXPECT_EQ(station_.Disk.Get(kNsr), NsrNuevo().Bytes());
  EXPECT_EQ(station_.Slot(1).UsuarioPuntos, 1);
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ThenTheSlotAndWithoutItNothingBehind) {
  station_.Events.Take();
  FailWrite(3);
  EXPECT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(CountOf<RegistroUsuario>(station_.Disk, kUsr), 1u);
  EXPECT_EQ(CodeAt(1), "");
  EXPECT_EQ(Passes(), 0u);
  EXPECT_FALSE(station_.Disk.Exists(latest_) || station_.Disk.Exists(first_));
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_TRUE(Idle());
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ThenTheCode) {
  FailWrite(4);
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(CodeAt(1), "");
  EXPECT_EQ(Passes(), 1u);
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ThenThePass) {
  FailWrite(5);
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(CodeAt(1), code_);
  EXPECT_EQ(Passes(), 0u);
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ThenThePhotoOfTheEntrance) {
  FailWrite(6);
  ASSERT_TRUE(station_.Slot(1).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(entrada_) || station_.Disk.Exists(first_) ||
               station_.Disk.Exists(latest_));
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ThenThoseOfTheUser) {
  FailWrite(7);
  EXPECT_FALSE(station_.Disk.Exists(first_));
  EXPECT_EQ(station_.Disk.Get(latest_), station_.Disk.Get(entrada_));
  EXPECT_TRUE(station_.Disk.Exists(entrada_));
  station_.Hands.Key(keys::kEscape, 0);
  ExpectNoHalfFact();
}

TEST_F(OrdenAlGuardarTest, ATornPassIsOverwrittenByTheNext) {
  Sell([this] {
    station_.Faulty.Set().failWrite = 5;
    station_.Faulty.Set().tornBytes = 30;
  });
  ASSERT_EQ(station_.Disk.Get(kCfr).size(), 30u);
  TypeTicket("xyz");
  station_.Hands.ReplaceText(form_.TxtMaxEntrada, "3"_w);
  Save();
  EXPECT_EQ(station_.Disk.Get(kCfr).size(), 93u);
  EXPECT_EQ(PassAt(1).PlacaPase.Trimmed(), "XYZ"_w);
}

TEST_F(OrdenAlGuardarTest, AFullDiskSavesNothing) {
  Sell([this] { station_.Faulty.Set().failAllWrites = true; });
  EXPECT_EQ(station_.Disk.Get(kAct), ActNuevo().Bytes());
  EXPECT_EQ(station_.Disk.Get(kCdb), CdbNuevo().Bytes());
  EXPECT_EQ(Passes(), 0u);
  EXPECT_EQ(CountOf<RegistroUsuario>(station_.Disk, kUsr), 0u);
}

TEST_F(OrdenAlGuardarTest, AFolderThatGoesAwayAtAnyStepLeavesNoHalfFact) {
  bool all = false;
  for (int step = 0; !all; ++step) {
    SCOPED_TRACE(step);
    ASSERT_LT(step, 200);
    station_.Disk.Remove(entrada_).PassOver();
    station_.Disk.Put(kAct, ActNuevo());
    station_.Disk.Put(kCdb, CdbNuevo());
    station_.Disk.Put(kCfr, "");
    station_.Disk.Put(kUsr, "");
    station_.Disk.Put(kNsr, NsrNuevo());
    station_.Disk.Remove(latest_).PassOver();
    Sell([this, step] { station_.Faulty.Set().goneAfter = step; });
    ExpectNoHalfFact();
    all = station_.Disk.Exists(latest_);
    station_.Hands.Key(keys::kEscape, 0);
    station_.Pass(20'000);
    station_.Boxes.clear();
  }
  EXPECT_EQ(Passes(), 1u);
}

TEST_F(OrdenAlGuardarTest, APassThatComesBackAtAnyStepIsSpentWithItsSlotOrNotAtAll) {
  bool all = false;
  for (int step = 0; !all; ++step) {
    SCOPED_TRACE(step);
    ASSERT_LT(step, 200);
    station_.Disk.Put(kAct, ActNuevo());
    station_.Disk.Put(kCdb, CdbNuevo());
    PutPass(1, Pase(0, 2));
    station_.UnderBox = [this, step] { station_.Faulty.Set().goneAfter = step; };
    station_.Answers = {Answer::kYes};
    Scan(kCodigo);
    station_.Faulty.Repair();
    all = PassAt(1) == Pase(0, 1);
    // In that order: who is on the way in keeps his entry rather than to lose it.
    EXPECT_TRUE(all || PassAt(1) == Pase(0, 2));
    EXPECT_TRUE(!all || station_.Slot(1).EnUso);
    station_.Hands.Key(keys::kEscape, 0);
    station_.Pass(20'000);
  }
  EXPECT_EQ(CodeAt(1), kCodigo);
}

}  // namespace
}  // namespace vintoral
