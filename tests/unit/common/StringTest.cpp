#include "common/String.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

std::string Byte(int value) {
  return std::string(1, static_cast<char>(static_cast<unsigned char>(value)));
}

TEST(String, AllBytesComeBackFromUtf8) {
  for (int byte = 0; byte < 256; ++byte) {
    const String text(Byte(byte));
    EXPECT_EQ(String::FromUtf8(text.ToUtf8()), text) << byte;
  }
}

TEST(String, HighBytesAreThoseOfWindows1252) {
  EXPECT_EQ(String(Byte(0x80)).ToUtf8(), "\xE2\x82\xAC");  // euro
  EXPECT_EQ(String(Byte(0x8A)).ToUtf8(), "\xC5\xA0");      // S with caron
  EXPECT_EQ(String(Byte(0x9F)).ToUtf8(), "\xC5\xB8");      // Y with diaeresis
  EXPECT_EQ(String(Byte(0xA0)).ToUtf8(), "\xC2\xA0");
  EXPECT_EQ(String(Byte(0xD1)).ToUtf8(), "\xC3\x91");
  EXPECT_EQ(String(Byte(0xFF)).ToUtf8(), "\xC3\xBF");
  EXPECT_EQ(String(Byte(0x81)).ToUtf8(), "\xC2\x81");  // unassigned
}

TEST(String, WhatWindows1252LacksIsAQuestionMark) {
  EXPECT_EQ(String::FromUtf8("a\xE8\xBB\x8A"
                             "b")
                .Bytes(),
            "a?b");
  EXPECT_EQ(String::FromUtf8("\xF0\x9F\x9A\x97").Bytes(), "?");
  EXPECT_EQ(String::FromUtf8("\xC2\x80").Bytes(), "?");  // the control character, not the euro
}

TEST(String, BrokenUtf8IsAQuestionMarkForEachByte) {
  EXPECT_EQ(String::FromUtf8("a\xC3").Bytes(), "a?");
  EXPECT_EQ(String::FromUtf8("\x80z").Bytes(), "?z");
  EXPECT_EQ(String::FromUtf8("\xC0\xAF").Bytes(), "??");
  EXPECT_EQ(String::FromUtf8("\xED\xA0\x80").Bytes(), "???");
  EXPECT_EQ(String::FromUtf8("\xE2\x82z").Bytes(), "??z");
  EXPECT_EQ(String::FromUtf8("\xF4\x90\x80\x80").Bytes(), "????");
}

TEST(String, LiteralsAreConvertedByTheCompiler) {
  EXPECT_EQ("Imágenes"_w.Bytes(), "Im\xE1genes");
  EXPECT_EQ("¿€ŠŸ?"_w.Bytes(), "\xBF\x80\x8A\x9F?");
  EXPECT_EQ(""_w.Bytes(), "");
}

TEST(String, CapitalsKnowTheAccentedLetters) {
  EXPECT_EQ(Upper("abcxyz áéíóúüñàç"_w), "ABCXYZ ÁÉÍÓÚÜÑÀÇ"_w);
  EXPECT_EQ(Upper("šœžÿ"_w), "ŠŒŽŸ"_w);
  EXPECT_EQ(Lower("ŠŒŽŸ"_w), "šœžÿ"_w);
  EXPECT_EQ(Lower("ABCXYZ ÁÉÍÓÚÜÑÀÇ"_w), "abcxyz áéíóúüñàç"_w);
}

TEST(String, WhatHasNoOtherCaseStays) {
  EXPECT_EQ(Upper("ß÷µª0[`{@"_w), "ß÷µª0[`{@"_w);
  EXPECT_EQ(Lower("ß×µª0[`{@"_w), "ß×µª0[`{@"_w);
  EXPECT_EQ(Upper("ƒ"_w), "ƒ"_w);
}

