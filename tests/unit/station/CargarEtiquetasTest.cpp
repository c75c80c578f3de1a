// The labels belong to the data folder: read when it is found, forgotten when it is another one.
#include <gtest/gtest.h>

#include <string>

#include "records/ArchivosNuevos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Decoded;
using test::Encoded;
using test::MemoryStation;

constexpr const char* kServer = "Objetos\\Servidor.INI";

/// A connected gate whose folder is /mnt/a; the labels of a folder end in its letter.
class EtiquetasTest : public testing::Test {
 protected:
  EtiquetasTest() { station_.Disk.Put(kServer, "/mnt/a\r\n"); }

  static RegistroEtiquetas Labels(const std::string& letter) {
    RegistroEtiquetas labels;
    labels.Etiqueta[0] = "FICHA " + letter;
    for (std::size_t i = 1; i < labels.Etiqueta.size(); ++i)
      labels.Etiqueta[i] = "CAMPO " + letter;
    labels.MemoriaRostros = -1;
    labels.ImprimirCampo = {true, false, true, false, true};
    return labels;
  }
  void PutLabels(const std::string& letter) {
    station_.Disk.Put("/mnt/" + letter + "/Vintoral.LBL", Encoded(Labels(letter)));
  }
  void PutAct(const std::string& letter) {
    station_.Disk.Put("/mnt/" + letter + "/Vintoral.ACT", ActNuevo());
  }
  std::string Stored(const std::string& folder) const { return station_.Disk.Get(folder + "/Vintoral.LBL"); }
  String Label(std::size_t i) const { return form_.TxtEtiqueta[i].Text(); }
  void SwitchToBarcodes() {
    form_.PctBoton[10].BorderStyle = 1;
    form_.CambiarModoFicha();
    ASSERT_EQ(Label(0), "CODIGO BARRAS "_w);
  }
  /// Connected to /mnt/a, whose folder then goes away while the file names /mnt/b.
  void MoveToB() {
    PutLabels("a");
    PutAct("a");
    station_.StartConnected();
    ASSERT_EQ(Label(1), "CAMPO A "_w);
    ASSERT_TRUE(form_.ImgIndicador[2].Visible);
    station_.Disk.Put(kServer, "/mnt/b\r\n");
    ASSERT_TRUE(station_.Disk.Remove("/mnt/a/Vintoral.ACT"));
    station_.Pass(10'000);
    ASSERT_EQ(form_.CarpetaCompartida, "/mnt/b"_w);
  }
  void ExpectAsDesigned() const {
    EXPECT_EQ(Label(0), "NUMERO FICHA "_w);
    EXPECT_EQ(Label(5), "OBSERVACION "_w);
    EXPECT_FALSE(form_.ImgIndicador[2].Visible);
    EXPECT_EQ(form_.EtiquetasActuales, RegistroEtiquetas{});
  }
  void Close() {
    station_.Answers = {Answer::kYes};
    form_.CerrarVentana();
    ASSERT_TRUE(form_.Terminado());
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(EtiquetasTest, AreReadWhenTheFolderIsFound) {
  station_.Start();
  ASSERT_EQ(Label(1), "PLACA/DOCUMENTO "_w);
  PutLabels("a");
  PutAct("a");
  station_.Pass(3000);
  EXPECT_EQ(Label(0), "FICHA A "_w);
  EXPECT_EQ(Label(5), "CAMPO A "_w);
  EXPECT_TRUE(form_.ImgIndicador[2].Visible);
  EXPECT_EQ(form_.EtiquetasActuales.ImprimirCampo, Labels("a").ImprimirCampo);
}

TEST_F(EtiquetasTest, FoundInBarcodeModeLeaveTheBoxOfTheCodesItsName) {
  station_.Start();
  SwitchToBarcodes();
  PutLabels("a");
  PutAct("a");
  station_.Pass(3000);
  EXPECT_EQ(Label(0), "CODIGO BARRAS "_w);
  EXPECT_EQ(Label(1), "CAMPO A "_w);
}

TEST_F(EtiquetasTest, OfAFolderThatComesAndGoesAreReadOnce) {
  PutLabels("a");
  PutAct("a");
  station_.StartConnected();
  form_.TxtEtiqueta[1].SetText("PATENTE "_w);
  form_.AlternarMemoriaRostros();
  ASSERT_TRUE(station_.Disk.Remove("/mnt/a/Vintoral.ACT"));
  station_.Pass(10'000);
  ASSERT_EQ(form_.LblConexion[0].BackColor, kLightRed);
  PutAct("a");
  station_.Pass(3000);
  ASSERT_EQ(form_.LblConexion[0].BackColor, kLightGreen);
  EXPECT_EQ(Label(1), "PATENTE "_w);
  EXPECT_FALSE(form_.ImgIndicador[2].Visible);
}

TEST_F(EtiquetasTest, OfAnotherFolderTakeTheirPlace) {
  PutLabels("b");
  MoveToB();
  ExpectAsDesigned();
  PutAct("b");
  station_.Pass(3000);
  EXPECT_EQ(Label(0), "FICHA B "_w);
  EXPECT_EQ(Label(5), "CAMPO B "_w);
  EXPECT_TRUE(form_.ImgIndicador[2].Visible);
  Close();
  EXPECT_EQ(Stored("/mnt/a"), Encoded(Labels("a")));
  EXPECT_EQ(Decoded<RegistroEtiquetas>(Stored("/mnt/b")).Etiqueta[1].Trimmed(), "CAMPO B"_w);
}

TEST_F(EtiquetasTest, AreNotCarriedIntoAFolderThatHasNone) {
  MoveToB();
  PutAct("b");
  station_.Pass(3000);
  ExpectAsDesigned();
  Close();
  const auto labels = Decoded<RegistroEtiquetas>(Stored("/mnt/b"));
  EXPECT_EQ(labels.Etiqueta[1].Trimmed(), "PLACA/DOCUMENTO"_w);
  EXPECT_EQ(labels.MemoriaRostros, 0);
  EXPECT_EQ(labels.ImprimirCampo, RegistroEtiquetas{}.ImprimirCampo);
}

TEST_F(EtiquetasTest, AreWrittenOverNoFolderThatHasNotBeenSeen) {
  MoveToB();
  PutLabels("b");
  Close();
  EXPECT_EQ(Stored("/mnt/a"), Encoded(Labels("a")));
  EXPECT_EQ(Stored("/mnt/b"), Encoded(Labels("b")));
}

TEST_F(EtiquetasTest, AreForgottenWithTheServer) {
  PutLabels("a");  // the fichas are away: the gate goes on connecting
  station_.Start();
  ASSERT_EQ(Label(1), "CAMPO A "_w);
  station_.Hands.Key('R', keys::kControl | keys::kAlt);
  ASSERT_EQ(form_.NumeroPorteria, "01"_w);
  ExpectAsDesigned();
  station_.Pass(3000);
  Close();
  EXPECT_EQ(Stored("/mnt/a"), Encoded(Labels("a")));
  EXPECT_EQ(Decoded<RegistroEtiquetas>(Stored("Multimedia")).Etiqueta[1].Trimmed(), "PLACA/DOCUMENTO"_w);
}

TEST_F(EtiquetasTest, ForgottenInBarcodeModeLeaveTheBoxOfTheCodesItsName) {
  PutLabels("a");
  station_.Start();
  SwitchToBarcodes();
  form_.OlvidarServidor();
  EXPECT_EQ(Label(0), "CODIGO BARRAS "_w);
  EXPECT_EQ(Label(1), "PLACA/DOCUMENTO "_w);
}

TEST_F(EtiquetasTest, ThatCantBeReadAreNotWrittenOver) {
  station_.Start();
  PutLabels("a");
  PutAct("a");
  station_.Faulty.Set().failRead = 1;
  station_.Pass(3000);
  ASSERT_EQ(form_.LblConexion[0].BackColor, kLightGreen);
  ExpectAsDesigned();
  Close();
  EXPECT_EQ(Stored("/mnt/a"), Encoded(Labels("a")));
}

TEST_F(EtiquetasTest, ThatAreShortCountAsNone) {
  station_.Disk.Put("/mnt/a/Vintoral.LBL", Encoded(Labels("a")).substr(0, RegistroEtiquetas::kSize - 1));
  PutAct("a");
  station_.StartConnected();
  ExpectAsDesigned();
  Close();
  EXPECT_EQ(Decoded<RegistroEtiquetas>(Stored("/mnt/a")).Etiqueta[1].Trimmed(), "PLACA/DOCUMENTO"_w);
}

}  // namespace
}  // namespace vintoral
