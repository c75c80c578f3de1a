// The 10106-byte record of Vintoral.TQE: how the entry ticket of this station is printed.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "records/FixedText.h"

namespace vintoral {

struct RegistroTiquete {
  FixedText<100> Impresora;  ///< device name of its printer
  float DimFuente = 0;       ///< points, as it stands in the file; see TamanoFuente
  FixedText<5000> Encabezado;
  bool Foto = false;  ///< print the entry photo
  FixedText<5000> Pie;

  static constexpr std::size_t kSize = 10106;
  static RegistroTiquete Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroTiquete&, const RegistroTiquete&) = default;
};

}  // namespace vintoral
