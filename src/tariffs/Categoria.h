// Where a category stands among the lines of the tariff table.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "common/String.h"

namespace vintoral {

/// A blank line ends the category above it.
bool TerminaCategoria(std::string_view linea);

/// The first line, from 0, that equals `categoria`, blanks at the ends and case aside; the count of lines
/// when none does.
std::size_t LineaDeCategoria(const std::vector<String>& tabla, std::string_view categoria);

/// The lines from the head at `cabeza` to the blank line that ends its category, that one included: a table
/// that prices the category as the whole table does.
std::vector<String> LineasDeCategoria(const std::vector<String>& tabla, std::size_t cabeza);

/// The table that saving an edited text would give: each of its lines as the station keeps it.
std::vector<String> TablaEditada(const std::vector<String>& lineas);

/// The name, as the station keeps it, of the category to which line `linea` (from 0) of an edited text
/// belongs: the nearest head at or above it. Empty on a blank line, below one without a new head, and past
/// the end.
String CategoriaEnLinea(const std::vector<String>& lineas, std::size_t linea);

}  // namespace vintoral
