// The 46-byte record with two self-describing fields: Vintoral.DAT, and the shape of .EXT and .FDR.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>

#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

/// A self-describing field: two bytes of type, then the value. Type 0 is empty, 2 a signed 16-bit number, 8 a
/// text with a 16-bit length before it.
using CampoVariable = std::variant<std::monostate, std::int16_t, String>;

/// The field read as text: a number in digits, empty as "".
String TextOf(const CampoVariable& field);
/// The field read as a number: of a text the number at its start.
std::int64_t NumberOf(const CampoVariable& field);

struct RegistroMixto {
  CampoVariable CampoA;
  CampoVariable CampoB;
  bool Marca = false;
  Money Importe;
  std::int16_t Numero1 = 0;
  std::int16_t Numero2 = 0;

  static constexpr std::size_t kSize = 46;
  /// Texts of this length in both fields fill the record exactly.
  static constexpr std::size_t kPieza = 12;
  /// Any bytes are legal: a length that points past the record ends with it, and what doesn't fit reads as 0.
  /// An unknown type ends the record: it hides where the next field begins.
  static RegistroMixto Decode(std::span<const char, kSize> bytes);
  /// A text too long for the record is cut so that the fields behind it still fit.
  std::array<char, kSize> Encode() const;
  /// How many of a record's bytes its fields take. What stands behind them belongs to the place in the file,
  /// and stays there whichever record comes to it. An unknown type takes all.
  static std::size_t Used(std::span<const char, kSize> bytes);
  /// Over the bytes of a place in the file.
  void EncodeOver(std::span<char, kSize> place) const;

  friend bool operator==(const RegistroMixto&, const RegistroMixto&) = default;
};

}  // namespace vintoral
