// What a gate promises is kept, or nothing is promised: paper, points, a pass, and other people's fichas.
#include <gmock/gmock.h>

#include "records/ArchivosNuevos.h"
#include "records/RegistroUsuario.h"
#include "support/Slips.h"
#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::CountOf;
using test::kCdb;
using test::kCfr;
using test::kCodigo;
using test::kCrd;
using test::kNsr;
using test::kUsr;
using test::Pase;
using test::PutRecord;
using test::RecordOf;

class PromesasTest : public CodigosTest {
 protected:
  PromesasTest() { station_.Printer.Installed = {{"Tira80"_w}, "Tira80"_w}; }
  /// Slips and beeps since the last look.
  std::pair<int, int> SlipsAndBeeps() {
    int slips = 0, beeps = 0;
    for (const DeviceEvent& event : station_.Events.Take()) {
      slips += event.kind == DeviceEvent::Kind::kPrint;
      beeps += event.kind == DeviceEvent::Kind::kBeep;
    }
    return {slips, beeps};
  }
  void SellTenEntries() {
    TypeTicket();
    station_.Hands.ReplaceText(form_.TxtMaxEntrada, "10"_w);
    station_.Events.Take();
    Save();
  }
  RegistroUsuario User(std::size_t number) { return RecordOf<RegistroUsuario>(station_.Disk, kUsr, number); }
};

TEST_F(PromesasTest, ATicketTellsOfAPassThatIsThere) {
  SellTenEntries();
  ASSERT_EQ(Passes(), 1u);
  EXPECT_EQ(SlipsAndBeeps(), std::pair(1, 0));
}

TEST_F(PromesasTest, WithoutThePassThereIsNoTicketButABeep) {
  station_.Disk.Put(kCfr, "");
  station_.Disk.SetReadOnly(kCfr);
  SellTenEntries();
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(Passes(), 0u);
  EXPECT_EQ(SlipsAndBeeps(), std::pair(0, 1));
}

TEST_F(PromesasTest, WithoutItsCodeThereIsNoTicketButABeep) {
  station_.Disk.SetReadOnly(kCdb);
  TypeTicket();
  station_.Events.Take();
  Save();
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(SlipsAndBeeps(), std::pair(0, 1));
}

TEST_F(PromesasTest, WhoeverWasLetOutByTheOtherGateAtOnceIsNoBrokenOne) {
  station_.Disk.BeforeLocked(kCfr, [this] {  // slot and code are written by then
    ASSERT_NE(CodeAt(1), "");
    station_.PutSlot(1, {});
    station_.Disk.Put(kCdb, CdbNuevo());
  });
  SellTenEntries();
  ASSERT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(SlipsAndBeeps(), std::pair(1, 0));
}

TEST_F(PromesasTest, WithoutAnyCodesTheTicketHasItsNumber) {
  ASSERT_TRUE(station_.Disk.Remove(kCdb));
  TypeTicket();
  station_.Events.Take();
  Save();
  EXPECT_EQ(SlipsAndBeeps(), std::pair(1, 0));
}

TEST_F(PromesasTest, WhatIsCountedIsWhatIsPrinted) {
  TypeTicket();
  station_.Hands.ReplaceText(form_.TxtMaxEntrada, "2,5"_w);
  station_.UnderBox = [this] { EXPECT_EQ(form_.TxtMaxEntrada.Text(), "2,5"_w); };
  station_.Events.Take();
  Save();
  EXPECT_EQ(PassAt(1).RestantesPase, 1);
  std::string slip;
  for (const DeviceEvent& event : station_.Events.Take()) {
    for (const PrintOperation& operation : event.printed)
      slip += operation.text.Bytes();
  }
  EXPECT_THAT(slip, testing::HasSubstr("VALIDO 2 ENTRADAS"));
}

TEST_F(PromesasTest, ARefusedPassRegistersNobody) {
  PutPass(1, Pase(0, 1));
  station_.UnderBox = [this] { PutPass(1, RegistroPase{}); };
  station_.Answers = {Answer::kYes};
  Scan(kCodigo);
  EXPECT_FALSE(station_.Slot(1).EnUso);
  EXPECT_EQ(CountOf<RegistroUsuario>(station_.Disk, kUsr), 0u);
  EXPECT_EQ(CountOf<RegistroFicha>(station_.Disk, kNsr), 1u);
  EXPECT_EQ(SlipsAndBeeps().second, 1);
}

