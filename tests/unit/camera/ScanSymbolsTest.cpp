#include "camera/cJpeg/ScanSymbols.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace vintoral {
namespace {

using testing::ElementsAre;
using Values = std::vector<std::pair<std::size_t, std::int16_t>>;

CodedBlock Block(const Values& values) {
  CodedBlock block{};
  for (const auto& [k, value] : values) {
    block.values[k] = value;
    if (k > 0) block.nonzero |= std::uint64_t{1} << k;
  }
  return block;
}

std::vector<SymbolWord> WordsOf(const ScanSymbols& symbols) {
  std::vector<SymbolWord> words;
  for (const SymbolStore::Piece& piece : symbols.Store().Pieces())
    words.insert(words.end(), piece.words.get(), piece.end);
  return words;
}

// How often symbols occur that occur at all.
std::vector<std::pair<std::size_t, std::uint64_t>> Seen(const SymbolCounts& counts) {
  std::vector<std::pair<std::size_t, std::uint64_t>> seen;
  for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
    if (counts[symbol] > 0) seen.emplace_back(symbol, counts[symbol]);
  }
  return seen;
}

std::pair<std::size_t, std::uint64_t> Times(std::size_t symbol, std::uint64_t count) {
  return {symbol, count};
}

TEST(SymbolWord, HoldsValueAndRun) {
  for (const int value : {-1023, -1, 0, 1, 1023}) {
    for (const std::size_t run : {0U, 7U, 15U})
      EXPECT_EQ(ValueOf(MakeSymbolWord(value, run)), value);
  }
  EXPECT_EQ(MakeSymbolWord(-3, 2), 0xFFD2);
  EXPECT_EQ(MakeSymbolWord(1, 15), 0x001F);
}

// ITU-T T.81, table F.2: -3, -2, 2 and 3 have two magnitude bits, -1023 to -512 and 512 to 1023 ten.
TEST(SymbolWord, FormTellsSymbolAndSign) {
  const auto symbol = [](int value, std::size_t run) {
    return SymbolOfForm(FormOf(MakeSymbolWord(value, run)));
  };
  EXPECT_EQ(symbol(-3, 0), 0x02U);
  EXPECT_EQ(symbol(2, 5), 0x52U);
  EXPECT_EQ(symbol(-1, 15), 0xF1U);
  EXPECT_EQ(symbol(1023, 1), 0x1AU);
  EXPECT_EQ(symbol(-512, 1), 0x1AU);
  EXPECT_EQ(symbol(511, 1), 0x19U);
  EXPECT_TRUE(IsNegativeForm(FormOf(MakeSymbolWord(-1, 15))));
  EXPECT_FALSE(IsNegativeForm(FormOf(MakeSymbolWord(1, 15))));
  EXPECT_EQ(SymbolOfForm(FormOf(kEndOfBlock)), 0x00U);
  EXPECT_EQ(SymbolOfForm(FormOf(kLongRun)), 0xF0U);
}

// Values 1 and 20 have 18 zeros between them: sixteen and two. Three words and the end are four, times two.
TEST(ScanSymbols, KeepsABlockAsItsWords) {
  ScanSymbols symbols;
  symbols.Take(0, Block({{0, 5}, {1, -3}, {20, 1}}));
  EXPECT_THAT(WordsOf(symbols), ElementsAre(5, 8, 0xFFD0, kLongRun, 0x0012, kEndOfBlock));
}

// A block whose last value is not zero has no end: 62 zeros are three times sixteen and fourteen.
TEST(ScanSymbols, ABlockUpToItsLastValueHasNoEnd) {
  ScanSymbols symbols;
  symbols.Take(0, Block({{0, 2}, {63, 7}}));
  EXPECT_THAT(WordsOf(symbols), ElementsAre(2, 8, kLongRun, kLongRun, kLongRun, 0x007E));
}

