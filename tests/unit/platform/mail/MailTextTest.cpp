#include "platform/mail/MailText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace vintoral {
namespace {

using testing::Each;
using testing::SizeIs;
using testing::StartsWith;

TEST(OneLine, HasNoEnd) {
  EXPECT_EQ(OneLine("a\r\nBcc: b\tc\x7F"
                    "d"),
            "a  Bcc: b c d");
  EXPECT_EQ(OneLine(std::string_view("a\0b", 3)), "a b");
  EXPECT_EQ(OneLine("ñ~ !"), "ñ~ !");
}

TEST(HeaderLine, OfPlainTextIsTheText) {
  EXPECT_EQ(HeaderLine("Subject", "ALERTA (P01): ~ !"), "Subject: ALERTA (P01): ~ !");
  EXPECT_EQ(HeaderLine("Subject", ""), "Subject: ");
  EXPECT_EQ(HeaderLine("Subject", "a\r\nBcc: b"), "Subject: a  Bcc: b");
  EXPECT_EQ(HeaderLine("Subject", std::string(60, 'x')), "Subject: " + std::string(60, 'x'));
}

TEST(HeaderLine, OfOtherTextIsEncoded) {
  EXPECT_EQ(HeaderLine("Subject", "Señal 1/2 _"), "Subject: =?UTF-8?Q?Se=C3=B1al_1=2F2_=5F?=");
  EXPECT_EQ(HeaderLine("Subject", "=?UTF-8?Q?a?="), "Subject: =?UTF-8?Q?=3D=3FUTF=2D8=3FQ=3Fa=3F=3D?=");
  EXPECT_EQ(HeaderLine("Subject", "az AZ 09 €"), "Subject: =?UTF-8?Q?az_AZ_09_=E2=82=AC?=");
}

TEST(HeaderLine, OfLongTextIsFoldedBetweenCharacters) {
  // 45 characters of code fit into a word: seven of these, each of which takes six.
  EXPECT_EQ(HeaderLine("S", "ñññññññññ"),
            "S: =?UTF-8?Q?=C3=B1=C3=B1=C3=B1=C3=B1=C3=B1=C3=B1=C3=B1?=\r\n =?UTF-8?Q?=C3=B1=C3=B1?=");
  EXPECT_EQ(HeaderLine("S", std::string(61, 'x')),
            "S: =?UTF-8?Q?" + std::string(45, 'x') + "?=\r\n =?UTF-8?Q?" + std::string(16, 'x') + "?=");
  EXPECT_EQ(HeaderLine("S", std::string(61, 'x') + std::string(29, 'y')).find("\r\n", 80), std::string::npos);
}

TEST(HeaderLine, HasNoLineTooLong) {
  std::string text;
  for (int i = 0; i < 300; ++i)
    text += "a€ñ ";
  std::istringstream header(HeaderLine("Subject", text));
  std::vector<std::string> lines;
  for (std::string line; std::getline(header, line);)
    lines.push_back(line);
  EXPECT_GT(lines.size(), 10u);
  EXPECT_THAT(lines, Each(SizeIs(testing::Le(77u))));  // the CR included
  lines.erase(lines.begin());
  EXPECT_THAT(lines, Each(StartsWith(" =?UTF-8?Q?")));
}

TEST(HeaderLine, TakesBytesThatAreNoText) {
  EXPECT_EQ(HeaderLine("S", "\xFF\x80"), "S: =?UTF-8?Q?=FF=80?=");
}

TEST(MailDate, IsEnglishAndOfGreenwich) {
  EXPECT_EQ(MailDate(0), "Thu, 01 Jan 1970 00:00:00 +0000");
  // 1 795 360 278 s: 20779 days and 15:11:18; day 20779 is the 326th of 2026, a Sunday.
  EXPECT_EQ(MailDate(1795360278), "Sun, 22 Nov 2026 15:11:18 +0000");
  EXPECT_EQ(MailDate(1709251199), "Thu, 29 Feb 2024 23:59:59 +0000");
}

}  // namespace
}  // namespace vintoral
