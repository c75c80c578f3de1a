#include "common/TextoUtf8.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

TEST(UTF8toANSI, ConvertsUtf8) {
  EXPECT_EQ(UTF8toANSI("/srv/Porter\xC3\xAD"
                       "a")
                .Bytes(),
            "/srv/Porter\xED"
            "a");
  EXPECT_EQ(UTF8toANSI("\xE2\x82\xAC 5").Bytes(), "\x80 5");
}

TEST(UTF8toANSI, LeavesAnsiAsItIs) {
  EXPECT_EQ(UTF8toANSI("/srv/Porter\xED"
                       "a")
                .Bytes(),
            "/srv/Porter\xED"
            "a");
  EXPECT_EQ(UTF8toANSI("/srv/plain").Bytes(), "/srv/plain");
  EXPECT_EQ(UTF8toANSI("").Bytes(), "");
}

TEST(UTF8toANSI, OneBadByteMakesAllOfItAnsi) {
  EXPECT_EQ(UTF8toANSI("\xC3\xAD and \xED").Bytes(), "\xC3\xAD and \xED");
  EXPECT_EQ(UTF8toANSI("cut \xC3").Bytes(), "cut \xC3");
  EXPECT_EQ(UTF8toANSI("long \xC0\xAF").Bytes(), "long \xC0\xAF");
  EXPECT_EQ(UTF8toANSI("half \xED\xA0\x80").Bytes(), "half \xED\xA0\x80");
}

TEST(UTF8toANSI, ByteOrderMarkStays) {
  EXPECT_EQ(UTF8toANSI("\xEF\xBB\xBF/srv/x").Bytes(), "\xEF\xBB\xBF/srv/x");
  EXPECT_EQ(UTF8toANSI("\xEF\xBB\xBF\xC3\xAD").Bytes(), "\xEF\xBB\xBF\xED");
  EXPECT_EQ(UTF8toANSI("\xEF\xBB\xBF").Bytes(), "\xEF\xBB\xBF");
}

TEST(UTF8toANSI, CharacterThatAnsiLacksIsAQuestionMark) {
  EXPECT_EQ(UTF8toANSI("\xE8\xBB\x8A\xC3\xAD").Bytes(), "?\xED");
  EXPECT_EQ(UTF8toANSI("\xEF\xBF\xBD").Bytes(), "?");
}

TEST(IsUtf8, TellsWellFormedText) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("plain"));
  EXPECT_TRUE(IsUtf8("\xF0\x9F\x9A\x97"));
  EXPECT_TRUE(IsUtf8("\xEF\xBF\xBD"));
  EXPECT_FALSE(IsUtf8("\x80"));
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
}

}  // namespace
}  // namespace vintoral
