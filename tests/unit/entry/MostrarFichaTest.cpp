// A ficha called up: its account, and what stands on the screen beside it.
#include <gtest/gtest.h>

#include <string_view>
#include <utility>

#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

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
    station_.PutSlot(7, ficha);
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
  form_.ChkFactura.Tag = "1"_w;
  form_.ChkFactura.Value = 1;
  ASSERT_TRUE(form_.ChkFactura.Enabled && !form_.ChkFactura.Visible);
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
  ASSERT_FALSE(form_.ImgIndicador[5].Visible);
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.ChkFactura.Enabled);
  EXPECT_EQ(form_.ChkFactura.Value, 1);
  EXPECT_EQ(form_.ChkFactura.Tag, "1"_w);
  EXPECT_TRUE(form_.ImgIndicador[5].Visible);
}

TEST_F(MostrarFichaTest, WithoutInvoicesNothingIsTicked) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  form_.ChkFactura.Tag = "0"_w;
  form_.ChkFactura.Enabled = false;
  ASSERT_EQ(form_.PctBoton[14].BorderStyle, 0);
  station_.TypeAndEnter("7");
  ASSERT_TRUE(form_.LblValor.Visible);
  EXPECT_FALSE(form_.ChkFactura.Enabled || form_.ChkFactura.Visible || form_.ImgIndicador[5].Visible);
  EXPECT_EQ(form_.ChkFactura.Value, 0);
  EXPECT_EQ(form_.ChkFactura.Tag, "0"_w);
}

TEST_F(MostrarFichaTest, ItsRowsTakeThePlaceOfTheFields) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  station_.TypeAndEnter("8");  // the form of a new ficha has no rows
  for (const Label& row : form_.LblCampo)
    ASSERT_FALSE(row.Visible) << row.Name;
  form_.TxtCampo[0].SetText("7"_w);
  form_.MostrarFicha();
  for (const Label& row : form_.LblCampo)
    EXPECT_TRUE(row.Visible && row.BackColor == kYellow) << row.Name;
  for (const TextBox& field : form_.TxtCampo)
    EXPECT_TRUE(field.Locked && !field.Visible) << field.Name;
  EXPECT_EQ(form_.LblCampo[0].Caption, "0007"_w);
  EXPECT_EQ(form_.LblCampo[1].Caption, "AAA"_w);
  EXPECT_TRUE(form_.PctBoton[6].Visible && !form_.PctBoton[5].Visible);
  EXPECT_TRUE(form_.CboTarifa[0].Visible && !form_.CboTarifa[1].Visible);
}

TEST_F(MostrarFichaTest, AFreeSlotOpensTheForm) {
  form_.ChkFactura.Tag = "1"_w;
  form_.ChkFactura.Visible = form_.ImgIndicador[5].Visible = form_.PctBoton[6].Visible = true;
  form_.CboTarifa[1].Visible = false;
  form_.CboTarifa[1].Select(2);
  for (std::size_t i = 1; i < form_.TxtCampo.size(); ++i) {
    form_.TxtCampo[i].Locked = true;
    form_.TxtCampo[i].Visible = false;
  }
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.ChkFactura.Tag, "0"_w);
  EXPECT_FALSE(form_.ChkFactura.Visible || form_.ImgIndicador[5].Visible || form_.PctBoton[6].Visible);
  EXPECT_TRUE(form_.PctBoton[5].Visible && form_.CboTarifa[1].Visible);
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 0);
  for (const Label& row : form_.LblCampo)
    EXPECT_FALSE(row.Visible) << row.Name;
  for (const TextBox& field : form_.TxtCampo)
    EXPECT_TRUE(field.Visible && field.Locked == (&field == &form_.TxtCampo[0])) << field.Name;
}

TEST_F(MostrarFichaTest, TheFrameGoesAroundItsCellOfThePageOnScreen) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  RegistroFicha inside;
  inside.PorteriaSalida = "??";
  form_.VistaFichas.assign(60, inside);
  form_.VistaFichas[3].Posicion = 7;
  ASSERT_FALSE(form_.ShpCelda.Visible);
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.ShpCelda.Visible);
  EXPECT_EQ(form_.ShpCelda.Cell, 3);
  form_.InicioPagina = 51;  // the second page, without it
  form_.MostrarFicha();
  EXPECT_EQ(form_.ShpCelda.Cell, -1);
  form_.VistaFichas[3].Posicion = 0;
  form_.VistaFichas[59].Posicion = 7;
  form_.MostrarFicha();
  EXPECT_EQ(form_.ShpCelda.Cell, 9);
  form_.InicioPagina = 1;
  form_.VistaFichas[50].Posicion = 7;  // the first of the second page
  form_.MostrarFicha();
  EXPECT_EQ(form_.ShpCelda.Cell, -1);
}

