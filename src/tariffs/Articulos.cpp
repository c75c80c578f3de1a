#include "tariffs/Articulos.h"

#include "tariffs/TextoTabla.h"

namespace vintoral {

std::optional<Articulo> ArticuloDe(std::string_view linea) {
  const std::size_t equals = linea.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const Money price = MoneyFromText(PrecioDeArticulo(linea.substr(equals + 1))).RoundedToCents();
  return Articulo{.nombre = NombreDeArticulo(linea.substr(0, equals)),
                  .precio = price < Money() ? Money() - price : price};
}

std::vector<Articulo> ArticulosDe(const std::vector<String>& tabla) {
  std::vector<Articulo> articles;
  for (const String& line : tabla) {
    if (std::optional<Articulo> article = ArticuloDe(line)) articles.push_back(*std::move(article));
  }
  return articles;
}

}  // namespace vintoral
