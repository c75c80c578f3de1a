#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "camera/cJpeg/QuantizationTable.h"
#include "camera/cJpeg/SymbolWord.h"

namespace vintoral {

// The words of a scan's blocks, one block after another, in pieces: it grows without moving what is there. No
// block is parted between two pieces.
class SymbolStore {
 public:
  static constexpr std::size_t kMostForBlock = 2 + kBlockSize;  // two of the block's own
  static constexpr std::size_t kPieceSize = 32768;

  struct Piece {
    std::unique_ptr<SymbolWord[]> words;
    SymbolWord* end;
  };

  // Where the words of the next block go. There is room for kMostForBlock.
  SymbolWord* Next() {
    if (left_ < kMostForBlock) [[unlikely]]
      AddPiece();
    return pieces_.back().end;
  }

  // Keeps what has been written from Next() to `end`.
  void KeepTo(SymbolWord* end) {
    left_ -= static_cast<std::size_t>(end - pieces_.back().end);
    pieces_.back().end = end;
  }

  const std::vector<Piece>& Pieces() const { return pieces_; }

 private:
  void AddPiece() {
    auto words = std::make_unique_for_overwrite<SymbolWord[]>(kPieceSize);
    SymbolWord* const end = words.get();
    pieces_.push_back({std::move(words), end});
    left_ = kPieceSize;
  }

  std::vector<Piece> pieces_;
  std::size_t left_ = 0;
};

}  // namespace vintoral
