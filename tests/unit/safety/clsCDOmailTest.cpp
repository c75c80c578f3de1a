#include "safety/clsCDOmail/clsCDOmail.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class clsCDOmailTest : public testing::Test {
 protected:
  clsCDOmailTest() {
    station_.StartConnected();
    correo_.Servidor = "relay"_w;
    correo_.Puerto = 26;
    correo_.De = "de@a"_w;
    correo_.Para = "para@b"_w;
    correo_.Asunto = "asunto"_w;
    correo_.Mensaje = "mensaje"_w;
    correo_.Usuario = "usuario"_w;
    correo_.PassWord = "clave"_w;
    station_.Mail.Deliver = [this](const MailMessage& message) {
      sent_.push_back(message);
      return taken_;
    };
  }
  const MailMessage& Sent() {
    if (sent_.size() != 1) ADD_FAILURE() << sent_.size() << " mails";
    static const MailMessage none;
    return sent_.empty() ? none : sent_.front();
  }

  test::MemoryStation station_;
  clsCDOmail correo_{station_.Form};
  std::vector<MailMessage> sent_;
  bool taken_ = true;
};

TEST_F(clsCDOmailTest, GivesTheRelayAllThatItHolds) {
  correo_.UseAutentificacion = true;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_EQ(Sent(), (MailMessage{.server = "relay"_w,
                                 .port = 26,
                                 .user = "usuario"_w,
                                 .password = "clave"_w,
                                 .logIn = true,
                                 .privacy = MailPrivacy::kNone,
                                 .from = "de@a"_w,
                                 .to = {"para@b"_w},
                                 .subject = "asunto"_w,
                                 .text = "mensaje"_w,
                                 .attachment = {}}));
  EXPECT_THAT(station_.Waits, IsEmpty());
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(clsCDOmailTest, UserPasswordAndTlsGoWithAuthenticationAlone) {
  correo_.SSL = true;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_FALSE(Sent().logIn);
  EXPECT_EQ(Sent().user, ""_w);
  EXPECT_EQ(Sent().password, ""_w);
  EXPECT_EQ(Sent().privacy, MailPrivacy::kNone);
  sent_.clear();
  correo_.UseAutentificacion = true;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_EQ(Sent().privacy, MailPrivacy::kTls);
  sent_.clear();
  correo_.StartTLS = true;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_EQ(Sent().privacy, MailPrivacy::kStartTls);
  sent_.clear();
  correo_.SSL = false;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_EQ(Sent().privacy, MailPrivacy::kNone);
}

TEST_F(clsCDOmailTest, EmptyPlacesAreLeftOut) {
  correo_.Para = "; a@a ;; b@b, c@c;d@d;Jefe <jefe@casa>; <x@y>; >z<; "_w;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_THAT(Sent().to, ElementsAre("a@a"_w, "b@b"_w, "c@c"_w, "d@d"_w, "jefe@casa"_w, "x@y"_w));
}

TEST_F(clsCDOmailTest, AnOwnersNameIsNoAddress) {
  correo_.Para = "\"Pérez, Ana\" <ana@casa>; jefe"_w;
  correo_.De = "Vintoral <alertas@sitio>"_w;
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_THAT(Sent().to, ElementsAre("ana@casa"_w));
  EXPECT_EQ(Sent().from, "alertas@sitio"_w);
}

TEST_F(clsCDOmailTest, WithoutAConnectionNothingIsTried) {
  station_.Mail.Online = false;
  EXPECT_FALSE(correo_.Enviar_Backup());
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_THAT(station_.Events.Take(), IsEmpty());
}

TEST_F(clsCDOmailTest, WithoutAPortNothingIsTried) {
  for (const std::int32_t port : {0, -1, 65536, 2'000'000'000}) {
    correo_.Puerto = port;
    EXPECT_FALSE(correo_.Enviar_Backup()) << port;
  }
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_THAT(station_.Events.Take(), IsEmpty());
  for (const std::int32_t port : {1, 65535}) {
    correo_.Puerto = port;
    EXPECT_TRUE(correo_.Enviar_Backup()) << port;
  }
  EXPECT_THAT(sent_, SizeIs(2));
}

TEST_F(clsCDOmailTest, AnAttachmentMustBeThere) {
  correo_.Adjunto = "Recursos\\Nota.TXT"_w;
  ASSERT_FALSE(station_.Disk.Exists("Recursos\\Nota.TXT"));
  EXPECT_FALSE(correo_.Enviar_Backup());
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_EQ(station_.Beeps(), 0);
  station_.Disk.Put("Recursos\\Nota.TXT", "nota");
  EXPECT_TRUE(correo_.Enviar_Backup());
  EXPECT_EQ(Sent().attachment, "Recursos\\Nota.TXT"_w);
}

TEST_F(clsCDOmailTest, ARefusalBeeps) {
  taken_ = false;
  EXPECT_FALSE(correo_.Enviar_Backup());
  EXPECT_THAT(sent_, SizeIs(1));
  EXPECT_EQ(station_.Beeps(), 1);
}

}  // namespace
}  // namespace vintoral
