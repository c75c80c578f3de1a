#include "station/form1/Form1.h"

namespace vintoral {

String Form1::CalcularTiempo(std::string_view entrada, std::string_view salida) {
  const std::optional<Estadia> stay = EstadiaEntre(entrada, salida);
  Permanencia = stay.value_or(Estadia{});
  return stay ? TextoEstadia(*stay) : "??"_w;
}

}  // namespace vintoral
