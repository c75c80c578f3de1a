// The 54-byte record of Vintoral.CDB: the code on the ticket of a ficha. Record n belongs to ficha n.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "records/FixedText.h"

namespace vintoral {

struct RegistroCodigo {
  FixedText<50> CodigoBarras;  ///< blank for none
  FixedText<4> FichaCodigo;    ///< the ficha's number as in NumeroFicha, blank for none

  static constexpr std::size_t kSize = 54;
  static RegistroCodigo Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroCodigo&, const RegistroCodigo&) = default;
};

}  // namespace vintoral
