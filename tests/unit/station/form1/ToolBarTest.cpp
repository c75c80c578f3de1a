// The tool bar: its table, and what its buttons do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "station/form1/Commands.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::ElementsAre;

const String kClick = "Sonidos\\Vintoral-5.wav"_w;

class ButtonTest : public testing::Test {
 protected:
  ButtonTest() { station_.StartConnected(); }
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

struct Button {
  const char* tooltip;
  const char* pressed;
  Answering answering;
  const char* log;
  int lock;
};

const std::vector<Button> kButtons = {
    {"<CTRL+W> Conectar/Cambiar Cámara Web", "<CTRL+W> Conectar/Cambiar Cámara Web", Answering::kClick, "",
     0},
    {"<REPAG> Retroceder Página", "<REPAG> Retroceder Página", Answering::kClick, "", 0},
    {"<AVPAG> Avanzar Página", "<AVPAG> Avanzar Página", Answering::kClick, "", 0},
    {"<F4> Imprimir Estado/Búsqueda/Ficha", "<F4> Imprimir Estado/Búsqueda/Ficha", Answering::kSilent, "", 6},
    {"<F5> Activar Búsqueda de Registros", "<F5> Desactivar Búsqueda de Registros", Answering::kSilent, "",
     7},
    {"<INSERT> Guardar Ficha", "<INSERT> Guardar Ficha", Answering::kSilent, "", 0},
    {"<SUPR> Retirar Ficha", "<SUPR> Retirar Ficha", Answering::kSilent, "", 0},
    {"<F1> Activar Monitor \"ULTIMOS EN INGRESAR\"", "<F1> Desactivar Monitor \"ULTIMOS EN INGRESAR\"",
     Answering::kVoice, "", 0},
    {"<F2> Activar Monitor \"TIEMPO DE PERMANENCIA\"", "<F2> Desactivar Monitor \"TIEMPO DE PERMANENCIA\"",
     Answering::kVoice, "", 0},
    {"<F3> Activar Monitor \"ULTIMOS EN SALIR\"", "<F3> Desactivar Monitor \"ULTIMOS EN SALIR\"",
     Answering::kVoice, "", 0},
    {"Activar Impresión de Tiquetes", "Desactivar Impresión de Tiquetes", Answering::kSilent, "7", 8},
    {"<ESC> Cancelar/Limpiar Campos", "<ESC> Cancelar/Limpiar Campos", Answering::kSilent, "", 0},
    {"<F7> Registrar Extras", "<F7> Registrar Extras", Answering::kSilent, "", 10},
    {"<F8> Abrir Menú de Funciones", "<F8> Abrir Menú de Funciones", Answering::kClick, "", 0},
    {"Activar Impresión de Facturas", "Desactivar Impresión de Facturas", Answering::kSilent, "8", 9},
};

TEST(ButtonCommands, StandRowByRow) {
  const auto rows = ButtonCommands();
  ASSERT_EQ(rows.size(), kButtons.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE("button " + std::to_string(i));
    EXPECT_STREQ(rows[i].tooltip, kButtons[i].tooltip);
    EXPECT_STREQ(rows[i].tooltipPressed, kButtons[i].pressed);
    EXPECT_EQ(rows[i].answering, kButtons[i].answering);
    EXPECT_STREQ(rows[i].log == nullptr ? "" : rows[i].log, kButtons[i].log);
    EXPECT_EQ(rows[i].lock, kButtons[i].lock);
    constexpr std::size_t kTickets = 10;
    EXPECT_EQ(rows[i].lockToSwitchOff, i == kTickets ? 14 : 0);
  }
}

TEST(ButtonCommands, ThePointerSetsTheTooltipOfTheButtonsState) {
  MemoryStation station;
  for (std::size_t i = 0; i < kButtons.size(); ++i) {
    PictureBox& button = station.Form.PctBoton[i];
    button.BorderStyle = 0;
    station.Hands.Hover(button);
    EXPECT_EQ(button.ToolTipText, String::FromUtf8(kButtons[i].tooltip)) << i;
    button.BorderStyle = 1;
    station.Hands.Hover(button);
    EXPECT_EQ(button.ToolTipText, String::FromUtf8(kButtons[i].pressed)) << i;
  }
}

TEST_F(ButtonTest, AButtonThatIsNotThereDoesNothing) {
  form_.PctBoton_Click(-1);
  form_.PctBoton_Click(15);
  EXPECT_TRUE(station_.Events.Take().empty());
}

TEST_F(ButtonTest, TheCancelButtonIsEsc) {
  station_.Type("12");
  station_.Hands.Click(form_.PctBoton[boton::kCancelar]);
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
  EXPECT_THAT(station_.Heard(), ElementsAre(kClick));
}

TEST_F(ButtonTest, TheRetireButtonBeepsWithoutACell) {
  ASSERT_FALSE(form_.ShpCelda.Visible);
  form_.PctBoton_Click(6);
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
}

TEST_F(ButtonTest, TheRetireButtonRetiresWhereACellIsShown) {
  station_.Enter("7", "abc");
  station_.TypeAndEnter("7");
  ASSERT_TRUE(form_.ShpCelda.Visible);
  station_.Pass(500);
  form_.SetFocus(nullptr);
  station_.Answers = {Answer::kNo};
  station_.Boxes.clear();
  station_.Hands.Click(form_.PctBoton[boton::kRetirar]);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Confirmar Ficha"_w);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
}

/// A station that prints tickets: its generator can be clicked.
class GeneratorTest : public ButtonTest {
 protected:
  GeneratorTest() {
    form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
    form_.CmdNumeroFicha.Visible = form_.CmdNumeroFicha.Enabled = true;
  }
};

TEST_F(GeneratorTest, ItsButtonOpensTheNextFormWithoutABeep) {
  ASSERT_TRUE(form_.CmdNumeroFicha.TakesFocus());
  station_.Hands.Click(form_.CmdNumeroFicha);
  EXPECT_EQ(station_.Beeps(), 0);
  EXPECT_EQ(form_.TxtCampo[0].Text(), "1"_w);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(GeneratorTest, ItsButtonBeepsWhereAFormIsOpenAndLeavesItToTheToolBar) {
  station_.TypeAndEnter("7");
  station_.Events.Take();
  station_.Hands.Click(form_.CmdNumeroFicha);
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_EQ(form_.TxtCampo[0].Text(), "7"_w);
  EXPECT_EQ(form_.Focus(), nullptr);
}

TEST_F(GeneratorTest, WithoutARegisterTypingGoesOn) {
  ASSERT_TRUE(station_.Disk.Remove("Multimedia\\Vintoral.ACT"));
  station_.Hands.Click(form_.CmdNumeroFicha);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
}

TEST_F(ButtonTest, MonitorsAnnounceWhetherTheyGoOnOrOff) {
  for (const auto monitor :
       {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia, boton::kUltimosEnSalir}) {
    station_.Hands.Click(form_.PctBoton[monitor]);
    EXPECT_THAT(station_.Heard(), ElementsAre("ABRiL\\ABRiL-1.wav"_w)) << monitor;
    form_.PctBoton[monitor].BorderStyle = 1;
    station_.Hands.Click(form_.PctBoton[monitor]);
    EXPECT_THAT(station_.Heard(), ElementsAre("ABRiL\\ABRiL-2.wav"_w)) << monitor;
    form_.PctBoton[monitor].BorderStyle = 0;
  }
}

TEST_F(ButtonTest, AChangeFromOneMonitorToAnotherSaysNothing) {
  for (const auto on : {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia, boton::kUltimosEnSalir}) {
    form_.PctBoton[on].BorderStyle = 1;
    for (const auto clicked :
         {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia, boton::kUltimosEnSalir}) {
      if (clicked == on) continue;
      station_.Hands.Click(form_.PctBoton[clicked]);
      EXPECT_TRUE(station_.Heard().empty()) << on << " " << clicked;
    }
    form_.PctBoton[on].BorderStyle = 0;
  }
}

TEST_F(ButtonTest, PagesAndTheMenuAreHeardBeforeTheyAct) {
  for (const auto button : {boton::kRetroceder, boton::kAvanzar, boton::kMenu}) {
    station_.InDialog = {[this] { form_.OpenForms.UnloadDialogs(); }};
    station_.Hands.Click(form_.PctBoton[button]);
    EXPECT_THAT(station_.Heard(), ElementsAre(kClick)) << button;
  }
}

TEST_F(ButtonTest, TheOthersAreSilent) {
  for (const auto button : {boton::kImprimir, boton::kTiquetes, boton::kExtras, boton::kFacturas}) {
    if (button == boton::kImprimir) station_.Answers = {Answer::kCancel};
    station_.InDialog = {[this] { form_.OpenForms.UnloadDialogs(); }};
    station_.Hands.Click(form_.PctBoton[button]);
    EXPECT_TRUE(station_.Events.Take().empty()) << button;
  }
}

TEST_F(ButtonTest, TheCameraButtonIsTheKeyAndGivesTheFocusToAField) {
  form_.SetFocus(nullptr);
  form_.PctBoton_Click(0);
  // The button's click, and the key's own.
  EXPECT_EQ(station_.Heard(),
            (std::vector<String>{"Sonidos\\Vintoral-5.wav"_w, "Sonidos\\Vintoral-5.wav"_w}));
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
}

TEST_F(ButtonTest, TheCameraButtonBeepsWithoutCamera) {
  form_.ImgIndicador[indicador::kCamaraDesactivada].Visible = true;
  station_.TypeAndEnter("7");
  station_.Events.Take();
  form_.SetFocus(nullptr);
  form_.PctBoton_Click(0);
  const auto events = station_.Events.Take();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].text, "Sonidos\\Vintoral-5.wav"_w);
  EXPECT_EQ(events[1].kind, DeviceEvent::Kind::kBeep);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

}  // namespace
}  // namespace vintoral
