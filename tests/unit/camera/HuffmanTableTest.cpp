#include "camera/cJpeg/HuffmanTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "camera/cJpeg/cJpegError.h"

namespace vintoral {
namespace {

// ITU-T T.81, table K.3: the example table for luminance DC.
HuffmanTable TableK3() {
  HuffmanTable table;
  table.codesOfLength = {0, 0, 1, 5, 1, 1, 1, 1, 1, 1};
  table.symbols = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
  return table;
}

TEST(HuffmanTable, AssignsTheStandardsCodes) {
  const auto codes = AssignCodes(TableK3());
  const auto is = [&](std::size_t symbol, std::uint32_t bits, int length) {
    return codes[symbol].bits == bits && codes[symbol].length == length;
  };
  EXPECT_TRUE(is(0, 0b00, 2));
  EXPECT_TRUE(is(1, 0b010, 3));
  EXPECT_TRUE(is(5, 0b110, 3));
  EXPECT_TRUE(is(6, 0b1110, 4));
  EXPECT_TRUE(is(11, 0b111111110, 9));
  EXPECT_EQ(codes[12].length, 0);
}

TEST(HuffmanTable, GivesFrequentSymbolsShortCodes) {
  SymbolCounts counts{};
  counts[0xF0] = 1;
  counts[0x11] = 5;
  counts[0x00] = 100;
  const HuffmanTable table = BuildHuffmanTable(counts);
  EXPECT_THAT(table.symbols, testing::ElementsAre(0x00, 0x11, 0xF0));
  // With the code of ones alone kept free these are 0, 10 and 110.
  const auto codes = AssignCodes(table);
  EXPECT_EQ(codes[0x00].length, 1);
  EXPECT_EQ(codes[0x11].length, 2);
  EXPECT_EQ(codes[0xF0].bits, 0b110U);
}

TEST(HuffmanTable, OrdersSymbolsOfOneLength) {
  SymbolCounts counts{};
  for (const std::size_t symbol : {9U, 3U, 7U, 5U, 1U, 8U})
    counts[symbol] = 10 * symbol;
  // Merged from below, with 0 for the one that never occurs: 0 and 10, 10 and 30, 40 and 50, 70 and 80, 90
  // and 90, 150 and 180. So 9, 8 and 7 have two bits, 5 has three, 3 four, and 1 five.
  const HuffmanTable table = BuildHuffmanTable(counts);
  EXPECT_THAT(table.symbols, testing::ElementsAre(7, 8, 9, 5, 3, 1));
}

TEST(HuffmanTable, GivesALoneSymbolOneBit) {
  SymbolCounts counts{};
  counts[7] = 3;
  const auto codes = AssignCodes(BuildHuffmanTable(counts));
  EXPECT_EQ(codes[7].bits, 0U);
  EXPECT_EQ(codes[7].length, 1);
}

TEST(HuffmanTable, IsEmptyWithoutSymbols) {
  EXPECT_TRUE(BuildHuffmanTable({}).symbols.empty());
}

TEST(HuffmanTable, KeepsCodesWithin16BitsAndOnesFree) {
  SymbolCounts counts{};
  std::uint64_t a = 1, b = 1;
  for (std::size_t symbol = 0; symbol < 60; ++symbol) {
    counts[symbol] = a;
    b = a + b;
    a = b - a;
  }
  const HuffmanTable table = BuildHuffmanTable(counts);
  EXPECT_NO_THROW(CheckHuffmanTable(table));
  EXPECT_GT(table.codesOfLength[16], 0);
  EXPECT_EQ(table.symbols.size(), 60U);
  for (const HuffmanCode& code : AssignCodes(table))
    EXPECT_NE(code.bits + 1, code.length == 0 ? 0U : 1U << code.length);
}

TEST(HuffmanTable, CodesAllSymbolsAtEqualCounts) {
  SymbolCounts counts;
  counts.fill(9);
  const auto codes = AssignCodes(BuildHuffmanTable(counts));
  for (const HuffmanCode& code : codes)
    EXPECT_TRUE(code.length == 8 || code.length == 9);
}

void ExpectBad(const HuffmanTable& table) {
  try {
    CheckHuffmanTable(table);
    ADD_FAILURE() << "accepted";
  } catch (const cJpegError& error) {
    EXPECT_STREQ(error.what(), "Bad Huffman Table");
  }
}

TEST(HuffmanTable, RefusesMoreCodesThanALengthHas) {
  HuffmanTable table = TableK3();
  table.codesOfLength[2] = 5;
  table.symbols = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
  ExpectBad(table);
}

TEST(HuffmanTable, RefusesTheCodeOfOnesAlone) {
  HuffmanTable table;
  table.codesOfLength[1] = 2;
  table.symbols = {0, 1};
  ExpectBad(table);
}

TEST(HuffmanTable, RefusesLengthsThatDoNotMatchTheSymbols) {
  HuffmanTable table = TableK3();
  table.symbols.pop_back();
  ExpectBad(table);
}

TEST(HuffmanTable, RefusesASymbolThatOccursTwice) {
  HuffmanTable table = TableK3();
  table.symbols[3] = table.symbols[4];
  ExpectBad(table);
}

TEST(HuffmanTable, RefusesNegativeCountsAndCodesWithoutLength) {
  HuffmanTable table = TableK3();
  table.codesOfLength[0] = 1;
  ExpectBad(table);
  table = TableK3();
  table.codesOfLength[9] = 2;
  table.codesOfLength[16] = -1;
  ExpectBad(table);
}

}  // namespace
}  // namespace vintoral
