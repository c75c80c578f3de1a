// A ficha called up: its account, and what stands on the screen beside it.
#include <gtest/gtest.h>

#include <string>

#include "records/ArchivosNuevos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

constexpr const char* kAct = "Multimedia\\Vintoral.ACT";
constexpr const char* kUsr = "Multimedia\\Vintoral.USR";

class MostrarFichaTest : public testing::Test {
 protected:
  MostrarFichaTest() { station_.StartConnected(); }
  /// Puts a ficha into slot 7, of a user where `user` is one.
  void Inside(const char* entry, const char* category, std::int32_t user = 0) {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.MarcaEntrada = entry;
    ficha.MarcaSalida = "??";
    ficha.PorteriaSalida = "??";
    ficha.NumeroFicha = "0007";
    ficha.Placa = "AAA";
    ficha.Categoria = category;
    ficha.Posicion = 7;
    ficha.UsuarioPuntos = user;
    std::string act(ActNuevo().Bytes());
    act.replace(6 * RegistroFicha::kSize, RegistroFicha::kSize, Encoded(ficha));
    station_.Disk.Put(kAct, act);
  }
  void User(std::int32_t points) {
    RegistroUsuario user;
    user.Placa = "AAA";
    user.Puntos = points;
    station_.Disk.Put(kUsr, Encoded(user));
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(MostrarFichaTest, PointsAreThoseOfTheTrueStayThoughTheHourIsRaised) {
  Inside("13:59  (17/11/2026)", "MOTOCICLETA");  // three days and a minute
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.TiempoEstadia, "03D 00H 01M "_w);
  EXPECT_EQ(form_.Permanencia.horas, 1);
  EXPECT_EQ(form_.PuntosEstadia, 288);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "288"_w);
}

TEST_F(MostrarFichaTest, PointsBeyondTheirCountBeginAnew) {
  for (const auto& [held, shown] : {std::pair{999'995, "999999"}, {999'996, "4"}, {2'147'483'647, "4"}}) {
    User(held);
    Inside("13:00  (20/11/2026)", "AUTOMOVIL", 1);  // an hour: four points
    station_.TypeAndEnter("7");
    EXPECT_EQ(form_.LblPuntos[1].Caption.Bytes(), shown) << held;
    station_.Hands.Key(keys::kEscape, 0);
  }
}

TEST_F(MostrarFichaTest, PointsAreCountedOnceForADisplayAndStandOnTheScreenAllTheSame) {
  User(10);
  Inside("13:00  (20/11/2026)", "AUTOMOVIL", 1);
  station_.TypeAndEnter("7");
  form_.ImgPuntos.Tag = "1"_w;
  station_.Pass(60'000);
  EXPECT_EQ(form_.PuntosEstadia, 4);
  form_.ImgPuntos.Tag = "0"_w;
  form_.ImgPuntos.Visible = false;
  form_.LblPuntos[1].Caption = {};
  form_.LblValor.Visible = false;
  form_.TmrHoraFecha_Timer();
  EXPECT_EQ(form_.PuntosEstadia, 4);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "14"_w);
}

TEST_F(MostrarFichaTest, ACategoryWithoutPriceIsInvoicedToNobody) {
  Inside("13:00  (20/11/2026)", "VISITANTE");
  form_.PctBoton[14].BorderStyle = 1;
  station_.TypeAndEnter("7");
  EXPECT_FALSE(form_.LblValor.Visible);
  EXPECT_TRUE(form_.ChkFactura.Visible);
  EXPECT_FALSE(form_.ChkFactura.Enabled);
  EXPECT_EQ(form_.ChkFactura.Value, 0);
  EXPECT_EQ(form_.ChkFactura.Tag, "0"_w);
}

TEST_F(MostrarFichaTest, APricedOneIsTickedForTheInvoice) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  form_.PctBoton[14].BorderStyle = 1;
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.ChkFactura.Enabled);
  EXPECT_EQ(form_.ChkFactura.Value, 1);
  EXPECT_EQ(form_.ChkFactura.Tag, "1"_w);
}

TEST_F(MostrarFichaTest, InBarcodeModeTheCodesBoxIsYellow) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  form_.PctBoton[10].BorderStyle = 1;
  form_.CambiarModoFicha();
  ASSERT_TRUE(form_.TxtBarCode.Visible);
  form_.TxtCampo[0].SetText("7"_w);
  form_.MostrarFicha();
  EXPECT_TRUE(form_.TxtBarCodeOK.Visible);
  EXPECT_EQ(form_.TxtBarCodeOK.BackColor, kYellow);
}

TEST_F(MostrarFichaTest, ItsPhotosAreShown) {
  User(0);
  Inside("13:00  (20/11/2026)", "AUTOMOVIL", 1);
  station_.Disk.Put("Multimedia\\Imágenes ACT\\000007.jpg"_w, "");
  station_.Disk.Put("Multimedia\\Imágenes USR\\000001.jpg"_w, "");
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.Picture2.Picture, "Multimedia\\Imágenes ACT\\000007.jpg"_w);
  EXPECT_TRUE(form_.Picture2.Visible);
  EXPECT_FALSE(form_.Picture1.Visible);
  EXPECT_EQ(form_.ImgUsuario.Picture, "Multimedia\\Imágenes USR\\000001.jpg"_w);
  EXPECT_EQ(form_.PctUsuario[0].Picture, "Multimedia\\Imágenes USR\\000001.jpg"_w);
  EXPECT_TRUE(form_.PctUsuario[1].Visible);
}

TEST_F(MostrarFichaTest, TheRowInTheHistoryHoldsTheUsersPoints) {
  User(33);
  Inside("13:00  (20/11/2026)", "AUTOMOVIL", 1);
  station_.TypeAndEnter("7");
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kDelete, 0);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 1);
  EXPECT_EQ(station_.History(2).UsuarioPuntos, 33);
}

TEST_F(MostrarFichaTest, EnterInTheNumberOfAnOpenFormOpensItAnew) {
  station_.TypeAndEnter("7");
  ASSERT_TRUE(form_.TxtCampo[0].Locked);
  form_.CboTarifa[1].Select(1);
  form_.SetFocus(&form_.TxtCampo[0]);
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_EQ(form_.CboTarifa[1].Text(), "AUTOMOVIL"_w);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(MostrarFichaTest, APlateOfBlanksLooksForNobody) {
  User(0);
  station_.TypeNew("7", "  ");
  EXPECT_EQ(form_.NumeroUsuario, 0);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[2]);
}

TEST_F(MostrarFichaTest, TheLinksReturnShowsItsEntryAgain) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  station_.TypeAndEnter("7");
  const std::string act = station_.Disk.Get(kAct);
  ASSERT_TRUE(station_.Disk.Remove(kAct));
  station_.Pass(10'000);
  ASSERT_EQ(form_.LblFechaEnt.Caption, "CONECTANDO... "_w);
  station_.Disk.Put(kAct, act);
  station_.Pass(3'000);
  EXPECT_EQ(form_.LblFechaEnt.Caption, "13:00  (20/11/2026)"_w);
}

}  // namespace
}  // namespace vintoral
