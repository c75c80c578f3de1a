#include "camera/cJpeg/HuffmanTable.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <numeric>

#include "camera/cJpeg/CodeLengths.h"
#include "camera/cJpeg/cJpegError.h"

namespace vintoral {

namespace {

// Of one length, the lower symbol first, as figure K.4 has it. Codes full of ones so go to symbols with many
// magnitude bits, and print gets by with fewer stuffed bytes than in the order of the counts.
void SortWithinLengths(HuffmanTable& table) {
  auto symbol = table.symbols.begin();
  for (const int codes : table.codesOfLength) {
    std::sort(symbol, symbol + codes);
    symbol += codes;
  }
}

}  // namespace

HuffmanTable BuildHuffmanTable(const SymbolCounts& counts) {
  HuffmanTable table;
  for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
    if (counts[symbol] > 0) table.symbols.push_back(static_cast<std::uint8_t>(symbol));
  }
  if (table.symbols.empty()) return table;
  std::stable_sort(table.symbols.begin(), table.symbols.end(),
                   [&](std::uint8_t a, std::uint8_t b) { return counts[a] > counts[b]; });
  // One more symbol that never occurs takes the last code, which is the one of ones alone.
  std::vector<std::uint64_t> weights;
  for (const std::uint8_t symbol : table.symbols)
    weights.push_back(counts[symbol]);
  weights.push_back(0);
  const std::vector<int> lengths = LimitedCodeLengths(weights, kMaxCodeLength);
  for (std::size_t i = 0; i < table.symbols.size(); ++i) {
    ++table.codesOfLength[static_cast<std::size_t>(lengths[i])];
  }
  SortWithinLengths(table);
  return table;
}

void CheckHuffmanTable(const HuffmanTable& table) {
  const auto& codes = table.codesOfLength;
  std::uint32_t next = 0;  // the next free code of the length at hand
  bool bad = codes[0] != 0;
  for (std::size_t length = 1; length <= kMaxCodeLength && !bad; ++length) {
    bad = codes[length] < 0 || codes[length] > 255;
    next = 2 * next + static_cast<std::uint32_t>(codes[length]);
    bad = bad || next >= (1U << length);
  }
  std::bitset<256> seen;
  for (const std::uint8_t symbol : table.symbols)
    seen.set(symbol);
  const int coded = std::accumulate(codes.begin(), codes.end(), 0);
  if (bad || seen.count() != table.symbols.size() || static_cast<std::size_t>(coded) != seen.count()) {
    throw cJpegError("Bad Huffman Table");
  }
}

std::array<HuffmanCode, 256> AssignCodes(const HuffmanTable& table) {
  CheckHuffmanTable(table);
  std::array<HuffmanCode, 256> codes{};
  std::uint32_t next = 0;
  auto symbol = table.symbols.begin();
  for (int length = 1; length <= kMaxCodeLength; ++length, next <<= 1) {
    for (int i = 0; i < table.codesOfLength[static_cast<std::size_t>(length)]; ++i) {
      codes[*symbol++] = {next++, length};
    }
  }
  return codes;
}

}  // namespace vintoral
