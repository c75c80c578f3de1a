#include "records/RegistroMixto.h"

#include <gtest/gtest.h>

#include <random>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Decoded;
using test::Encoded;
using test::Hex;
using test::Zeros;

RegistroMixto Texts(std::string_view a, std::string_view b) {
  return {.CampoA = String(a),
          .CampoB = String(b),
          .Marca = true,
          .Importe = Money::FromUnits(1),
          .Numero1 = 5,
          .Numero2 = -2};
}

// Marca -1, Importe 1.0000 (10000 is 2710), Numero1 5, Numero2 -2.
const std::string kTail = Hex("FF FF  10 27 00 00 00 00 00 00  05 00  FE FF");

TEST(RegistroMixto, TwoFullPiecesFillTheRecord) {
  const std::string bytes = Hex("08 00 0C 00") + "ABCDEFGHIJKL" + Hex("08 00 0C 00") + "MNOPQRSTUVWX" + kTail;
  EXPECT_EQ(bytes.size(), 46u);
  EXPECT_EQ(Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVWX")), bytes);
  EXPECT_EQ(Decoded<RegistroMixto>(bytes), Texts("ABCDEFGHIJKL", "MNOPQRSTUVWX"));
}

TEST(RegistroMixto, LongerTextsAreCutToPieces) {
  EXPECT_EQ(Encoded(Texts("ABCDEFGHIJKLZ", "MNOPQRSTUVWX")), Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVWX")));
  EXPECT_EQ(Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVWXZ")), Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVWX")));
  EXPECT_EQ(Encoded(Texts("ABCDEFGHIJKLZZZZ", "MNOPQRSTUVWXZZZZZZZZZ")),
            Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVWX")));
}

TEST(RegistroMixto, OneTextTakesWhatTheOtherLeaves) {
  // 46 - 14 behind them - 4 and 4 before them leaves 24 characters.
  const std::string bytes = Hex("08 00 15 00") + "ABCDEFGHIJKLMNOPQRSTU" + Hex("08 00 03 00") + "XYZ" + kTail;
  EXPECT_EQ(Encoded(Texts("ABCDEFGHIJKLMNOPQRSTUV", "XYZ")), bytes);
  EXPECT_EQ(Encoded(Texts("XYZ", "ABCDEFGHIJKLMNOPQRSTUV")),
            Hex("08 00 03 00") + "XYZ" + Hex("08 00 15 00") + "ABCDEFGHIJKLMNOPQRSTU" + kTail);
}

TEST(RegistroMixto, ScreenStateStandsInDatAsWrittenByHand) {
  RegistroMixto state;
  state.CampoA = std::int16_t{2};
  state.CampoB = std::int16_t{-1};
  state.Marca = true;
  state.Importe = Money::FromUnits(30);  // 300000 is 493E0
  state.Numero1 = 10;
  state.Numero2 = 20;
  const std::string bytes =
      Hex("02 00 02 00  02 00 FF FF  FF FF  E0 93 04 00 00 00 00 00  0A 00  14 00") + Zeros(24);
  EXPECT_EQ(Encoded(state), bytes);
  EXPECT_EQ(Decoded<RegistroMixto>(bytes), state);
}

TEST(RegistroMixto, EmptyFieldsTakeTheirTypeAlone) {
  RegistroMixto marks;
  marks.Numero1 = 1;
  EXPECT_EQ(Encoded(marks), Zeros(4) + Zeros(2) + Zeros(8) + Hex("01 00") + Zeros(30));
  EXPECT_EQ(Decoded<RegistroMixto>(Encoded(marks)), marks);
}

TEST(RegistroMixto, EmptyTextIsNoEmptyField) {
  EXPECT_EQ(Encoded(Texts("", "")), Hex("08 00 00 00 08 00 00 00") + kTail + Zeros(24));
}

TEST(RegistroMixto, LengthPastTheRecordEndsWithIt) {
  const auto record = Decoded<RegistroMixto>(Hex("08 00 FF FF") + std::string(42, 'A'));
  EXPECT_EQ(TextOf(record.CampoA), String(42, 'A'));
  EXPECT_EQ(record.CampoB, CampoVariable{});
  EXPECT_FALSE(record.Marca);
  EXPECT_EQ(record.Importe, Money{});
  EXPECT_EQ(record.Numero1, 0);
}

TEST(RegistroMixto, LengthThatLeavesOneByteLeavesNoField) {
  // 41 characters; the last byte can't be a type.
  const auto record = Decoded<RegistroMixto>(Hex("08 00 29 00") + std::string(41, 'A') + Hex("02"));
  EXPECT_EQ(TextOf(record.CampoA).Size(), 41u);
  EXPECT_EQ(record.CampoB, CampoVariable{});
}

TEST(RegistroMixto, NumberThatDoesNotFitIsZero) {
  // CampoB ends at 40: Marca and half of Importe fit, Numero1 and Numero2 don't.
  const auto record = Decoded<RegistroMixto>(Hex("08 00 20 00") + std::string(32, 'A') + Hex("02 00 07 00") +
                                             Hex("01 00") + Hex("FF FF FF FF"));
  EXPECT_EQ(record.CampoB, CampoVariable(std::int16_t{7}));
  EXPECT_TRUE(record.Marca);
  EXPECT_EQ(record.Importe, Money{});
}

TEST(RegistroMixto, BehindAnUnknownTypeNothingCanBeRead) {
  const auto first = Decoded<RegistroMixto>(Hex("05 00  02 00 07 00  FF FF") + Zeros(38));
  EXPECT_EQ(first.CampoA, CampoVariable{});
  EXPECT_EQ(first.CampoB, CampoVariable{});
  EXPECT_FALSE(first.Marca);

  const auto second = Decoded<RegistroMixto>(Hex("02 00 07 00  05 00  FF FF") + Zeros(38));
  EXPECT_EQ(second.CampoA, CampoVariable(std::int16_t{7}));
  EXPECT_FALSE(second.Marca);
}

TEST(RegistroMixto, FieldsReadAsTextAndAsNumber) {
  EXPECT_EQ(TextOf(CampoVariable(std::int16_t{-32768})), "-32768"_w);
  EXPECT_EQ(TextOf(CampoVariable("12 MIN"_w)), "12 MIN"_w);
  EXPECT_EQ(TextOf(CampoVariable{}), ""_w);
  EXPECT_EQ(NumberOf(CampoVariable(std::int16_t{-32768})), -32768);
  EXPECT_EQ(NumberOf(CampoVariable("12 MIN"_w)), 12);
  EXPECT_EQ(NumberOf(CampoVariable("MIN"_w)), 0);
  EXPECT_EQ(NumberOf(CampoVariable{}), 0);
}

TEST(RegistroMixto, ScrambledBytesSettleAfterOneWriting) {
  std::mt19937 random(2);
  for (int round = 0; round < 5000; ++round) {
    std::string bytes(46, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() & 0xFF);
    // Types that mean something, more often than chance has them.
    bytes[0] = static_cast<char>(round % 3 == 0 ? 2 : 8);
    bytes[1] = 0;
    if (round % 2 == 0) bytes[3] = 0;
    const std::string once = Encoded(Decoded<RegistroMixto>(bytes));
    EXPECT_EQ(Encoded(Decoded<RegistroMixto>(once)), once);
  }
}

std::size_t UsedOf(const std::string& bytes) {
  return RegistroMixto::Used(test::RecordBytes<RegistroMixto>(bytes));
}

TEST(RegistroMixto, UsedCountsWhatTheFieldsTake) {
  EXPECT_EQ(UsedOf(Zeros(46)), 2u + 2 + 14);
  EXPECT_EQ(UsedOf(Hex("02 00 05 00") + Zeros(42)), 4u + 2 + 14);
  EXPECT_EQ(UsedOf(Hex("08 00 02 00") + "ab" + Hex("08 00 01 00") + "c" + Zeros(35)), 6u + 5 + 14);
  EXPECT_EQ(UsedOf(Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVWX"))), 46u);
  EXPECT_EQ(UsedOf(Encoded(Texts("ABCDEFGHIJKL", "MNOPQRSTUVW"))), 45u);
}

TEST(RegistroMixto, WhatCannotBeToldTakesAll) {
  for (const char* head : {"03 00", "08 00 2B 00", "08 00 FF FF", "08 00 26 00"})
    EXPECT_EQ(UsedOf(Hex(head) + std::string(46 - Hex(head).size(), '\x08')), 46u) << head;
  EXPECT_EQ(UsedOf(Zeros(2) + Hex("09 00") + Zeros(42)), 46u);
}

TEST(RegistroMixto, EncodingOverAPlaceLeavesTheRestOfIt) {
  std::string place(46, 'x');
  Texts("a", "b").EncodeOver(std::span<char, 46>(place.data(), 46));
  EXPECT_EQ(place, Hex("08 00 01 00") + "a" + Hex("08 00 01 00") + "b" + kTail + std::string(22, 'x'));
}

}  // namespace
}  // namespace vintoral