TEST(ScanSymbols, DifferencesAreOfTheComponentsOwnBlocks) {
  ScanSymbols symbols;
  for (const auto& [component, dc] : std::vector<std::pair<int, std::int16_t>>{
           {0, 5}, {0, 2}, {1, 4}, {2, -1}, {0, 2}, {1, -1020}, {2, 1}}) {
    symbols.Take(component, Block({{0, dc}}));
  }
  const auto difference = [](int value) { return static_cast<SymbolWord>(value); };
  // One word each, with tables 0 for component 0 and 1 for the others.
  EXPECT_THAT(WordsOf(symbols), ElementsAre(5, 2, 0, difference(-3), 2, 0, 4, 3, 0, difference(-1), 3, 0, 0,
                                            2, 0, difference(-1024), 3, 0, 2, 3, 0));
}

TEST(ScanSymbols, ABlockBeyondThePictureRepeatsTheDcOfItsComponent) {
  ScanSymbols symbols;
  symbols.Take(1, Block({{0, 9}, {1, 1}}));
  symbols.Take(0, Block({{0, 4}}));
  symbols.TakeBeyond(1);
  symbols.Take(1, Block({{0, 10}}));
  EXPECT_THAT(WordsOf(symbols), ElementsAre(9, 5, 0x0010, kEndOfBlock, 4, 2, kEndOfBlock,  //
                                            0, 3, kEndOfBlock, 1, 3, kEndOfBlock));
}

TEST(ScanSymbols, CountsEachSymbolUnderItsTables) {
  ScanSymbols symbols;
  symbols.Take(0, Block({{0, 5}, {1, -3}, {20, 1}}));
  symbols.Take(0, Block({{0, 2}, {63, 7}}));
  symbols.Take(2, Block({{0, -1}}));
  symbols.Take(1, Block({{0, 4}, {2, -9}}));
  // Differences 5 and -3; then -1 and 4, as the components differ.
  EXPECT_THAT(Seen(symbols.DcCounts(0)), ElementsAre(Times(2, 1), Times(3, 1)));
  EXPECT_THAT(Seen(symbols.DcCounts(1)), ElementsAre(Times(1, 1), Times(3, 1)));
  EXPECT_THAT(Seen(symbols.AcCounts(0)),
              ElementsAre(Times(0x00, 1), Times(0x02, 1), Times(0x21, 1), Times(0xE3, 1), Times(0xF0, 4)));
  EXPECT_THAT(Seen(symbols.AcCounts(1)), ElementsAre(Times(0x00, 2), Times(0x14, 1)));
}

// A full block has 65 words: 496 blocks fit into a piece of 32768 with what must be free for one more.
TEST(ScanSymbols, BlocksAreNotPartedBetweenPieces) {
  Values values;
  for (std::size_t k = 0; k < 64; ++k)
    values.emplace_back(k, static_cast<std::int16_t>(k + 1));
  const CodedBlock block = Block(values);
  ScanSymbols symbols;
  for (int i = 0; i < 1200; ++i)
    symbols.Take(0, block);
  const auto& pieces = symbols.Store().Pieces();
  ASSERT_EQ(pieces.size(), 3U);
  EXPECT_EQ(WordsOf(symbols).size(), 1200U * 65);
  for (std::size_t i = 0; i < 2; ++i) {
    const auto used = static_cast<std::size_t>(pieces[i].end - pieces[i].words.get());
    EXPECT_EQ(used % 65, 0U);
    EXPECT_LE(used, SymbolStore::kPieceSize);
    EXPECT_GT(used + SymbolStore::kMostForBlock, SymbolStore::kPieceSize);
  }
  EXPECT_EQ(pieces[1].words[0], 0);         // the difference from the last block of the piece before
  EXPECT_EQ(pieces[1].words[1], 63 * 2);    // no end
  EXPECT_EQ(pieces[1].words[2], 2 << 4);    // value 1 is 2
  EXPECT_EQ(pieces[1].words[64], 64 << 4);  // value 63
}

}  // namespace
}  // namespace vintoral
