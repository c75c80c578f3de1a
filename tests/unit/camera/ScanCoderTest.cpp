#include "camera/cJpeg/ScanCoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "camera/cJpeg/EncodePlanes.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using Tables = std::array<CodingTables, 2>;

// Symbols of one bit, two bits and so on: 0, 10, 110, ...
HuffmanTable Staircase(const std::vector<std::uint8_t>& symbols) {
  HuffmanTable table;
  for (std::size_t i = 0; i < symbols.size(); ++i)
    table.codesOfLength[i + 1] = 1;
  table.symbols = symbols;
  return table;
}

// Two blocks: DC 5, then -3 and, after 18 zeros, 1; DC 2, then 7 at the very end.
ScanSymbols TwoBlocks() {
  ScanSymbols symbols;
  CodedBlock first{};
  first.values[0] = 5;
  first.values[1] = -3;
  first.values[20] = 1;
  first.nonzero = 1U << 1 | 1U << 20;
  symbols.Take(0, first);
  CodedBlock second{};
  second.values[0] = 2;
  second.values[63] = 7;
  second.nonzero = std::uint64_t{1} << 63;
  symbols.Take(0, second);
  return symbols;
}

const Tables kTwoBlockTables = {{{Staircase({3, 2}), Staircase({0x00, 0x02, 0xF0, 0x21, 0xE3})}, {}}};

// By hand (ITU-T T.81, F.1.2). Difference 5: 0 101. -3: 10 00. Sixteen zeros: 110. 1 after two: 1110 1. End:
// 0. Difference -3: 10 00. Three times sixteen zeros: 110 110 110. 7 after fourteen: 11110 111. Filled with
// ones: 01011000 11011101 01000110 11011011 11011111.
TEST(ScanCoder, CodesByHand) {
  Bytes file = {1, 2, 3};
  CodeScan(TwoBlocks(), kTwoBlockTables, file);
  EXPECT_THAT(file, ElementsAre(1, 2, 3, 0x58, 0xDD, 0x46, 0xDB, 0xDF));
}

// DC: 1 + 3 and 2 + 2 bits. AC: 1, 2 + 2, four times 3, 4 + 1, 5 + 3.
TEST(ScanCoder, CountsTheBitsByHand) {
  const ScanSymbols symbols = TwoBlocks();
  EXPECT_EQ(CodedBits(symbols.DcCounts(0), kTwoBlockTables[0].dc), 8U);
  EXPECT_EQ(CodedBits(symbols.AcCounts(0), kTwoBlockTables[0].ac), 30U);
  EXPECT_EQ(CodedSize(symbols, kTwoBlockTables), 5U);  // 38 bits
}

TEST(ScanCoder, CodedSizeCountsBothTables) {
  ScanSymbols symbols = TwoBlocks();
  CodedBlock block{};
  block.values[0] = 1;
  for (int i = 0; i < 3; ++i)
    symbols.Take(1, block);  // 1 + 1 bits, then twice difference 0 in 2; and three ends of 1
  const Tables tables = {{kTwoBlockTables[0], {Staircase({1, 0}), Staircase({0x00})}}};
  EXPECT_EQ(CodedSize(symbols, tables), 6U);  // 38 + 2 + 4 + 3 = 47 bits
}

TEST(ScanCoder, FitsTablesToTheCounts) {
  const Tables tables = FitTables(TwoBlocks());
  EXPECT_THAT(tables[0].dc.symbols, ElementsAre(2, 3));
  // Four times sixteen zeros have the shortest code.
  EXPECT_EQ(tables[0].ac.symbols.front(), 0xF0);
  EXPECT_EQ(tables[0].ac.symbols.size(), 5U);
  EXPECT_TRUE(tables[1].dc.symbols.empty());
  EXPECT_TRUE(tables[1].ac.symbols.empty());
}

TEST(ScanCoder, RoomIsThreeTenthsAboveTheCodedSizeAndAThousandAndTheComment) {
  EXPECT_EQ(RoomForFile(0, 0), 1000U);
  EXPECT_EQ(RoomForFile(1000, 0), 2300U);
  EXPECT_EQ(RoomForFile(1000, 65533), 67833U);
}

// 63 values of 1023, each with a code of 16 bits, all ones but the last, and ten ones after it: more than
// half of the bytes are 0xFF, and the room for the file does not allow for that.
constexpr int kFullBlocks = 700;

ScanSymbols FullBlocks() {
  CodedBlock block{};
  block.values.fill(1023);
  block.values[0] = 0;
  block.nonzero = ~std::uint64_t{1};
  ScanSymbols symbols;
  for (int i = 0; i < kFullBlocks; ++i)
    symbols.Take(0, block);
  return symbols;
}

const Tables kFullBlockTables = {
    {{Staircase({0}), Staircase({1, 2, 3, 4, 5, 6, 7, 8, 9, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x0A})}, {}}};

// The same by way of a text of noughts and ones.
Bytes FullBlocksSlowly() {
  std::string text;
  for (int i = 0; i < kFullBlocks; ++i) {
    text += '0';
    for (int k = 1; k < 64; ++k)
      text +=
          "1111111111111110"
          "1111111111";
  }
  text.resize((text.size() + 7) / 8 * 8, '1');
  Bytes bytes;
  for (std::size_t at = 0; at < text.size(); at += 8) {
    bytes.push_back(static_cast<std::uint8_t>(std::stoi(text.substr(at, 8), nullptr, 2)));
    if (bytes.back() == 0xFF) bytes.push_back(0);
  }
  return bytes;
}

TEST(ScanCoder, GrowsBeyondTheRoomThatWasTaken) {
  const ScanSymbols symbols = FullBlocks();
  Bytes file;
  file.reserve(RoomForFile(CodedSize(symbols, kFullBlockTables), 0));
  const std::size_t room = file.capacity();
  CodeScan(symbols, kFullBlockTables, file);
  EXPECT_GT(file.size(), room);
  EXPECT_EQ(file, FullBlocksSlowly());
}

TEST(ScanCoder, StaysWhereItIsWithinItsRoom) {
  const Bytes expected = FullBlocksSlowly();
  Bytes file = {9, 8, 7};
  file.reserve(2 * expected.size());
  const std::uint8_t* const place = file.data();
  CodeScan(FullBlocks(), kFullBlockTables, file);
  EXPECT_EQ(file.data(), place);
  ASSERT_EQ(file.size(), 3 + expected.size());
  EXPECT_EQ(file[2], 7);
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), file.begin() + 3));
}

}  // namespace
}  // namespace vintoral
