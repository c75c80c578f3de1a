#include "platform/mail/MailJob.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vintoral {
namespace {

using testing::ElementsAre;

std::string NoFile(std::string_view /*path*/) {
  return {};
}

MailMessage Message() {
  return {.server = "relay"_w,
          .port = 26,
          .user = "usuario"_w,
          .password = "cla-ñ"_w,
          .logIn = true,
          .privacy = MailPrivacy::kStartTls,
          .from = "puerta@casa.example"_w,
          .to = {"a@a.example"_w, "b@b.example"_w},
          .subject = "Señal"_w,
          .text = "ñandú"_w,
          .attachment = {}};
}

TEST(MailJob, HasAllOfTheMessage) {
  const MailJob job = JobOf(Message(), NoFile, 0, 42);
  EXPECT_EQ(job.host, "relay");
  EXPECT_EQ(job.port, 26);
  EXPECT_TRUE(job.logIn);
  EXPECT_EQ(job.user, "usuario");
  EXPECT_EQ(job.password, "cla-ñ");
  EXPECT_EQ(job.privacy, MailPrivacy::kStartTls);
  EXPECT_EQ(job.from, "puerta@casa.example");
  EXPECT_THAT(job.to, ElementsAre("a@a.example", "b@b.example"));
  EXPECT_EQ(job.text, "ñandú");
  EXPECT_EQ(job.authorities, "");
  EXPECT_EQ(job.attachment, "");
  EXPECT_EQ(job.attachmentName, "");
  EXPECT_THAT(job.headers, ElementsAre("Date: Thu, 01 Jan 1970 00:00:00 +0000", "From: <puerta@casa.example>",
                                       "To: <a@a.example>,\r\n <b@b.example>",
                                       "Subject: =?UTF-8?Q?Se=C3=B1al?=", "Message-ID: <0.42@casa.example>"));
}

TEST(MailJob, AnAddressCanNeitherEndItselfNorItsLine) {
  MailMessage message = Message();
  message.from = "x\r\nBcc: y@z"_w;
  message.to = {"a@b> SIZE=1"_w, "<c@d\n>"_w, "señor@e"_w, String(std::string_view("f\0\x7F@g", 5))};
  message.server = "re\r\nlay"_w;
  const MailJob job = JobOf(message, NoFile, 0, 0);
  EXPECT_EQ(job.from, "xBcc:y@z");
  EXPECT_THAT(job.to, ElementsAre("a@bSIZE=1", "c@d", "señor@e", "f@g"));
  EXPECT_EQ(job.headers[1], "From: <xBcc:y@z>");
  EXPECT_EQ(job.headers[2], "To: <a@bSIZE=1>,\r\n <c@d>,\r\n <señor@e>,\r\n <f@g>");
  EXPECT_EQ(job.host, "re  lay");
}

TEST(MailJob, ASenderWithoutADomainHasAnIdentityToo) {
  MailMessage message = Message();
  message.from = "puerta"_w;
  EXPECT_EQ(JobOf(message, NoFile, 7, 8).headers.back(), "Message-ID: <7.8@vintoral>");
}

TEST(MailJob, FilesAreThoseOfThisSystem) {
  MailMessage message = Message();
  message.attachment = "Recursos\\Nota.TXT"_w;
  const auto find = [](std::string_view path) {
    if (path == "Objetos\\Correo.PEM") return std::string("/station/Objetos/Correo.pem");
    return path == "Recursos\\Nota.TXT" ? std::string("/station/Recursos/nota.txt") : std::string();
  };
  const MailJob job = JobOf(message, find, 0, 0);
  EXPECT_EQ(job.authorities, "/station/Objetos/Correo.pem");
  EXPECT_EQ(job.attachment, "/station/Recursos/nota.txt");
  EXPECT_EQ(job.attachmentName, "nota.txt");
}

}  // namespace
}  // namespace vintoral
