// Which gate this is, and a gate that becomes another one while it runs.
#include <gtest/gtest.h>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

constexpr const char* kAct = "Multimedia\\Vintoral.ACT";
constexpr const char* kServer = "Objetos\\Servidor.INI";

class CargarServidorTest : public testing::Test {
 protected:
  /// A running main gate whose own folder goes away while its file names the folder of another gate.
  void BecomeConnected() {
    station_.StartConnected();
    ASSERT_EQ(form_.PrimerNumero, 1);
    ASSERT_EQ(form_.CboMinutos.Text(), "           P01 MONITOR"_w);
    station_.Disk.Put(kServer, "/mnt/porteria\r\n");
    ASSERT_TRUE(station_.Disk.Remove(kAct));
    station_.Pass(10'000);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(CargarServidorTest, AMissingFileIsMadeForAMainGate) {
  station_.Start();
  EXPECT_EQ(station_.Disk.Get(kServer), "\r\n");
  EXPECT_EQ(form_.NumeroPorteria, "01"_w);
  EXPECT_EQ(form_.EsCliente, 0);
  EXPECT_EQ(form_.CarpetaCompartida, "/estacion\\Multimedia"_w);
  EXPECT_EQ(form_.RutaCompartida("x"), "Multimedia\\x"_w);
}

TEST_F(CargarServidorTest, APathMakesAConnectedGate) {
  station_.Disk.Put(kServer, " /mnt/porter\303\255a \r\n/nowhere\r\n");
  station_.Start();
  EXPECT_EQ(form_.NumeroPorteria, "02"_w);
  EXPECT_EQ(form_.EsCliente, -1);
  EXPECT_EQ(form_.CarpetaCompartida, "/mnt/portería"_w);
  EXPECT_EQ(form_.RutaCompartida("x"), "/mnt/portería\\x"_w);
  EXPECT_EQ(form_.PrimerNumero, 501);
}

TEST_F(CargarServidorTest, APathThatIsEnteredWhileConnectingMakesItAnotherGate) {
  BecomeConnected();
  EXPECT_EQ(form_.NumeroPorteria, "02"_w);
  EXPECT_EQ(form_.PrimerNumero, 501);
  EXPECT_EQ(form_.LblInfo[2].Caption, "P02"_w);
  EXPECT_EQ(form_.CboMinutos.Text(), "           P02 MONITOR"_w);
}

TEST_F(CargarServidorTest, AndForgettingThePathMakesItTheMainOneAgain) {
  BecomeConnected();
  form_.OlvidarServidor();
  EXPECT_EQ(form_.NumeroPorteria, "01"_w);
  EXPECT_EQ(form_.PrimerNumero, 1);
  EXPECT_EQ(form_.LblInfo[2].Caption, "P01"_w);
}

TEST_F(CargarServidorTest, TheMinutesOfAMonitorStayWhenTheGateChanges) {
  station_.StartConnected();
  form_.CboMinutos.Tag = "1"_w;
  form_.CboMinutos.SetText("30 Min. ATRAS"_w);
  station_.Disk.Put(kServer, "/mnt/porteria\r\n");
  ASSERT_TRUE(form_.CargarServidor());
  EXPECT_EQ(form_.LblInfo[2].Caption, "P02"_w);
  EXPECT_EQ(form_.CboMinutos.Text(), "30 Min. ATRAS"_w);
}

TEST_F(CargarServidorTest, AFileThatCantBeReadForTheMomentLeavesTheGateWhatItIs) {
  BecomeConnected();
  station_.Faulty.Set().failRead = 1;
  EXPECT_TRUE(form_.CargarServidor());
  EXPECT_EQ(form_.NumeroPorteria, "02"_w);
  EXPECT_EQ(form_.CarpetaCompartida, "/mnt/porteria"_w);
}

TEST_F(CargarServidorTest, AFileThatCantBeReadAtTheStartIsTheMainGate) {
  station_.Disk.Put(kServer, "/mnt/porteria\r\n");
  station_.Faulty.Set().failRead = 1;
  station_.Start();
  EXPECT_EQ(form_.NumeroPorteria, "01"_w);
}

TEST_F(CargarServidorTest, AFileThatCantBeMadeEndsTheProgram) {
  station_.StartConnected();
  ASSERT_TRUE(station_.Disk.Remove(kServer));
  station_.Faulty.Set().failAllWrites = true;
  bool running = true;
  station_.UnderBox = [&] {
    running = form_.TmrConexion.Running() || form_.TmrHoraFecha.Running() || form_.TmrMonitor.Running() ||
              form_.TmrHorario.Running() || form_.TmrBarCode.Running();
  };
  ASSERT_TRUE(form_.TmrHoraFecha.Running());
  station_.Answers = {Answer::kOk};
  EXPECT_FALSE(form_.CargarServidor());
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Imposible Continuar"_w);
  EXPECT_EQ(station_.Boxes[0].text, "La carpeta '/estacion' está protegida contra escritura."_w);
  EXPECT_FALSE(running);
  EXPECT_EQ(form_.TotalFichas, 0);
  EXPECT_TRUE(form_.Terminado());
}

TEST_F(CargarServidorTest, AFichaOfTheOtherFolderIsNotRetiredFromThisOne) {
  station_.StartConnected();
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("7");
  ASSERT_TRUE(form_.FichaEnPantalla());
  const std::string act = station_.Disk.Get(kAct);
  station_.Disk.Put("/mnt/porteria/Vintoral.ACT", act);
  station_.Disk.Put("/mnt/porteria/Vintoral.HST", std::string(RegistroFicha::kSize, ' '));
  station_.UnderBox = [this] {
    station_.Disk.Put(kServer, "/mnt/porteria\r\n");
    ASSERT_TRUE(form_.CargarServidor());
  };
  station_.Answers = {Answer::kYes};
  station_.Events.Take();
  station_.Hands.Key(keys::kDelete, 0);
  EXPECT_EQ(station_.Disk.Get("/mnt/porteria/Vintoral.ACT"), act);
  EXPECT_EQ(station_.Disk.Get("/mnt/porteria/Vintoral.HST").size(), RegistroFicha::kSize);
  EXPECT_FALSE(form_.FichaEnPantalla());
  const std::vector<String> heard = station_.Heard();
  EXPECT_EQ(heard.empty() ? String() : heard.back(), "Sonidos\\Vintoral-7.wav"_w);
}

TEST_F(CargarServidorTest, TheUserInTheFormIsForgottenWithTheFolder) {
  station_.StartConnected();
  form_.UsuarioEnFormulario = 3;
  ASSERT_TRUE(form_.CargarServidor());
  EXPECT_EQ(form_.UsuarioEnFormulario, 3);
  station_.Disk.Put(kServer, "/mnt/porteria\r\n");
  ASSERT_TRUE(form_.CargarServidor());
  EXPECT_EQ(form_.UsuarioEnFormulario, 0);
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

}  // namespace
}  // namespace vintoral
