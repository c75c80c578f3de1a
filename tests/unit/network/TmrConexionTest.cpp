// The watch of the shared folder: what connecting and losing it change.
#include <gtest/gtest.h>

#include <string>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

constexpr const char* kAct = "Multimedia\\Vintoral.ACT";
constexpr const char* kHst = "Multimedia\\Vintoral.HST";
const String kLost = "Sonidos\\Vintoral-1.wav"_w;

class TmrConexionTest : public testing::Test {
 protected:
  TmrConexionTest() { station_.StartConnected(); }
  void Lose() {
    act_ = station_.Disk.Get(kAct);
    ASSERT_TRUE(station_.Disk.Remove(kAct));
    station_.Pass(10'000);
  }
  void Return() {
    station_.Disk.Put(kAct, act_);
    station_.Pass(3'000);
  }
  bool Bars(Color color) const {
    return form_.LblConexion[0].BackColor == color && form_.LblConexion[1].BackColor == color &&
           form_.LblConexion[2].BackColor == color;
  }
  /// Calls up ficha 7, which came in at 13:00.
  void Show() {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.MarcaEntrada = "13:00  (20/11/2026)";
    ficha.Categoria = "AUTOMOVIL";
    station_.PutSlot(7, ficha);
    station_.TypeAndEnter("7");
    ASSERT_TRUE(form_.FichaEnPantalla());
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  std::string act_;
};

TEST_F(TmrConexionTest, ALostFolderStopsClockAndGrid) {
  ASSERT_TRUE(Bars(kLightGreen) && form_.LblIndicador[0].Visible);
  ASSERT_TRUE(form_.TmrHoraFecha.Enabled && form_.TmrMonitor.Enabled);
  Lose();
  EXPECT_TRUE(Bars(kLightRed));
  EXPECT_FALSE(form_.LblIndicador[0].Visible || form_.TmrHoraFecha.Enabled || form_.TmrMonitor.Enabled);
  EXPECT_EQ(form_.TmrConexion.Interval(), 3'000);
  EXPECT_EQ(form_.LblFechaEnt.Caption, "CONECTANDO... "_w);
  EXPECT_EQ(station_.Heard(), std::vector{kLost});
  station_.Pass(3'000);
  EXPECT_EQ(station_.Heard(), std::vector{kLost});
}

TEST_F(TmrConexionTest, AFolderThatReturnsStartsThemAgain) {
  Lose();
  station_.Heard();
  Return();
  EXPECT_TRUE(Bars(kLightGreen) && form_.LblIndicador[0].Visible);
  EXPECT_TRUE(form_.TmrHoraFecha.Enabled && form_.TmrMonitor.Enabled);
  EXPECT_EQ(form_.TmrConexion.Interval(), 10'000);
  EXPECT_EQ(form_.LblFechaEnt.Caption, ""_w);
  EXPECT_TRUE(station_.Heard().empty());
}

TEST_F(TmrConexionTest, ALookThatAnOperationAskedForConnectsInFull) {
  Lose();
  ASSERT_FALSE(form_.HayConexion());
  ASSERT_EQ(form_.TmrConexion.Interval(), 100);
  station_.Disk.Put(kAct, act_);
  station_.Pass(100);
  EXPECT_TRUE(Bars(kLightGreen));
  EXPECT_TRUE(form_.TmrHoraFecha.Enabled && form_.TmrMonitor.Enabled);
}

TEST_F(TmrConexionTest, ATickThatFindsAllAsItWasStartsNoTimer) {
  form_.TmrMonitor.SetEnabled(false);
  form_.TmrHoraFecha.SetEnabled(false);
  form_.LblFechaEnt.Caption = "as it was"_w;
  form_.TmrConexion_Timer();
  EXPECT_FALSE(form_.TmrMonitor.Enabled || form_.TmrHoraFecha.Enabled);
  EXPECT_EQ(form_.LblFechaEnt.Caption, "as it was"_w);
}

TEST_F(TmrConexionTest, TheEntryOfTheFichaOnDisplayIsShownAgain) {
  Show();
  Lose();
  ASSERT_EQ(form_.LblFechaEnt.Caption, "CONECTANDO... "_w);
  Return();
  EXPECT_EQ(form_.LblFechaEnt.Caption, "13:00  (20/11/2026)"_w);
}

TEST_F(TmrConexionTest, TheEntryOfTheRowThatWasPointedAtIsShownAgain) {
  Show();
  form_.VistaFichas.resize(1);
  form_.VistaFichas[0].MarcaEntrada = "12:00  (20/11/2026)";
  form_.PctFicha.Tag = "1"_w;
  Lose();
  Return();
  EXPECT_EQ(form_.LblFechaEnt.Caption, "12:00  (20/11/2026)"_w);
}

// ---- The end of the history
// --------------------------------------------------------------------------------------------

TEST(HistorialCortado, ARowThatAKillHasCutIsGoneOnceTheStationIsConnected) {
  MemoryStation station;
  station.Disk.Put(kHst, std::string(4096, ' '));  // 21 rows, and a piece
  station.Start();
  EXPECT_EQ(station.Disk.Get(kHst).size(), 4096u);
  station.Pass(3000);
  EXPECT_EQ(station.Disk.Get(kHst).size(), 21 * RegistroFicha::kSize);
}

TEST(HistorialCortado, ARegisterThatSomebodyHasCutElsewhereStaysAsItIs) {
  MemoryStation station;
  station.Disk.Put(kHst, std::string(4000, ' '));
  station.StartConnected();
  EXPECT_EQ(station.Disk.Get(kHst).size(), 4000u);
}

}  // namespace
}  // namespace vintoral
