// What the fare of a ficha on display leaves on the screen.
#include <gtest/gtest.h>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;

class CalcularValorTest : public testing::Test {
 protected:
  CalcularValorTest() {
    form_.TablaTarifas = {"AUTO"_w, "1M = 100*"_w, ""_w, "VISITANTE"_w};
    form_.CboTarifa[0].SetText("AUTO"_w);
    form_.Permanencia = {.dias = 0, .horas = 0, .minutos = 30};
    form_.ImgPuntos.Visible = true;
    form_.ImgPuntos.Tag = "0"_w;
    form_.PctBoton[boton::kFacturas].BorderStyle = 1;
    form_.ChkFactura.Tag = "0"_w;
    form_.ChkFactura.Enabled = false;
  }
  MemoryStation station_{At(14, 5)};
  Form1& form_ = station_.Form;
};

TEST_F(CalcularValorTest, TheExitIsNow) {
  EXPECT_EQ(form_.CalcularValor(), Money::FromUnits(3000));  // 30 minutes at 100
  EXPECT_EQ(form_.LblFechaSal.Caption, "14:05  (20/11/2026)"_w);
  EXPECT_EQ(form_.MarcaSalidaPendiente, "14:05  (20/11/2026)"_w);
  EXPECT_TRUE(form_.LblValor.Visible);
}

TEST_F(CalcularValorTest, PointsOfTheStayAreAddedToTheUsers) {
  form_.PuntosAcumulados = 40;
  form_.CalcularValor();
  EXPECT_EQ(form_.PuntosEstadia, 2);  // two quarters of an hour
  EXPECT_EQ(form_.LblPuntos[1].Caption, "42"_w);
  EXPECT_TRUE(form_.LblPuntos[0].Visible && form_.LblPuntos[1].Visible);
}

TEST_F(CalcularValorTest, PointsBeginAgainBeyondSixDigits) {
  form_.PuntosAcumulados = 999'997;
  form_.CalcularValor();
  EXPECT_EQ(form_.PuntosAcumulados, 999'997);
  form_.PuntosAcumulados = 999'998;
  form_.CalcularValor();
  EXPECT_EQ(form_.PuntosAcumulados, 0);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "2"_w);
}

TEST_F(CalcularValorTest, NoPointsAreCountedWhereTheirIconIsGoneOrSpent) {
  form_.PuntosEstadia = 7;
  form_.ImgPuntos.Visible = false;
  form_.CalcularValor();
  EXPECT_EQ(form_.PuntosEstadia, 7);
  form_.ImgPuntos.Visible = true;
  form_.ImgPuntos.Tag = "1"_w;
  form_.CalcularValor();
  EXPECT_EQ(form_.PuntosEstadia, 7);
}

TEST_F(CalcularValorTest, AnInvoiceIsOfferedOnceForEachDisplay) {
  form_.CalcularValor();
  EXPECT_EQ(form_.ChkFactura.Value, 1);
  EXPECT_EQ(form_.ChkFactura.Tag, "1"_w);
  EXPECT_TRUE(form_.ChkFactura.Enabled);
  form_.ChkFactura.Value = 0;
  form_.CalcularValor();
  EXPECT_EQ(form_.ChkFactura.Value, 0);
}

TEST_F(CalcularValorTest, WithoutInvoicesOrPriceNoneIsOffered) {
  form_.PctBoton[boton::kFacturas].BorderStyle = 0;
  form_.CalcularValor();
  EXPECT_EQ(form_.ChkFactura.Value, 0);
  form_.PctBoton[boton::kFacturas].BorderStyle = 1;
  form_.CboTarifa[0].SetText("VISITANTE"_w);
  form_.CalcularValor();
  EXPECT_EQ(form_.ChkFactura.Value, 0);
  EXPECT_EQ(form_.ChkFactura.Tag, "0"_w);
}

TEST_F(CalcularValorTest, ACategoryWithoutPriceHidesTheValue) {
  form_.LblValor.Visible = true;
  form_.CboTarifa[0].SetText("VISITANTE"_w);
  EXPECT_EQ(form_.CalcularValor(), Money());
  EXPECT_FALSE(form_.LblValor.Visible);
  EXPECT_TRUE(form_.LblPuntos[0].Visible);
}

TEST_F(CalcularValorTest, ACategoryThatNoTariffHasTakesNoPoints) {
  form_.CboTarifa[0].SetText("CAMION"_w);
  EXPECT_EQ(form_.CalcularValor(), Money());
  EXPECT_FALSE(form_.LblPuntos[0].Visible || form_.LblPuntos[1].Visible);
  EXPECT_FALSE(form_.LblValor.Visible);
}

TEST_F(CalcularValorTest, AStayIsReadFromTwoMoments) {
  EXPECT_EQ(form_.CalcularTiempo("20/11/2026 10:00:00", "20/11/2026 12:15:00"), "02H 15M "_w);
  EXPECT_EQ(form_.Permanencia.horas, 2);
  EXPECT_EQ(form_.CalcularTiempo("20/11/2026 10:00:00", "x"), "??"_w);
  EXPECT_EQ(form_.Permanencia.horas, 0);
  EXPECT_EQ(form_.Permanencia.minutos, 0);
}

}  // namespace
}  // namespace vintoral
