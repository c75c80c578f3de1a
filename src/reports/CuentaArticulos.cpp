#include "reports/CuentaArticulos.h"

#include <algorithm>

#include "common/Numbers.h"
#include "records/RegistroExtra.h"
#include "reports/Suma.h"
#include "reports/Tira.h"

namespace vintoral {

CuentaArticulos::CuentaArticulos(std::vector<Articulo> articulos)
    : articulos_(std::move(articulos)), cantidades_(articulos_.size()) {}

void CuentaArticulos::Contar(std::string_view nombre, std::int64_t cantidad) {
  const std::string_view name = TrimBlanks(nombre);
  const auto same = [&](const Articulo& articulo) { return EqualNoCase(TrimBlanks(articulo.nombre), name); };
  const auto found = std::find_if(articulos_.begin(), articulos_.end(), same);
  if (found != articulos_.end())
    cantidades_[static_cast<std::size_t>(found - articulos_.begin())] += cantidad;
}

String CuentaArticulos::Linea(std::size_t indice) const {
  constexpr std::size_t kAnchoCantidad = 6, kAnchoValor = 9;
  const Articulo& articulo = articulos_[indice];
  const std::int64_t quantity = cantidades_[indice];
  return " "_w + articulo.nombre + Blancos(RegistroExtra::kAnchoArticulo, articulo.nombre.Size()) + " "_w +
         AlignRight(Digits(quantity), kAnchoCantidad) +
         AlignRight(Suma::Producto(quantity, articulo.precio).Texto(), kAnchoValor);
}

std::vector<String> CuentaArticulos::Lineas() const {
  std::vector<String> lines;
  for (std::size_t i = 0; i < articulos_.size(); ++i)
    lines.push_back(Linea(i));
  return lines;
}

std::vector<String> CuentaArticulos::LineasVendidas() const {
  std::vector<String> lines;
  for (std::size_t i = 0; i < articulos_.size(); ++i) {
    if (cantidades_[i] > 0) lines.push_back(Linea(i));
  }
  return lines;
}

}  // namespace vintoral
