// Back to idle: whatever was on the screen is gone.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "driver/Properties.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

using Seen = std::map<std::string, std::string>;

class LimpiarCamposTest : public testing::Test {
 protected:
  LimpiarCamposTest() { station_.StartConnected(); }
  /// All that can be seen of the screen.
  Seen Screen() const {
    Seen seen;
    for (Control* control : form_.Controls()) {
      if (dynamic_cast<Timer*>(control) == nullptr) seen[control->Name] = PropertiesOf(*control).dump();
    }
    seen["focus"] = form_.Focus() == nullptr ? "" : form_.Focus()->Name;
    return seen;
  }

  // Each of these turns every property that its controls may have in the course of a day.
  void DirtyFields() {
    for (TextBox& field : form_.TxtCampo) {
      field.SetText("X"_w);
      field.Locked = true;
      field.Visible = field.Enabled = false;
    }
    for (Label& row : form_.LblCampo) {
      row.Caption = "X"_w;
      row.BackColor = kYellow;
      row.Visible = false;
    }
    for (ComboBox& list : form_.CboTarifa)
      list.Visible = !list.Visible;
    form_.CboTarifa[0].AddItem("X"_w);
    form_.CboTarifa[0].Select(0);
    form_.CboTarifa[1].Select(3);
    form_.CboTarifa[1].Enabled = false;
  }
  void DirtyValues() {
    for (Label* stamp : {&form_.LblFechaEnt, &form_.LblFechaSal}) {
      stamp->Caption = "X"_w;
      stamp->BackColor = kYellow;
    }
    form_.LblCambio.Caption = "X"_w;
    form_.LblCambio.Visible = form_.LblValor.Visible = true;
    form_.TxtEfectivo.SetText("5"_w);
    form_.TxtEfectivo.Visible = true;
    form_.LblInfo[1].Caption = "X"_w;
    form_.TxtMaxEntrada.SetText("5"_w);
    form_.LstModEntrada.ListIndex = 1;
    for (TextBox* code : {&form_.TxtBarCode, &form_.TxtBarCodeOK}) {
      code->SetText("X"_w);
      code->Visible = true;
    }
  }
  void DirtySigns() {
    for (const auto sign : {indicador::kFotosAdicionales, indicador::kImprimirFactura})
      form_.ImgIndicador[sign].Visible = true;
    for (const auto button : {boton::kGuardar, boton::kRetirar})
      form_.PctBoton[button].Visible = true;
    form_.ChkFactura.Value = 1;
    form_.ShpCelda.Visible = true;
    form_.ShpCelda.Cell = 7;
  }
  void DirtyPeople() {
    for (PictureBox& card : form_.PctUsuario) {
      card.Visible = true;
      card.Picture = "x.jpg"_w;
    }
    form_.ImgUsuario.Visible = true;
    form_.ImgUsuario.Picture = "x.jpg"_w;
    form_.ImgPuntos.Visible = true;
    for (Label& points : form_.LblPuntos) {
      points.Caption = "5"_w;
      points.Visible = true;
    }
    for (PictureBox& arrow : form_.PctFotoDetalle)
      arrow.Visible = true;
  }
  void DirtyPictures() {
    form_.PctFicha.Picture = form_.Picture2.Picture = "x.jpg"_w;
    form_.Picture1.Visible = false;
    form_.Picture2.Visible = form_.PctAppCamera.Visible = form_.LblWebCamMsg.Visible = true;
    form_.LblWebCamMsg.Caption = "SIN IMAGEN"_w;
  }
  void DirtyAll() {
    DirtyFields();
    DirtyValues();
    DirtySigns();
    DirtyPeople();
    DirtyPictures();
    form_.SetFocus(nullptr);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(LimpiarCamposTest, EveryControlIsAsItWasAtIdle) {
  form_.LimpiarCampos();
  const Seen idle = Screen();
  // What clearing is compared with is written down once by hand: two wrong screens would be alike too.
  ASSERT_EQ(form_.TxtCampo[0].Text(), ""_w);
  ASSERT_EQ(form_.LblCampo[0].BackColor, 0x80C0FF);
  ASSERT_EQ(form_.TxtEfectivo.Text(), "0"_w);
  ASSERT_EQ(form_.CboTarifa[1].Text(), "AUTOMOVIL"_w);
  ASSERT_EQ(form_.LstModEntrada.ListIndex, 0);
  DirtyAll();
  Seen dirty = Screen();
  int changed = 0;
  for (const auto& [name, properties] : idle)
    changed += dirty.at(name) != properties ? 1 : 0;
  // 6 fields and 6 rows, 2 lists, 6 values, the 2 of a ticket's validity and its 2 codes, 2 signs, 2 buttons,
  // the tick, the cell, 2 cards, photo, points and 4 of their labels, 2 arrows, 5 pictures, the focus.
  EXPECT_EQ(changed, 6 + 6 + 2 + 6 + 2 + 2 + 2 + 2 + 1 + 1 + 2 + 1 + 1 + 4 + 2 + 5 + 1);
  form_.LimpiarCampos();
  const Seen clean = Screen();
  for (const auto& [name, properties] : idle)
    EXPECT_EQ(clean.at(name), properties) << name;
  EXPECT_EQ(form_.ShpCelda.Cell, -1);
}

TEST_F(LimpiarCamposTest, TwiceLeavesTheSameScreen) {
  DirtyAll();
  form_.LimpiarCampos();
  const Seen once = Screen();
  form_.LimpiarCampos();
  EXPECT_EQ(Screen(), once);
}

TEST_F(LimpiarCamposTest, NoUserIsLeft) {
  form_.NumeroUsuario = 7;
  form_.UsuarioEnFormulario = 7;
  form_.LimpiarCampos();
  EXPECT_EQ(form_.NumeroUsuario, 0);
  EXPECT_EQ(form_.UsuarioEnFormulario, 0);
}

TEST_F(LimpiarCamposTest, BarcodeModeStays) {
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  form_.CambiarModoFicha();
  DirtyAll();
  form_.TxtCampo[0].Enabled = true;
  form_.LimpiarCampos();
  EXPECT_TRUE(form_.TxtBarCode.Visible);
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
  EXPECT_FALSE(form_.TxtBarCodeOK.Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
  EXPECT_FALSE(form_.TxtCampo[0].Enabled);
  EXPECT_TRUE(form_.TxtCampo[1].Enabled);
}

TEST_F(LimpiarCamposTest, WithoutTheLinkTheStationGoesOnConnecting) {
  form_.LblFechaEnt.Caption = "13:00  (20/11/2026)"_w;
  form_.LimpiarCampos();
  EXPECT_EQ(form_.LblFechaEnt.Caption, ""_w);
  form_.LblConexion[0].BackColor = kLightRed;
  form_.LimpiarCampos();
  EXPECT_EQ(form_.LblFechaEnt.Caption, "CONECTANDO... "_w);
}

TEST_F(LimpiarCamposTest, WithTheCameraOffWhatStandsInForItIsShown) {
  form_.ImgIndicador[indicador::kCamaraDesactivada].Visible = true;
  DirtyPictures();
  form_.PctAppCamera.Visible = false;
  form_.Picture1.Visible = true;
  form_.LimpiarCampos();
  EXPECT_TRUE(form_.PctAppCamera.Visible);
  EXPECT_FALSE(form_.Picture1.Visible);
  EXPECT_FALSE(form_.Picture2.Visible);
}

TEST_F(LimpiarCamposTest, TheInvoiceTickStaysInSightUntilANewFichaIsOpened) {
  station_.Enter("7", "abc");
  form_.PctBoton[boton::kFacturas].BorderStyle = 1;
  station_.TypeAndEnter("7");
  ASSERT_TRUE(form_.ChkFactura.Visible);
  form_.LimpiarCampos();
  EXPECT_TRUE(form_.ChkFactura.Visible);
  EXPECT_EQ(form_.ChkFactura.Value, 0);
  station_.TypeAndEnter("8");
  EXPECT_FALSE(form_.ChkFactura.Visible);
}

TEST_F(LimpiarCamposTest, TheGridIsClearedCellByCell) {
  for (Image& cell : form_.ImgFicha) {
    cell.Visible = true;
    cell.Picture = "x.jpg"_w;
  }
  form_.PctFicha.Picture = "x.jpg"_w;
  form_.ShpCelda.Visible = true;
  form_.LimpiarPantalla();
  for (const Image& cell : form_.ImgFicha)
    EXPECT_TRUE(!cell.Visible && cell.Picture.Empty()) << cell.Name;
  EXPECT_TRUE(form_.PctFicha.Picture.Empty());
  EXPECT_FALSE(form_.ShpCelda.Visible);
}

}  // namespace
}  // namespace vintoral
