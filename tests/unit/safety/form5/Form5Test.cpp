#include "safety/form5/Form5.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "station/form1/Sonidos.h"
#include "unit/safety/Bloqueos.h"
#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::EntryOf;
using test::ExtWith;
using test::kExt;
using test::kFdr;
using test::Locking;
using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRgt = "Recursos\\Vintoral.RGT";
constexpr const char* kHtml = "Recursos\\Vintoral.HTML";

class Form5Test : public testing::Test {
 protected:
  void Start(const std::string& functions = std::string(18, '0')) {
    station_.Disk.Put(kExt, ExtWith("12345", functions));
    station_.StartConnected();
  }
  /// F8, and the steps in the menu; the last one has to close it.
  void Open(std::deque<std::function<void()>> steps) {
    station_.InDialog = std::move(steps);
    station_.Hands.Key(keys::kF8, 0);
    EXPECT_THAT(station_.InDialog, IsEmpty());
    EXPECT_EQ(form_.Form5, nullptr);
  }
  Form5& Menu() { return *form_.Form5; }
  void Press(int row) { ASSERT_TRUE(station_.Hands.Select(Menu().LstMenu, row)); }
  void Leave() { station_.Hands.Key(keys::kEscape, 0); }
  std::vector<String> Titles() const {
    std::vector<String> titles;
    for (const Box& box : station_.Boxes)
      titles.push_back(box.title);
    return titles;
  }
  std::string Log() const { return station_.Disk.Get(kFdr); }
  std::int64_t Event(std::size_t number) const { return EntryOf(Log(), number).CodigoFuncion.Units(); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

enum Row { kHelp, kWallpapers, kCamera, kLock, kFaces, kBarcodes, kPanic, kTicket, kInvoice, kCounter };

TEST_F(Form5Test, ShowsItsRowsAndButtons) {
  Start();
  Open({[&] {
          EXPECT_THAT(Menu().LstMenu.List,
                      ElementsAre("  Abrir Documento de Ayuda"_w, "  Abrir Fondos de Pantalla"_w,
                                  "  Configurar Cámara Web"_w, "  Bloquear Funciones con Contraseña"_w,
                                  "  Memoria de Rostros (ACTIVAR)"_w, "  Código de Barras Code39 (ACTIVAR)"_w,
                                  "  Botón del Pánico (ACTIVAR)"_w, "  Cambiar Formato de Tiquete"_w,
                                  "  Cambiar Formato de Factura"_w, "  Reiniciar Contador de Extras"_w,
                                  "  Reiniciar Historial"_w));
          std::vector<String> captions;
          for (const CommandButton& button : Menu().CmdMenu)
            captions.push_back(button.Caption);
          EXPECT_THAT(captions, ElementsAre("HISTORIAL DÍA"_w, "COMENZAR TURNO"_w, "EXTRAS"_w, "DETALLE"_w,
                                            "NUEVOS"_w, "PUNTOS"_w, "HORARIO DE TRABAJO"_w));
          EXPECT_EQ(Menu().Focus(), &Menu().LstMenu);
          EXPECT_THAT(station_.Heard(), ElementsAre(String(sonido::kClic)));
        },
        [&] { Leave(); }});
  EXPECT_THAT(station_.Boxes, IsEmpty());
}

TEST_F(Form5Test, SaysOfWhatIsOnThatItGoesOff) {
  Start();
  form_.ImgIndicador[indicador::kMemoriaRostros].Visible = true;
  form_.TxtBarCode.Visible = true;
  form_.ImgPanico.Visible = true;
  Open({[&] {
          EXPECT_EQ(Menu().LstMenu.List[kFaces], "  Memoria de Rostros (DESACTIVAR)"_w);
          EXPECT_EQ(Menu().LstMenu.List[kBarcodes], "  Código de Barras Code39 (DESACTIVAR)"_w);
          EXPECT_EQ(Menu().LstMenu.List[kPanic], "  Botón del Pánico (DESACTIVAR)"_w);
        },
        [&] { Leave(); }});
}

// ---- The rows do what their keys do
// ---------------------------------------------------------------------------------------------

TEST_F(Form5Test, HelpAndWallpapersOpenElsewhere) {
  Start();
  Open({[&] { Press(kHelp); }});
  EXPECT_THAT(station_.Launched(), ElementsAre("Notepad.exe Vintoral Léame.TXT"_w));
  Open({[&] { Press(kWallpapers); }});
  EXPECT_THAT(station_.Launched(), ElementsAre("Explorer.exe Fondos"_w));
}

TEST_F(Form5Test, EnterPressesTheRowOfTheKeyboard) {
  Start();
  Open({[&] {
    station_.Hands.Key(keys::kDown, 0);
    station_.Hands.Key(keys::kEnter, 0);
  }});
  EXPECT_THAT(station_.Launched(), ElementsAre("Explorer.exe Fondos"_w));
}

TEST_F(Form5Test, TheCameraIsLoggedAsByItsKey) {
  Start();
  Open({[&] { Press(kCamera); }});
  EXPECT_EQ(Event(2), 111);
}

TEST_F(Form5Test, TheLockOpensItsKeypadOverTheMainScreen) {
  Start();
  Open({[&] { Press(kLock); },
        [&] {
          EXPECT_EQ(form_.Form5, nullptr);
          EXPECT_NE(form_.Form7, nullptr);
          Leave();
        }});
  EXPECT_EQ(Event(2), 112);
}

TEST_F(Form5Test, FacesAndBarcodesAreSwitched) {
  Start();
  Open({[&] { Press(kFaces); }});
  EXPECT_TRUE(form_.ImgIndicador[indicador::kMemoriaRostros].Visible);
  Open({[&] { Press(kFaces); }});
  EXPECT_FALSE(form_.ImgIndicador[indicador::kMemoriaRostros].Visible);
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  station_.Answers = {Answer::kOk};
  Open({[&] { Press(kBarcodes); }});
  EXPECT_TRUE(form_.CmdBarCode.Visible);
  EXPECT_EQ(Event(2), 115);
}

TEST_F(Form5Test, FormatsAreLoggedAsRowsAndAsButtons) {
  for (const auto& [row, dialog, codes] : {std::tuple(kTicket, "Form3", std::pair(118, 17)),
                                           std::tuple(kInvoice, "Form8", std::pair(119, 18))}) {
    MemoryStation station;
    station.StartConnected();
    std::string opened;
    station.InDialog = {[&, pressed = row] { station.Hands.Select(station.Form.Form5->LstMenu, pressed); },
                        [&] {
                          opened = station.Form.OpenForms.Active().Name();
                          station.Hands.Key(keys::kEscape, 0);
                        }};
    station.Hands.Key(keys::kF8, 0);
    EXPECT_EQ(opened, dialog);
    const std::string log = station.Disk.Get(kFdr);
    EXPECT_EQ(EntryOf(log, 2).CodigoFuncion, Money::FromUnits(codes.second));
    EXPECT_EQ(EntryOf(log, 3).CodigoFuncion, Money::FromUnits(codes.first));
  }
}

TEST_F(Form5Test, TheCounterOfExtrasIsResetAfterTwoQuestions) {
  Start();
  station_.Answers = {Answer::kYes, Answer::kYes};
  Open({[&] {
          Press(kCounter);
          EXPECT_NE(form_.Form5, nullptr);
        },
        [&] { Leave(); }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - Reiniciar Extras"_w, "Vintoral - ADVERTENCIA"_w));
  EXPECT_EQ(Event(2), 120);
}

// ---- What is locked
// ---------------------------------------------------------------------------------------------

TEST_F(Form5Test, ALockedRowIsLoggedAndRefusedAndTheMenuStays) {
  for (const auto& [row, position, code] :
       {std::tuple(kTicket, 8, 118), std::tuple(kInvoice, 9, 119), std::tuple(kCounter, 5, 120)}) {
    MemoryStation station;
    station.Disk.Put(kExt, ExtWith("12345", Locking(static_cast<std::size_t>(position))));
    station.StartConnected();
    const std::string before = station.Disk.Get(kFdr);
    station.Answers = {Answer::kOk};
    station.InDialog = {[&, pressed = row] {
                          station.Hands.Select(station.Form.Form5->LstMenu, pressed);
                          EXPECT_NE(station.Form.Form5, nullptr);
                        },
                        [&] { station.Hands.Key(keys::kEscape, 0); }};
    station.Hands.Key(keys::kF8, 0);
    ASSERT_EQ(station.Boxes.size(), 1u);
    EXPECT_EQ(station.Boxes[0].title, "Vintoral - Acceso Denegado"_w);
    const std::string log = station.Disk.Get(kFdr);
    EXPECT_EQ(EntryOf(log, 2).CodigoFuncion, Money::FromUnits(code));
    EXPECT_EQ(test::Records(log, 3, 1000), test::Records(before, 2, 999));
  }
}

TEST_F(Form5Test, ALockedButtonIsRefused) {
  for (const auto& [button, position] :
       {std::pair(0, 2), std::pair(2, 3), std::pair(3, 4), std::pair(4, 15), std::pair(5, 16)}) {
    MemoryStation station;
    station.Disk.Put(kExt, ExtWith("12345", Locking(static_cast<std::size_t>(position))));
    station.StartConnected();
    const std::string before = station.Disk.Get(kFdr);
    station.Answers = {Answer::kOk};
    station.InDialog = {[&, pressed = static_cast<std::size_t>(button)] {
                          station.Hands.Click(station.Form.Form5->CmdMenu[pressed]);
                          EXPECT_NE(station.Form.Form5, nullptr);
                        },
                        [&] { station.Hands.Key(keys::kEscape, 0); }};
    station.Hands.Key(keys::kF8, 0);
    ASSERT_EQ(station.Boxes.size(), 1u) << button;
    EXPECT_EQ(station.Boxes[0].title, "Vintoral - Acceso Denegado"_w);
    EXPECT_EQ(station.Disk.Get(kFdr), before) << button;
    EXPECT_FALSE(station.Disk.Exists(kHtml));
  }
}

TEST_F(Form5Test, AButtonThatIsOpenIsNotRefused) {
  constexpr std::array kPositions = {2, 3, 4, 15, 16};
  constexpr std::array<std::size_t, 5> kButtons = {0, 2, 3, 4, 5};
  for (std::size_t i = 0; i < kButtons.size(); ++i) {
    const std::size_t button = kButtons[i];
    std::string others(18, '1');
    others[static_cast<std::size_t>(kPositions[i]) - 1] = '0';
    MemoryStation station;
    station.Disk.Put(kExt, ExtWith("12345", others));
    station.StartConnected();
    if (button == Form5::kHistorial) station.Answers = {Answer::kNo};
    station.InDialog = {[&] {
                          station.Hands.Click(station.Form.Form5->CmdMenu[button]);
                          EXPECT_FALSE(station.Launched().empty()) << button;
                        },
                        [&] { station.Hands.Key(keys::kEscape, 0); }};
    station.Hands.Key(keys::kF8, 0);
    for (const Box& box : station.Boxes)
      EXPECT_NE(box.title, "Vintoral - Acceso Denegado"_w) << button;
  }
}

// ---- Reports
// ---------------------------------------------------------------------------------------------

TEST_F(Form5Test, TheHoursAreWrittenAndGoWithTheMenu) {
  Start();
  station_.Disk.Put(kHtml, "of an earlier report");
  station_.Disk.SetReadOnly(kHtml);
  Open({[&] {
          station_.Hands.Click(Menu().CmdMenu[Form5::kHorario]);
          EXPECT_THAT(station_.Launched(), ElementsAre("Notepad.exe Recursos\\Vintoral.RGT"_w));
          EXPECT_TRUE(station_.Disk.Exists(kRgt));
          EXPECT_TRUE(station_.Disk.Exists(kHtml));
        },
        [&] { station_.Hands.CloseBox(Menu()); }});
  EXPECT_FALSE(station_.Disk.Exists(kRgt));
  EXPECT_FALSE(station_.Disk.Exists(kHtml));
}

}  // namespace
}  // namespace vintoral
