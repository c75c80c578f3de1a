// The three monitors: their buttons, lights, minutes and sets; and the counter of a category.
#include <gmock/gmock.h>

#include "unit/network/RejillaFixture.h"

namespace vintoral {
namespace {

using test::At;
using testing::ElementsAre;
using testing::IsEmpty;

class CambiarMonitorTest : public test::RejillaTest {
 protected:
  static RegistroFicha Entered(int number, const char* stamp) {
    RegistroFicha ficha = Ficha(number);
    ficha.MarcaEntrada = String(std::string_view(stamp));
    return ficha;
  }
  std::vector<int> Pressed() const {
    std::vector<int> pressed;
    for (std::size_t i = 0; i < Form.PctBoton.size(); ++i) {
      if (Form.PctBoton[i].BorderStyle == 1) pressed.push_back(static_cast<int>(i));
    }
    return pressed;
  }
  std::vector<int> Lights() const {
    std::vector<int> lights;
    for (std::size_t i = 0; i < Form.PctBuscar.size(); ++i) {
      if (Form.PctBuscar[i].Visible) lights.push_back(static_cast<int>(i));
    }
    return lights;
  }
  std::string Minutes() const { return Form.CboMinutos.Text().Bytes(); }
  /// Chosen from the list, by its text.
  void Choose(int index) { Station.Hands.Select(Form.CboMinutos, index); }
};

TEST_F(CambiarMonitorTest, EachShowsItselfByButtonLightAndText) {
  const std::vector<std::tuple<boton::Index, int, const char*, const char*>> monitors = {
      {boton::kUltimosEnIngresar, 0, "15 Min. ATRAS", "1"},
      {boton::kTiempoDePermanencia, 1, "15 Min. ADENTRO", "2"},
      {boton::kUltimosEnSalir, 2, "15 Min. AFUERA", "3"}};
  for (const auto& [button, light, text, tag] : monitors) {
    Press(button);
    EXPECT_THAT(Pressed(), ElementsAre(static_cast<int>(button)));
    EXPECT_THAT(Lights(), ElementsAre(light));
    EXPECT_EQ(Minutes(), text);
    EXPECT_EQ(Form.CboMinutos.Tag.Bytes(), tag);
    EXPECT_TRUE(Form.CboMinutos.Enabled);
    EXPECT_EQ(Form.PctBoton[button].Tag, "15"_w);
  }
}

TEST_F(CambiarMonitorTest, PressedAgainItIsOff) {
  ASSERT_EQ(Minutes(), "           P01 MONITOR");
  for (const boton::Index button :
       {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia, boton::kUltimosEnSalir}) {
    Press(button);
    Press(button);
    EXPECT_THAT(Pressed(), IsEmpty());
    EXPECT_THAT(Lights(), IsEmpty());
    EXPECT_EQ(Minutes(), "           P01 MONITOR");
    EXPECT_EQ(Form.CboMinutos.Tag, "0"_w);
    EXPECT_FALSE(Form.CboMinutos.Enabled);
  }
}

TEST_F(CambiarMonitorTest, EveryOtherLightGoesOut) {
  Form.PctBuscar[3].Visible = Form.PctBuscar[4].Visible = true;
  Press(boton::kTiempoDePermanencia);
  EXPECT_THAT(Lights(), ElementsAre(1));
}

TEST_F(CambiarMonitorTest, EachKeepsItsOwnMinutes) {
  Press(boton::kUltimosEnIngresar);
  Choose(3);
  EXPECT_EQ(Minutes(), "60 Min. ATRAS");
  Press(boton::kTiempoDePermanencia);
  EXPECT_EQ(Minutes(), "15 Min. ADENTRO");
  Choose(1);
  Press(boton::kUltimosEnIngresar);
  EXPECT_EQ(Minutes(), "60 Min. ATRAS");
  Press(boton::kTiempoDePermanencia);
  EXPECT_EQ(Minutes(), "30 Min. ADENTRO");
}

TEST_F(CambiarMonitorTest, TheArrowsGoOnFromTheMinutesInForce) {
  Form.PctBoton[boton::kUltimosEnIngresar].Tag = "60"_w;
  Press(boton::kUltimosEnIngresar);
  Form.SetFocus(&Form.CboMinutos);
  Station.Hands.Key(keys::kDown, 0);
  EXPECT_EQ(Minutes(), "90 Min. ATRAS");
  Station.Hands.Key(keys::kUp, 0);
  Station.Hands.Key(keys::kUp, 0);
  EXPECT_EQ(Minutes(), "45 Min. ATRAS");
}

TEST_F(CambiarMonitorTest, ARegisterThatCannotBeReadLeavesTheGridAlone) {
  Fill(3);
  Station.Faulty.Set().failRead = 1;
  Free(1);
  Form.RefrescarVista();
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002", "0003"));
  PutHistory({Salida(1, 11, "13:00  (20/11/2026)")});
  Press(boton::kUltimosEnSalir);
  ASSERT_THAT(Cells(), ElementsAre("0011"));
  PutHistory({Salida(1, 12, "13:00  (20/11/2026)")});
  Station.Faulty.Set().failRead = 1;
  Form.RefrescarVista();
  EXPECT_THAT(Cells(), ElementsAre("0011"));
  Station.Faulty.Set().failLength = true;
  Form.RefrescarVista();
  EXPECT_THAT(Cells(), ElementsAre("0011"));
}

TEST_F(CambiarMonitorTest, MinutesThatAreNotInTheListComeBackToo) {
  Form.PctBoton[boton::kUltimosEnSalir].Tag = "25"_w;
  Press(boton::kUltimosEnSalir);
  EXPECT_EQ(Minutes(), "25 Min. AFUERA");
}

TEST_F(CambiarMonitorTest, NoMinutesAreTheFirstOfTheList) {
  for (const char* none : {"", "0", "-5"}) {
    Form.PctBoton[boton::kUltimosEnIngresar].Tag = String(std::string_view(none));
    Press(boton::kUltimosEnIngresar);
    EXPECT_EQ(Minutes(), "15 Min. ATRAS") << none;
    Press(boton::kUltimosEnIngresar);
  }
}

TEST_F(CambiarMonitorTest, TheVoiceTellsOnAndOffButNoChange) {
  Station.Events.Take();
  Press(boton::kUltimosEnIngresar);
  EXPECT_THAT(Station.Heard(), ElementsAre("ABRiL\\ABRiL-1.wav"_w));
  Press(boton::kUltimosEnSalir);
  EXPECT_THAT(Station.Heard(), IsEmpty());
  Press(boton::kUltimosEnSalir);
  EXPECT_THAT(Station.Heard(), ElementsAre("ABRiL\\ABRiL-2.wav"_w));
}

TEST_F(CambiarMonitorTest, TheScreenGoesToIdleAndTheFocusToTheToolBar) {
  Station.TypeAndEnter("9");
  ASSERT_TRUE(Form.FichaEnCurso());
  Press(boton::kUltimosEnIngresar);
  EXPECT_FALSE(Form.FichaEnCurso());
  EXPECT_EQ(Form.TxtCampo[0].Text(), ""_w);
  EXPECT_EQ(Form.Focus(), nullptr);
}

// ---- Their sets, at 14:00:03
// ---------------------------------------------------------------------------------------

TEST_F(CambiarMonitorTest, LastToEnter) {
  Station.PutSlot(1, Entered(1, "13:45  (20/11/2026)"));  // and three seconds too early
  Station.PutSlot(2, Entered(2, "13:46  (20/11/2026)"));
  Station.PutSlot(3, Entered(3, "13:59  (19/11/2026)"));
  Press(boton::kUltimosEnIngresar);
  EXPECT_THAT(Cells(), ElementsAre("0002"));
  Choose(1);  // 30 minutes
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002"));
  EXPECT_EQ(Form.PctBoton[boton::kUltimosEnIngresar].Tag, "30"_w);
  Press(boton::kUltimosEnIngresar);
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002", "0003"));
}

TEST_F(CambiarMonitorTest, InForLong) {
  Station.PutSlot(1, Entered(1, "13:45  (20/11/2026)"));
  Station.PutSlot(2, Entered(2, "13:46  (20/11/2026)"));
  Station.PutSlot(3, Entered(3, "08:00  (19/11/2026)"));
  Press(boton::kTiempoDePermanencia);
  EXPECT_THAT(Cells(), ElementsAre("0001"));
}

TEST_F(CambiarMonitorTest, LastToLeaveLatestFirstAndOnlyOfToday) {
  PutHistory({Salida(1, 11, "13:00  (20/11/2026)"), Salida(2, 12, "13:30  (19/11/2026)"),
              Salida(3, 13, "13:30  (20/11/2026)"), Salida(4, 14, "13:40  (20/11/2026)"),
              Salida(5, 15, "13:55  (20/11/2026)")});
  Fill(2);
  Press(boton::kUltimosEnSalir);
  // Five minutes ago is not yet; the walk stops at yesterday's, so the first row is not reached.
  EXPECT_THAT(Cells(), ElementsAre("0014", "0013"));
  EXPECT_EQ(Page(), "2 ( 1/1 )  ");
  Press(boton::kUltimosEnSalir);
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002"));
}

TEST_F(CambiarMonitorTest, FromOneMonitorToAnotherTheRegisterChanges) {
  PutHistory({Salida(1, 11, "13:00  (20/11/2026)")});
  Fill(1);
  Press(boton::kUltimosEnSalir);
  ASSERT_THAT(Cells(), ElementsAre("0011"));
  Press(boton::kTiempoDePermanencia);
  EXPECT_THAT(Cells(), ElementsAre("0001"));
}

TEST_F(CambiarMonitorTest, TheFirstPageIsShown) {
  Fill(60);
  Press(boton::kAvanzar);
  ASSERT_EQ(Form.InicioPagina, 51);
  Press(boton::kTiempoDePermanencia);
  EXPECT_EQ(Form.InicioPagina, 1);
  EXPECT_EQ(Page(), "60 ( 1/2 )  ");
}

TEST_F(CambiarMonitorTest, TheTickAndARetiringReloadTheExits) {
  PutHistory({Salida(1, 11, "13:40  (20/11/2026)")});
  Press(boton::kUltimosEnSalir);
  ASSERT_THAT(Cells(), ElementsAre("0011"));
  PutHistory({Salida(1, 11, "13:40  (20/11/2026)"), Salida(2, 12, "13:41  (20/11/2026)")});
  Form.RefrescarVista();
  EXPECT_THAT(Cells(), ElementsAre("0012", "0011"));
  PutHistory({Salida(1, 13, "13:40  (20/11/2026)")});
  Station.Pass(7'000);
  EXPECT_THAT(Cells(), ElementsAre("0013"));
}

TEST_F(CambiarMonitorTest, EnterInTheMinutesTakesThemAndLeadsBack) {
  Station.PutSlot(1, Entered(1, "13:21  (20/11/2026)"));
  Press(boton::kUltimosEnIngresar);
  ASSERT_THAT(Cells(), IsEmpty());
  Form.SetFocus(&Form.CboMinutos);
  Station.TypeAndEnter("40");
  EXPECT_EQ(Minutes(), "40 Min. ATRAS");
  EXPECT_EQ(Form.PctBoton[boton::kUltimosEnIngresar].Tag, "40"_w);
  EXPECT_THAT(Cells(), ElementsAre("0001"));
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
}

TEST_F(CambiarMonitorTest, TheMinutesAreLabelledWhenAPointerComes) {
  Fill(1);
  Press(boton::kTiempoDePermanencia);
  Form.SetFocus(&Form.CboMinutos);
  Station.Type("5");
  ASSERT_EQ(Minutes(), "5");
  Hover(0);
  EXPECT_EQ(Minutes(), "5 Min. ADENTRO");
}

// ---- The counter
// ------------------------------------------------------------------------------------------------

class ContadorTest : public test::RejillaTest {
 protected:
  ContadorTest() {
    Form.CboTarifa[1].Clear();
    for (const String& item : {"AUTOMOVIL"_w, "MOTO"_w, "BUS"_w})
      Form.CboTarifa[1].AddItem(item);
    RegistroFicha moto = Ficha(1);
    moto.Categoria = "  moto ";
    Form.VistaFichas = {Ficha(2), moto, Ficha(3), Ficha(4)};
  }
  /// What the counter shows while it waits, for the category that is chosen.
  std::string Count() {
    std::string shown;
    Station.UnderWait = [&] { shown = Form.LblInfo[4].Caption.Bytes(); };
    Form.ImgContador_Click();
    return shown;
  }
};

TEST_F(ContadorTest, CountsTheCategoryInTheGrid) {
  Form.CboTarifa[1].Select(0);
  EXPECT_EQ(Count(), "3");
  Form.CboTarifa[1].Select(1);
  EXPECT_EQ(Count(), "1");
  Form.CboTarifa[1].Select(2);
  EXPECT_EQ(Count(), "0");
}

TEST_F(ContadorTest, OfAFichaOnDisplayItsCategoryCounts) {
  Form.CboTarifa[1].Select(2);
  Form.CboTarifa[1].Visible = false;
  Form.CboTarifa[0].SetText(" MOTO "_w);
  EXPECT_EQ(Count(), "1");
}

TEST_F(ContadorTest, IsToldForTwoSecondsWithASound) {
  Form.CboTarifa[1].Select(0);
  Station.Events.Take();
  Station.Hands.Key('C', keys::kControl);
  EXPECT_THAT(Station.Heard(), ElementsAre("Sonidos\\Vintoral-9.wav"_w));
  EXPECT_EQ(Form.LblInfo[4].Caption, ""_w);
  EXPECT_THAT(Station.Waits, ElementsAre(2000));
}

TEST_F(ContadorTest, AKeyThatIsHeldDownAsksOnce) {
  Station.UnderWait = [this] { Form.ImgContador_Click(); };
  Form.ImgContador_Click();
  EXPECT_THAT(Station.Waits, ElementsAre(2000));
}

TEST_F(ContadorTest, IsAskedByItsIconToo) {
  Station.Events.Take();
  Station.Hands.Click(Form.ImgContador);
  EXPECT_THAT(Station.Heard(), ElementsAre("Sonidos\\Vintoral-9.wav"_w));
}

}  // namespace
}  // namespace vintoral
