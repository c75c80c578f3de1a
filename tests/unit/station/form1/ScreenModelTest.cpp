#include "station/form1/ScreenModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace vintoral {
namespace {

using testing::ElementsAre;

/// Families with their sizes; 0 for a control that stands alone.
const std::map<std::string, int> kScreen = {
    {"TxtCampo", 6},        {"TxtEtiqueta", 6},    {"PctEtiqueta", 6},    {"LblCampo", 6},
    {"CboTarifa", 2},       {"LblCategoria", 0},   {"LblFechaEnt", 0},    {"LblFechaSal", 0},
    {"LblValor", 0},        {"TxtEfectivo", 0},    {"LblCambio", 0},      {"LblInfo", 5},
    {"LblIndicador", 2},    {"LblConexion", 3},    {"ImgIndicador", 6},   {"ChkFactura", 0},
    {"PctUsuario", 2},      {"ImgUsuario", 0},     {"LblPuntos", 4},      {"ImgPuntos", 0},
    {"Picture1", 0},        {"Picture4", 0},       {"CboDriver", 0},      {"FilAppCam", 0},
    {"dspPreview", 0},      {"Picture2", 0},       {"ImgFotoDetalle", 2}, {"PctFotoDetalle", 2},
    {"LblWebCamMsg", 0},    {"LblFotoDetalle", 0}, {"PctAppCamera", 0},   {"CmdBarCode", 0},
    {"CmdNumeroFicha", 0},  {"TxtBarCode", 0},     {"TxtBarCodeOK", 0},   {"TxtMaxEntrada", 0},
    {"LstModEntrada", 0},   {"CboMinutos", 0},     {"PctBoton", 15},      {"PctBuscar", 5},
    {"ImgFicha", 50},       {"PctFicha", 0},       {"ShpCelda", 0},       {"PctSeleccion", 0},
    {"FraFicha", 0},        {"ImgFondo", 0},       {"LblFondo", 0},       {"FilFondos", 0},
    {"ImgCambiarFondo", 0}, {"ImgPanico", 0},      {"ImgContador", 0},    {"TmrHoraFecha", 0},
    {"TmrHorario", 0},      {"TmrMonitor", 0},     {"TmrConexion", 0},    {"TmrBarCode", 0}};

std::set<std::string> AllNames() {
  std::set<std::string> names;
  for (const auto& [family, size] : kScreen) {
    if (size == 0) names.insert(family);
    for (int i = 0; i < size; ++i)
      names.insert(family + "(" + std::to_string(i) + ")");
  }
  return names;
}

class ScreenModelTest : public testing::Test {
 protected:
  bool Shown(const std::string& name) const {
    const Control* const control = screen_.Find(name);
    if (control == nullptr) ADD_FAILURE() << "no control " << name;
    return control != nullptr && control->Visible;
  }
  ScreenModel screen_;
};

TEST_F(ScreenModelTest, EveryControlIsFoundByItsName) {
  for (const std::string& name : AllNames()) {
    const Control* const control = screen_.Find(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_EQ(control->Name, name);
  }
}

TEST_F(ScreenModelTest, NoNameIsGivenTwice) {
  std::set<std::string> names;
  for (const Control* control : screen_.Controls())
    EXPECT_TRUE(names.insert(control->Name).second) << control->Name;
}

TEST_F(ScreenModelTest, ANameLeadsToItsOwnControl) {
  EXPECT_EQ(screen_.Find("TxtCampo(3)"), &screen_.TxtCampo[3]);
  EXPECT_EQ(screen_.Find("CboTarifa(1)"), &screen_.CboTarifa[1]);
  EXPECT_EQ(screen_.Find("ImgFicha(49)"), &screen_.ImgFicha[49]);
  EXPECT_EQ(screen_.Find("TmrConexion"), &screen_.TmrConexion);
}

TEST_F(ScreenModelTest, ANameIsFoundWhateverItsCase) {
  EXPECT_EQ(screen_.Find("txtcampo(0)"), &screen_.TxtCampo[0]);
  EXPECT_EQ(screen_.Find("DSPPREVIEW"), &screen_.dspPreview);
}

TEST_F(ScreenModelTest, AWrongNameFindsNothing) {
  for (const char* name : {"", "TxtCampo", "TxtCampo(6)", "TxtCampo(-1)", "TxtCampo(0) ", "LblValor(0)"})
    EXPECT_EQ(screen_.Find(name), nullptr) << name;
}

TEST_F(ScreenModelTest, LabelsStandAsDesigned) {
  const auto texts = [&](std::size_t i) { return screen_.TxtEtiqueta[i].Text(); };
  EXPECT_EQ(texts(0), "NUMERO FICHA "_w);
  EXPECT_EQ(texts(1), "PLACA/DOCUMENTO "_w);
  EXPECT_EQ(texts(2), "NOMBRE "_w);
  EXPECT_EQ(texts(3), "APELLIDO "_w);
  EXPECT_EQ(texts(4), "TELEFONO "_w);
  EXPECT_EQ(texts(5), "OBSERVACION "_w);
  EXPECT_EQ(screen_.LblCategoria.Caption, "CATEGORIA "_w);
  EXPECT_EQ(screen_.LblInfo[0].Caption, "0 ( 1/1 )  "_w);
  EXPECT_EQ(screen_.LblFechaEnt.Caption, "CONECTANDO... "_w);
  EXPECT_EQ(screen_.LblIndicador[0].Caption, "SAL"_w);
  EXPECT_EQ(screen_.LblIndicador[1].Caption, "ENT"_w);
}

TEST_F(ScreenModelTest, IndicatorsSayWhatTheyMean) {
  const std::array<String, 6> tips = {
      " Bloqueo de Funciones (Activado) "_w, " Turno de Trabajo (Activado) "_w,
      " Memoria de Rostros (Activado) "_w,   " Fotos Adicionales "_w,
      " Cámara Web Desactivada "_w,          " Imprimir Factura "_w};
  for (std::size_t i = 0; i < tips.size(); ++i)
    EXPECT_EQ(screen_.ImgIndicador[i].ToolTipText, tips[i]) << i;
}

TEST_F(ScreenModelTest, TheScreenBeginsConnecting) {
  for (const Label& bar : screen_.LblConexion)
    EXPECT_EQ(bar.BackColor, 0x8080FF);
  EXPECT_FALSE(Shown("LblIndicador(0)"));
}

TEST_F(ScreenModelTest, TheRowsOfAFichaBeginInLightOrange) {
  for (const Label& row : screen_.LblCampo)
    EXPECT_EQ(row.BackColor, 0x80C0FF);
}

TEST_F(ScreenModelTest, NothingOfAFichaIsShownAtFirst) {
  for (const char* name :
       {"LblValor", "TxtEfectivo", "LblCambio", "PctBoton(5)", "PctBoton(6)", "ChkFactura", "PctUsuario(0)",
        "PctUsuario(1)", "LblPuntos(0)", "LblPuntos(1)", "LblPuntos(2)", "LblPuntos(3)", "ImgPuntos",
        "Picture2", "PctFotoDetalle(0)", "PctFotoDetalle(1)", "ShpCelda", "TxtBarCodeOK", "CboTarifa(0)"})
    EXPECT_FALSE(Shown(name)) << name;
  EXPECT_EQ(screen_.TxtEfectivo.Text(), "0"_w);
}

TEST_F(ScreenModelTest, NoIndicatorLightOrPictureOfTheGridIsShownAtFirst) {
  for (const Image& indicator : screen_.ImgIndicador)
    EXPECT_FALSE(indicator.Visible) << indicator.Name;
  for (const PictureBox& light : screen_.PctBuscar)
    EXPECT_FALSE(light.Visible) << light.Name;
  for (const Image& cell : screen_.ImgFicha)
    EXPECT_FALSE(cell.Visible) << cell.Name;
  EXPECT_FALSE(Shown("ImgPanico"));
}

TEST_F(ScreenModelTest, ExactlyTheseAreHiddenAtFirst) {
  std::set<std::string> hidden;
  for (const Control* control : screen_.Controls()) {
    if (!control->Visible) hidden.insert(control->Name);
  }
  std::set<std::string> expected = {
      "CboTarifa(0)",      "LblValor",          "TxtEfectivo",       "LblCambio",    "LblIndicador(0)",
      "ChkFactura",        "PctUsuario(0)",     "PctUsuario(1)",     "ImgUsuario",   "LblPuntos(0)",
      "LblPuntos(1)",      "LblPuntos(2)",      "LblPuntos(3)",      "ImgPuntos",    "Picture2",
      "dspPreview",        "Picture4",          "CboDriver",         "FilAppCam",    "ImgFotoDetalle(0)",
      "ImgFotoDetalle(1)", "PctFotoDetalle(0)", "PctFotoDetalle(1)", "LblWebCamMsg", "PctAppCamera",
      "CmdBarCode",        "CmdNumeroFicha",    "TxtBarCode",        "TxtBarCodeOK", "TxtMaxEntrada",
      "LstModEntrada",     "PctBoton(5)",       "PctBoton(6)",       "PctFicha",     "ShpCelda",
      "PctSeleccion",      "LblFotoDetalle",    "FilFondos",         "ImgPanico"};
  for (const auto& [family, size] : {std::pair{"ImgIndicador", 6}, {"PctBuscar", 5}, {"ImgFicha", 50}}) {
    for (int i = 0; i < size; ++i)
      expected.insert(std::string(family) + "(" + std::to_string(i) + ")");
  }
  EXPECT_EQ(hidden, expected);
}

TEST_F(ScreenModelTest, ExactlyTheseAreDisabledAtFirst) {
  std::set<std::string> disabled;
  for (const Control* control : screen_.Controls()) {
    if (!control->Enabled) disabled.insert(control->Name);
  }
  EXPECT_EQ(disabled,
            (std::set<std::string>{"PctUsuario(0)", "CmdBarCode", "CmdNumeroFicha", "CboMinutos",
                                   "TmrHoraFecha", "TmrHorario", "TmrMonitor", "TmrConexion", "TmrBarCode"}));
}

TEST_F(ScreenModelTest, LabelsOpenByAClickAlone) {
  for (const TextBox& label : screen_.TxtEtiqueta) {
    EXPECT_TRUE(label.Locked) << label.Name;
    EXPECT_FALSE(label.CanFocus) << label.Name;
    EXPECT_EQ(label.MaxLength, 20u) << label.Name;
  }
  EXPECT_EQ(screen_.TxtCampo[0].MaxLength, 0u);
  EXPECT_FALSE(screen_.CboTarifa[0].CanFocus);
  EXPECT_TRUE(screen_.CboTarifa[1].CanFocus);
}

TEST_F(ScreenModelTest, TheButtonsOfPhotosSayTheirKeys) {
  EXPECT_EQ(screen_.PctFotoDetalle[0].ToolTipText, "<CTRL+A> Tomar Fotos Adicionales"_w);
  EXPECT_EQ(screen_.PctFotoDetalle[1].ToolTipText, "<CTRL+X> Tomar Fotos Continuas"_w);
}

TEST_F(ScreenModelTest, TagsThatAreNumbersBeginAtNought) {
  EXPECT_EQ(screen_.CboMinutos.Tag, "0"_w);
  EXPECT_EQ(screen_.PctFicha.Tag, "0"_w);
}

TEST_F(ScreenModelTest, TheGeneratorsButtonsNameTheirKey) {
  EXPECT_EQ(screen_.CmdNumeroFicha.ToolTipText, "<INICIO> Generador Automático de Fichas"_w);
  EXPECT_EQ(screen_.CmdBarCode.ToolTipText, "<INICIO> Generador de Códigos de Barras Code39"_w);
}

TEST_F(ScreenModelTest, TheTimersTickInTheirOrder) {
  EXPECT_THAT(screen_.Timers(), ElementsAre(&screen_.TmrHoraFecha, &screen_.TmrHorario, &screen_.TmrMonitor,
                                            &screen_.TmrConexion, &screen_.TmrBarCode));
}

TEST_F(ScreenModelTest, TheFieldsAreOpenAtFirst) {
  for (const TextBox& field : screen_.TxtCampo) {
    EXPECT_TRUE(field.Visible && field.Enabled && !field.Locked) << field.Name;
    EXPECT_TRUE(field.Text().Empty()) << field.Name;
  }
  EXPECT_TRUE(Shown("CboTarifa(1)"));
  EXPECT_TRUE(Shown("Picture1"));
}

TEST_F(ScreenModelTest, ATextFieldHoldsWhatARegisterHolds) {
  for (std::size_t i = 1; i < screen_.TxtCampo.size(); ++i)
    EXPECT_EQ(screen_.TxtCampo[i].MaxLength, 20u) << i;
}

TEST_F(ScreenModelTest, NoButtonIsPressedAtFirst) {
  for (const PictureBox& button : screen_.PctBoton)
    EXPECT_EQ(button.BorderStyle, 0) << button.Name;
}

TEST_F(ScreenModelTest, TheMinutesOfAMonitorAreOffered) {
  EXPECT_THAT(screen_.CboMinutos.List(),
              ElementsAre("15 Minutos"_w, "30 Minutos"_w, "45 Minutos"_w, "60 Minutos"_w, "90 Minutos"_w,
                          "120 Minutos"_w, "150 Minutos"_w, "180 Minutos"_w));
  EXPECT_TRUE(screen_.CboMinutos.Editable);
  EXPECT_FALSE(screen_.CboMinutos.Enabled);
}

TEST_F(ScreenModelTest, ATicketCountsEntriesOrDays) {
  EXPECT_THAT(screen_.LstModEntrada.List, ElementsAre("ENT(S)"_w, "DIA(S)"_w));
  EXPECT_EQ(screen_.LstModEntrada.ListIndex, 0);
}

TEST_F(ScreenModelTest, WallpapersAreJpegFiles) {
  EXPECT_EQ(screen_.FilFondos.Pattern, "*.jpg"_w);
}

TEST_F(ScreenModelTest, TheTimersAreOffAndKnowTheirIntervals) {
  EXPECT_EQ(screen_.TmrHoraFecha.Interval(), 500);
  EXPECT_EQ(screen_.TmrHorario.Interval(), 500);
  EXPECT_EQ(screen_.TmrMonitor.Interval(), 7000);
  EXPECT_EQ(screen_.TmrConexion.Interval(), 3000);
  EXPECT_EQ(screen_.TmrBarCode.Interval(), 1000);
  for (const Timer* timer : screen_.Timers())
    EXPECT_FALSE(timer->Running()) << timer->Name;
}

TEST_F(ScreenModelTest, TheKeyboardBeginsAtTheNumber) {
  EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[0]);
}

TEST_F(ScreenModelTest, TheFocusGoesToAControlThatCanTakeIt) {
  screen_.SetFocus(&screen_.TxtCampo[4]);
  EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[4]);
}

