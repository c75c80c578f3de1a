#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vintoral {

inline constexpr int kMaxCodeLength = 16;

// How often each byte-sized symbol occurs.
using SymbolCounts = std::array<std::uint64_t, 256>;

// A Huffman table as it travels in the file (ITU-T T.81, B.2.4.2): how many codes there are of each length,
// and the symbols in the order of their codes.
struct HuffmanTable {
  std::array<int, kMaxCodeLength + 1> codesOfLength{};  // [0] is not used
  std::vector<std::uint8_t> symbols;
};

struct HuffmanCode {
  std::uint32_t bits = 0;
  int length = 0;  // 0: the symbol has no code
};

// The table that codes these counts in the fewest bits, with codes of 1 to 16 bits and none of ones alone
// (ITU-T T.81, Annex K.2 states the same aim). Symbols of one length come in rising order. Counts that are
// all zero give an empty table.
HuffmanTable BuildHuffmanTable(const SymbolCounts& counts);

// Throws cJpegError "Bad Huffman Table" unless the lengths fit a prefix code of at most 16 bits that leaves
// the code of ones alone free (ITU-T T.81, Annex C), and each symbol has one length and occurs once.
void CheckHuffmanTable(const HuffmanTable& table);

// The code of each symbol (ITU-T T.81, Annex C.2); throws as CheckHuffmanTable does.
std::array<HuffmanCode, 256> AssignCodes(const HuffmanTable& table);

}  // namespace vintoral
