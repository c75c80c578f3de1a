// The plate: who has it, whose data fill the form, and who is refused.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

constexpr const char* kUsr = "Multimedia\\Vintoral.USR";

RegistroUsuario User(const char* plate, const char* name, std::int32_t points) {
  RegistroUsuario user;
  user.Placa = plate;
  user.Nombre = name;
  user.Apellido = "RUIZ";
  user.Telefono = "300";
  user.Observacion = "CASCO";
  user.Categoria = "motocicleta";
  user.Puntos = points;
  return user;
}

class BuscarUsuarioTest : public testing::Test {
 protected:
  BuscarUsuarioTest() {
    station_.StartConnected();
    station_.Disk.Put(kUsr, Encoded(User("AAA", "ANA", 11)) + Encoded(User("BBB", "BRUNO", 22)));
    station_.TypeAndEnter("7");
  }
  bool Find(std::string_view plate) {
    form_.TxtCampo[1].SetText(String(plate));
    return form_.BuscarUsuario();
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(BuscarUsuarioTest, TheOneWhoHasThePlateFillsTheForm) {
  ASSERT_EQ(form_.CboTarifa[1].Text(), "AUTOMOVIL"_w);
  ASSERT_FALSE(form_.LblPuntos[3].Visible);
  EXPECT_TRUE(Find("bbb"));
  EXPECT_EQ(form_.TxtCampo[2].Text(), "BRUNO"_w);
  EXPECT_EQ(form_.TxtCampo[3].Text(), "RUIZ"_w);
  EXPECT_EQ(form_.TxtCampo[4].Text(), "300"_w);
  EXPECT_EQ(form_.TxtCampo[5].Text(), "CASCO"_w);
  EXPECT_EQ(form_.CboTarifa[1].Text(), "MOTOCICLETA"_w);
  EXPECT_EQ(form_.NumeroUsuario, 2);
  EXPECT_EQ(form_.UsuarioEnFormulario, 2);
  EXPECT_EQ(form_.UsuarioActual.Puntos, 22);
  EXPECT_EQ(form_.PuntosAcumulados, 22);
  EXPECT_EQ(form_.LblPuntos[3].Caption, "22"_w);
  EXPECT_TRUE(form_.LblPuntos[3].Visible);
}

TEST_F(BuscarUsuarioTest, ThePlateLosesItsBlanks) {
  EXPECT_TRUE(Find("  bbb "));
  EXPECT_EQ(form_.TxtCampo[1].Text(), "BBB"_w);
}

TEST_F(BuscarUsuarioTest, AStrangerGetsTheNextNumberAndHasNoPoints) {
  form_.PuntosAcumulados = 99;
  EXPECT_FALSE(Find("ccc"));
  EXPECT_EQ(form_.NumeroUsuario, 3);
  EXPECT_EQ(form_.UsuarioEnFormulario, 0);
  EXPECT_EQ(form_.PuntosAcumulados, 0);
  EXPECT_EQ(form_.TxtCampo[2].Text(), ""_w);
}

TEST_F(BuscarUsuarioTest, TheVeryFirstIsNumberOne) {
  ASSERT_TRUE(station_.Disk.Remove(kUsr));
  form_.PuntosAcumulados = 99;
  EXPECT_FALSE(Find("aaa"));
  EXPECT_EQ(form_.NumeroUsuario, 1);
  EXPECT_EQ(form_.PuntosAcumulados, 0);
}

TEST_F(BuscarUsuarioTest, WithoutAPlateThereIsNobody) {
  ASSERT_TRUE(Find("bbb"));
  EXPECT_FALSE(Find("   "));
  EXPECT_EQ(form_.NumeroUsuario, 0);
  EXPECT_EQ(form_.UsuarioEnFormulario, 0);
}

TEST_F(BuscarUsuarioTest, DataThatStandInTheFormAreNotFilledInAgain) {
  ASSERT_TRUE(Find("bbb"));
  form_.TxtCampo[2].SetText("CARLA"_w);
  EXPECT_TRUE(form_.BuscarUsuario(2));
  EXPECT_EQ(form_.TxtCampo[2].Text(), "CARLA"_w);
  EXPECT_TRUE(form_.BuscarUsuario(1));
  EXPECT_EQ(form_.TxtCampo[2].Text(), "BRUNO"_w);
}

TEST_F(BuscarUsuarioTest, ThePhotoGoesToTheCard) {
  station_.Disk.Put("Multimedia\\Imágenes USR\\000002.jpg"_w, "");
  ASSERT_TRUE(Find("aaa"));
  EXPECT_FALSE(form_.ImgUsuario.Visible || form_.PctUsuario[1].Visible);
  ASSERT_TRUE(Find("bbb"));
  EXPECT_EQ(form_.ImgUsuario.Picture, "Multimedia\\Imágenes USR\\000002.jpg"_w);
  EXPECT_EQ(form_.PctUsuario[0].Picture, "Multimedia\\Imágenes USR\\000002.jpg"_w);
  EXPECT_TRUE(form_.ImgUsuario.Visible && form_.PctUsuario[1].Visible);
}

TEST_F(BuscarUsuarioTest, APlateInsideIsRefusedAndTheScreenCleared) {
  RegistroFicha inside;
  inside.EnUso = true;
  inside.Placa = "BBB";
  inside.NumeroFicha = "0009";
  station_.PutSlot(9, inside);
  station_.Answers = {Answer::kOk};
  EXPECT_FALSE(Find("bbb"));
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Ingreso Denegado"_w);
  EXPECT_EQ(station_.Boxes[0].text, "La información digitada ya se encuentra en uso por la ficha 0009."_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kCritical);
  EXPECT_TRUE(form_.TxtCampo[1].Text().Empty());
  EXPECT_FALSE(form_.TxtCampo[0].Locked);
  EXPECT_EQ(form_.NumeroUsuario, 0);
}

TEST_F(BuscarUsuarioTest, UsersOutOfReachGiveNobodyANumber) {
  ASSERT_TRUE(station_.Disk.Remove(kUsr));
  ASSERT_TRUE(station_.Disk.CreateFolder(kUsr));
  EXPECT_FALSE(Find("bbb"));
  EXPECT_EQ(form_.NumeroUsuario, 0);
}

// ---- Enter in the plate
// ------------------------------------------------------------------------------------------------

TEST_F(BuscarUsuarioTest, EnterOnAnEmptyPlateOpensTheCardThatIsThere) {
  station_.Disk.Put("Multimedia\\Imágenes USR\\000002.jpg"_w, "");
  ASSERT_TRUE(Find("bbb"));
  form_.TxtCampo[1].SetText(""_w);
  form_.SetFocus(&form_.TxtCampo[1]);
  ASSERT_TRUE(form_.PctUsuario[1].Visible && !form_.PctUsuario[0].Visible);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_TRUE(form_.PctUsuario[0].Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[2]);
}

TEST_F(BuscarUsuarioTest, EnterOnAnEmptyPlateWithoutACardOpensNone) {
  form_.SetFocus(&form_.TxtCampo[1]);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_FALSE(form_.PctUsuario[0].Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[2]);
}

TEST_F(BuscarUsuarioTest, EnterOnAPlateLeavesTheCardClosed) {
  station_.Disk.Put("Multimedia\\Imágenes USR\\000002.jpg"_w, "");
  ASSERT_TRUE(Find("bbb"));
  form_.TxtCampo[1].SetText("CCC"_w);
  form_.SetFocus(&form_.TxtCampo[1]);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_FALSE(form_.PctUsuario[0].Visible);
}

// ---- The hourglass
// -----------------------------------------------------------------------------------------------------

class PointerScreen final : public RecordingScreen {
 public:
  using RecordingScreen::RecordingScreen;
  void Busy(bool busy) override { Pointers.push_back(busy); }
  std::vector<bool> Pointers;
};

TEST(Hourglass, IsShownWhileTheUsersAreLookedThrough) {
  MemoryStation station;
  PointerScreen screen(station.Events, station.Clock);
  RecordingSystem system(station.Events, screen);
  Form1 form(Platform{station.Clock, screen, station.Sound, system, station.Faulty, station.Pictures,
                      station.Printer, station.Chance, station.Camera, station.Mail});
  screen.OnWait = [&screen] { static_cast<void>(screen.Answer(Answer::kOk)); };
  form.Form_Load();
  form.TxtCampo[1].SetText("AAA"_w);
  ASSERT_FALSE(form.BuscarUsuario());
  EXPECT_THAT(screen.Pointers, testing::IsEmpty());  // there are none yet
  station.Disk.Put(kUsr, Encoded(User("AAA", "ANA", 0)));
  ASSERT_TRUE(form.BuscarUsuario());
  EXPECT_THAT(screen.Pointers, testing::ElementsAre(true, false));
}

}  // namespace
}  // namespace vintoral
