#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "station/form1/Impresos.h"

namespace vintoral {

/// What an invoice tells of a stay.
struct DatosEstadia {
  std::array<CampoImpreso, 5> campos;
  String entrada, salida;  ///< stamps
  String categoria;
  std::optional<std::int64_t> puntos;  ///< nothing where they are not printed
  String tiempo;                       ///< "02H 30M "
};

/// The detail of its invoice; see DatosFactura.
String DetalleEstadia(const DatosEstadia& estadia);

}  // namespace vintoral
