#include "tariffs/Tasacion.h"

#include <optional>

namespace vintoral {

Duracion DuracionEntre(std::string_view entrada, std::string_view salida) {
  const std::optional<Estadia> stay = EstadiaEntre(entrada, salida);
  return stay ? Duracion{TextoEstadia(*stay), *stay} : Duracion{"??"_w, {}};
}

Tasacion Tasar(const std::vector<String>& tabla, std::string_view categoria, const Estadia& estadia) {
  return {CalcularValorDe(tabla, categoria, estadia), PuntosDe(estadia)};
}

}  // namespace vintoral
