// Saving a ficha: what the register holds afterwards, and what it holds when the disk fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "records/ArchivosNuevos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;

constexpr const char* kAct = "Multimedia\\Vintoral.ACT";
constexpr const char* kHst = "Multimedia\\Vintoral.HST";

class GuardarFichaTest : public testing::Test {
 protected:
  GuardarFichaTest() { station_.StartConnected(); }
  /// As far as the question of saving slot 7, answered with `answer`.
  void Save(Answer answer) {
    station_.TypeNew("7", "abc123");
    station_.Answers.push_back(answer);
    station_.Hands.Key(keys::kInsert, 0);
  }
  /// ACT without the bytes of slot 7.
  std::string OtherSlots() const {
    std::string act = station_.Disk.Get(kAct);
    return act.erase(6 * RegistroFicha::kSize, RegistroFicha::kSize);
  }
  std::string OtherSlotsOfANewRegister() const {
    return ActNuevo().Bytes().substr(0, 6 * RegistroFicha::kSize) +
           ActNuevo().Bytes().substr(7 * RegistroFicha::kSize);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(GuardarFichaTest, AsksInTheStationsWords) {
  Save(Answer::kNo);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Confirmar Datos"_w);
  EXPECT_EQ(station_.Boxes[0].text, "¿Desea realmente guardar la ficha actual?"_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_THAT(station_.Boxes[0].buttons, testing::ElementsAre(Answer::kYes, Answer::kNo));
}

TEST_F(GuardarFichaTest, YesFillsTheSlot) {
  Save(Answer::kYes);
  const RegistroFicha ficha = station_.Slot(7);
  EXPECT_TRUE(ficha.EnUso);
  EXPECT_EQ(ficha.MarcaEntrada.Trimmed(), "14:00  (20/11/2026)"_w);
  EXPECT_EQ(ficha.MarcaSalida.Trimmed(), "??"_w);
  EXPECT_EQ(ficha.NumeroFicha.Trimmed(), "0007"_w);
  EXPECT_EQ(ficha.Placa.Trimmed(), "ABC123"_w);
  EXPECT_EQ(ficha.Categoria.Trimmed(), "AUTOMOVIL"_w);
  EXPECT_EQ(ficha.PorteriaEntrada.Trimmed(), "01"_w);
  EXPECT_EQ(ficha.PorteriaSalida.Trimmed(), "??"_w);
  EXPECT_EQ(ficha.Posicion, 7);
  EXPECT_EQ(OtherSlots(), OtherSlotsOfANewRegister());
}

TEST_F(GuardarFichaTest, TheScreenIsIdleAfterwards) {
  Save(Answer::kYes);
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
  EXPECT_FALSE(form_.TxtCampo[0].Locked);
  EXPECT_FALSE(form_.PctBoton[5].Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
  EXPECT_EQ(form_.TotalVista(), 1);
}

TEST_F(GuardarFichaTest, NoLeavesTheFieldsAndWritesNothing) {
  Save(Answer::kNo);
  EXPECT_EQ(station_.Disk.Get(kAct), ActNuevo().Bytes());
  EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[2]);
  EXPECT_TRUE(form_.PctBoton[5].Visible);
}

TEST_F(GuardarFichaTest, AConfirmedEntryIsSyncedBeforeTheStationGoesOn) {
  station_.TypeNew("7", "abc123");
  const int before = station_.Disk.Syncs();
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_GT(station_.Disk.Syncs(), before);
}

TEST_F(GuardarFichaTest, HistoryIsUntouchedAtEntry) {
  Save(Answer::kYes);
  EXPECT_EQ(station_.Disk.Get(kHst), HstNuevo().Bytes());
}

TEST_F(GuardarFichaTest, ASlotThatAnotherGateTookIsLeftToIt) {
  station_.TypeNew("7", "abc123");
  RegistroFicha taken;
  taken.EnUso = true;
  taken.Placa = "OTRA";
  taken.PorteriaSalida = "??";
  station_.PutSlot(7, taken);
  const std::string act = station_.Disk.Get(kAct);
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(station_.Disk.Get(kAct), act);
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
}

TEST_F(GuardarFichaTest, TicksUnderTheQuestionMixNothingIntoTheSlot) {
  station_.Enter("3", "vieja");
  station_.TypeNew("7", "nueva");
  station_.UnderBox = [this] { station_.Pass(30'000); };
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  RegistroFicha ficha = station_.Slot(7);
  EXPECT_EQ(ficha.Placa.Trimmed(), "NUEVA"_w);
  EXPECT_EQ(ficha.Posicion, 7);
  EXPECT_EQ(station_.Slot(3).Placa.Trimmed(), "VIEJA"_w);
}

TEST_F(GuardarFichaTest, TheStampIsThatOfTheAnswer) {
  station_.TypeNew("7", "abc");
  station_.UnderBox = [this] { station_.Pass(120'000); };
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_EQ(station_.Slot(7).MarcaEntrada.Trimmed(), "14:02  (20/11/2026)"_w);
}

TEST_F(GuardarFichaTest, WithoutTheRegisterNothingIsSaidAndTheLinkIsLookedAtSoon) {
  station_.TypeNew("7", "abc");
  ASSERT_TRUE(station_.Disk.Remove(kAct));
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(form_.TmrConexion.Interval(), 100);
  EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC"_w);
}

TEST_F(GuardarFichaTest, AFailedSyncStillLeavesTheFichaInTheSlot) {
  station_.TypeNew("7", "abc");
  station_.Faulty.Set().failSync = true;
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(OtherSlots(), OtherSlotsOfANewRegister());
}

TEST_F(GuardarFichaTest, AFailedWriteHarmsNoOtherSlot) {
  for (const std::size_t torn : {0u, 1u, 100u, 187u}) {
    station_.TypeNew("7", "abc");
    station_.Faulty.Set().failWrite = 1;
    station_.Faulty.Set().tornBytes = torn;
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
    EXPECT_EQ(OtherSlots(), OtherSlotsOfANewRegister()) << torn;
    EXPECT_EQ(station_.Disk.Get(kAct).size(), 188'188u) << torn;
    station_.Disk.Put(kAct, ActNuevo());
  }
}

TEST_F(GuardarFichaTest, AFolderThatGoesAwayAtAnyStepHarmsNoOtherSlot) {
  bool saved = false;
  for (int step = 0; !saved; ++step) {
    ASSERT_LT(step, 200);
    station_.Faulty.Repair();
    station_.Hands.Key(keys::kEscape, 0);
    station_.Disk.Put(kAct, ActNuevo());
    station_.TypeNew("7", "abc");
    station_.UnderBox = nullptr;
    station_.Answers = {Answer::kYes};
    station_.Faulty.Set().goneAfter = step;
    station_.Hands.Key(keys::kInsert, 0);
    saved = station_.Slot(7).EnUso;
    EXPECT_EQ(OtherSlots(), OtherSlotsOfANewRegister()) << step;
  }
}

TEST_F(GuardarFichaTest, APathCorrectedUnderTheBoxLeadsToNobodysSlot) {
  RegistroFicha theirs;
  theirs.EnUso = true;
  theirs.Placa = "THEIRS";
  std::string act = ActNuevo().Bytes();
  const auto slot = theirs.Encode();
  act.replace(6 * RegistroFicha::kSize, RegistroFicha::kSize, slot.data(), slot.size());
  station_.Disk.Put("/otra/Vintoral.ACT", act);
  station_.UnderBox = [this] {
    form_.CarpetaCompartida = "/otra"_w;
    form_.EsCliente = -1;
  };
  Save(Answer::kYes);
  EXPECT_EQ(station_.Disk.Get("/otra/Vintoral.ACT"), act);
  EXPECT_EQ(station_.Slot(7).Placa.Trimmed(), "ABC123"_w);
}

TEST_F(GuardarFichaTest, AUserWhoCameMeanwhileFillsTheForm) {
  RegistroUsuario first, second;
  first.Placa = "AAA";
  second.Placa = "BBB";
  second.Nombre = "BRUNO";
  second.Categoria = "MOTOCICLETA";
  const auto one = first.Encode(), two = second.Encode();
  const std::string users(one.data(), one.size());
  station_.Disk.Put("Multimedia\\Vintoral.USR", users);
  station_.TypeNew("7", "bbb");
  ASSERT_EQ(form_.NumeroUsuario, 2);  // the number that a new user would get
  station_.Disk.Put("Multimedia\\Vintoral.USR", users + std::string(two.data(), two.size()));
  station_.Answers.push_back(Answer::kYes);
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_EQ(station_.Slot(7).Nombre.Trimmed(), "BRUNO"_w);
  EXPECT_EQ(station_.Slot(7).Categoria.Trimmed(), "MOTOCICLETA"_w);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 2);
}

TEST_F(GuardarFichaTest, AUserWhoStoodThereBeforeTheScreenWasClearedIsFilledInAgain) {
  RegistroUsuario user;
  user.Placa = "AAA";
  user.Nombre = "ANA";
  const auto bytes = user.Encode();
  station_.Disk.Put("Multimedia\\Vintoral.USR", std::string(bytes.data(), bytes.size()));
  station_.TypeNew("7", "aaa");
  station_.Hands.Key(keys::kEscape, 0);
  station_.TypeAndEnter("7");
  station_.Type("aaa");
  station_.Answers.push_back(Answer::kYes);
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_EQ(station_.Slot(7).Nombre.Trimmed(), "ANA"_w);
}

// ---- The photo beside the question
// -------------------------------------------------------------------------------------

class FotoConfirmacionTest : public GuardarFichaTest {
 protected:
  FotoConfirmacionTest() {
    RegistroUsuario user;
    user.Placa = "AAA";
    station_.Disk.Put("Multimedia\\Vintoral.USR", test::Encoded(user));
  }
  /// Asks whether to save the ficha of user 1; `look` happens under the question.
  void Ask(std::function<void()> look) {
    station_.TypeNew("7", "aaa");
    ASSERT_EQ(form_.NumeroUsuario, 1);
    station_.UnderBox = std::move(look);
    station_.Answers = {Answer::kNo};
    station_.Hands.Key(keys::kInsert, 0);
    ASSERT_EQ(station_.Boxes.size(), 1u);
  }
  void StorePhoto() { station_.Disk.Put(foto_, ""); }
  void ExpectTheLivePicture() const {
    EXPECT_TRUE(form_.Picture1.Visible);
    EXPECT_FALSE(form_.Picture2.Visible || form_.PctAppCamera.Visible || form_.LblWebCamMsg.Visible);
    EXPECT_TRUE(form_.Picture2.Picture.Empty());
    EXPECT_EQ(form_.LblWebCamMsg.Caption, ""_w);
  }

  const String foto_ = "Multimedia\\Imágenes USR\\000001.jpg"_w;
};

TEST_F(FotoConfirmacionTest, IsTheUsersStoredOne) {
  StorePhoto();
  form_.LblWebCamMsg.Visible = true;
  Ask([this] {
    EXPECT_EQ(form_.Picture2.Picture, foto_);
    EXPECT_TRUE(form_.Picture2.Visible);
    EXPECT_FALSE(form_.Picture1.Visible || form_.LblWebCamMsg.Visible);
  });
  ExpectTheLivePicture();
}

TEST_F(FotoConfirmacionTest, GoesToTheCardTooWhenItCameMeanwhile) {
  station_.TypeNew("7", "aaa");
  ASSERT_FALSE(form_.PctUsuario[1].Visible);
  StorePhoto();
  station_.UnderBox = [this] {
    EXPECT_EQ(form_.ImgUsuario.Picture, foto_);
    EXPECT_EQ(form_.PctUsuario[0].Picture, foto_);
    EXPECT_TRUE(form_.PctUsuario[1].Visible);
  };
  station_.Answers = {Answer::kNo};
  station_.Hands.Key(keys::kInsert, 0);
}

TEST_F(FotoConfirmacionTest, ThatIsMissingIsTold) {
  ASSERT_FALSE(form_.LblWebCamMsg.Visible);
  form_.Picture2.Picture = "of another.jpg"_w;
  Ask([this] {
    EXPECT_TRUE(form_.Picture2.Visible && form_.Picture2.Picture.Empty());
    EXPECT_FALSE(form_.Picture1.Visible);
    EXPECT_TRUE(form_.LblWebCamMsg.Visible);
    EXPECT_EQ(form_.LblWebCamMsg.Caption, "SIN IMAGEN"_w);
  });
  ExpectTheLivePicture();
}

TEST_F(FotoConfirmacionTest, IsNotTheStoredOneWithTheMemoryOfFaces) {
  StorePhoto();
  form_.ImgIndicador[2].Visible = true;
  Ask([this] {
    EXPECT_TRUE(form_.Picture2.Visible && form_.Picture2.Picture.Empty());
    EXPECT_TRUE(form_.LblWebCamMsg.Visible);
  });
}

TEST_F(FotoConfirmacionTest, WithTheCameraOffNoPictureIsTouched) {
  StorePhoto();
  form_.ImgIndicador[4].Visible = true;
  form_.LimpiarCampos();
  ASSERT_TRUE(form_.PctAppCamera.Visible && !form_.Picture1.Visible);
  Ask([this] {
    EXPECT_TRUE(form_.PctAppCamera.Visible && form_.LblWebCamMsg.Visible);
    EXPECT_FALSE(form_.Picture1.Visible || form_.Picture2.Visible);
  });
  EXPECT_TRUE(form_.PctAppCamera.Visible);
  EXPECT_FALSE(form_.Picture1.Visible || form_.Picture2.Visible || form_.LblWebCamMsg.Visible);
}

}  // namespace
}  // namespace vintoral
