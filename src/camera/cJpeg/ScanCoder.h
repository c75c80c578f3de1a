#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "camera/cJpeg/BitWriter.h"
#include "camera/cJpeg/HuffmanTable.h"
#include "camera/cJpeg/MarkerSegments.h"
#include "camera/cJpeg/ScanSymbols.h"

namespace vintoral {

// The Huffman tables of one selector.
struct CodingTables {
  HuffmanTable dc, ac;
};

// The tables of both selectors that fit the symbols best; those of a selector that no block uses are empty.
std::array<CodingTables, 2> FitTables(const ScanSymbols& symbols);

// The bits that the counted symbols take in the scan, magnitude bits included, stuffed bytes not.
std::uint64_t CodedBits(const SymbolCounts& counts, const HuffmanTable& table);

// The bytes that the scan takes at most but for stuffed ones.
std::size_t CodedSize(const ScanSymbols& symbols, const std::array<CodingTables, 2>& tables);

// Second pass: codes the symbols (ITU-T T.81, F.1.2) and appends them to the file, which is made longer step
// by step; it is moved only if it was not reserved long enough.
void CodeScan(const ScanSymbols& symbols, const std::array<CodingTables, 2>& tables, Bytes& file);

}  // namespace vintoral
