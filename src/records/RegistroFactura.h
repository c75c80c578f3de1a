// The 10146-byte record of Vintoral.FTA: how the invoices of this station are printed, and the number of the
// last one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "records/FixedText.h"

namespace vintoral {

struct RegistroFactura {
  FixedText<100> Impresora;  ///< device name of its printer
  float DimFuente = 0;       ///< points, as it stands in the file; see TamanoFuente
  FixedText<5000> Encabezado;
  FixedText<26> Prefijo;  ///< ends at its character 27, so that blanks before it count
  std::int32_t NumFactura = 0;
  float Impuesto = 0;        ///< percent on stays, as it stands in the file; see Porcentaje
  float ImpuestoExtras = 0;  ///< percent on extras, likewise
  bool Copia = false;        ///< print a second copy
  bool Puntos = false;       ///< print the points line of a stay
  FixedText<5000> Pie;

  static constexpr std::size_t kSize = 10146;
  static RegistroFactura Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroFactura&, const RegistroFactura&) = default;
};

}  // namespace vintoral
