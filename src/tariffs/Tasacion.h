// What a stay comes to, for the screen and for whoever asks without one.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "tariffs/Estadia.h"
#include "tariffs/Valor.h"

namespace vintoral {

/// A stay between two "dd/MM/yyyy hh:mm:ss" texts: its text ("02H 30M "), or "??" and a stay of nothing where
/// one of them is no moment or the exit lies before the entry.
struct Duracion {
  String texto;
  Estadia estadia;
};
Duracion DuracionEntre(std::string_view entrada, std::string_view salida);

/// What a stay costs in a category, and the points that it earns.
struct Tasacion {
  Valor valor;
  std::int64_t puntos = 0;
};
Tasacion Tasar(const std::vector<String>& tabla, std::string_view categoria, const Estadia& estadia);

}  // namespace vintoral
