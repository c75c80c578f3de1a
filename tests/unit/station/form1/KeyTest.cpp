// What keys do at a station that runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "station/form1/Commands.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kNone = 0, kShift = 1, kControl = 2, kControlShift = 3, kAlt = 4, kShiftAlt = 5,
              kControlAlt = 6;

class KeyTest : public testing::Test {
 protected:
  KeyTest() { station_.StartConnected(); }
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

const String kClick = "Sonidos\\Vintoral-5.wav"_w;

/// Clicks that belong to the key itself.
bool KeyClicks(int code, int mask) {
  return code == 27 || code == 120 || (code == 87 && mask == kControl) ||
         (code == 122 && (mask == kControlShift || mask == kShiftAlt));
}
/// Clicks of what the key does: of the button that it presses, of the dialogs of tariffs and alert.
bool CommandClicks(int code, int mask) {
  const bool dialog = (code == 'T' && mask == kControl) || (code == 'P' && mask == kControlAlt);
  return code == 33 || code == 34 || code == 119 || dialog;
}

TEST_F(KeyTest, EveryKeyClicksAsOftenAsItShould) {
  for (int code = 0; code < 256; ++code) {
    for (int mask = 0; mask < 8; ++mask) {
      station_.InDialog = {[this] { form_.OpenForms.UnloadDialogs(); }};  // for the keys that open one
      if (code == keys::kF4) station_.Answers = {Answer::kCancel};        // its question
      form_.Form_KeyDown(code, mask);
      const auto heard = station_.Heard();
      if (form_.Form2 != nullptr) form_.AlternarBusqueda();  // it would stay beside the main screen
      const auto clicks = std::count(heard.begin(), heard.end(), kClick);
      EXPECT_EQ(clicks, (KeyClicks(code, mask) ? 1 : 0) + (CommandClicks(code, mask) ? 1 : 0))
          << code << " " << mask;
      form_.LimpiarCampos();
    }
  }
}

TEST_F(KeyTest, AMonitorsKeySpeaksForItsOwnButton) {
  const std::vector<std::pair<int, std::size_t>> monitors = {{112, 7}, {113, 8}, {114, 9}};
  for (const auto& [code, button] : monitors) {
    form_.PctBoton[button].BorderStyle = 1;
    EXPECT_TRUE(form_.Form_KeyDown(code, kNone));
    EXPECT_THAT(station_.Heard(), ElementsAre("ABRiL\\ABRiL-2.wav"_w)) << code;
    form_.PctBoton[button].BorderStyle = 0;
  }
}

TEST_F(KeyTest, WhatHasNothingToDoLeavesTheKeyToTheField) {
  station_.Type("12");
  EXPECT_FALSE(form_.Form_KeyDown(36, kNone));
  EXPECT_TRUE(form_.Form_KeyDown('X', kControl));
}

TEST_F(KeyTest, SomeKeysClickBeforeAnythingElse) {
  const std::vector<std::pair<int, int>> clicking = {
      {27, kNone}, {27, kControlAlt}, {'W', kControl}, {122, kControlShift}, {122, kShiftAlt}};
  for (const auto& [code, mask] : clicking) {
    form_.Form_KeyDown(code, mask);
    EXPECT_THAT(station_.Heard(), Contains(kClick)) << code << " " << mask;
  }
}

TEST_F(KeyTest, ControlAndWClicksWithTheCameraOffToo) {
  form_.ImgIndicador[4].Visible = true;
  form_.Form_KeyDown('W', kControl);
  EXPECT_THAT(station_.Heard(), ElementsAre(kClick));
}

TEST_F(KeyTest, OtherKeysDontClick) {
  const std::vector<std::pair<int, int>> silent = {
      {'W', kNone}, {'W', kShift}, {122, kNone}, {122, kControl}, {122, kAlt}, {'X', kControl}, {117, kNone}};
  for (const auto& [code, mask] : silent) {
    form_.Form_KeyDown(code, mask);
    EXPECT_THAT(station_.Heard(), IsEmpty()) << code << " " << mask;
  }
}

TEST_F(KeyTest, EscClearsWhatWasTyped) {
  station_.Type("12");
  ASSERT_EQ(form_.TxtCampo[0].Text(), "12"_w);
  EXPECT_TRUE(form_.Form_KeyDown(27, kNone));
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
}

TEST_F(KeyTest, ControlAndADigitSelectsACategory) {
  form_.Form_KeyDown('2', kControl);
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 1);
  form_.Form_KeyDown('0', kControl);
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 9);
  form_.Form_KeyDown('1', kControl);
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 0);
}

