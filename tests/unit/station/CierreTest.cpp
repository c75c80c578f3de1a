// How the program ends when nobody is there to be asked.
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
  station.Form.PctBoton[14].BorderStyle = 1;
  station.Form.CerrarSinPreguntar();
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_TRUE(station.Boxes.empty());
  EXPECT_NE(station.Disk.Get(kLbl).find("PATENTE"), std::string::npos);

  MemoryStation again;
  again.Disk.Put(kDat, station.Disk.Get(kDat));
  again.StartConnected();
  EXPECT_EQ(again.Form.PctBoton[14].BorderStyle, 1);
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

}  // namespace
}  // namespace vintoral
