#include "station/form1/Form1.h"
#include "tariffs/Tasacion.h"

namespace vintoral {

String Form1::CalcularTiempo(std::string_view entrada, std::string_view salida) {
  const Duracion stay = DuracionEntre(entrada, salida);
  Permanencia = stay.estadia;
  return stay.texto;
}

}  // namespace vintoral
