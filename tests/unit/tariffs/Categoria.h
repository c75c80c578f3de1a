// Tables for the tests: lines go through the same door as those of a file.
#pragma once

#include <vector>

#include "tariffs/Tablas.h"
#include "tariffs/Valor.h"

namespace vintoral {

inline std::vector<String> TableOf(const std::vector<String>& lineas) {
  std::vector<String> tabla;
  for (const String& linea : DecodificarLineas(CodificarLineas(lineas)))
    tabla.push_back(LineaTarifa(linea));
  return tabla;
}

/// The price under a head "X" with these rules, a blank line below them.
inline Valor PriceBy(const std::vector<std::string_view>& rules, Estadia stay) {
  std::vector<String> lineas = {"X"_w};
  for (const std::string_view rule : rules)
    lineas.emplace_back(rule);
  lineas.push_back(" "_w);
  return CalcularValorDe(TableOf(lineas), "X", stay);
}

}  // namespace vintoral
