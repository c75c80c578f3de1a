#include "tariffs/Estadia.h"

#include "common/Moment.h"
#include "common/Numbers.h"

namespace vintoral {

std::optional<Estadia> EstadiaEntre(std::string_view entrada, std::string_view salida) {
  const std::optional<Moment> from = ParseDateTime(entrada);
  const std::optional<Moment> to = ParseDateTime(salida);
  if (!from || !to || *from > *to) return std::nullopt;
  const std::int64_t seconds = (to->Milliseconds() - from->Milliseconds()) / 1000;
  return Estadia{.dias = static_cast<std::int32_t>(seconds / 86400),
                 .horas = static_cast<std::int32_t>(seconds / 3600 % 24),
                 .minutos = static_cast<std::int32_t>(seconds / 60 % 60)};
}

String TextoEstadia(const Estadia& estadia) {
  String text = Digits(estadia.minutos, 2) + "M "_w;
  if (estadia.dias >= 1 || estadia.horas != 0) text = Digits(estadia.horas, 2) + "H "_w + text;
  if (estadia.dias >= 1) text = Digits(estadia.dias, 2) + "D "_w + text;
  return text;
}

std::int64_t PuntosDe(const Estadia& estadia) {
  return std::int64_t{estadia.dias} * 96 + std::int64_t{estadia.horas} * 4 + estadia.minutos / 15;
}

}  // namespace vintoral
