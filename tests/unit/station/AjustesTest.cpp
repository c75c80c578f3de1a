// The small settings files, where they are odd.
#include <gtest/gtest.h>

#include <string>

#include "records/RegistroEtiquetas.h"
#include "records/RegistroMixto.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

constexpr const char* kDat = "Recursos\\Vintoral.DAT";
constexpr const char* kDvs = "Recursos\\Vintoral.DVS";
constexpr const char* kLbl = "Multimedia\\Vintoral.LBL";

void Close(MemoryStation& station) {
  station.Answers = {Answer::kYes};
  station.Form.CerrarVentana();
}

TEST(EstadoPantalla, RecordThatIsNotThereLeavesTheDefaults) {
  for (const std::size_t length : {0u, 45u}) {
    MemoryStation station;
    station.Disk.Put(kDat, std::string(length, '\1'));
    station.Start();
    for (const std::size_t button : {7u, 8u, 9u})
      EXPECT_TRUE(station.Form.PctBoton[button].Tag.Empty()) << length;
    EXPECT_EQ(station.Form.PctBoton[10].BorderStyle, 0);
    EXPECT_TRUE(station.Form.ImgFondo.Tag.Empty());
  }
}

TEST(EstadoPantalla, MinutesOfDeparturesAreAnAmount) {
  RegistroMixto screen;
  screen.Importe = Money::FromUnits(40'000);
  MemoryStation station;
  station.Disk.Put(kDat, Encoded(screen));
  station.Start();
  EXPECT_EQ(station.Form.PctBoton[9].Tag, "40000"_w);
  Close(station);
  const std::string dat = station.Disk.Get(kDat);
  const auto stored =
      RegistroMixto::Decode(std::span<const char, RegistroMixto::kSize>(dat.data(), RegistroMixto::kSize));
  EXPECT_EQ(stored.Importe, Money::FromUnits(40'000));
}

TEST(Etiquetas, FaceMemoryIsOnForMinusOneAlone) {
  for (const std::int16_t number : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{1}, std::int16_t{2}}) {
    RegistroEtiquetas labels;
    labels.MemoriaRostros = number;
    MemoryStation station;
    station.Disk.Put(kLbl, Encoded(labels));
    station.Start();
    EXPECT_EQ(station.Form.ImgIndicador[2].Visible, number == -1) << number;
  }
}

TEST(Etiquetas, AreStoredWhereTheyWereReadThoughTheFichasAreAway) {
  RegistroEtiquetas labels;
  labels.Etiqueta[1] = "PATENTE";
  labels.MemoriaRostros = -1;
  MemoryStation station;
  station.Disk.Put("Objetos\\Servidor.INI", "/mnt/porteria\r\n");
  station.Disk.Put("/mnt/porteria/Vintoral.LBL", Encoded(labels));
  station.Start();
  ASSERT_EQ(station.Form.TxtEtiqueta[1].Text(), "PATENTE "_w);
  station.Form.AlternarMemoriaRostros();
  Close(station);
  labels.MemoriaRostros = 0;
  const std::string stored = station.Disk.Get("/mnt/porteria/Vintoral.LBL");
  EXPECT_EQ(stored.substr(20, 20), "PATENTE             ");
  EXPECT_EQ(stored.substr(120, 2), std::string(2, '\0'));
}

TEST(Moneda, ThatCannotBeReadIsToldAndLeftAlone) {
  MemoryStation station;
  station.Disk.Put(kDvs, "COP\r\n");
  station.Start();
  ASSERT_EQ(station.Form.Moneda, "COP"_w);
  station.Faulty.Set().failRead = 1;
  testing::internal::CaptureStderr();
  station.Form.CargarMoneda();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "vintoral: read Recursos\\Vintoral.DVS: Input/output error\n");
  EXPECT_EQ(station.Form.Moneda, "$"_w);
  EXPECT_EQ(station.Disk.Get(kDvs), "COP\r\n");
}

TEST(Moneda, MissingFileIsMadeInSilence) {
  MemoryStation station;
  station.Start();
  ASSERT_TRUE(station.Disk.Remove(kDvs));
  station.Form.Moneda = "COP"_w;
  testing::internal::CaptureStderr();
  station.Form.CargarMoneda();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(station.Form.Moneda, "$"_w);
  EXPECT_EQ(station.Disk.Get(kDvs), "$\r\n");
}

TEST(Servidor, ThatCannotBeReadIsToldAndStaysWhatItIs) {
  MemoryStation station;
  station.Disk.Put("Objetos\\Servidor.INI", "/mnt/porteria\r\n");
  station.Start();
  ASSERT_EQ(station.Form.NumeroPorteria, "02"_w);
  station.Faulty.Set().failRead = 1;
  testing::internal::CaptureStderr();
  EXPECT_TRUE(station.Form.CargarServidor());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "vintoral: read Objetos\\Servidor.INI: Input/output error\n");
  EXPECT_EQ(station.Form.NumeroPorteria, "02"_w);
  EXPECT_EQ(station.Form.CarpetaCompartida, "/mnt/porteria"_w);
}

TEST(Vista, OfDeparturesTakesNothingFromThoseInside) {
  MemoryStation station;
  station.StartConnected();
  station.Enter("7", "abc");
  ASSERT_EQ(station.Form.VistaFichas.size(), 1u);
  station.Form.PctBoton[9].BorderStyle = 1;
  station.Form.CargarArchivoACT();
  EXPECT_TRUE(station.Form.VistaFichas.empty());
}

TEST(Limpiar, TheInvoiceTickStaysInSightUntilANewFichaIsOpened) {
  MemoryStation station;
  station.StartConnected();
  station.Enter("7", "abc");
  station.Form.PctBoton[14].BorderStyle = 1;
  station.TypeAndEnter("7");
  ASSERT_TRUE(station.Form.ChkFactura.Visible);
  station.Form.LimpiarCampos();
  EXPECT_TRUE(station.Form.ChkFactura.Visible);
  EXPECT_EQ(station.Form.ChkFactura.Value, 0);
  station.TypeAndEnter("8");
  EXPECT_FALSE(station.Form.ChkFactura.Visible);
}

}  // namespace
}  // namespace vintoral
