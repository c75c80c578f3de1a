// Which camera a gate uses: the list, the one that is kept, the next one, none, one that goes and comes.
#include <gmock/gmock.h>

#include "support/MemoryStation.h"
#include "support/Photos.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::ElementsAre;

constexpr std::string_view kIndex = "Recursos\\Vintoral.WCM";
constexpr std::string_view kApp = "Objetos\\AppCamera.INI";
constexpr int kControlAlt = keys::kControl | keys::kAlt;

class CamaraTest : public testing::Test {
 protected:
  void Begin(std::vector<String> cameras) {
    station_.Camera.Installed = std::move(cameras);
    station_.StartConnected();
  }
  bool Off() const { return form_.ImgIndicador[indicador::kCamaraDesactivada].Visible; }
  void PutIndex(std::string_view bytes) { station_.Disk.Put(kIndex, bytes); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(CamaraTest, WithoutADeviceTheStationGoesOverToTheOutsideProgram) {
  Begin({});
  EXPECT_TRUE(Off());
  EXPECT_TRUE(form_.PctAppCamera.Visible);
  EXPECT_FALSE(form_.Picture1.Visible);
  EXPECT_TRUE(form_.CboDriver.List().empty());
  EXPECT_EQ(station_.Camera.Starts, 0);
}

TEST_F(CamaraTest, DevicesAndThenCamerasOnTheNetworkAreListed) {
  station_.Disk.Put("Objetos\\Camaras.INI", "Patio = rtsp://u:p@h/v\r\n");
  Begin({"A"_w, "B"_w});
  EXPECT_THAT(form_.CboDriver.List(), ElementsAre("A"_w, "B"_w, "Patio"_w));
  EXPECT_EQ(form_.CboDriver.Text(), "A"_w);
  EXPECT_FALSE(Off());
  EXPECT_EQ(station_.Camera.Running.name, "A"_w);
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kRunning);
}

TEST_F(CamaraTest, ACameraOnTheNetworkIsStartedByItsAddress) {
  station_.Disk.Put("Objetos\\Camaras.INI", "Patio = rtsp://u:p@h/v\r\n");
  Begin({});
  EXPECT_FALSE(Off());
  EXPECT_EQ(station_.Camera.Running.name, "Patio"_w);
  EXPECT_EQ(station_.Camera.Running.address, "rtsp://u:p@h/v"_w);
}

TEST_F(CamaraTest, TheOneThatWasKeptIsChosen) {
  PutIndex(std::string("\1\0\0\0", 4));
  Begin({"A"_w, "B"_w});
  EXPECT_EQ(form_.CboDriver.Text(), "B"_w);
}

TEST_F(CamaraTest, AnIndexThatLeadsNowhereIsTheFirst) {
  for (const std::string& bytes : {std::string("\2\0\0\0", 4), std::string("\xFF\xFF\xFF\xFF", 4),
                                   std::string("\1\0\0", 3), std::string(), std::string("\0\0\0\x80", 4)}) {
    MemoryStation station;
    station.Disk.Put(kIndex, bytes);
    station.Camera.Installed = {"A"_w, "B"_w};
    station.Start();
    EXPECT_EQ(station.Form.CboDriver.Text(), "A"_w) << bytes.size();
  }
}

TEST_F(CamaraTest, ControlWGoesOnToTheNextAndFromTheLastToTheFirst) {
  Begin({"A"_w, "B"_w});
  form_.Form_KeyDown('W', keys::kControl);
  EXPECT_EQ(form_.CboDriver.Text(), "B"_w);
  EXPECT_EQ(station_.Camera.Running.name, "B"_w);
  EXPECT_EQ(station_.Disk.Get(kIndex), std::string("\1\0\0\0", 4));
  form_.Form_KeyDown('W', keys::kControl);
  EXPECT_EQ(station_.Camera.Running.name, "A"_w);
  EXPECT_EQ(station_.Disk.Get(kIndex), std::string(4, '\0'));
}

TEST_F(CamaraTest, TheIndexIsWrittenOverAReadOnlyFileAndLeavesWhatFollows) {
  PutIndex(std::string("\0\0\0\0rest", 8));
  station_.Disk.SetReadOnly(kIndex);
  Begin({"A"_w, "B"_w});
  form_.Form_KeyDown('W', keys::kControl);
  EXPECT_EQ(station_.Disk.Get(kIndex), std::string("\1\0\0\0rest", 8));
}

TEST_F(CamaraTest, EachConnectionStartsTwice) {
  Begin({"A"_w});
  const int before = station_.Camera.Starts;
  form_.dspPreview.StopCamera();
  form_.WebCamCargar();
  form_.Form_KeyDown('W', keys::kAlt);
  EXPECT_EQ(station_.Camera.Starts, before + 2);
}

TEST_F(CamaraTest, ASecondStartIsRefusedAndLeavesTheFirstAlone) {
  Begin({"A"_w, "B"_w});
  const int before = station_.Camera.Starts;
  ASSERT_TRUE(form_.dspPreview.LoadCamera(form_.CboDriver));
  form_.dspPreview.StartCamera("B"_w);
  EXPECT_EQ(form_.dspPreview.UltimoError, 500);
  EXPECT_EQ(station_.Camera.Starts, before);
  EXPECT_EQ(station_.Camera.Running.name, "A"_w);
}

TEST_F(CamaraTest, TheListIsGoodForOneStart) {
  Begin({"A"_w});
  form_.dspPreview.StopCamera();
  form_.dspPreview.StartCamera("A"_w);
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kStopped);
  ASSERT_TRUE(form_.dspPreview.LoadCamera(form_.CboDriver));
  form_.dspPreview.StartCamera("A"_w);
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kRunning);
}