TEST_F(KeyTest, ADigitBeyondTheCategoriesLeavesTheList) {
  form_.CboTarifa[1].Clear();
  for (const String& item : {"A"_w, "B"_w, "C"_w, "D"_w})
    form_.CboTarifa[1].AddItem(item);
  form_.CboTarifa[1].Select(1);
  form_.Form_KeyDown('5', kControl);
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 1);
  form_.Form_KeyDown('0', kControl);  // there is no tenth item
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 1);
}

TEST_F(KeyTest, InsertWithTheSaveButtonHiddenIsSilent) {
  station_.Hands.Key(45, kNone);
  EXPECT_TRUE(station_.Events.Take().empty());
  EXPECT_TRUE(station_.Boxes.empty());
}

TEST_F(KeyTest, FilesAndFoldersAreOpenedAsTheyAreNamed) {
  station_.Disk.Put("Fuentes\\Vintoral.ttf", "");
  form_.Form_KeyDown('B', kControl);
  form_.Form_KeyDown('F', kControl);
  form_.Form_KeyDown('I', kControlAlt);
  form_.Form_KeyDown(112, kControl);
  EXPECT_THAT(station_.Launched(), ElementsAre("Explorer.exe /estacion\\Fuentes\\Vintoral.ttf"_w,
                                               "Notepad.exe Recursos\\Vintoral.HFC"_w,
                                               "Explorer.exe Fondos"_w, "Notepad.exe Vintoral Léame.TXT"_w));
}

TEST_F(KeyTest, F10AtAConnectedStationDoesNothing) {
  EXPECT_FALSE(form_.Form_KeyDown(121, kNone));
  EXPECT_THAT(station_.Launched(), IsEmpty());
}

TEST(KeyCommands, F10OpensThePathOfTheSharedFolderWhileConnecting) {
  MemoryStation station;
  station.Start();
  station.Form.Form_KeyDown(121, kNone);
  EXPECT_THAT(station.Launched(), ElementsAre("Notepad.exe Objetos\\Servidor.INI"_w));
}

TEST_F(KeyTest, FaceMemoryGoesOnAndOffAndSaysSo) {
  form_.Form_KeyDown('M', kControlAlt);
  EXPECT_TRUE(form_.ImgIndicador[2].Visible);
  EXPECT_THAT(station_.Heard(), ElementsAre("ABRiL\\ABRiL-6.wav"_w));
  form_.Form_KeyDown('M', kControlAlt);
  EXPECT_FALSE(form_.ImgIndicador[2].Visible);
  EXPECT_THAT(station_.Heard(), ElementsAre("ABRiL\\ABRiL-5.wav"_w));
}

TEST_F(KeyTest, BarcodeModeIsSwitchedAndTheFontIsRecalled) {
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  station_.Answers = {Answer::kOk};
  form_.Form_KeyDown('B', kControlAlt);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Instalar Fuente"_w);
  EXPECT_EQ(station_.Boxes[0].text,
            "Recuerde instalar la fuente para imprimir códigos de barras presionando  Ctrl + \"B\"  y "
            "verificar la configuración de su impresora para aceptar códigos Code39."_w);
  EXPECT_THAT(station_.Heard(), Contains("ABRiL\\ABRiL-7.wav"_w));
  form_.Form_KeyDown('B', kControlAlt);
  EXPECT_EQ(station_.Boxes.size(), 1u);
  EXPECT_THAT(station_.Heard(), Contains("ABRiL\\ABRiL-8.wav"_w));
  EXPECT_FALSE(form_.CmdBarCode.Visible);
}

TEST_F(KeyTest, BarcodeModeBeginsAtIdleAndHoldsTheTicketButton) {
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  station_.Type("12");
  station_.Answers = {Answer::kOk};
  station_.UnderBox = [&] { EXPECT_EQ(form_.PctBoton[boton::kTiquetes].Tag, "2"_w); };
  form_.AlternarCodigoBarras();
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
  EXPECT_EQ(form_.PctBoton[boton::kTiquetes].Tag, "0"_w);
}

TEST_F(KeyTest, TheTariffGeneratorOpensItsDialogWithAClick) {
  station_.InDialog = {[this] {
    EXPECT_EQ(form_.OpenForms.Active().Name(), "Form6");
    EXPECT_EQ(station_.Heard(), std::vector<String>{kClick});
    station_.Hands.Key(27, 0);
  }};
  form_.Form_KeyDown('T', kControl);
  EXPECT_TRUE(station_.InDialog.empty());
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(form_.Form6, nullptr);
}