TEST_F(ScreenModelTest, AHiddenDisabledOrMuteControlLeavesTheFocusWhereItIs) {
  screen_.TxtCampo[4].Visible = false;
  screen_.SetFocus(&screen_.TxtCampo[4]);
  EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[0]);
  screen_.TxtCampo[5].Enabled = false;
  screen_.SetFocus(&screen_.TxtCampo[5]);
  EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[0]);
  screen_.SetFocus(&screen_.LblFechaEnt);
  EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[0]);
}

TEST_F(ScreenModelTest, ALockedFieldTakesTheFocus) {
  screen_.TxtCampo[1].Locked = true;
  screen_.SetFocus(&screen_.TxtCampo[1]);
  EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[1]);
}

TEST_F(ScreenModelTest, TheToolBarTakesTheFocusFromAllControls) {
  screen_.SetFocus(nullptr);
  EXPECT_EQ(screen_.Focus(), nullptr);
}

TEST_F(ScreenModelTest, LeavingAControlIsToldOnceAndAfterTheMove) {
  std::vector<std::string> left;
  for (Control* control : screen_.Controls()) {
    control->OnLostFocus = [&, control] {
      EXPECT_EQ(screen_.Focus(), &screen_.TxtCampo[2]);
      left.push_back(control->Name);
    };
  }
  screen_.SetFocus(&screen_.TxtCampo[2]);
  screen_.SetFocus(&screen_.TxtCampo[2]);
  screen_.SetFocus(&screen_.LblFechaEnt);
  EXPECT_THAT(left, ElementsAre("TxtCampo(0)"));
}

}  // namespace
}  // namespace vintoral
