// A stay: the time between a vehicle's entry and its exit, in the units that the tariff prices.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "common/String.h"

namespace vintoral {

struct Estadia {
  std::int32_t dias = 0;     ///< whole days
  std::int32_t horas = 0;    ///< after the whole days, 0 to 23
  std::int32_t minutos = 0;  ///< after the whole hours, 0 to 59
  friend bool operator==(const Estadia&, const Estadia&) = default;
};

/// The stay between two texts "dd/MM/yyyy hh:mm:ss". Empty when either holds no moment or the entry is the
/// later one; the gate then shows "??" and prices a stay of nothing.
std::optional<Estadia> EstadiaEntre(std::string_view entrada, std::string_view salida);

/// "01D 02H 30M ", "02H 05M " or "00M ": units from the first that counts, the trailing blank included.
String TextoEstadia(const Estadia& estadia);

/// One point for each complete quarter of an hour.
std::int64_t PuntosDe(const Estadia& estadia);

}  // namespace vintoral
