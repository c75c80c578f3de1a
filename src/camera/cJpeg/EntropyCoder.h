#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "camera/cJpeg/BitWriter.h"
#include "camera/cJpeg/CodedBlock.h"
#include "camera/cJpeg/HuffmanTable.h"
#include "camera/cJpeg/Layout.h"
#include "camera/cJpeg/MarkerSegments.h"

namespace vintoral {

// The differences of DC values from block to block of each component (ITU-T T.81, F.1.1.5.1).
class DcPrediction {
 public:
  int Difference(int component, int dc) {
    const int difference = dc - last_[static_cast<std::size_t>(component)];
    last_[static_cast<std::size_t>(component)] = dc;
    return difference;
  }

 private:
  std::array<int, kMaxComponents> last_{};
};

// First pass: counts the symbols that the blocks, given in coding order, will need.
class SymbolCounter {
 public:
  void Take(int component, const CodedBlock& block);

  SymbolCounts DcCounts(int selector) const;
  SymbolCounts AcCounts(int selector) const;

 private:
  struct Counts {
    SymbolCounts dc{};
    std::array<std::uint64_t, 16 * kTokenClasses> runs{};  // by run of zeros and class of the token after it
    std::uint64_t longRuns = 0;
    std::uint64_t ends = 0;
  };
  std::array<Counts, 2> counts_;
  DcPrediction prediction_;
};

// Second pass: codes the blocks (ITU-T T.81, F.1.2) and appends them to the file.
class BlockCoder {
 public:
  struct Tables {
    HuffmanTable dc, ac;
  };

  // `file` has room beyond its size in mind: it is grown as needed, and cut by Finish.
  BlockCoder(Bytes& file, std::size_t room, const std::array<Tables, 2>& tables);

  void Take(int component, const CodedBlock& block);
  void Finish();

 private:
  // A token's code with the magnitude bits as far as they do not depend on the value, to which it is added.
  struct Entry {
    std::uint32_t base = 0;
    int length = 0;
  };
  struct Codes {
    std::array<HuffmanCode, 256> dc{};
    std::array<Entry, 16 * kTokenClasses> runs{};
    HuffmanCode longRun, end;
  };

  static Codes Prepare(const Tables& tables);
  void MakeRoom();
  void PutDifference(const Codes& codes, int difference);

  Bytes& file_;
  BitWriter writer_;
  std::array<Codes, 2> codes_;
  DcPrediction prediction_;
};

// The bits that the counted symbols take in the scan, magnitude bits included, stuffed bytes not.
std::uint64_t CodedBits(const SymbolCounts& counts, const HuffmanTable& table);

}  // namespace vintoral