TEST_F(CamaraTest, ItPausesAndGoesOn) {
  Begin({"A"_w});
  EXPECT_TRUE(form_.dspPreview.PauseCamera());
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kPaused);
  form_.dspPreview.UltimoError = 1;
  EXPECT_TRUE(form_.dspPreview.ResumeCamera());
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kRunning);
  EXPECT_EQ(form_.dspPreview.UltimoError, 0);
}

TEST_F(CamaraTest, WhatIsStoppedNeitherPausesNorGoesOnNorTakesAStill) {
  Begin({"A"_w});
  form_.dspPreview.StopCamera();
  const int before = station_.Camera.Starts;
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kStopped);
  for (const auto& ask :
       std::vector<std::function<bool()>>{[this] { return form_.dspPreview.PauseCamera(); },
                                          [this] { return form_.dspPreview.ResumeCamera(); },
                                          [this] { return form_.dspPreview.Snap() != nullptr; }}) {
    form_.dspPreview.UltimoError = 0;
    EXPECT_FALSE(ask());
    EXPECT_EQ(form_.dspPreview.UltimoError, 200);
  }
  EXPECT_EQ(station_.Camera.Starts, before);
}

TEST_F(CamaraTest, AFrameThatFailsReconnects) {
  Begin({"A"_w});
  const int before = station_.Camera.Starts;
  EXPECT_EQ(form_.dspPreview.Snap(), nullptr);
  EXPECT_EQ(form_.dspPreview.UltimoError, 600);
  EXPECT_GT(station_.Camera.Starts, before);
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kRunning);
}

TEST_F(CamaraTest, AStillHasTheDevicesOwnSize) {
  Begin({"A"_w});
  EXPECT_EQ(form_.dspPreview.AspectRatio(), 0);
  station_.Camera.Cameras["A"_w].frame = test::Frame(test::kRed, 64, 32);
  form_.CapturarFoto();
  ASSERT_NE(form_.Picture4.Picture.Pixels(), nullptr);
  EXPECT_EQ(form_.Picture4.Picture.Pixels()->Width(), 64);
  ASSERT_NE(form_.Picture2.Picture.Pixels(), nullptr);
  EXPECT_EQ(form_.Picture2.Picture.Pixels()->Width(), 320);
  EXPECT_EQ(form_.Picture2.Picture.Pixels()->Height(), 240);
  EXPECT_EQ(form_.dspPreview.AspectRatio(), 2);
}

