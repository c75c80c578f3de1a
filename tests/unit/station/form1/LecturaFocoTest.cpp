// At the idle screen a code is found wherever the focus is.
#include <gmock/gmock.h>

#include <string>

#include "unit/station/form1/LecturaFixture.h"

namespace vintoral {
namespace {

using test::kCodigo;
using test::kOtro;
using test::LecturaTest;

using LecturaFocoTest = LecturaTest;

TEST_F(LecturaFocoTest, InTheListOfCategoriesTheChoiceStays) {
  form_.CboTarifa[1].Select(3);
  const String chosen = form_.CboTarifa[1].Text();
  form_.SetFocus(&form_.CboTarifa[1]);
  ASSERT_EQ(form_.Focus(), &form_.CboTarifa[1]);
  Scan("A1B2C3D4E5F");
  ASSERT_NE(form_.CboTarifa[1].Text(), chosen);  // letters jump to categories
  Scan("6");
  EXPECT_TRUE(Found());
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 3);
  EXPECT_EQ(form_.CboTarifa[1].Text(), chosen);
}

TEST_F(LecturaFocoTest, InTheMinutesTheMonitorStays) {
  form_.PctBoton[boton::kUltimosEnIngresar].BorderStyle = 1;
  form_.CboMinutos.Enabled = true;
  form_.CboMinutos.Select(1);
  form_.CambiarMinutos();
  ASSERT_EQ(form_.CboMinutos.Text(), "30 Min. ATRAS"_w);
  ASSERT_EQ(form_.CboMinutos.ListIndex(), 1);
  form_.SetFocus(&form_.CboMinutos);
  ASSERT_EQ(form_.Focus(), &form_.CboMinutos);
  Scan(kOtro);
  EXPECT_EQ(form_.CboMinutos.Text(), "30 Min. ATRAS"_w);
  EXPECT_EQ(form_.CboMinutos.ListIndex(), 1);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kOtro));
}

TEST_F(LecturaFocoTest, InTheMinutesWhatIsNoItemStaysToo) {
  form_.CboMinutos.Enabled = true;
  form_.CboMinutos.SetText("17"_w);
  ASSERT_EQ(form_.CboMinutos.ListIndex(), -1);
  form_.SetFocus(&form_.CboMinutos);
  Scan(kOtro);
  EXPECT_EQ(form_.CboMinutos.Text(), "17"_w);
  EXPECT_EQ(form_.TxtBarCode.Text(), String(kOtro));
}

TEST_F(LecturaFocoTest, ALabelThatIsBeingRenamedKeepsItsName) {
  form_.AbrirEtiqueta(2);
  ASSERT_EQ(form_.Focus(), &form_.TxtEtiqueta[2]);
  const String label = form_.TxtEtiqueta[2].Text();
  Scan(kCodigo);
  EXPECT_EQ(form_.TxtEtiqueta[2].Text(), label);
  EXPECT_TRUE(Found());
}

TEST_F(LecturaFocoTest, InTheToolBarItGoesToTheBoxOfCodes) {
  form_.SetFocus(nullptr);
  Scan("A1B2");
  EXPECT_EQ(form_.Focus(), &form_.TxtBarCode);
  EXPECT_EQ(form_.TxtBarCode.Text(), "A1B2"_w);
  Scan("C3D4E5F6");
  EXPECT_TRUE(Found());
}

TEST_F(LecturaFocoTest, OnAButtonItGoesToTheBoxOfCodes) {
  form_.SetFocus(&form_.CmdBarCode);
  ASSERT_EQ(form_.Focus(), &form_.CmdBarCode);
  Scan(kCodigo);
  EXPECT_TRUE(Found());
}

TEST_F(LecturaFocoTest, UnderAPointerThatRestsOnACellToo) {
  PutInside(8, "XYZ");
  PutCode(8, kOtro, "0008");
  form_.RefrescarVista();
  station_.Hands.Hover(form_.ImgFicha[0]);
  ASSERT_EQ(form_.LblCampo[0].Caption, "0007"_w);
  ASSERT_FALSE(form_.TxtCampo[1].Visible);
  Scan(kOtro);
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_EQ(form_.LblCampo[0].Caption, "0008"_w);
}

TEST_F(LecturaFocoTest, ChangingTheFieldBeginsAnew) {
  form_.SetFocus(&form_.TxtCampo[1]);
  Scan("A1B2C3");
  form_.SetFocus(&form_.TxtCampo[2]);
  Scan("D4E5F6");
  EXPECT_EQ(form_.TxtCampo[1].Text(), "A1B2C3"_w);
  EXPECT_EQ(form_.TxtCampo[2].Text(), "D4E5F6"_w);
  EXPECT_FALSE(Found());
}

}  // namespace
}  // namespace vintoral
