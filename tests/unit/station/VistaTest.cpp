// The view of the grid, from those inside and from those who left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "records/ArchivosNuevos.h"
#include "station/form1/Monitor.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

constexpr const char* kHst = "Multimedia\\Vintoral.HST";

class VistaTest : public testing::Test {
 protected:
  VistaTest() { station_.StartConnected(); }
  /// A history of these exits, oldest first, behind the row that it begins with.
  void Left(const std::vector<const char*>& exits) {
    std::string bytes(HstNuevo().Bytes());
    for (const char* exit : exits) {
      RegistroFicha row;
      row.EnUso = true;
      row.MarcaSalida = exit;
      row.PorteriaSalida = "01";
      row.Placa = exit;
      const auto encoded = row.Encode();
      bytes.append(encoded.data(), encoded.size());
    }
    station_.Disk.Put(kHst, bytes);
  }
  std::vector<std::string> Shown() const {
    std::vector<std::string> exits;
    for (const RegistroFicha& row : form_.VistaFichas)
      exits.push_back(row.MarcaSalida.Trimmed().Bytes());
    return exits;
  }
  using Exits = std::vector<std::string>;

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(VistaTest, DeparturesComeLatestFirstAndAreThoseOfSomeTimeAgo) {
  Left({"12:00  (20/11/2026)", "13:30  (20/11/2026)", "13:50  (20/11/2026)", "13:51  (20/11/2026)"});
  form_.CboMinutos.SetText("10"_w);
  form_.CargarSalidasHST();  // at 14:00
  EXPECT_EQ(Shown(), (Exits{"13:50  (20/11/2026)", "13:30  (20/11/2026)", "12:00  (20/11/2026)"}));
}

TEST_F(VistaTest, DeparturesEndAtTheFirstRowOfAnotherDay) {
  Left({"12:00  (20/11/2026)", "23:59  (19/11/2026)", "13:00  (20/11/2026)"});
  form_.CboMinutos.SetText("0"_w);
  form_.CargarSalidasHST();
  EXPECT_EQ(Shown(), (Exits{"13:00  (20/11/2026)"}));
  EXPECT_EQ(form_.FichaAuxiliar.MarcaSalida.Trimmed(), "23:59  (19/11/2026)"_w);
}

TEST_F(VistaTest, WithoutHistoryTheLinkIsLookedAtAndTheViewStays) {
  station_.Enter("7", "abc");
  ASSERT_TRUE(station_.Disk.Remove(kHst));
  form_.CargarSalidasHST();
  EXPECT_EQ(form_.TmrConexion.Interval(), 100);
  EXPECT_EQ(form_.VistaFichas.size(), 1u);
}

TEST_F(VistaTest, EntriesAreThoseOfTheLastMinutes) {
  station_.Enter("7", "abc");
  station_.Pass(10 * 60'000);
  station_.Enter("8", "def");
  form_.PctBoton[boton::kUltimosEnIngresar].BorderStyle = 1;
  form_.CboMinutos.SetText("9"_w);
  form_.CargarArchivoACT();
  ASSERT_EQ(form_.VistaFichas.size(), 1u);
  EXPECT_EQ(form_.VistaFichas[0].Posicion, 8);
  form_.CboMinutos.SetText("11"_w);  // the stamps hold no seconds, the clock does
  form_.CargarArchivoACT();
  EXPECT_EQ(form_.VistaFichas.size(), 2u);
}

TEST_F(VistaTest, ThoseWhoStayAreThoseOfTheLastMinutesAndBefore) {
  station_.Enter("7", "abc");
  station_.Pass(10 * 60'000);
  station_.Enter("8", "def");
  form_.PctBoton[boton::kTiempoDePermanencia].BorderStyle = 1;
  form_.CboMinutos.SetText("10"_w);
  form_.CargarArchivoACT();
  ASSERT_EQ(form_.VistaFichas.size(), 1u);
  EXPECT_EQ(form_.VistaFichas[0].Posicion, 7);
}

TEST_F(VistaTest, OfDeparturesTakesNothingFromThoseInside) {
  station_.Enter("7", "abc");
  ASSERT_EQ(form_.VistaFichas.size(), 1u);
  form_.PctBoton[boton::kUltimosEnSalir].BorderStyle = 1;
  form_.CargarArchivoACT();
  EXPECT_TRUE(form_.VistaFichas.empty());
}

TEST_F(VistaTest, FromTheFirstSlotToTheLast) {
  station_.Enter("1", "abc");
  station_.Enter("1000", "def");
  form_.CargarArchivoACT();
  ASSERT_EQ(form_.VistaFichas.size(), 2u);
  EXPECT_EQ(form_.VistaFichas[0].Posicion, 1);
  EXPECT_EQ(form_.VistaFichas[1].Posicion, 1000);
}

TEST_F(VistaTest, WithoutTheRegisterTheViewStays) {
  station_.Enter("7", "abc");
  ASSERT_TRUE(station_.Disk.Remove("Multimedia\\Vintoral.ACT"));
  form_.CargarArchivoACT();
  EXPECT_EQ(form_.VistaFichas.size(), 1u);
}

TEST_F(VistaTest, AMonitorLetsTheMainGateLookEverySevenSeconds) {
  station_.Enter("7", "abc");
  station_.Pass(5 * 60'000);
  for (const auto monitor : {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia}) {
    form_.CboMinutos.SetText(monitor == boton::kUltimosEnIngresar ? "10"_w : "5"_w);
    form_.LiberarMemoria();
    form_.PctBoton[monitor].BorderStyle = 1;
    form_.TmrMonitor_Timer();
    EXPECT_EQ(form_.VistaFichas.size(), 1u) << monitor;
    EXPECT_EQ(form_.LblInfo[0].Caption, "1 ( 1/1 )  "_w);
    form_.PctBoton[monitor].BorderStyle = 0;
  }
  form_.LiberarMemoria();
  form_.TmrMonitor_Timer();
  EXPECT_TRUE(form_.VistaFichas.empty());
}

TEST_F(VistaTest, TheMonitorOfDeparturesLooksAtTheHistory) {
  Left({"13:30  (20/11/2026)"});
  form_.CboMinutos.SetText("10"_w);
  form_.PctBoton[boton::kUltimosEnSalir].BorderStyle = 1;
  form_.TmrMonitor_Timer();
  EXPECT_EQ(Shown(), (Exits{"13:30  (20/11/2026)"}));
}

TEST_F(VistaTest, TheFirstRowOfAHistoryIsLookedAtToo) {
  RegistroFicha row;
  row.MarcaSalida = "13:30  (20/11/2026)";
  const auto bytes = row.Encode();
  station_.Disk.Put(kHst, std::string(bytes.data(), bytes.size()));
  form_.CboMinutos.SetText("10"_w);
  form_.CargarSalidasHST();
  EXPECT_EQ(Shown(), (Exits{"13:30  (20/11/2026)"}));
}

TEST_F(VistaTest, MinutesAreTheNumberInTheBoxAndNeverNegative) {
  const std::vector<std::pair<String, int>> texts = {
      {"17 Min. ATRAS"_w, 17},     {"0"_w, 0}, {""_w, 0}, {"-5"_w, 0}, {"1000000"_w, 1'000'000},
      {"99999999999"_w, 1'000'000}};
  for (const auto& [text, minutes] : texts) {
    form_.CboMinutos.SetText(text);
    EXPECT_EQ(MinutosDelMonitor(form_), minutes) << text.Bytes();
  }
}

TEST(Vista, RegistersThatCannotBeOpenedAreTold) {
  MemoryStation station;
  station.StartConnected();
  const std::vector<std::pair<const char*, void (Form1::*)()>> loads = {
      {"Multimedia\\Vintoral.ACT", &Form1::CargarArchivoACT},
      {"Multimedia\\Vintoral.HST", &Form1::CargarSalidasHST},
      {"Recursos\\Vintoral.DAT", &Form1::CargarDatosCall}};
  for (const auto& [file, load] : loads) {
    station.Disk.Remove(file).PassOver();
    ASSERT_TRUE(station.Disk.CreateFolder(file));
    testing::internal::CaptureStderr();
    (station.Form.*load)();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::EndsWith(": Is a directory\n")) << file;
  }
}

}  // namespace
}  // namespace vintoral
