// The 124-byte record of Vintoral.USR.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "records/FixedText.h"

namespace vintoral {

struct RegistroUsuario {
  FixedText<20> Placa;
  FixedText<20> Nombre;
  FixedText<20> Apellido;
  FixedText<20> Telefono;
  FixedText<20> Observacion;
  FixedText<20> Categoria;
  std::int32_t Puntos = 0;

  static constexpr std::size_t kSize = 124;
  static RegistroUsuario Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroUsuario&, const RegistroUsuario&) = default;
};

}  // namespace vintoral
