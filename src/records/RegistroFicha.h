// The 188-byte record of Vintoral.ACT, .HST, .NSR and .CRD.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "common/Money.h"
#include "records/FixedText.h"

namespace vintoral {

struct RegistroFicha {
  bool EnUso = false;          ///< the slot holds a ficha that is inside
  FixedText<20> MarcaEntrada;  ///< stamp "hh:mm  (dd/MM/yyyy)"
  FixedText<20> MarcaSalida;   ///< stamp, "??" while inside
  FixedText<4> NumeroFicha;    ///< four digits
  FixedText<20> Placa;
  FixedText<20> Nombre;
  FixedText<20> Apellido;
  FixedText<20> Telefono;
  FixedText<20> Observacion;
  FixedText<20> Categoria;
  FixedText<2> PorteriaEntrada;
  FixedText<2> PorteriaSalida;  ///< "??" while inside
  std::int32_t Posicion = 0;    ///< the record's own number
  Money ValorCobrado;
  bool InicioTurno = false;
  std::int32_t UsuarioPuntos = 0;

  static constexpr std::size_t kSize = 188;
  /// Exactly kSize bytes as they stand on disk; any bytes are legal.
  static RegistroFicha Decode(std::span<const char, kSize> bytes);
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroFicha&, const RegistroFicha&) = default;
};

}  // namespace vintoral
