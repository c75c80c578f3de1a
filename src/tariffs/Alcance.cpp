#include "tariffs/Alcance.h"

#include "tariffs/Reglas.h"
#include "tariffs/Valor.h"

namespace vintoral {
namespace {

/// A price changes its line only at these stays: each minute, each hour, and either side of each key of days.
std::vector<Estadia> TellingStays(const std::vector<String>& categoria) {
  std::vector<Estadia> stays;
  for (std::int32_t minute = 0; minute < 60; ++minute) {
    stays.push_back({0, 0, minute});
    stays.push_back({0, 1, minute});
  }
  for (std::int32_t hour = 2; hour < 24; ++hour)
    stays.push_back({0, hour, 0});
  for (const String& linea : categoria) {
    const ReglaTarifa regla = LeerRegla(linea);
    if (!regla.dias) continue;
    const auto key = static_cast<std::int32_t>(regla.clave);
    stays.push_back({key, 0, 0});
    stays.push_back({key + 1, 0, 0});
  }
  return stays;
}

}  // namespace

std::vector<bool> LineasAlcanzadas(const std::vector<String>& categoria) {
  std::vector<bool> reached(categoria.size());
  for (const Estadia& stay : TellingStays(categoria)) {
    const Valor valor = CalcularValorDe(categoria, categoria.front(), stay);
    for (const auto& linea : {valor.lineaMinutos, valor.lineaHoras, valor.lineaDias})
      if (linea) reached[*linea] = true;
  }
  return reached;
}

}  // namespace vintoral
