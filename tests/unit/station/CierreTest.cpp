// How the program ends: at the operator's wish, with the session, and when it can't go on.
#include <gtest/gtest.h>

#include <string>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

constexpr const char* kDat = "Recursos\\Vintoral.DAT";
constexpr const char* kLbl = "Multimedia\\Vintoral.LBL";

TEST(CerrarSinPreguntar, StoresLabelsAndScreenWithoutABox) {
  MemoryStation station;
  station.StartConnected();
  station.Form.TxtEtiqueta[1].SetText("patente"_w);
  station.Form.PctBoton[boton::kFacturas].BorderStyle = 1;
  station.Form.CerrarSinPreguntar();
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_EQ(station.Form.TotalFichas, 0);
  EXPECT_TRUE(station.Boxes.empty());
  EXPECT_NE(station.Disk.Get(kLbl).find("PATENTE"), std::string::npos);

  MemoryStation again;
  again.Disk.Put(kDat, station.Disk.Get(kDat));
  again.StartConnected();
  EXPECT_EQ(again.Form.PctBoton[boton::kFacturas].BorderStyle, 1);
}

TEST(CerrarSinPreguntar, UnderABoxNothingIsConfirmed) {
  MemoryStation station;
  station.StartConnected();
  station.TypeNew("7", "abc");
  station.UnderBox = [&] { station.Form.CerrarSinPreguntar(); };
  station.Hands.Key(keys::kInsert, 0);
  EXPECT_EQ(station.Boxes.size(), 1u);
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_FALSE(station.Slot(7).EnUso);
  EXPECT_NE(station.Disk.Get(kDat), "(missing)");
}

TEST(CerrarSinPreguntar, StationThatIsStillStartingStoresNothing) {
  MemoryStation station;
  station.Disk.Put(kDat, "the customer's");
  station.Disk.Put(kLbl, "the site's");
  station.UnderBox = [&] { station.Form.CerrarSinPreguntar(); };
  station.Form.Form_Load();  // the welcome is up
  EXPECT_EQ(station.Boxes.size(), 1u);
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_EQ(station.Disk.Get(kDat), "the customer's");
  EXPECT_EQ(station.Disk.Get(kLbl), "the site's");
  EXPECT_TRUE(station.Heard().empty());
}

TEST(CerrarSinPreguntar, SecondTimeChangesNothing) {
  MemoryStation station;
  station.StartConnected();
  station.Form.CerrarSinPreguntar();
  station.Disk.Put(kDat, "later");
  station.Form.CerrarSinPreguntar();
  EXPECT_EQ(station.Disk.Get(kDat), "later");
}

TEST(CerrarVentana, AsksOnceAndEnds) {
  MemoryStation station;
  station.StartConnected();
  station.Answers = {Answer::kNo};
  station.Form.CerrarVentana();
  EXPECT_FALSE(station.Form.Terminado());
  EXPECT_EQ(station.Form.TotalFichas, 1000);
  EXPECT_EQ(station.Disk.Get(kDat), "(missing)");
  station.Answers = {Answer::kYes};
  station.Form.CerrarVentana();
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_EQ(station.Form.TotalFichas, 0);
  station.Disk.Put(kDat, "later");
  station.Form.CerrarVentana();
  EXPECT_EQ(station.Boxes.size(), 2u);
  EXPECT_EQ(station.Disk.Get(kDat), "later");
}

TEST(CerrarVentana, AStoppedStationIsNotAsked) {
  MemoryStation station;
  station.StartConnected();
  station.Form.TotalFichas = 0;
  EXPECT_TRUE(station.Form.Form_QueryUnload());
  EXPECT_TRUE(station.Boxes.empty());
}

TEST(CerrarVentana, WhatIsUnloadedTicksNoMore) {
  MemoryStation station;
  station.StartConnected();
  for (Timer* timer : station.Form.Timers())
    timer->SetEnabled(true);
  station.Form.Form_Unload();
  for (const Timer* timer : station.Form.Timers())
    EXPECT_FALSE(timer->Enabled) << timer->Name;
  EXPECT_FALSE(station.Form.Terminado());
}

/// A gate whose own folder can no longer be written: the file that names the shared folder is gone.
class StopTest : public testing::Test {
 protected:
  StopTest() {
    station_.Disk.Put("Objetos\\Servidor.INI", "/mnt/porteria\r\n");
    station_.Disk.Put("/mnt/porteria/Vintoral.ACT", "");
    station_.StartConnected();
    EXPECT_TRUE(station_.Disk.Remove("Objetos\\Servidor.INI"));
    EXPECT_TRUE(station_.Disk.Remove("/mnt/porteria/Vintoral.ACT"));
  }
  /// The ten seconds until the link watch looks; the box is answered.
  void LookForTheFolder() {
    station_.Answers = {Answer::kOk};
    station_.Pass(10'000);
  }
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(StopTest, TheOperatorIsToldAndTheStationEnds) {
  station_.Faulty.Set().failWrite = 1;
  LookForTheFolder();
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Imposible Continuar"_w);
  EXPECT_EQ(station_.Boxes[0].text, "La carpeta '/estacion' está protegida contra escritura."_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kCritical);
  EXPECT_TRUE(form_.Terminado());
  EXPECT_EQ(form_.TotalFichas, 0);
}

TEST_F(StopTest, WhatClosingStoresIsStoredBeforeTheBox) {
  form_.TxtEtiqueta[1].SetText("PATENTE "_w);
  form_.PctBoton[boton::kFacturas].BorderStyle = 1;
  station_.Faulty.Set().failWrite = 1;
  station_.UnderBox = [&] {
    EXPECT_EQ(station_.Disk.Get("/mnt/porteria/Vintoral.LBL").substr(20, 8), "PATENTE ");
    EXPECT_EQ(station_.Disk.Get(kDat).size(), 16u * 46u);
    EXPECT_EQ(station_.Disk.Get(kDat).substr(0, 8), std::string("\2\0\0\0\2\0\1\0", 8));
    EXPECT_EQ(form_.OpenForms.NextTick(), -1);
  };
  LookForTheFolder();
  EXPECT_EQ(station_.UnderBox, nullptr);
}

TEST_F(StopTest, WhatCannotBeWrittenIsPassedOver) {
  station_.Faulty.Set().openReadOnly = true;
  LookForTheFolder();
  EXPECT_EQ(station_.Boxes.size(), 1u);
  EXPECT_TRUE(form_.Terminado());
  EXPECT_EQ(station_.Disk.Get(kDat), "(missing)");
}

TEST(Detener, AStationThatIsStillStartingStoresNothingAndTicksNoMore) {
  MemoryStation station;
  station.Disk.Put("Multimedia\\Vintoral.HST\\x", "");  // a folder stands where the history should
  station.Disk.Put(kDat, "the customer's");
  station.Answers = {Answer::kOk, Answer::kOk};
  station.Form.TmrBarCode.SetEnabled(true);
  bool told = false;
  station.UnderBox = [&] {
    station.UnderBox = [&] {  // the second box; the first is the welcome
      told = true;
      EXPECT_EQ(station.Form.OpenForms.NextTick(), -1);
      EXPECT_EQ(station.Form.TotalFichas, 0);
    };
  };
  station.Form.Form_Load();
  EXPECT_TRUE(told);
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_EQ(station.Disk.Get(kDat), "the customer's");
}

}  // namespace
}  // namespace vintoral