// ---- The row that was pointed at
// ---------------------------------------------------------------------------------------

TEST_F(MostrarFichaTest, TheStayIsThatOfTheRowThatWasPointedAt) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  form_.VistaFichas.resize(2);
  form_.VistaFichas[0].MarcaEntrada = "12:50  (20/11/2026)";
  form_.VistaFichas[1].MarcaEntrada = "12:00  (20/11/2026)";
  for (const auto& [row, stay] : {std::pair{"2", "02H 00M "}, {"1", "01H 10M "}, {"0", "01H 00M "}}) {
    station_.TypeAndEnter("7");
    form_.PctFicha.Tag = String(std::string_view(row));
    form_.LblValor.Visible = false;
    form_.TmrHoraFecha_Timer();
    EXPECT_EQ(form_.LblInfo[1].Caption.Bytes(), stay) << row;
    station_.Hands.Key(keys::kEscape, 0);
  }
}

TEST_F(MostrarFichaTest, ARowThatTheViewNoLongerHasGivesWayToTheFichaOnDisplay) {
  form_.VistaFichas.resize(1);
  for (const char* row : {"2", "-1"}) {
    form_.PctFicha.Tag = String(std::string_view(row));
    EXPECT_EQ(&form_.FichaMostrada(), &form_.FichaActual) << row;
  }
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
  form_.LblWebCamMsg.Visible = true;
  form_.LblWebCamMsg.Caption = "SIN IMAGEN"_w;
  ASSERT_TRUE(form_.Picture1.Visible && !form_.ImgUsuario.Visible && !form_.PctUsuario[1].Visible);
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.Picture2.Picture.Path(), "Multimedia\\Imágenes ACT\\000007.jpg"_w);
  EXPECT_TRUE(form_.Picture2.Visible);
  EXPECT_FALSE(form_.Picture1.Visible || form_.LblWebCamMsg.Visible);
  EXPECT_EQ(form_.LblWebCamMsg.Caption, ""_w);
  EXPECT_EQ(form_.ImgUsuario.Picture, "Multimedia\\Imágenes USR\\000001.jpg"_w);
  EXPECT_EQ(form_.PctUsuario[0].Picture, "Multimedia\\Imágenes USR\\000001.jpg"_w);
  EXPECT_TRUE(form_.ImgUsuario.Visible && form_.PctUsuario[1].Visible);
}

TEST_F(MostrarFichaTest, AMissingPhotoLeavesTheLivePictureAndIsTold) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  form_.Picture2.Picture = "of another.jpg"_w;
  form_.Picture2.Visible = true;
  form_.Picture1.Visible = false;
  ASSERT_FALSE(form_.LblWebCamMsg.Visible);
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.Picture1.Visible);
  EXPECT_FALSE(form_.Picture2.Visible);
  EXPECT_TRUE(form_.Picture2.Picture.Empty());
  EXPECT_TRUE(form_.LblWebCamMsg.Visible);
  EXPECT_EQ(form_.LblWebCamMsg.Caption, "SIN IMAGEN"_w);
  station_.Hands.Key(keys::kEscape, 0);
  EXPECT_FALSE(form_.LblWebCamMsg.Visible);
  EXPECT_EQ(form_.LblWebCamMsg.Caption, ""_w);
}

TEST_F(MostrarFichaTest, WithTheCameraOffItsStandInYieldsToThePhotoAndToNothingElse) {
  Inside("13:00  (20/11/2026)", "AUTOMOVIL");
  form_.ImgIndicador[4].Visible = true;
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.PctAppCamera.Visible && form_.LblWebCamMsg.Visible);
  EXPECT_FALSE(form_.Picture1.Visible || form_.Picture2.Visible);
  station_.Hands.Key(keys::kEscape, 0);
  station_.Disk.Put("Multimedia\\Imágenes ACT\\000007.jpg"_w, "");
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.Picture2.Visible);
  EXPECT_FALSE(form_.PctAppCamera.Visible || form_.Picture1.Visible || form_.LblWebCamMsg.Visible);
}

TEST_F(MostrarFichaTest, TheRowInTheHistoryHoldsTheUsersPoints) {
  User(33);
  Inside("13:00  (20/11/2026)", "AUTOMOVIL", 1);
  station_.TypeAndEnter("7");
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kDelete, 0);
  EXPECT_EQ(station_.Slot(7).UsuarioPuntos, 1);
  EXPECT_EQ(station_.History(2).UsuarioPuntos, 37);  // with four quarters of an hour
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

}  // namespace
}  // namespace vintoral
