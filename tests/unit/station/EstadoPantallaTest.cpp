// Vintoral.DAT: the state of the screen, the panic contact, the station's marks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "records/Piezas.h"
#include "records/RegistroMixto.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Decoded;
using test::Encoded;
using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDat = "Recursos\\Vintoral.DAT";

/// A whole file of empty records but for the first and the last.
std::string Dat(const RegistroMixto& screen, const RegistroMixto& marks = {}) {
  std::string bytes = Encoded(screen);
  for (int i = 2; i <= 15; ++i)
    bytes += Encoded(RegistroMixto{});
  return bytes + Encoded(marks);
}

class EstadoPantallaTest : public testing::Test {
 protected:
  RegistroMixto Stored(std::size_t number) const {
    return Decoded<RegistroMixto>(
        station_.Disk.Get(kDat).substr((number - 1) * RegistroMixto::kSize, RegistroMixto::kSize));
  }
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

// ---- The screen
// ---------------------------------------------------------------------------------------------

TEST_F(EstadoPantallaTest, RecordThatIsNotThereLeavesTheDefaults) {
  for (const std::size_t length : {0u, 45u}) {
    MemoryStation station;
    station.Disk.Put(kDat, std::string(length, '\1'));
    station.Start();
    for (const auto monitor :
         {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia, boton::kUltimosEnSalir})
      EXPECT_TRUE(station.Form.PctBoton[monitor].Tag.Empty()) << length;
    EXPECT_EQ(station.Form.PctBoton[boton::kTiquetes].BorderStyle, 0);
    EXPECT_TRUE(station.Form.ImgFondo.Tag.Empty());
  }
}

TEST_F(EstadoPantallaTest, MinutesAreTagsOfTheirButtons) {
  RegistroMixto screen;
  screen.Numero1 = 45;
  screen.Numero2 = -90;
  screen.Importe = Money::FromUnits(40'000);
  station_.Disk.Put(kDat, Encoded(screen));
  station_.Start();
  EXPECT_EQ(form_.PctBoton[boton::kUltimosEnIngresar].Tag, "45"_w);
  EXPECT_EQ(form_.PctBoton[boton::kTiempoDePermanencia].Tag, "-90"_w);
  EXPECT_EQ(form_.PctBoton[boton::kUltimosEnSalir].Tag, "40000"_w);
}

TEST_F(EstadoPantallaTest, TicketsThatWereOnOfferTheGeneratorAgain) {
  station_.Start();
  ASSERT_FALSE(form_.CmdNumeroFicha.Visible || form_.CmdNumeroFicha.Enabled);
  RegistroMixto screen;
  station_.Disk.Put(kDat, Dat(screen));
  form_.CargarEstadoPantalla();
  EXPECT_FALSE(form_.CmdNumeroFicha.Visible || form_.CmdNumeroFicha.Enabled);
  EXPECT_EQ(form_.PctBoton[boton::kTiquetes].BorderStyle, 0);
  screen.Marca = true;
  station_.Disk.Put(kDat, Dat(screen));
  form_.CargarEstadoPantalla();
  EXPECT_TRUE(form_.CmdNumeroFicha.Visible && form_.CmdNumeroFicha.Enabled);
  EXPECT_EQ(form_.PctBoton[boton::kTiquetes].BorderStyle, 1);
}

TEST_F(EstadoPantallaTest, TicketsInBarcodeModeOfferTheGeneratorOfCodes) {
  RegistroMixto screen, marks;
  screen.Marca = marks.Marca = true;
  station_.Disk.Put(kDat, Dat(screen, marks));
  station_.Start();
  EXPECT_TRUE(form_.CmdBarCode.Visible && form_.CmdBarCode.Enabled);
  EXPECT_FALSE(form_.CmdNumeroFicha.Visible);
}

TEST_F(EstadoPantallaTest, InvoicesAreOnOrOff) {
  RegistroMixto screen;
  screen.CampoB = std::int16_t{1};
  station_.Disk.Put(kDat, Dat(screen));
  form_.CargarEstadoPantalla();
  EXPECT_EQ(form_.PctBoton[boton::kFacturas].BorderStyle, 1);
  screen.CampoB = std::int16_t{0};
  station_.Disk.Put(kDat, Dat(screen));
  form_.CargarEstadoPantalla();
  EXPECT_EQ(form_.PctBoton[boton::kFacturas].BorderStyle, 0);
}

TEST_F(EstadoPantallaTest, WithoutAMonitorTheFirstViewIsThatOfTheRegister) {
  station_.StartConnected();
  station_.Enter("7", "abc");
  MemoryStation again;
  again.Disk.Put("Multimedia\\Vintoral.ACT", station_.Disk.Get("Multimedia\\Vintoral.ACT"));
  again.Disk.Put(kDat, Dat({}));
  again.Start();
  EXPECT_EQ(again.Form.LblInfo[0].Caption, "1 ( 1/1 )  "_w);
}

TEST_F(EstadoPantallaTest, AStoredMonitorIsPressedAtTheStart) {
  constexpr std::array kMonitors = {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia,
                                    boton::kUltimosEnSalir};
  for (std::int16_t stored = 1; stored <= 3; ++stored) {
    RegistroMixto screen;
    screen.CampoA = stored;
    MemoryStation station;
    station.Disk.Put(kDat, Dat(screen));
    // The button that is pressed already says that it goes off, and any other click says nothing.
    station.Form.PctBoton[kMonitors[static_cast<std::size_t>(stored - 1)]].BorderStyle = 1;
    station.Form.CargarEstadoPantalla();
    EXPECT_THAT(station.Heard(), ElementsAre("ABRiL\\ABRiL-2.wav"_w)) << stored;
  }
}

TEST_F(EstadoPantallaTest, AMonitorThatDoesNotExistPressesNothing) {
  for (const std::int16_t stored : {std::int16_t{-1}, std::int16_t{4}}) {
    RegistroMixto screen;
    screen.CampoA = stored;
    MemoryStation station;
    station.StartConnected();
    station.TypeNew("7", "abc");
    station.Disk.Put(kDat, Dat(screen));
    station.Form.CargarEstadoPantalla();
    EXPECT_THAT(station.Heard(), IsEmpty()) << stored;
    EXPECT_TRUE(station.Boxes.empty()) << stored;
    EXPECT_EQ(station.Form.LblInfo[0].Caption, "0 ( 1/1 )  "_w);
  }
}

TEST_F(EstadoPantallaTest, ClosingStoresWhatStandsOnTheScreen) {
  station_.Start();
  form_.CboMinutos.Tag = "2"_w;
  form_.PctBoton[boton::kFacturas].BorderStyle = 1;
  form_.PctBoton[boton::kUltimosEnIngresar].Tag = "15"_w;
  form_.PctBoton[boton::kTiempoDePermanencia].Tag = "30"_w;
  form_.PctBoton[boton::kUltimosEnSalir].Tag = "60"_w;
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  form_.GuardarEstadoPantalla();
  RegistroMixto expected;
  expected.CampoA = std::int16_t{2};
  expected.CampoB = std::int16_t{1};
  expected.Numero1 = 15;
  expected.Numero2 = 30;
  expected.Importe = Money::FromUnits(60);
  expected.Marca = true;
  EXPECT_EQ(Stored(1), expected);
}

TEST_F(EstadoPantallaTest, AButtonInTheMiddleOfASwitchIsNotStoredAsPressed) {
  station_.Start();
  form_.PctBoton[boton::kTiquetes].BorderStyle = 2;
  form_.GuardarEstadoPantalla();
  EXPECT_FALSE(Stored(1).Marca);
}

TEST_F(EstadoPantallaTest, MinutesBeyondARecordAreTheLargestThatItHolds) {
  station_.Start();
  form_.PctBoton[boton::kUltimosEnIngresar].Tag = "40000"_w;
  form_.PctBoton[boton::kTiempoDePermanencia].Tag = "-40000"_w;
  form_.PctBoton[boton::kUltimosEnSalir].Tag = "999999999999999999"_w;
  form_.GuardarEstadoPantalla();
  EXPECT_EQ(Stored(1).Numero1, 32767);
  EXPECT_EQ(Stored(1).Numero2, -32767);
  EXPECT_EQ(Stored(1).Importe, Money::FromUnits(922'337'203'685'477));
  form_.PctBoton[boton::kUltimosEnSalir].Tag = "-999999999999999999"_w;
  form_.GuardarEstadoPantalla();
  EXPECT_EQ(Stored(1).Importe, Money::FromUnits(-922'337'203'685'477));
}

// ---- The panic contact
// ---------------------------------------------------------------------------------------------

TEST_F(EstadoPantallaTest, ThePanicContactIsReadFromItsPieces) {
  const std::array<String, 7> values = {
      "uno, de mas de doce letras"_w, "dos"_w, ""_w, "cuatro"_w, "cinco"_w, "seis"_w, "siete"_w};
  std::string bytes = Encoded(RegistroMixto{});
  for (const RegistroMixto& piece : CortarPiezas(values))
    bytes += Encoded(piece);
  station_.Disk.Put(kDat, bytes);
  station_.Start();
  EXPECT_EQ(form_.DatosCall, values);
}

TEST_F(EstadoPantallaTest, WithoutTheFileThePanicContactStays) {
  form_.DatosCall[0] = "uno"_w;
  form_.CargarDatosCall();
  EXPECT_EQ(form_.DatosCall[0], "uno"_w);
  station_.Disk.Put(kDat, Dat({}));
  form_.CargarDatosCall();
  EXPECT_EQ(form_.DatosCall[0], ""_w);
}

// ---- The marks
// ---------------------------------------------------------------------------------------------

TEST_F(EstadoPantallaTest, MarksAreStoredInTheLastRecord) {
  station_.Start();
  form_.TxtBarCode.Visible = true;
  form_.ImgPanico.Visible = true;
  form_.ImgFondo.Tag = "3"_w;
  form_.GuardarMarcas();
  ASSERT_EQ(station_.Disk.Get(kDat).size(), 16 * RegistroMixto::kSize);
  RegistroMixto expected;
  expected.Marca = true;
  expected.Numero1 = 1;
  expected.Numero2 = 3;
  EXPECT_EQ(Stored(16), expected);
}

TEST_F(EstadoPantallaTest, TheCameraThatIsOffIsAnAmountOfOne) {
  station_.Start();
  form_.ImgIndicador[indicador::kCamaraDesactivada].Visible = true;
  form_.GuardarMarcas();
  EXPECT_EQ(Stored(16).Importe, Money::FromUnits(1));
  EXPECT_EQ(Stored(16).Numero1, 0);
  EXPECT_FALSE(Stored(16).Marca);
  form_.ImgIndicador[indicador::kCamaraDesactivada].Visible = false;
  form_.GuardarMarcas();
  EXPECT_EQ(Stored(16).Importe, Money());
}

TEST_F(EstadoPantallaTest, ThePanicIconIsShownForOneAlone) {
  for (const std::int16_t number : {std::int16_t{0}, std::int16_t{1}, std::int16_t{2}}) {
    RegistroMixto marks;
    marks.Numero1 = number;
    MemoryStation station;
    station.Disk.Put(kDat, Dat({}, marks));
    station.Start();
    EXPECT_EQ(station.Form.ImgPanico.Visible, number == 1) << number;
  }
}

TEST_F(EstadoPantallaTest, AReadOnlyFileIsWrittenAllTheSame) {
  station_.Disk.Put(kDat, Dat({}));
  station_.Disk.SetReadOnly(kDat);
  station_.Start();
  form_.ImgPanico.Visible = true;
  form_.GuardarMarcas();
  EXPECT_EQ(Stored(16).Numero1, 1);
}

TEST_F(EstadoPantallaTest, AFileThatCannotBeReadIsTold) {
  station_.Disk.Put(kDat, Dat({}));
  station_.Faulty.Set().failLength = true;
  testing::internal::CaptureStderr();
  form_.CargarMarcas();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "vintoral: use a faulty disk: Input/output error\n");
}

TEST(MissingFiles, AreNoFailures) {
  MemoryStation station;
  station.Start();
  ASSERT_TRUE(station.Disk.Remove("Multimedia\\Vintoral.HST"));
  ASSERT_FALSE(station.Disk.Exists(kDat));
  ASSERT_FALSE(station.Disk.Exists("Multimedia\\Vintoral.USR"));
  testing::internal::CaptureStderr();
  station.Form.CargarEstadoPantalla();
  station.Form.CargarMarcas();
  EXPECT_EQ(station.Form.LeerPuntosUsuario(5), 0);
  station.Pass(3000);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(station.Form.LblConexion[0].BackColor, kLightGreen);
}

}  // namespace
}  // namespace vintoral
