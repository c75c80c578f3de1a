// The page of the grid: its cells, their photos, the count and the pages.
#include <gmock/gmock.h>

#include "unit/network/RejillaFixture.h"

namespace vintoral {
namespace {

using test::FotoDentro;
using test::FotoFuera;
using test::MemoryStation;
using test::Photo;
using testing::ElementsAre;
using testing::IsEmpty;

class ImprimirIndiceTest : public test::RejillaTest {};

TEST(ImprimirIndice, CountsFichasAndPagesOfFifty) {
  MemoryStation station;
  Form1& form = station.Form;
  for (const auto& [fichas, first, text] : {std::tuple{0u, 1, "0 ( 1/1 )  "},
                                            {1u, 1, "1 ( 1/1 )  "},
                                            {50u, 1, "50 ( 1/1 )  "},
                                            {51u, 1, "51 ( 1/2 )  "},
                                            {51u, 51, "51 ( 2/2 )  "},
                                            {100u, 51, "100 ( 2/2 )  "},
                                            {101u, 101, "101 ( 3/3 )  "}}) {
    form.VistaFichas.resize(fichas);
    form.InicioPagina = first;
    form.ImprimirIndice();
    EXPECT_EQ(form.LblInfo[0].Caption.Bytes(), text);
  }
}

TEST_F(ImprimirIndiceTest, EachRecordHasACellWithItsNumberAndItsPhotoIfThereIsOne) {
  Disk.Put(FotoDentro(2), Photo());
  Fill(3);
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002*", "0003"));
  EXPECT_EQ(Form.ImgFicha[1].Picture.Path(), "Multimedia\\Imágenes ACT\\000002.jpg"_w);
}

TEST_F(ImprimirIndiceTest, WhatTheCellsShowedBeforeIsCleared) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(2);
  ASSERT_THAT(Cells(), ElementsAre("0001*", "0002"));
  Free(1);
  Form.RefrescarVista();
  EXPECT_THAT(Cells(), ElementsAre("0002"));
  EXPECT_TRUE(Form.ImgFicha[0].Picture.Empty());
  EXPECT_FALSE(Form.ImgFicha[1].Visible);
  EXPECT_TRUE(Form.ImgFicha[1].Caption.Empty());
}

TEST_F(ImprimirIndiceTest, WhoHasLeftHasItsPhotoInTheHistory) {
  Disk.Put(FotoDentro(1), Photo());
  Disk.Put(FotoFuera(2), Photo());
  Form.VistaFichas = {Salida(1, 5, "13:00  (20/11/2026)"), Salida(2, 6, "13:10  (20/11/2026)")};
  Form.ImprimirIndice();
  EXPECT_THAT(Cells(), ElementsAre("0005", "0006*"));
  EXPECT_EQ(Form.ImgFicha[1].Picture.Path(), "Multimedia\\Imágenes HST\\000002.jpg"_w);
}

TEST_F(ImprimirIndiceTest, TheSecondPageHasTheFiftyFirst) {
  Fill(51);
  EXPECT_EQ(Cells().size(), 50u);
  EXPECT_EQ(Cells().front(), "0001");
  EXPECT_EQ(Cells().back(), "0050");
  Form.InicioPagina = 51;
  Form.ImprimirIndice();
  EXPECT_THAT(Cells(), ElementsAre("0051"));
  EXPECT_EQ(Page(), "51 ( 2/2 )  ");
}

TEST_F(ImprimirIndiceTest, APageThatHasRunEmptyStepsBack) {
  Fill(51);
  Form.InicioPagina = 51;
  Form.ImprimirIndice();
  Station.Events.Take();
  Free(51);
  Form.RefrescarVista();
  EXPECT_EQ(Form.InicioPagina, 1);
  EXPECT_EQ(Page(), "50 ( 1/1 )  ");
  EXPECT_EQ(Cells().size(), 50u);
  EXPECT_THAT(Station.Heard(), ElementsAre("Sonidos\\Vintoral-5.wav"_w));
}

TEST_F(ImprimirIndiceTest, TwoPagesThatHaveRunEmptyStepBackTwice) {
  Form.VistaFichas.assign(3, Ficha(1));
  Form.InicioPagina = 101;
  Form.ImprimirIndice();
  EXPECT_EQ(Form.InicioPagina, 1);
  EXPECT_EQ(Page(), "3 ( 1/1 )  ");
}

TEST_F(ImprimirIndiceTest, ADamagedPhotoIsDeletedAndItsCellIsBlank) {
  const std::string whole = Photo();
  Disk.Put(FotoDentro(1), whole.substr(0, whole.size() / 2));
  Disk.SetReadOnly(FotoDentro(1));
  Disk.Put(FotoDentro(2), "");
  Disk.Put(FotoDentro(3), whole);
  Fill(3);
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002", "0003*"));
  EXPECT_FALSE(Disk.Exists(FotoDentro(1)));
  EXPECT_FALSE(Disk.Exists(FotoDentro(2)));
  EXPECT_TRUE(Disk.Exists(FotoDentro(3)));
}

TEST_F(ImprimirIndiceTest, APhotoThatCannotBeReadStays) {
  Disk.Put(FotoDentro(1), "no picture");
  Station.PutSlot(1, Ficha(1));
  Form.CargarArchivoACT();
  Station.Faulty.Set().failLength = true;
  Form.ImprimirIndice();
  EXPECT_THAT(Cells(), ElementsAre("0001"));
  EXPECT_EQ(Disk.Get(FotoDentro(1)), "no picture");
  Station.Faulty.Repair();
  Form.ImprimirIndice();
  EXPECT_FALSE(Disk.Exists(FotoDentro(1)));
}

TEST_F(ImprimirIndiceTest, APhotoThatSomebodyWritesStays) {
  Disk.Put(FotoDentro(1), "half a pict");
  Disk.SetBeingWritten(FotoDentro(1));
  Fill(1);
  EXPECT_THAT(Cells(), ElementsAre("0001"));
  EXPECT_TRUE(Disk.Exists(FotoDentro(1)));
}

TEST_F(ImprimirIndiceTest, AnotherPhotoUnderTheSameNameIsAnotherPicture) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(1);
  const Picture before = Form.ImgFicha[0].Picture;
  Form.ImprimirIndice();
  EXPECT_EQ(Form.ImgFicha[0].Picture, before);
  Disk.Put(FotoDentro(1), Photo());
  Form.ImprimirIndice();
  EXPECT_NE(Form.ImgFicha[0].Picture, before);
}

