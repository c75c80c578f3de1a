#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "camera/cJpeg/CodedBlock.h"
#include "camera/cJpeg/HuffmanTable.h"
#include "camera/cJpeg/Layout.h"
#include "camera/cJpeg/SymbolStore.h"

namespace vintoral {

// First pass over the blocks of one scan, given in coding order: counts the symbols that they need, and keeps
// them for the second pass.
//
// A block is kept as the difference of its DC value from that of the block before it of its component (ITU-T
// T.81, F.1.1.5.1); the number of its AC words, times two, plus the selector of its tables; and these words.
class ScanSymbols {
 public:
  void Take(int component, const CodedBlock& block);
  // A block that holds no part of the picture and only completes a unit: the one that costs least.
  void TakeBeyond(int component);

  const SymbolStore& Store() const { return store_; }
  const SymbolCounts& DcCounts(int selector) const { return counts_[static_cast<std::size_t>(selector)].dc; }
  SymbolCounts AcCounts(int selector) const;

 private:
  struct Counts {
    SymbolCounts dc{};
    std::array<std::uint64_t, kSymbolForms> ac{};
  };

  std::array<Counts, 2> counts_;
  std::array<int, kMaxComponents> lastDc_{};
  SymbolStore store_;
};

}  // namespace vintoral
