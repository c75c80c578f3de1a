#include "camera/cJpeg/EntropyCoder.h"

#include <bit>
#include <cstdlib>

namespace vintoral {

namespace {

constexpr std::size_t kEndOfBlock = 0x00;
constexpr std::size_t kLongRun = 0xF0;  // sixteen zeros
constexpr std::uint64_t kLastCoefficient = std::uint64_t{1} << 63;

// A block takes at most 64 codes of 16 bits with 11 magnitude bits, each byte of which could be followed by a
// stuffed one; the writer may hold back or write ahead one word.
constexpr std::ptrdiff_t kRoomForBlock = 2 * (64 * (16 + 11) / 8) + 32;

int MagnitudeBitsOf(int value) {
  return static_cast<int>(std::bit_width(static_cast<unsigned>(std::abs(value))));
}

std::size_t RunSymbol(std::size_t run, std::size_t tokenClass) {
  return run << 4 | static_cast<std::size_t>(MagnitudeBits(tokenClass));
}

// Of the 32 classes only the ones with 1 to 10 bits can follow a run in baseline (ITU-T T.81, table F.2).
bool IsAcClass(std::size_t tokenClass) {
  return MagnitudeBits(tokenClass) >= 1 && MagnitudeBits(tokenClass) <= 10;
}

// The magnitude bits of a value are the value itself, or one less when it is negative (ITU-T T.81,
// F.1.2.1.1).
std::uint32_t MagnitudeOffset(bool negative, int bits) {
  return negative ? (1U << bits) - 1U : 0U;
}

}  // namespace

void SymbolCounter::Take(int component, const CodedBlock& block) {
  Counts& counts = counts_[static_cast<std::size_t>(TableOf(component))];
  const int difference = prediction_.Difference(component, block.Value(0));
  ++counts.dc[static_cast<std::size_t>(MagnitudeBitsOf(difference))];
  std::size_t next = 1;
  for (std::uint64_t rest = block.nonzero; rest != 0; rest &= rest - 1) {
    const auto k = static_cast<std::size_t>(std::countr_zero(rest));
    const std::size_t run = k - next;
    next = k + 1;
    if (run > 15) [[unlikely]]
      counts.longRuns += run / 16;
    ++counts.runs[run % 16 * kTokenClasses + TokenClass(block.tokens[k])];
  }
  counts.ends += (block.nonzero & kLastCoefficient) == 0;
}

SymbolCounts SymbolCounter::DcCounts(int selector) const {
  return counts_[static_cast<std::size_t>(selector)].dc;
}

SymbolCounts SymbolCounter::AcCounts(int selector) const {
  const Counts& counts = counts_[static_cast<std::size_t>(selector)];
  SymbolCounts ac{};
  for (std::size_t i = 0; i < counts.runs.size(); ++i) {
    if (IsAcClass(i % kTokenClasses)) ac[RunSymbol(i / kTokenClasses, i % kTokenClasses)] += counts.runs[i];
  }
  ac[kLongRun] = counts.longRuns;
  ac[kEndOfBlock] = counts.ends;
  return ac;
}

BlockCoder::BlockCoder(Bytes& file, std::size_t room, const std::array<Tables, 2>& tables)
    : file_(file), writer_(nullptr), codes_{Prepare(tables[0]), Prepare(tables[1])} {
  const std::size_t used = file_.size();
  file_.resize(used + room);
  writer_.MoveTo(file_.data() + used);
}

BlockCoder::Codes BlockCoder::Prepare(const Tables& tables) {
  Codes codes;
  codes.dc = AssignCodes(tables.dc);
  const auto ac = AssignCodes(tables.ac);
  for (std::size_t i = 0; i < codes.runs.size(); ++i) {
    const std::size_t tokenClass = i % kTokenClasses;
    if (!IsAcClass(tokenClass)) continue;
    const HuffmanCode& code = ac[RunSymbol(i / kTokenClasses, tokenClass)];
    const int bits = MagnitudeBits(tokenClass);
    codes.runs[i] = {(code.bits << bits) + MagnitudeOffset(IsNegative(tokenClass), bits), code.length + bits};
  }
  codes.longRun = ac[kLongRun];
  codes.end = ac[kEndOfBlock];
  return codes;
}

void BlockCoder::MakeRoom() {
  const std::ptrdiff_t used = writer_.End() - file_.data();
  if (static_cast<std::ptrdiff_t>(file_.size()) - used >= kRoomForBlock) [[likely]]
    return;
  file_.resize(2 * file_.size() + kRoomForBlock);
  writer_.MoveTo(file_.data() + used);
}

void BlockCoder::PutDifference(const Codes& codes, int difference) {
  const int bits = MagnitudeBitsOf(difference);
  const HuffmanCode& code = codes.dc[static_cast<std::size_t>(bits)];
  const std::uint32_t magnitude =
      static_cast<std::uint32_t>(difference) + MagnitudeOffset(difference < 0, bits);
  writer_.Put((code.bits << bits) + magnitude, code.length + bits);
}

void BlockCoder::Take(int component, const CodedBlock& block) {
  MakeRoom();
  const Codes& codes = codes_[static_cast<std::size_t>(TableOf(component))];
  PutDifference(codes, prediction_.Difference(component, block.Value(0)));
  BitWriter writer = writer_;  // a copy that nothing else can point to stays in registers
  std::size_t next = 1;
  for (std::uint64_t rest = block.nonzero; rest != 0; rest &= rest - 1) {
    const auto k = static_cast<std::size_t>(std::countr_zero(rest));
    std::size_t run = k - next;
    next = k + 1;
    for (; run > 15; run -= 16)
      writer.Put(codes.longRun.bits, codes.longRun.length);
    const Entry& entry = codes.runs[run * kTokenClasses + TokenClass(block.tokens[k])];
    writer.Put(entry.base + static_cast<std::uint32_t>(block.Value(k)), entry.length);
  }
  if ((block.nonzero & kLastCoefficient) == 0) writer.Put(codes.end.bits, codes.end.length);
  writer_ = writer;
}

void BlockCoder::Finish() {
  writer_.Finish();
  file_.resize(static_cast<std::size_t>(writer_.End() - file_.data()));
}

std::uint64_t CodedBits(const SymbolCounts& counts, const HuffmanTable& table) {
  const auto codes = AssignCodes(table);
  std::uint64_t bits = 0;
  for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
    bits += counts[symbol] * (static_cast<std::uint64_t>(codes[symbol].length) + symbol % 16);
  }
  return bits;
}

}  // namespace vintoral