TEST_F(ImprimirIndiceTest, TheFrameStaysAroundTheFichaOnDisplay) {
  Fill(51);
  Station.TypeAndEnter("3");
  ASSERT_TRUE(Form.FichaEnPantalla());
  Form.ImprimirIndice();
  EXPECT_TRUE(Form.ShpCelda.Visible);
  EXPECT_EQ(Form.ShpCelda.Cell, 2);
  Press(boton::kAvanzar);
  EXPECT_TRUE(Form.ShpCelda.Visible);  // so that the retire button works on
  EXPECT_EQ(Form.ShpCelda.Cell, -1);
}

TEST_F(ImprimirIndiceTest, NoFrameAtIdle) {
  Fill(3);
  Form.ShpCelda.Visible = true;
  Form.ImprimirIndice();
  EXPECT_FALSE(Form.ShpCelda.Visible);
}

TEST_F(ImprimirIndiceTest, ARowOfTheHistoryWithThatNumberHasNoFrame) {
  Fill(3);
  Station.TypeAndEnter("3");
  Form.VistaFichas = {Salida(3, 9, "13:00  (20/11/2026)")};
  Form.ImprimirIndice();
  EXPECT_EQ(Form.ShpCelda.Cell, -1);
}

// ---- A face that reads its pictures beside the station
// ---------------------------------------------------------

