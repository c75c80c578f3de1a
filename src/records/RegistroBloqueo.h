// The record of Vintoral.EXT that holds the lock of functions, behind the list of sales.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "common/String.h"
#include "records/RegistroExtra.h"

namespace vintoral {

struct RegistroBloqueo {
  String Contraseña;  ///< empty for none
  String Funciones;   ///< "0" and "1"

  static constexpr std::int64_t kNumero = kRenglonesVenta + 1;

  static constexpr std::size_t kSize = RegistroExtra::kSize;
  /// Any bytes are legal, as those of RegistroMixto.
  static RegistroBloqueo Decode(std::span<const char, kSize> bytes);
  /// The mark of a sale stays as it is in `place`, and so does what the fields don't take.
  void EncodeOver(std::span<char, kSize> place) const;

  friend bool operator==(const RegistroBloqueo&, const RegistroBloqueo&) = default;
};

}  // namespace vintoral
