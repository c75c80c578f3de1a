// The panic alert as a guard fires it, and its switch.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "station/form1/Sonidos.h"
#include "support/MemoryStation.h"
#include "unit/safety/Diarios.h"
#include "unit/safety/LentoFixture.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Le;
using testing::SizeIs;

class Panico : public testing::Test {
 protected:
  Panico() {
    station_.StartConnected();
    form_.ImgPanico.Visible = true;
    form_.DatosCall = {
        " ALERTA "_w,   "  Asalto en la puerta  "_w, "a@a.example "_w, ""_w, " c@c.example"_w, "   "_w,
        "e@e.example"_w};
    station_.Mail.Deliver = [this](const MailMessage& message) {
      EXPECT_EQ(form_.LblInfo[3].Caption, "ENVIANDO E-MAIL"_w);
      EXPECT_FALSE(form_.ImgPanico.Enabled);
      sent_.push_back(message);
      if (during_) during_();
      return taken_;
    };
  }
  void Fire() { station_.Hands.Key(keys::kF12, 0); }
  void ExpectRest() {
    EXPECT_EQ(form_.LblInfo[3].Caption, ""_w);
    EXPECT_TRUE(form_.ImgPanico.Enabled);
  }

  test::MemoryStation station_;
  Form1& form_ = station_.Form;
  std::vector<MailMessage> sent_;
  std::function<void()> during_;
  bool taken_ = true;
};

TEST_F(Panico, TheAlertGoesOutByTheKey) {
  station_.Disk.Put("Objetos\\Correo.INI",
                    "Servidor = relay.example\nPuerto = 2526\nDe = puerta@casa.example\nUsuario = "
                    "puerta\nClave1 = a\nClave2 = b\nTLS = starttls\n");
  Fire();
  ASSERT_THAT(sent_, SizeIs(1));
  EXPECT_EQ(sent_[0], (MailMessage{.server = "relay.example"_w,
                                   .port = 2526,
                                   .user = "puerta"_w,
                                   .password = "a-b"_w,
                                   .logIn = true,
                                   .privacy = MailPrivacy::kStartTls,
                                   .from = "puerta@casa.example"_w,
                                   .to = {"a@a.example"_w, "c@c.example"_w, "e@e.example"_w},
                                   .subject = "ALERTA"_w,
                                   .text = String(std::string_view(
                                       "Asalto en la puerta\r\n\r\nEnviado desde mi Vintoral 10.25\r\n\r\n")),
                                   .attachment = {}}));
  ExpectRest();
  EXPECT_THAT(station_.Waits, IsEmpty());
}

TEST_F(Panico, TheAlertGoesOutByTheSign) {
  station_.Hands.Click(form_.ImgPanico);
  EXPECT_THAT(sent_, SizeIs(1));
}

TEST_F(Panico, TheSettingsAreReadForEachAlert) {
  Fire();
  station_.Disk.Put("Objetos\\Correo.INI", "Servidor = otro\nAutenticacion = no\n");
  Fire();
  ASSERT_THAT(sent_, SizeIs(2));
  EXPECT_EQ(sent_[0].server, "correo.vintoral.example"_w);
  EXPECT_EQ(sent_[0].port, 26);
  EXPECT_TRUE(sent_[0].logIn);
  EXPECT_EQ(sent_[0].privacy, MailPrivacy::kNone);
  EXPECT_EQ(sent_[1].server, "otro"_w);
  EXPECT_FALSE(sent_[1].logIn);
}

TEST_F(Panico, TheAlertIsInTheLogBeforeItGoesOut) {
  const std::string before = station_.Disk.Get(test::kFdr);
  std::string during;
  during_ = [&] { during = station_.Disk.Get(test::kFdr); };
  Fire();
  EXPECT_NE(during, before);
  // Behind the running time of the day: station "01", code "17".
  EXPECT_EQ(test::EntryOf(during, 2), test::Entry("20/11/2026  14:00", 117));
  EXPECT_EQ(test::EntryOf(during, 1).CodigoFuncion, Money::FromUnits(10));
  EXPECT_EQ(station_.Disk.Get(test::kFdr), during);
}

TEST_F(Panico, WithoutTheSignNothingHappens) {
  form_.ImgPanico.Visible = false;
  const std::string log = station_.Disk.Get(test::kFdr);
  Fire();
  EXPECT_EQ(station_.Disk.Get(test::kFdr), log);
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_THAT(station_.Events.Take(), IsEmpty());
}

TEST_F(Panico, ASecondPressDuringTheSendHasNoEffect) {
  during_ = [this] {
    Fire();
    station_.Hands.Click(form_.ImgPanico);
  };
  Fire();
  EXPECT_THAT(sent_, SizeIs(1));
  ExpectRest();
  during_ = nullptr;
  Fire();
  EXPECT_THAT(sent_, SizeIs(2));
}

