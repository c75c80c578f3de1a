// The modes of the screen, and the ticks that change them by themselves.
#include <gtest/gtest.h>

#include <string>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;

class PantallaTest : public testing::Test {
 protected:
  PantallaTest() { station_.StartConnected(); }
  void SwitchToBarcodes() {
    form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
    form_.CambiarModoFicha();
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(PantallaTest, BarcodeModeClosesTheNumber) {
  SwitchToBarcodes();
  EXPECT_EQ(form_.TxtEtiqueta[0].Text(), "CODIGO BARRAS "_w);
  EXPECT_TRUE(form_.TxtBarCode.Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
  EXPECT_FALSE(form_.TxtCampo[0].Enabled);
  form_.SetFocus(&form_.TxtCampo[0]);
  station_.Hands.ReplaceText(form_.TxtCampo[0], "7"_w);
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
}

TEST_F(PantallaTest, NumberModeComesBack) {
  SwitchToBarcodes();
  ASSERT_FALSE(form_.TxtCampo[0].Enabled);
  form_.CambiarModoFicha();
  EXPECT_EQ(form_.TxtEtiqueta[0].Text(), "NUMERO FICHA "_w);
  EXPECT_FALSE(form_.TxtBarCode.Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
  station_.Type("7");
  EXPECT_EQ(form_.TxtCampo[0].Text(), "7"_w);
}

TEST_F(PantallaTest, TheButtonsOfTheGeneratorTakeTurns) {
  ASSERT_FALSE(form_.CmdBarCode.Visible || form_.CmdBarCode.Enabled);
  SwitchToBarcodes();
  EXPECT_TRUE(form_.CmdBarCode.Visible && form_.CmdBarCode.Enabled);
  EXPECT_FALSE(form_.CmdNumeroFicha.Visible);
  form_.CambiarModoFicha();
  EXPECT_FALSE(form_.CmdBarCode.Visible || form_.CmdBarCode.Enabled);
  EXPECT_TRUE(form_.CmdNumeroFicha.Visible);
}

TEST_F(PantallaTest, WithoutTicketsThereAreNoBarcodes) {
  form_.CambiarModoFicha();
  EXPECT_EQ(form_.TxtEtiqueta[0].Text(), "NUMERO FICHA "_w);
  EXPECT_FALSE(form_.TxtBarCode.Visible || form_.CmdBarCode.Visible || form_.CmdNumeroFicha.Visible);
}

TEST_F(PantallaTest, SwitchingCancelsAFichaOnDisplay) {
  station_.Enter("7", "abc");
  station_.TypeAndEnter("7");
  ASSERT_TRUE(form_.FichaEnPantalla());
  SwitchToBarcodes();
  EXPECT_FALSE(form_.FichaEnPantalla());
}

TEST_F(PantallaTest, SwitchingLeavesWhatIsBeingTyped) {
  form_.SetFocus(&form_.TxtCampo[1]);
  station_.Type("abc");
  station_.Heard();
  SwitchToBarcodes();
  EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC"_w);
  EXPECT_TRUE(station_.Heard().empty());
}

TEST_F(PantallaTest, TheMinutesNameTheirMonitor) {
  const std::array<String, 3> texts = {"30 Min. ATRAS"_w, "30 Min. ADENTRO"_w, "30 Min. AFUERA"_w};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    PictureBox& button = form_.PctBoton[boton::kUltimosEnIngresar + i];
    button.BorderStyle = 1;
    form_.CboMinutos.SetText("30 Minutos"_w);
    form_.EtiquetaMonitor();
    EXPECT_EQ(form_.CboMinutos.Text(), texts[i]);
    EXPECT_EQ(button.Tag, "30"_w);
    button.BorderStyle = 0;
  }
}

TEST_F(PantallaTest, MinutesThatNameTheirMonitorInTheListStay) {
  form_.PctBoton[boton::kUltimosEnSalir].BorderStyle = 1;
  form_.CboMinutos.AddItem("30 Min. AFUERA"_w);
  form_.CboMinutos.SetText("45 Minutos"_w);
  form_.EtiquetaMonitor();
  EXPECT_EQ(form_.CboMinutos.Text(), "45 Minutos"_w);
}

TEST_F(PantallaTest, WithoutAMonitorTheMinutesStay) {
  const String idle = form_.CboMinutos.Text();
  EXPECT_EQ(idle, "           P01 MONITOR"_w);
  form_.EtiquetaMonitor();
  EXPECT_EQ(form_.CboMinutos.Text(), idle);
}

// ---- What happens without the operator
// ------------------------------------------------------------------------

TEST_F(PantallaTest, TheIdleClockRuns) {
  station_.Clock.Set(At(9, 5, 59));
  station_.Pass(500);
  EXPECT_EQ(form_.LblFechaEnt.Caption, "09:05  (20/11/2026)"_w);
  station_.Pass(500);
  EXPECT_EQ(form_.LblFechaEnt.Caption, "09:06  (20/11/2026)"_w);
}

TEST_F(PantallaTest, TheGridHoldsStillWhileAFichaIsTypedOrShown) {
  station_.Pass(500);
  EXPECT_TRUE(form_.TmrMonitor.Enabled);
  station_.TypeAndEnter("7");
  station_.Pass(500);
  EXPECT_FALSE(form_.TmrMonitor.Enabled);
  station_.Hands.Key(keys::kEscape, 0);
  station_.Pass(500);
  EXPECT_TRUE(form_.TmrMonitor.Enabled);
}

TEST_F(PantallaTest, AForgottenFichaGoesBackToIdleAfterTwoMinutesAndStaysInside) {
  station_.Enter("7", "abc");
  const std::string act = station_.Disk.Get("Multimedia\\Vintoral.ACT");
  station_.Clock.Set(At(15, 0));
  station_.TypeAndEnter("7");
  station_.Pass(120'000);  // 15:02:00: not more than two minutes yet
  EXPECT_TRUE(form_.FichaEnPantalla());
  station_.Heard();
  station_.Pass(500);
  EXPECT_FALSE(form_.FichaEnPantalla());
  const auto heard = station_.Heard();
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.back(), "Sonidos\\Vintoral-7.wav"_w);
  EXPECT_EQ(station_.Disk.Get("Multimedia\\Vintoral.ACT"), act);
}

TEST_F(PantallaTest, AClockSetBackForgetsNoFicha) {
  station_.Enter("7", "abc");
  station_.Clock.Set(At(15, 0));
  station_.TypeAndEnter("7");
  station_.Clock.Set(At(14, 30));
  station_.Pass(120'000);
  EXPECT_TRUE(form_.FichaEnPantalla());
}

TEST_F(PantallaTest, RunTimeCountsTheChangesOfTheMinute) {
  const std::int64_t before = form_.TiempoEjecucion;
  station_.Clock.Set(At(14, 0, 58));
  station_.Pass(61'000);  // 14:01 begins, 14:02 does not
  EXPECT_EQ(form_.TiempoEjecucion, before + 1);
  station_.Pass(1'000);
  EXPECT_EQ(form_.TiempoEjecucion, before + 2);
}

TEST_F(PantallaTest, AHalfReadBarcodeIsThrownAwayASecondAfterItsLastCharacter) {
  SwitchToBarcodes();
  station_.Type("*00");
  station_.Pass(900);
  station_.Type("1");
  station_.Pass(999);
  EXPECT_EQ(form_.TxtBarCode.Text(), "*001"_w);
  station_.Pass(1);
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
}

TEST_F(PantallaTest, ABarcodeStaysBesideItsAcceptedValue) {
  SwitchToBarcodes();
  form_.TxtBarCodeOK.Visible = true;
  station_.Type("*001*");
  station_.Pass(1000);
  EXPECT_EQ(form_.TxtBarCode.Text(), "*001*"_w);
}

TEST_F(PantallaTest, TheValueStandsBehindTheTrimmedSymbol) {
  station_.Enter("7", "abc");
  form_.Moneda = " US$  "_w;
  station_.Clock.Set(At(14, 10));
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.LblValor.Caption, "US$ 1000.00"_w);  // ten minutes at 100
}

TEST_F(PantallaTest, ALostFolderStopsTheClockAndAFoundOneStartsIt) {
  const std::string act = station_.Disk.Get("Multimedia\\Vintoral.ACT");
  ASSERT_TRUE(station_.Disk.Remove("Multimedia\\Vintoral.ACT"));
  station_.Pass(10'000);
  EXPECT_EQ(form_.LblConexion[0].BackColor, 0x8080FF);
  EXPECT_EQ(form_.LblFechaEnt.Caption, "CONECTANDO... "_w);
  EXPECT_FALSE(form_.TmrHoraFecha.Enabled);
  EXPECT_EQ(form_.TmrConexion.Interval(), 3000);
  station_.Disk.Put("Multimedia\\Vintoral.ACT", act);
  station_.Pass(3'000);
  EXPECT_EQ(form_.LblConexion[2].BackColor, 0xC0FFC0);
  EXPECT_TRUE(form_.TmrHoraFecha.Enabled);
  EXPECT_TRUE(form_.LblIndicador[0].Visible);
  EXPECT_EQ(form_.TmrConexion.Interval(), 10'000);
}

}  // namespace
}  // namespace vintoral