TEST_F(KeyTest, TheTariffGeneratorNeedsItsThreeFiles) {
  for (const char* file : {"Recursos\\Vintoral.EMP", "Recursos\\Vintoral.XTR", "Recursos\\Vintoral.RJE"}) {
    const std::string bytes = station_.Disk.Get(file);
    ASSERT_TRUE(station_.Disk.Remove(file));
    station_.Boxes.clear();
    station_.Answers = {Answer::kOk};
    form_.Form_KeyDown('T', kControl);
    ASSERT_EQ(station_.Boxes.size(), 1u) << file;
    EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Imposible Abrir Archivo"_w);
    EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
    EXPECT_EQ(station_.Boxes[0].text,
              "No se puede encontrar el archivo generador de tarifas. La carpeta '/estacion' está "
              "protegida contra escritura o el archivo ya no existe."_w);
    station_.Disk.Put(file, bytes);
  }
}

TEST(KeyCommands, ForgettingTheServerMakesAMainGate) {
  MemoryStation station;
  station.Disk.Put("Objetos\\Servidor.INI", "/mnt/porteria\r\n");
  station.Disk.SetReadOnly("Objetos\\Servidor.INI");
  station.Start();
  ASSERT_EQ(station.Form.NumeroPorteria, "02"_w);
  station.Form.Form_KeyDown('R', kControlAlt);
  EXPECT_EQ(station.Form.NumeroPorteria, "01"_w);
  EXPECT_EQ(station.Form.EsCliente, 0);
  EXPECT_EQ(station.Form.CarpetaCompartida, "/estacion\\Multimedia"_w);
  EXPECT_EQ(station.Disk.Get("Objetos\\Servidor.INI"), "\r\n");
}

TEST_F(KeyTest, AConnectedStationForgetsNothing) {
  station_.Disk.Put("Objetos\\Servidor.INI", "/mnt/porteria\r\n");
  form_.Form_KeyDown('R', kControlAlt);
  EXPECT_EQ(station_.Disk.Get("Objetos\\Servidor.INI"), "/mnt/porteria\r\n");
}

TEST(KeyCommands, TheWallpaperMovesToTheNextFileAndWraps) {
  MemoryStation station;
  station.Disk.Put("Fondos\\a.jpg", "");
  station.Disk.Put("Fondos\\b.jpg", "");
  station.Start();
  ASSERT_EQ(station.Form.ImgFondo.Picture, "Fondos\\a.jpg"_w);
  station.Form.Form_KeyDown('I', kControl);
  EXPECT_EQ(station.Form.ImgFondo.Picture, "Fondos\\b.jpg"_w);
  EXPECT_EQ(station.Form.ImgFondo.Tag, "1"_w);
  station.Form.Form_KeyDown('I', kControl);
  EXPECT_EQ(station.Form.ImgFondo.Picture, "Fondos\\a.jpg"_w);
}

TEST(KeyCommands, WallpapersThatComeAndGoCount) {
  MemoryStation station;
  station.Start();
  station.Disk.Put("Fondos\\a.jpg", "");
  station.Form.Form_KeyDown('I', kControl);
  EXPECT_EQ(station.Form.ImgFondo.Picture, "Fondos\\a.jpg"_w);
  station.Disk.Put("Fondos\\b.jpg", "");
  station.Disk.Put("Fondos\\c.jpg", "");
  station.Form.Form_KeyDown('I', kControl);
  station.Form.Form_KeyDown('I', kControl);
  ASSERT_EQ(station.Form.ImgFondo.Picture, "Fondos\\c.jpg"_w);
  ASSERT_TRUE(station.Disk.Remove("Fondos\\b.jpg"));
  ASSERT_TRUE(station.Disk.Remove("Fondos\\c.jpg"));
  station.Form.Form_KeyDown('I', kControl);
  EXPECT_EQ(station.Form.ImgFondo.Picture, "Fondos\\a.jpg"_w);
  EXPECT_EQ(station.Form.ImgFondo.Tag, "0"_w);
}

TEST_F(KeyTest, WithoutWallpapersNothingChanges) {
  form_.Form_KeyDown('I', kControl);
  EXPECT_TRUE(form_.ImgFondo.Picture.Empty());
}

TEST(KeyCommands, AnEndedProgramHandlesNothing) {
  MemoryStation station;
  station.StartConnected();
  station.Answers = {Answer::kYes};
  station.Form.CerrarVentana();
  ASSERT_TRUE(station.Form.Terminado());
  station.Events.Take();
  EXPECT_FALSE(station.Form.Form_KeyDown(27, kNone));
  station.Form.PctBoton_Click(11);
  EXPECT_TRUE(station.Events.Take().empty());
}

}  // namespace
}  // namespace vintoral
