#include "camera/cJpeg/ScanSymbols.h"

#include <bit>
#include <utility>

#include "camera/cJpeg/MarkerSegments.h"

namespace vintoral {

namespace {

constexpr std::uint64_t kLastCoefficient = std::uint64_t{1} << 63;

// Writes the words of the block's AC values and comes back with their end.
SymbolWord* WriteWords(const CodedBlock& block, SymbolWord* word) {
  std::size_t next = 1;
  for (std::uint64_t rest = block.nonzero; rest != 0; rest &= rest - 1) {
    const auto k = static_cast<std::size_t>(std::countr_zero(rest));
    std::size_t run = k - next;
    next = k + 1;
    for (; run > 15; run -= 16)
      *word++ = kLongRun;
    *word++ = MakeSymbolWord(block.values[k], run);
  }
  if ((block.nonzero & kLastCoefficient) == 0) *word++ = kEndOfBlock;
  return word;
}

}  // namespace

void ScanSymbols::Take(int component, const CodedBlock& block) {
  const int selector = TableOf(component);
  const int last = std::exchange(lastDc_[static_cast<std::size_t>(component)], block.values[0]);
  const int difference = block.values[0] - last;
  SymbolWord* const start = store_.Next();
  SymbolWord* const end = WriteWords(block, start + 2);
  start[0] = static_cast<SymbolWord>(difference);
  start[1] = static_cast<SymbolWord>((end - start - 2) * 2 + selector);
  store_.KeepTo(end);

  Counts& counts = counts_[static_cast<std::size_t>(selector)];
  ++counts.dc[static_cast<std::size_t>(MagnitudeBitsOf(difference))];
  for (const SymbolWord* word = start + 2; word != end; ++word)
    ++counts.ac[FormOf(*word)];
}

void ScanSymbols::TakeBeyond(int component) {
  CodedBlock block{};
  block.values[0] = static_cast<std::int16_t>(lastDc_[static_cast<std::size_t>(component)]);
  Take(component, block);
}

SymbolCounts ScanSymbols::AcCounts(int selector) const {
  const Counts& counts = counts_[static_cast<std::size_t>(selector)];
  SymbolCounts ac{};
  for (std::size_t form = 0; form < kSymbolForms; ++form)
    ac[SymbolOfForm(form)] += counts.ac[form];
  return ac;
}

}  // namespace vintoral