TEST_F(ImprimirIndiceTest, WhatTurnsOutToBeNoPictureIsDeletedLater) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(2);
  const Picture shown = Form.ImgFicha[0].Picture;
  Form.FotoDanada(shown.Path(), shown.Mark());
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002"));
  EXPECT_FALSE(Disk.Exists(FotoDentro(1)));
}

TEST_F(ImprimirIndiceTest, WhatWasReplacedSinceItWasReadStays) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(1);
  const Picture shown = Form.ImgFicha[0].Picture;
  Disk.Put(FotoDentro(1), Photo());
  Form.FotoDanada(shown.Path(), shown.Mark());
  EXPECT_TRUE(Disk.Exists(FotoDentro(1)));
}

TEST_F(ImprimirIndiceTest, WhatNoCellShowsAnyMoreStays) {
  Disk.Put(FotoDentro(1), Photo());
  Fill(1);
  const Picture shown = Form.ImgFicha[0].Picture;
  Form.VistaFichas.clear();
  Form.ImprimirIndice();
  Form.FotoDanada(shown.Path(), shown.Mark());
  EXPECT_TRUE(Disk.Exists(FotoDentro(1)));
}

// ---- Pages
// ----------------------------------------------------------------------------------------------------

TEST_F(ImprimirIndiceTest, PagesTurnBetweenTheFirstAndTheLast) {
  Fill(101);
  const std::vector<int> forward = {51, 101, 101};
  for (const int page : forward) {
    Press(boton::kAvanzar);
    EXPECT_EQ(Form.InicioPagina, page);
  }
  EXPECT_THAT(Cells(), ElementsAre("0101"));
  const std::vector<int> back = {51, 1, 1};
  for (const int page : back) {
    Press(boton::kRetroceder);
    EXPECT_EQ(Form.InicioPagina, page);
  }
  EXPECT_EQ(Page(), "101 ( 1/3 )  ");
}

TEST_F(ImprimirIndiceTest, TwoQuickPressesAreTwoPages) {
  Fill(201);
  for (const auto& [button, page] : {std::pair(boton::kAvanzar, 101), std::pair(boton::kRetroceder, 1)}) {
    Station.Hands.Click(Form.PctBoton[button]);
    Station.Hands.DoubleClick(Form.PctBoton[button]);  // the second press of a quick hand
    EXPECT_EQ(Form.InicioPagina, page);
  }
  PictureBox& monitor = Form.PctBoton[boton::kUltimosEnIngresar];
  Station.Hands.Click(monitor);
  Station.Hands.DoubleClick(monitor);
  EXPECT_EQ(monitor.BorderStyle, 1) << "what is switched is switched once";
}

TEST_F(ImprimirIndiceTest, FiftyFichasHaveNoSecondPage) {
  Fill(50);
  Press(boton::kAvanzar);
  EXPECT_EQ(Form.InicioPagina, 1);
}

TEST_F(ImprimirIndiceTest, TurningAPageLeadsBackToTheNumber) {
  Fill(51);
  for (const boton::Index button : {boton::kAvanzar, boton::kRetroceder}) {
    Form.SetFocus(&Form.TxtCampo[3]);
    Press(button);
    EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
  }
}

TEST_F(ImprimirIndiceTest, AFichaThatIsTypedKeepsItsPlace) {
  Fill(51);
  Station.TypeAndEnter("77");
  ASSERT_EQ(Form.Focus(), &Form.TxtCampo[1]);
  Press(boton::kAvanzar);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[1]);
  EXPECT_EQ(Form.InicioPagina, 51);
}

TEST(RefrescarVista, ReadsTheRegisterAndShowsItsCount) {
  MemoryStation station;
  station.StartConnected();
  station.Enter("7", "abc");
  station.Form.VistaFichas.clear();
  station.Form.LblInfo[0].Caption = {};
  station.Form.RefrescarVista();
  EXPECT_EQ(station.Form.TotalVista(), 1);
  EXPECT_EQ(station.Form.LblInfo[0].Caption, "1 ( 1/1 )  "_w);
}

}  // namespace
}  // namespace vintoral
