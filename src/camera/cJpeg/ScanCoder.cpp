#include "camera/cJpeg/ScanCoder.h"

#include <algorithm>

namespace vintoral {

namespace {

// A block takes at most 64 codes of 16 bits with 11 magnitude bits, each byte of which could be followed by a
// stuffed one; the writer may hold back or write ahead one word.
constexpr std::size_t kRoomForBlock = 2 * (64 * (16 + 11) / 8) + 32;

// New bytes are cleared, and are to be still in the processor's cache when they are written.
constexpr std::size_t kRoomStep = 16384;

class ScanCoder {
 public:
  ScanCoder(Bytes& file, const std::array<CodingTables, 2>& tables)
      : file_(file), writer_(nullptr), codes_{Prepare(tables[0]), Prepare(tables[1])} {
    Extend(file_.size());
  }

  void Code(const SymbolStore::Piece& piece) {
    for (const SymbolWord* word = piece.words.get(); word != piece.end;)
      word = CodeBlock(word);
  }

  void Finish() {
    writer_.Finish();
    file_.resize(Used());
  }

 private:
  // A code with the magnitude bits as far as they do not depend on the value, to which it is added.
  struct Entry {
    std::uint32_t base = 0;
    int length = 0;
  };
  struct Codes {
    std::array<HuffmanCode, 256> dc;
    std::array<Entry, kSymbolForms> ac;
  };

  static Codes Prepare(const CodingTables& tables) {
    Codes codes{AssignCodes(tables.dc), {}};
    const auto ac = AssignCodes(tables.ac);
    for (std::size_t form = 0; form < kSymbolForms; ++form) {
      const HuffmanCode& code = ac[SymbolOfForm(form)];
      const int bits = MagnitudeBitsOfForm(form);
      codes.ac[form] = {(code.bits << bits) + MagnitudeOffset(IsNegativeForm(form), bits),
                        code.length + bits};
    }
    return codes;
  }

  std::size_t Used() const { return static_cast<std::size_t>(writer_.End() - file_.data()); }

  // Makes room for one block at least, and for more as far as the file need not be moved.
  void Extend(std::size_t used) {
    const std::size_t least = used + kRoomForBlock;
    file_.resize(std::max(least, std::min(least + kRoomStep, file_.capacity())));
    writer_.MoveTo(file_.data() + used);
  }

  static void PutDifference(BitWriter& writer, const Codes& codes, int difference) {
    const int bits = MagnitudeBitsOf(difference);
    const HuffmanCode& code = codes.dc[static_cast<std::size_t>(bits)];
    const std::uint32_t magnitude =
        static_cast<std::uint32_t>(difference) + MagnitudeOffset(difference < 0, bits);
    writer.Put((code.bits << bits) + magnitude, code.length + bits);
  }

  // Comes back with the end of the block's words.
  const SymbolWord* CodeBlock(const SymbolWord* word) {
    if (file_.size() - Used() < kRoomForBlock) [[unlikely]]
      Extend(Used());
    const Codes& codes = codes_[word[1] & 1U];
    const SymbolWord* const end = word + 2 + word[1] / 2;
    BitWriter writer = writer_;  // a copy that nothing else can point to stays in registers
    PutDifference(writer, codes, static_cast<std::int16_t>(word[0]));
    for (word += 2; word != end; ++word) {
      const Entry& entry = codes.ac[FormOf(*word)];
      writer.Put(entry.base + static_cast<std::uint32_t>(ValueOf(*word)), entry.length);
    }
    writer_ = writer;
    return end;
  }

  Bytes& file_;
  BitWriter writer_;
  std::array<Codes, 2> codes_;
};

}  // namespace

std::array<CodingTables, 2> FitTables(const ScanSymbols& symbols) {
  std::array<CodingTables, 2> tables;
  for (int selector = 0; selector < 2; ++selector) {
    tables[static_cast<std::size_t>(selector)] = {BuildHuffmanTable(symbols.DcCounts(selector)),
                                                  BuildHuffmanTable(symbols.AcCounts(selector))};
  }
  return tables;
}

std::uint64_t CodedBits(const SymbolCounts& counts, const HuffmanTable& table) {
  const auto codes = AssignCodes(table);
  std::uint64_t bits = 0;
  for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
    bits += counts[symbol] * (static_cast<std::uint64_t>(codes[symbol].length) + symbol % 16);
  }
  return bits;
}

std::size_t CodedSize(const ScanSymbols& symbols, const std::array<CodingTables, 2>& tables) {
  std::uint64_t bits = 0;
  for (int selector = 0; selector < 2; ++selector) {
    const CodingTables& table = tables[static_cast<std::size_t>(selector)];
    bits += CodedBits(symbols.DcCounts(selector), table.dc) + CodedBits(symbols.AcCounts(selector), table.ac);
  }
  return static_cast<std::size_t>((bits + 7) / 8);
}

void CodeScan(const ScanSymbols& symbols, const std::array<CodingTables, 2>& tables, Bytes& file) {
  ScanCoder coder(file, tables);
  for (const SymbolStore::Piece& piece : symbols.Store().Pieces())
    coder.Code(piece);
  coder.Finish();
}

}  // namespace vintoral
