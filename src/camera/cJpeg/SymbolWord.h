#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace vintoral {

// An AC value of a block and the zeros before it, as they wait for their code: the run of zeros, 0 to 15, in
// the low four bits, the value above. The two symbols without a value are words whose value is 0.
using SymbolWord = std::uint16_t;

inline constexpr SymbolWord kEndOfBlock = 0;
inline constexpr SymbolWord kLongRun = 15;  // sixteen zeros

constexpr SymbolWord MakeSymbolWord(int value, std::size_t run) {
  return static_cast<SymbolWord>(static_cast<std::size_t>(value) << 4 | run);
}

constexpr int ValueOf(SymbolWord word) {
  return static_cast<std::int16_t>(word) >> 4;
}

constexpr int MagnitudeBitsOf(int value) {
  return static_cast<int>(std::bit_width(static_cast<unsigned>(value < 0 ? -value : value)));
}

// The magnitude bits of a value are the value itself, or one less when it is negative (ITU-T T.81,
// F.1.2.1.1): what is to be added to it, so that none is set above them.
constexpr std::uint32_t MagnitudeOffset(bool negative, int bits) {
  return negative ? (1U << bits) - 1U : 0U;
}

// Words that have the same code fall into a form: the run, the sign, and the number of magnitude bits.
inline constexpr std::size_t kSymbolForms = std::size_t{16} * 32;

// Sign and number of magnitude bits of each value of twelve bits; looked up, as it is asked for every value.
inline constexpr auto kLowerForm = [] {
  std::array<std::uint8_t, 4096> forms{};
  for (std::size_t i = 0; i < forms.size(); ++i) {
    const int value = ValueOf(static_cast<SymbolWord>(i << 4));
    forms[i] = static_cast<std::uint8_t>((value < 0 ? 16 : 0) | MagnitudeBitsOf(value));
  }
  return forms;
}();

constexpr std::size_t FormOf(SymbolWord word) {
  return std::size_t{word & 15U} << 5 | kLowerForm[word >> 4];
}
constexpr bool IsNegativeForm(std::size_t form) {
  return (form & 16U) != 0;
}
constexpr int MagnitudeBitsOfForm(std::size_t form) {
  return static_cast<int>(form & 15U);
}

// The symbol that the form is coded by (ITU-T T.81, F.1.2.2.1).
constexpr std::size_t SymbolOfForm(std::size_t form) {
  return form >> 5 << 4 | (form & 15U);
}

}  // namespace vintoral
