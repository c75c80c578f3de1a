// The points of a ficha on display are redeemed: asked, cleared, told.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/ArchivosNuevos.h"
#include "support/MemoryStation.h"
#include "support/Registers.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::Contains;
using testing::Not;

const String kGone = "Sonidos\\Vintoral-7.wav"_w;

/// A ficha of a user with `points` on display.
class ReiniciarPuntosTest : public testing::Test {
 protected:
  ReiniciarPuntosTest() { station_.StartConnected(); }
  void Show(std::int32_t points) {
    RegistroUsuario user;
    user.Placa = "AAA";
    user.Puntos = points;
    station_.Disk.Put(test::kUsr, test::Encoded(user));
    station_.Enter("7", "aaa");
    station_.TypeAndEnter("7");
    station_.Boxes.clear();
    station_.Events.Take();
  }
  void Ask(Answer answer) {
    station_.Answers = {answer};
    EXPECT_TRUE(form_.Form_KeyDown('R', keys::kControl | keys::kShift));
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(ReiniciarPuntosTest, AsksInTheStationsWordsWithNoFirst) {
  Show(100);
  Ask(Answer::kNo);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Reiniciar Total Puntos"_w);
  EXPECT_EQ(station_.Boxes[0].text, "¿Desea realmente reiniciar los puntos acumulados de la ficha actual?"_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_THAT(station_.Boxes[0].buttons, testing::ElementsAre(Answer::kYes, Answer::kNo));
  EXPECT_EQ(station_.Boxes[0].preselected, Answer::kNo);
}

TEST_F(ReiniciarPuntosTest, NoLeavesThem) {
  Show(100);
  Ask(Answer::kNo);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "100"_w);
  EXPECT_EQ(form_.ImgPuntos.Tag, "0"_w);
  EXPECT_TRUE(form_.ImgPuntos.Visible);
  EXPECT_EQ(form_.PuntosAcumulados, 100);
  EXPECT_THAT(station_.Heard(), Not(Contains(kGone)));
}

TEST_F(ReiniciarPuntosTest, YesClearsThemForThisDisplay) {
  Show(100);
  form_.PuntosEstadia = 3;
  Ask(Answer::kYes);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "0"_w);
  EXPECT_EQ(form_.ImgPuntos.Tag, "1"_w);
  EXPECT_FALSE(form_.ImgPuntos.Visible);
  EXPECT_EQ(form_.PuntosAcumulados, 0);
  EXPECT_EQ(form_.PuntosEstadia, 0);
  EXPECT_THAT(station_.Heard(), Contains(kGone));
}

TEST_F(ReiniciarPuntosTest, NothingMoreIsEarnedOnThisDisplay) {
  Show(100);
  Ask(Answer::kYes);
  station_.Clock.Set(test::At(15, 0));
  form_.LblValor.Visible = false;
  form_.TmrHoraFecha_Timer();
  EXPECT_EQ(form_.LblPuntos[1].Caption, "0"_w);
  EXPECT_EQ(form_.PuntosEstadia, 0);
}

TEST_F(ReiniciarPuntosTest, TheNextDisplayEarnsAgain) {
  Show(100);
  Ask(Answer::kYes);
  station_.Hands.Key(keys::kEscape, 0);
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.ImgPuntos.Tag, "0"_w);
  EXPECT_TRUE(form_.ImgPuntos.Visible);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "100"_w);
}

TEST_F(ReiniciarPuntosTest, WithoutPointsNothingIsAsked) {
  for (const std::int32_t points : {0, -5}) {
    Show(points);
    EXPECT_TRUE(form_.Form_KeyDown('R', keys::kControl | keys::kShift));
    EXPECT_TRUE(station_.Boxes.empty()) << points;
    station_.Hands.Key(keys::kEscape, 0);
    station_.Disk.Put(test::kAct, ActNuevo());
  }
}

TEST_F(ReiniciarPuntosTest, OnePointIsEnoughFromEitherPart) {
  Show(1);
  Ask(Answer::kNo);
  EXPECT_EQ(station_.Boxes.size(), 1u);
  form_.PuntosAcumulados = 0;
  form_.PuntosEstadia = 1;
  Ask(Answer::kNo);
  EXPECT_EQ(station_.Boxes.size(), 2u);
}

TEST_F(ReiniciarPuntosTest, AClickOnTheIconAsksToo) {
  Show(100);
  station_.Answers = {Answer::kYes};
  station_.Hands.Click(form_.ImgPuntos);
  EXPECT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(form_.LblPuntos[1].Caption, "0"_w);
}

TEST_F(ReiniciarPuntosTest, AFichaThatWasForgottenUnderTheQuestionKeepsThem) {
  Show(100);
  station_.UnderBox = [this] {
    station_.Pass(180'000);
    ASSERT_FALSE(form_.FichaEnPantalla());
    station_.Events.Take();
  };
  Ask(Answer::kYes);
  EXPECT_EQ(form_.ImgPuntos.Tag, "0"_w);
  EXPECT_TRUE(form_.LblPuntos[1].Caption.Empty());
  EXPECT_THAT(station_.Heard(), Not(Contains(kGone)));
}

}  // namespace
}  // namespace vintoral
