// The two reports of extras: texts of 31 columns behind one blank.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "common/Outcome.h"
#include "common/String.h"
#include "records/RegistroExtra.h"
#include "reports/Escritor.h"
#include "tariffs/Articulos.h"

namespace vintoral {

struct DatosExtras {
  bool turnoActivo = false;
  String marcaTurno;  ///< the stamp of its beginning
  String ahora;       ///< a stamp
  String porteria;    ///< "01"
  String moneda;
  std::vector<Articulo> articulos;  ///< those that are sold now
  /// The list of sales from record 1, the newest, on; nothing where there is no file.
  std::optional<std::vector<RegistroExtra>> ventas;
};

/// What was sold of each article, day by day.
Outcome EscribirValorExtra(const DatosExtras& datos, Destino destino);
/// Each line of the sales, and below it what was sold of each article.
Outcome EscribirContadorExtra(const DatosExtras& datos, Destino destino);

/// "20/11/2026" of the "20/11/26" of a sale; what is no such date stays as it is.
String FechaDeVenta(std::string_view fecha);
/// "09:05" of 905; "??:??" of what is no time of day.
String HoraDeVenta(std::int16_t hora);

}  // namespace vintoral