TEST(String, UpperByteIsUpperOfOneByte) {
  for (int byte = 0; byte < 256; ++byte)
    EXPECT_EQ(std::string(1, UpperByte(Byte(byte)[0])), Upper(Byte(byte)).Bytes()) << byte;
  EXPECT_EQ(UpperByte('\xF1'), '\xD1');
}

TEST(String, EveryLetterHasOneOtherCase) {
  int pairs = 0;
  for (int byte = 0; byte < 256; ++byte) {
    const String text(Byte(byte));
    EXPECT_EQ(Upper(Upper(text)), Upper(text));
    EXPECT_EQ(Lower(Upper(text)), Lower(text)) << byte;
    if (Upper(text) != text) ++pairs;
  }
  // 26 letters, 30 of the rows C0 and D0 (without × and ß), Š Œ Ž Ÿ.
  EXPECT_EQ(pairs, 26 + 30 + 4);
}

TEST(String, ComparisonAndSearchIgnoreCase) {
  EXPECT_TRUE(EqualNoCase("MUÑOZ"_w, "muñoz"_w));
  EXPECT_TRUE(EqualNoCase("", ""));
  EXPECT_FALSE(EqualNoCase("MUNOZ"_w, "muñoz"_w));
  EXPECT_FALSE(EqualNoCase("A", "AB"));
  EXPECT_TRUE(ContainsNoCase("Señor Žižek"_w, "ž"_w));
  EXPECT_TRUE(ContainsNoCase("abc", "BC"));
  EXPECT_TRUE(ContainsNoCase("abc", ""));
  EXPECT_TRUE(ContainsNoCase("", ""));
  EXPECT_FALSE(ContainsNoCase("abc", "abcd"));
  EXPECT_FALSE(ContainsNoCase("", "a"));
}

TEST(String, TrimTakesBlanksAndZeroBytes) {
  EXPECT_EQ(Trim("  a b  "), "a b"_w);
  EXPECT_EQ(Trim(std::string_view(" \0 a\0 ", 6)), String(std::string_view("\0 a\0", 4)));
  EXPECT_EQ(Trim(" \t "), "\t"_w);
  EXPECT_EQ(Trim("   "), ""_w);
}

TEST(String, TrimBlanksTakesBlanksAlone) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("a"), "a");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks(""), "");
  EXPECT_EQ(TrimBlanks(" \t\r\n "), "\t\r\n");
  EXPECT_EQ(TrimBlanks(std::string_view(" \0 ", 3)), std::string_view("\0", 1));
  EXPECT_EQ(TrimBlanks(std::string_view("\0 a \0", 5)), std::string_view("\0 a \0", 5));
  EXPECT_EQ(TrimBlanks("\xA0"), "\xA0");  // the blank that breaks no line is a character
}

TEST(String, TrimRightTakesBlanksAlone) {
  EXPECT_EQ(TrimRight("  a  "), "  a"_w);
  EXPECT_EQ(TrimRight("   "), ""_w);
  EXPECT_EQ(TrimRight(std::string_view(" \0 ", 3)), String(std::string_view(" \0", 2)));
}

TEST(String, PartsStopAtTheEnd) {
  EXPECT_EQ(Left("abc", 2), "ab"_w);
  EXPECT_EQ(Left("abc", 9), "abc"_w);
  EXPECT_EQ(Mid("abcdef", 2, 3), "bcd"_w);
  EXPECT_EQ(Mid("abcdef", 5, 9), "ef"_w);
  EXPECT_EQ(Mid("abcdef", 7, 1), ""_w);
  EXPECT_EQ(Mid("abcdef", 0, 1), ""_w);
  EXPECT_EQ(AlignRight("12", 4), "  12"_w);
  EXPECT_EQ(AlignRight("12345", 4), "12345"_w);
}

TEST(String, ReplaceAllGoesOnceOverTheText) {
  EXPECT_EQ(ReplaceAll("1,2,3", ",", "."), "1.2.3"_w);
  EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa"_w);
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc"_w);
  EXPECT_EQ(ReplaceAll("", "a", "x"), ""_w);
}

}  // namespace
}  // namespace vintoral