TEST_F(Panico, AFailureStandsForThreeSeconds) {
  taken_ = false;
  station_.UnderWait = [this] {
    EXPECT_EQ(form_.LblInfo[3].Caption, "IMPOSIBLE ENVIAR"_w);
    EXPECT_FALSE(form_.ImgPanico.Enabled);
    Fire();
  };
  Fire();
  EXPECT_THAT(sent_, SizeIs(1));
  EXPECT_THAT(station_.Waits, ElementsAre(3000));
  EXPECT_EQ(station_.Beeps(), 1);
  ExpectRest();
}

TEST_F(Panico, WithoutAConnectionTheFailureFollowsAtOnce) {
  station_.Mail.Online = false;
  String shown;
  station_.UnderWait = [&] { shown = form_.LblInfo[3].Caption; };
  Fire();
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_EQ(shown, "IMPOSIBLE ENVIAR"_w);
  EXPECT_THAT(station_.Waits, ElementsAre(3000));
  EXPECT_EQ(station_.Beeps(), 0);
  ExpectRest();
}

TEST_F(Panico, TheEndOfTheProgramEndsTheWaitOfAFailure) {
  taken_ = false;
  station_.UnderWait = [this] { form_.CerrarSinPreguntar(); };
  Fire();
  EXPECT_TRUE(form_.Terminado());
}

constexpr int kCtrlAlt = keys::kControl | keys::kAlt;

TEST_F(Panico, ItIsDisarmedBehindAQuestion) {
  station_.Answers = {Answer::kNo};
  station_.Hands.Key('P', kCtrlAlt);
  EXPECT_TRUE(form_.ImgPanico.Visible);
  ASSERT_THAT(station_.Boxes, SizeIs(1));
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Botón del Pánico"_w);
  EXPECT_EQ(station_.Boxes[0].text, "¿Desea realmente desactivar el envío de mensajes de alerta?"_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_THAT(station_.Boxes[0].buttons, ElementsAre(Answer::kYes, Answer::kNo));
  EXPECT_EQ(station_.Boxes[0].preselected, Answer::kNo);
  EXPECT_THAT(station_.Heard(), IsEmpty());
  station_.Answers = {Answer::kYes};
  station_.Hands.Key('P', kCtrlAlt);
  EXPECT_FALSE(form_.ImgPanico.Visible);
}

TEST_F(Panico, ItStaysDisarmedWithoutAClosing) {
  form_.GuardarEstadoPantalla();
  form_.GuardarMarcas();
  const auto armed = [this] {
    test::MemoryStation next;
    next.Disk.Put("Recursos\\Vintoral.DAT", station_.Disk.Get("Recursos\\Vintoral.DAT"));
    next.Start();
    return next.Form.ImgPanico.Visible;
  };
  ASSERT_TRUE(armed());
  station_.Answers = {Answer::kYes};
  station_.Hands.Key('P', kCtrlAlt);
  EXPECT_FALSE(armed());
}

using Lento = test::Lento;

TEST_F(Lento, TheScreenIsServedUntilTheResultIsThere) {
  Form.ImgPanico.Visible = true;
  screen_.OnStep = [this](std::size_t step) {
    EXPECT_EQ(Form.LblInfo[3].Caption, "ENVIANDO E-MAIL"_w);
    EXPECT_TRUE(screen_.IsBusy);
    if (step == 2) {
      Form.SetFocus(&Form.TxtCampo[0]);
      Hands.Character('7');
      Hands.Key(keys::kF12, 0);
    }
    if (step == 4) mail_.Result = true;
  };
  Hands.Key(keys::kF12, 0);
  EXPECT_EQ(mail_.Sent, 1);
  EXPECT_THAT(screen_.Waits, SizeIs(4));
  EXPECT_THAT(screen_.Waits, Each(Le(50)));
  EXPECT_FALSE(screen_.IsBusy);
  EXPECT_EQ(Form.TxtCampo[0].Text(), "7"_w);
  EXPECT_EQ(Form.LblInfo[3].Caption, ""_w);
  EXPECT_TRUE(Form.ImgPanico.Enabled);
}

TEST_F(Lento, AClosingDoesNotWaitForTheMail) {
  Form.ImgPanico.Visible = true;
  screen_.OnStep = [this](std::size_t step) {
    ASSERT_LE(step, 2u);
    if (step == 2) Form.CerrarSinPreguntar();
  };
  Hands.Key(keys::kF12, 0);
  EXPECT_TRUE(Form.Terminado());
  EXPECT_EQ(mail_.GivenUp, 1);
  EXPECT_FALSE(screen_.IsBusy);
  EXPECT_EQ(around_.Beeps(), 0);
}

TEST_F(Lento, DisarmingUnderTheSendStands) {
  Form.ImgPanico.Visible = true;
  screen_.OnStep = [this](std::size_t step) {
    if (step == 1) Hands.Key('P', kCtrlAlt);  // whoever serves the box says yes
    mail_.Result = true;
  };
  Hands.Key(keys::kF12, 0);
  EXPECT_FALSE(Form.ImgPanico.Visible);
  EXPECT_TRUE(Form.ImgPanico.Enabled);
}

}  // namespace
}  // namespace vintoral
