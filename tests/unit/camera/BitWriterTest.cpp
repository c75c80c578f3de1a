#include "camera/cJpeg/BitWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace vintoral {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Piece {
  std::uint32_t bits;
  int length;
};

Bytes Write(const std::vector<Piece>& pieces) {
  Bytes bytes(pieces.size() * 8 + 32);
  BitWriter writer(bytes.data());
  for (const Piece& piece : pieces)
    writer.Put(piece.bits, piece.length);
  writer.Finish();
  bytes.resize(static_cast<std::size_t>(writer.End() - bytes.data()));
  return bytes;
}

TEST(BitWriter, PutsHighBitsFirstAndFillsUpWithOnes) {
  EXPECT_THAT(Write({{0b101, 3}, {0b0, 1}, {0b11, 2}}), testing::ElementsAre(0b10101111));
}

TEST(BitWriter, WritesNothingForNothing) {
  EXPECT_TRUE(Write({}).empty());
}

TEST(BitWriter, StuffsAZeroAfterAByteOfOnes) {
  EXPECT_THAT(Write({{0x12FF34, 24}}), testing::ElementsAre(0x12, 0xFF, 0x00, 0x34));
  EXPECT_THAT(Write({{0xFFFF, 16}, {0x7F, 8}}), testing::ElementsAre(0xFF, 0x00, 0xFF, 0x00, 0x7F));
}

TEST(BitWriter, StuffsAByteOfOnesThatOnlyThePaddingMakes) {
  EXPECT_THAT(Write({{0x1, 1}}), testing::ElementsAre(0xFF, 0x00));
}

// The same by way of a text of noughts and ones.
Bytes WriteSlowly(const std::vector<Piece>& pieces) {
  std::string text;
  for (const Piece& piece : pieces) {
    for (int bit = piece.length - 1; bit >= 0; --bit)
      text += (piece.bits >> bit & 1U) != 0 ? '1' : '0';
  }
  while (text.size() % 8 != 0)
    text += '1';
  Bytes bytes;
  for (std::size_t at = 0; at < text.size(); at += 8) {
    bytes.push_back(static_cast<std::uint8_t>(std::stoi(text.substr(at, 8), nullptr, 2)));
    if (bytes.back() == 0xFF) bytes.push_back(0);
  }
  return bytes;
}

TEST(BitWriter, AgreesWithTheSlowWayOnAnyPieces) {
  std::mt19937 random(3);
  for (int round = 0; round < 500; ++round) {
    std::vector<Piece> pieces(random() % 60);
    const bool manyOnes = round % 2 == 0;
    for (Piece& piece : pieces) {
      piece.length = static_cast<int>(random() % 33);
      const std::uint32_t bits = manyOnes ? static_cast<std::uint32_t>(random() | random() | random())
                                          : static_cast<std::uint32_t>(random());
      piece.bits = piece.length == 0 ? 0 : bits >> (32 - piece.length);
    }
    ASSERT_EQ(Write(pieces), WriteSlowly(pieces)) << "round " << round;
  }
}

}  // namespace
}  // namespace vintoral