TEST_F(CamaraTest, WithoutACameraNoStillIsTaken) {
  Begin({});
  form_.Picture2.Picture = "X"_w;
  form_.CapturarFoto();
  EXPECT_EQ(form_.Picture2.Picture.Path(), "X"_w);
  EXPECT_EQ(form_.dspPreview.UltimoError, 0);
}

TEST_F(CamaraTest, TheOperatorSwitchesItOffForGood) {
  Begin({"A"_w});
  form_.Form_KeyDown('W', kControlAlt);
  EXPECT_TRUE(Off() && form_.PctAppCamera.Visible && !form_.Picture1.Visible);
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kStopped);
  const int before = station_.Camera.Starts;
  form_.Form_KeyDown('W', keys::kControl);
  form_.Form_KeyDown('W', keys::kAlt);
  station_.Pass(60'000);
  EXPECT_TRUE(Off());
  EXPECT_EQ(station_.Camera.Starts, before);
}

TEST_F(CamaraTest, OneThatComesLaterIsConnectedByItself) {
  Begin({});
  ASSERT_TRUE(Off());
  station_.Camera.Installed = {"A"_w};
  station_.TypeAndEnter("7");
  station_.Pass(30'000);
  EXPECT_TRUE(Off());  // a form is being filled in
  station_.Hands.Key(keys::kEscape, 0);
  station_.Pass(10'000);
  EXPECT_FALSE(Off() || form_.PctAppCamera.Visible);
  EXPECT_TRUE(form_.Picture1.Visible);
  EXPECT_EQ(station_.Camera.Running.name, "A"_w);
}

TEST_F(CamaraTest, UnpluggedAndPluggedInAgainItComesBack) {
  Begin({"A"_w});
  station_.Camera.Cameras["A"_w].gone = true;
  EXPECT_EQ(form_.dspPreview.Snap(), nullptr);
  EXPECT_TRUE(Off());
  station_.Camera.Cameras["A"_w].gone = false;
  station_.Pass(10'000);
  EXPECT_FALSE(Off());
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kRunning);
}

TEST_F(CamaraTest, ASystemThatHasNotToldYetIsWaitedFor) {
  PutIndex(std::string("\1\0\0\0", 4));
  station_.Camera.Told = false;
  station_.Camera.Installed = {"A"_w, "B"_w};
  station_.Start();
  EXPECT_FALSE(Off());
  EXPECT_TRUE(form_.CboDriver.List().empty());
  form_.WebCamGuardarIndice();
  EXPECT_EQ(station_.Disk.Get(kIndex), std::string("\1\0\0\0", 4));
  station_.Camera.Told = true;
  station_.Pass(3000);
  EXPECT_EQ(station_.Camera.Running.name, "B"_w);
}

TEST_F(CamaraTest, OneThatTellsOnlyAfterTheConnectionIsAskedAgain) {
  station_.Camera.Told = false;
  Begin({"A"_w});
  ASSERT_EQ(station_.Camera.Starts, 0);
  EXPECT_FALSE(Off());
  station_.Pass(10'000);
  EXPECT_FALSE(Off());
  station_.Camera.Told = true;
  station_.Pass(10'000);
  EXPECT_EQ(station_.Camera.Running.name, "A"_w);
  const int starts = station_.Camera.Starts;
  station_.Pass(30'000);
  EXPECT_EQ(station_.Camera.Starts, starts);
}

TEST_F(CamaraTest, ClosingKeepsTheChoiceAndStopsIt) {
  Begin({"A"_w, "B"_w});
  form_.Form_KeyDown('W', keys::kControl);
  station_.Disk.Remove(kIndex).PassOver();
  station_.Answers = {Answer::kYes};
  form_.CerrarVentana();
  EXPECT_EQ(station_.Disk.Get(kIndex), std::string("\1\0\0\0", 4));
  EXPECT_EQ(station_.Camera.State(), CameraState::kStopped);
}

TEST_F(CamaraTest, AStationWithoutOneKeepsThat) {
  Begin({});
  station_.Answers = {Answer::kYes};
  form_.CerrarVentana();
  EXPECT_EQ(station_.Disk.Get(kIndex), "\xFF\xFF\xFF\xFF");
}

TEST_F(CamaraTest, TheFormatThatIsKeptIsTheOneItStartsWith) {
  station_.Disk.Put("Recursos\\Vintoral.CFG", "640x480@30 hue=1 | A\r\n");
  Begin({"A"_w});
  EXPECT_EQ(station_.Camera.Running.format, (CameraFormat{CameraMode{640, 480, 30}, {{"hue", 1}}}));
}

TEST_F(CamaraTest, ADamagedFormatIsDeletedAndItStartsAllTheSame) {
  station_.Disk.Put("Recursos\\Vintoral.CFG", "garbage");
  Begin({"A"_w});
  EXPECT_EQ(station_.Camera.Running.format, CameraFormat{});
  EXPECT_EQ(form_.dspPreview.State(), CameraState::kRunning);
  EXPECT_FALSE(station_.Disk.Exists("Recursos\\Vintoral.CFG"));
}

TEST_F(CamaraTest, SettingsBeepWithTheCameraOff) {
  Begin({});
  station_.Events.Take();
  form_.Form_KeyDown('W', keys::kShift | keys::kAlt);
  EXPECT_EQ(station_.Beeps(), 1);
}

TEST_F(CamaraTest, TheOutsideProgramsFileIsMadeWithFourLines) {
  station_.System.Pictures = "/home/ana/Imágenes"_w;
  Begin({});
  EXPECT_EQ(station_.Disk.Get(kApp), "[DIRAPP]\r\n\r\n[DIRPIC]\r\n\r\n");
  EXPECT_EQ(form_.RutaAppCamera, "/estacion\\Objetos\\AppCamera.lnk"_w);
  EXPECT_EQ(form_.RutaFotosApp, "/home/ana/Imágenes\\Camera Roll"_w);
  EXPECT_EQ(form_.FilAppCam.Path, form_.RutaFotosApp);
}

TEST_F(CamaraTest, TheOutsideProgramsFileIsReadWithAnyLineEndsAndInUtf8) {
  station_.Disk.Put("/fotos/C\xE1mara/x", "");
  for (const std::string_view text : {"[DIRAPP]\r\n prog.exe \r\n[DIRPIC]\r\n/fotos/C\xC3\xA1mara\r\n",
                                      "[DIRAPP]\n prog.exe\n[DIRPIC]\n/fotos/C\xE1mara"}) {
    station_.Disk.Put(kApp, text);
    form_.CargarAppCamera();
    EXPECT_EQ(form_.RutaAppCamera, "prog.exe"_w);
    EXPECT_EQ(form_.RutaFotosApp, "/fotos/Cámara"_w);
    EXPECT_EQ(station_.Disk.Get(kApp), text);
  }
}

TEST_F(CamaraTest, AFolderThatIsMissingFallsBack) {
  station_.System.Pictures = "/home/ana/Imágenes"_w;
  station_.Disk.Put(kApp, "[DIRAPP]\r\n\r\n[DIRPIC]\r\n/no/such\r\n");
  form_.CargarAppCamera();
  EXPECT_EQ(form_.RutaFotosApp, "/home/ana/Imágenes\\Camera Roll"_w);
}

TEST_F(CamaraTest, TheOutsideProgramIsOpenedWhereItsFolderIs) {
  Begin({});
  ASSERT_FALSE(form_.HayFotosApp());
  station_.Hands.Click(form_.PctAppCamera);
  EXPECT_EQ(station_.Beeps(), 1);
  station_.Disk.Put("/fotos/x", "");
  station_.Disk.Put(kApp, "[DIRAPP]\r\nC:\\cam.exe\r\n[DIRPIC]\r\n/fotos\r\n");
  form_.CargarAppCamera();
  station_.Hands.Click(form_.PctAppCamera);
  EXPECT_THAT(station_.Launched(), ElementsAre("Explorer.exe C:\\cam.exe"_w));
}

}  // namespace
}  // namespace vintoral
