// The articles that a gate sells beside the stay, as the table of extras has them.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

struct Articulo {
  String nombre;  ///< at most kAnchoArticulo characters, trimmed
  Money precio;   ///< whole cents, never below 0
  friend bool operator==(const Articulo&, const Articulo&) = default;
};

/// The article of a line: its name, "=", its price. Nothing where the line has no "="; without a number the
/// price is 0.
std::optional<Articulo> ArticuloDe(std::string_view linea);
/// Those of a table, in its order.
std::vector<Articulo> ArticulosDe(const std::vector<String>& tabla);

}  // namespace vintoral
