// One vehicle's day through the window, by keys and by mouse.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "gui/Gate.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/Light.h"
#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

class Operation : public Gate {
 protected:
  static constexpr std::size_t kRecord = 188;

  Operation() {
    Start();
    history_ = folder_.Get("Multimedia/Vintoral.HST").size();
  }

  void SaveNumberSeven() {
    Type("7");
    Key(Qt::Key_Return);
    Type("klm483");
    Key(Qt::Key_Return);
    Type("carmen");
    WillAnswer(Answer::kYes);
    Key(Qt::Key_Insert);
  }
  void Show(const QString& number) {
    Type(number);
    Key(Qt::Key_Return);
  }

  std::size_t history_ = 0;
};

TEST_F(Operation, IdleShowsClockLinkAndStation) {
  EXPECT_EQ(Shown("LblFechaEnt"), "14:00  (20/11/2026)");
  EXPECT_EQ(Shown("LblInfo(2)"), "P01");
  EXPECT_EQ(Face<Light>("LblConexion(0)").Shown(), theme::FromModel(kLightGreen));
  EXPECT_EQ(Focused(), "TxtCampo(0)");
  EXPECT_FALSE(Face("LblValor").isVisible());
}

TEST_F(Operation, ByKeysFromNumberToHistory) {
  SaveNumberSeven();
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_EQ(boxes_[0].text, "¿Desea realmente guardar la ficha actual?"_w);
  EXPECT_EQ(Shown("TxtCampo(0)"), "");

  constexpr std::int64_t kStay = (2 * 60 + 30) * 60'000;
  Advance(kStay);
  Show("7");
  EXPECT_EQ(Shown("LblCampo(0)"), "0007");
  EXPECT_EQ(Shown("LblCampo(1)"), "KLM483");
  EXPECT_EQ(Shown("LblCampo(2)"), "CARMEN");
  EXPECT_FALSE(Face("TxtCampo(1)").isVisible());
  EXPECT_EQ(Face<CaptionLabel>("LblCampo(1)").Ground(), theme::FromModel(kYellow));
  EXPECT_EQ(Shown("LblInfo(1)"), "02H 30M");
  EXPECT_EQ(Shown("LblValor"), "$ 15000.00");
  EXPECT_TRUE(Face("PctBoton(6)").isVisible());

  Advance(500);
  EXPECT_EQ(Focused(), "TxtEfectivo");
  Type("20000");
  Advance(500);
  EXPECT_EQ(Shown("LblCambio"), "5000");

  WillAnswer(Answer::kYes);
  Key(Qt::Key_Return);
  EXPECT_EQ(boxes_.back().text, "¿Desea realmente retirar la ficha actual?"_w);
  EXPECT_EQ(Focused(), "TxtCampo(0)");
  EXPECT_EQ(folder_.Get("Multimedia/Vintoral.HST").size(), history_ + kRecord);
}

TEST_F(Operation, CashTakesCommaAndPoint) {
  SaveNumberSeven();
  Advance(150 * 60'000);
  Show("7");
  Advance(500);
  Type("15000,5");
  Advance(500);
  EXPECT_EQ(Shown("LblCambio"), "0.5");
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Backspace);
  Type(".25");
  Advance(500);
  EXPECT_EQ(Shown("LblCambio"), "0.25");
  EXPECT_EQ(screen_.Beeps, 0);
  Type("x");
  EXPECT_EQ(screen_.Beeps, 1);
}

TEST_F(Operation, ByMouse) {
  Click("TxtCampo(0)");
  Type("12");
  Key(Qt::Key_Return);
  Type("abc");
  Click("TxtCampo(2)");  // as Enter in the field before
  EXPECT_EQ(Focused(), "TxtCampo(2)");
  WillAnswer(Answer::kYes);
  Click("PctBoton(5)");
  EXPECT_EQ(Shown("TxtCampo(0)"), "");
  Show("12");
  WillAnswer(Answer::kYes);
  Click("PctBoton(6)");
  EXPECT_EQ(boxes_.back().title, "Vintoral - Confirmar Ficha"_w);
  EXPECT_EQ(folder_.Get("Multimedia/Vintoral.HST").size(), history_ + kRecord);
}

TEST_F(Operation, EscGoesBackToIdle) {
  Show("7");
  EXPECT_TRUE(Face("PctBoton(5)").isVisible());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Face("PctBoton(5)").isVisible());
  EXPECT_EQ(Focused(), "TxtCampo(0)");
}

TEST_F(Operation, EverythingIsThereAfterARestart) {
  SaveNumberSeven();
  Restart();
  Show("7");
  EXPECT_EQ(Shown("LblCampo(1)"), "KLM483");
}

TEST_F(Operation, ALostFolderShowsInBarsAndStamp) {
  std::filesystem::rename(folder_.Path("Multimedia"), folder_.Path("away"));
  Advance(10'000);
  EXPECT_EQ(Shown("LblFechaEnt"), "CONECTANDO...");
  EXPECT_FALSE(Face("LblIndicador(0)").isVisible());
  for (const char* bar : {"LblConexion(0)", "LblConexion(1)", "LblConexion(2)"})
    EXPECT_EQ(Face<Light>(bar).Shown(), theme::FromModel(kLightRed));
  std::filesystem::rename(folder_.Path("away"), folder_.Path("Multimedia"));
  Advance(10'000);
  EXPECT_EQ(Face<Light>("LblConexion(2)").Shown(), theme::FromModel(kLightGreen));
  EXPECT_TRUE(Face("LblIndicador(0)").isVisible());
}

// A folder that hangs lets no pointer fetch it from the station.
TEST_F(Operation, TooltipNamesTheKeyBeforeThePointerWasThere) {
  const QWidget& button = Face("PctBoton(11)");
  EXPECT_EQ(button.accessibleName(), "<ESC> Cancelar/Limpiar Campos");
  EXPECT_TRUE(button.toolTip().contains("&lt;ESC&gt;"));
  EXPECT_EQ(form_->PctBoton[boton::kCancelar].ToolTipText, ""_w);
}

TEST_F(Operation, TooltipIsThatOfThePressedButtonAsSoonAsItIsPressed) {
  const QWidget& monitor = Face("PctBoton(7)");
  ASSERT_TRUE(monitor.toolTip().contains(" Activar Monitor")) << monitor.toolTip().toStdString();
  Key(Qt::Key_F1);
  EXPECT_TRUE(monitor.toolTip().contains(" Desactivar Monitor")) << monitor.toolTip().toStdString();
}

TEST_F(Operation, ClosingAsksAndNoKeepsTheStation) {
  WillAnswer(Answer::kNo);
  EXPECT_FALSE(window_->close());
  EXPECT_TRUE(window_->isVisible());
  WillAnswer(Answer::kYes);
  EXPECT_TRUE(window_->close());
  EXPECT_TRUE(form_->Terminado());
}

}  // namespace
}  // namespace vintoral::test
