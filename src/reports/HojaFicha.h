// The sheet of one ficha: a page without a table.
#pragma once

#include <array>

#include "common/Outcome.h"
#include "records/RegistroFicha.h"
#include "reports/DatosInforme.h"
#include "reports/Escritor.h"

namespace vintoral {

struct DatosHoja {
  String porteria;  ///< "01"
  String moneda;
  std::array<String, 5> etiquetas;  ///< "¬" is a blank that stays
  FotoInforme foto;
};

Outcome EscribirHoja(const DatosHoja& datos, const RegistroFicha& ficha, Destino destino);

}  // namespace vintoral
