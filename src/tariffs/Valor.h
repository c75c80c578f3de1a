// The price of a stay by the rules of a category.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "common/Money.h"
#include "common/String.h"
#include "tariffs/Estadia.h"

namespace vintoral {

struct Valor {
  bool encontrada = false;  ///< the category is in the table
  bool conPrecio = false;   ///< some rule counts for this stay; without one the gate shows no value
  Money valor;              ///< whole cents
  /// The stay as it was charged: a first-hour mark makes one whole hour of the minutes.
  Estadia contada;
  std::size_t reglasMinutos = 0, reglasHoras = 0, reglasDias = 0;
  /// The lines of the table, from 0, whose values the three parts took; none where no rule counts.
  std::optional<std::size_t> lineaMinutos = {}, lineaHoras = {}, lineaDias = {};
};

/// Prices `estadia` by the first line of `tabla` that equals `categoria`, blanks at the ends and case aside,
/// and the lines below it up to the first blank one. An unknown category costs nothing. Every step is exact;
/// a value beyond the range of Money stops at its end. `tabla` holds what LineaTarifa gives for each record.
Valor CalcularValorDe(const std::vector<String>& tabla, std::string_view categoria, Estadia estadia);

}  // namespace vintoral
