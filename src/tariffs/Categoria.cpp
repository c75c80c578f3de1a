#include "tariffs/Categoria.h"

#include <algorithm>
#include <iterator>

#include "tariffs/Tablas.h"

namespace vintoral {

bool TerminaCategoria(std::string_view linea) {
  return TrimBlanks(linea).empty();
}

std::size_t LineaDeCategoria(const std::vector<String>& tabla, std::string_view categoria) {
  const std::string_view wanted = TrimBlanks(categoria);
  const auto found = std::find_if(tabla.begin(), tabla.end(), [wanted](const String& linea) {
    return EqualNoCase(TrimBlanks(linea), wanted);
  });
  return static_cast<std::size_t>(found - tabla.begin());
}

std::vector<String> LineasDeCategoria(const std::vector<String>& tabla, std::size_t cabeza) {
  const auto head = tabla.begin() + static_cast<std::ptrdiff_t>(cabeza);
  const auto blank = std::find_if(head, tabla.end(), TerminaCategoria);
  return {head, blank == tabla.end() ? blank : std::next(blank)};
}

std::vector<String> TablaEditada(const std::vector<String>& lineas) {
  std::vector<String> tabla;
  tabla.reserve(lineas.size());
  std::transform(lineas.begin(), lineas.end(), std::back_inserter(tabla), LineaTarifa);
  return tabla;
}

String CategoriaEnLinea(const std::vector<String>& lineas, std::size_t linea) {
  if (linea >= lineas.size()) return {};
  for (std::size_t below = linea + 1; below > 0; --below) {
    const String& at = lineas[below - 1];
    if (TerminaCategoria(at)) return {};
    if (EsCategoria(at)) return LineaTarifa(at);
  }
  return {};
}

}  // namespace vintoral