TEST_F(PromesasTest, WithoutTheRegisterBehindYesTheFormStays) {
  TypeTicket();
  station_.UnderBox = [this] { ASSERT_TRUE(station_.Disk.Remove(test::kAct)); };
  Save();
  EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[2]);
  EXPECT_FALSE(station_.Disk.Exists(kUsr));
  EXPECT_FALSE(station_.Disk.Exists(test::kAct));
}

TEST_F(PromesasTest, OneStayEarnsItsPointsOnceAtTwoGates) {
  TypeTicket();
  Save();
  station_.Pass(2 * 60 * 60'000);  // eight quarters of an hour
  Scan(RecordOf<RegistroCodigo>(station_.Disk, kCdb, 1).CodigoBarras.Trimmed().Bytes());
  ASSERT_TRUE(form_.FichaEnPantalla());
  station_.UnderBox = [this] {  // the other gate, with the same display
    RegistroFicha gone = station_.Slot(1);
    gone.EnUso = false;
    gone.PorteriaSalida = "02";
    station_.PutSlot(1, gone);
    RegistroUsuario user = User(1);
    user.Puntos = 8;
    PutRecord(station_.Disk, kUsr, 1, user);
  };
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(station_.History(2).UsuarioPuntos, 8);
  EXPECT_EQ(User(1).Puntos, 8);
  EXPECT_EQ(RecordOf<RegistroFicha>(station_.Disk, kCrd, 1).UsuarioPuntos, 8);
}

TEST_F(PromesasTest, ANumberThatWasGivenToSomebodyElseIsNotRetired) {
  TypeTicket();
  Save();
  Scan(CodeAt(1));
  ASSERT_TRUE(form_.FichaEnPantalla());
  station_.UnderBox = [this] { PutInside(1, "NEW999"); };
  station_.Events.Take();
  Retire();
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(station_.Slot(1).Placa.Trimmed(), "NEW999"_w);
  EXPECT_EQ(station_.HistoryRows(), 1u);
  EXPECT_TRUE(Idle());
  EXPECT_THAT(station_.Heard(), testing::Contains("Sonidos\\Vintoral-7.wav"_w));
}

TEST_F(PromesasTest, ASlotThatCantBeFreedKeepsItsCode) {
  TypeTicket();
  Save();
  const std::string codigo = CodeAt(1);
  ASSERT_EQ(codigo.size(), 12u);
  Scan(codigo);
  station_.UnderBox = [this] { station_.Faulty.Set().failWrite = 2; };  // the code, the slot
  Retire();
  EXPECT_TRUE(station_.Slot(1).EnUso);
  EXPECT_EQ(CodeAt(1), codigo);
}

TEST_F(PromesasTest, TheCardIsNotThatOfThePlateBefore) {
  RegistroUsuario ana, bea;
  ana.Placa = "AAA";
  bea.Placa = "BBB";
  bea.Puntos = 7;
  PutRecord(station_.Disk, kUsr, 1, ana);
  PutRecord(station_.Disk, kUsr, 2, bea);
  station_.Disk.Put("Multimedia\\Imágenes USR\\000001.jpg"_w, "");
  TypeTicket("aaa");
  ASSERT_TRUE(form_.ImgUsuario.Visible);
  station_.Hands.Focus(form_.TxtCampo[1]);
  station_.Hands.ReplaceText(form_.TxtCampo[1], "BBB"_w);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_FALSE(form_.ImgUsuario.Visible);
  EXPECT_TRUE(form_.ImgUsuario.Picture.Empty());
  EXPECT_EQ(form_.LblPuntos[3].Caption, "7"_w);
  station_.Hands.Focus(form_.TxtCampo[1]);
  station_.Hands.ReplaceText(form_.TxtCampo[1], "CCC"_w);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_FALSE(form_.LblPuntos[3].Visible);
}

}  // namespace
}  // namespace vintoral
